#ifndef HWXTESTS_SUPPORT_TRACEDNAMESPACE_H
#define HWXTESTS_SUPPORT_TRACEDNAMESPACE_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxcore/value/TCIMValue.h"
#include "support/CallTrace.h"

namespace NQORHWX20 {
class ICIMClass;
class ICIMInstance;
class ICIMNamespace;
}  // namespace NQORHWX20

namespace hwxtest {

/// A namespace that passes every call on to `inner` and writes it down in `trace`, which must
/// outlive it. So do all objects that come out of it:
///
///     CallTrace trace;
///     const auto target = TracedNamespace(TMemoryNamespace::Create("root"), "target", trace);
///     target->CreateClass("EX_Disk", {}, {})->Commit({});
///     EXPECT_THAT(trace.Calls(),
///                 ElementsAre("target.CreateClass(EX_Disk, none)", "target.EX_Disk.Commit"));
///
/// Objects are written as
///
/// | Object                       | Text                                                     |
/// |------------------------------|----------------------------------------------------------|
/// | Class                        | target.EX_Disk                                           |
/// | Instance                     | target.EX_Disk#0, the first of an enumeration, or "#new" |
/// | Property declaration         | target.EX_Disk.Size                                      |
/// | Property of an instance      | target.EX_Disk#0.Size                                    |
/// | Static property              | target.EX_Disk::Size                                     |
/// | Method, parameter            | target.EX_Disk.Reset(), target.EX_Disk.Reset(Mode)       |
/// | Qualifier                    | the element, then [Key]                                  |
/// | Qualifier declaration        | target[Key]                                              |
///
/// An object that is handed to a call is written in the same way, "none" for an empty pointer and
/// "untraced" for one of another maker; a value as `ValueText` writes it. A class has one traced
/// object as long as somebody holds that.
///
/// Operations that the copier has no use for throw `std::logic_error`.
boost::shared_ptr<NQORHWX20::ICIMNamespace> TracedNamespace(
    const boost::shared_ptr<NQORHWX20::ICIMNamespace>& inner, const std::string& label,
    CallTrace& trace);

/// What a traced object stands for; any other object itself.
boost::shared_ptr<NQORHWX20::ICIMClass> Untraced(
    const boost::shared_ptr<NQORHWX20::ICIMClass>& object);
boost::shared_ptr<NQORHWX20::ICIMInstance> Untraced(
    const boost::shared_ptr<NQORHWX20::ICIMInstance>& object);

/// A value as traces write it: `ValueText` with classes as in the table.
std::string TracedText(const NQORHWX20::TCIMValue& value);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_TRACEDNAMESPACE_H
