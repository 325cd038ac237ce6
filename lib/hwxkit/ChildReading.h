// Reading a provider in a child process. A provider that crashes, hangs, exits, throws what is no
// exception or prints costs what it was asked for, and nothing else.
//
//     const auto machine = OpenInChild([] { return OpenMyProvider(); }, TChildLimits());
//
// Thread-safety: for the main thread, while there are no others: a child has the memory of its
// parent, but none of its threads.

#ifndef HWXKIT_CHILDREADING_H
#define HWXKIT_CHILDREADING_H

#include <boost/shared_ptr.hpp>
#include <functional>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMNamespace.h"
#include "hwxkit/TChildLimits.h"

namespace NQORHWX20 {

/// Loads a provider and opens its namespace. Run in the child, again for each new one.
using TNamespaceOpener = std::function<boost::shared_ptr<ICIMNamespace>()>;

/// Called with what a user should know though it is no failure, such as that a class printed
/// something. May be empty.
using TChildNotice = std::function<void(const std::string& notice)>;

/// The namespace that `open` opens, read in a child. Its schema is read at once; instances are
/// asked for anew at each enumeration, as those of any live class. The caller owns it, and the
/// child lives until it is gone.
///
/// If the child is lost while it reads a class, the enumeration presents what came before and then
/// throws `TChildLostException`. Later enumerations of this class throw it at once; other classes
/// are read by a new child. If the provider throws, the enumeration presents what came before and
/// then throws `TDetailedException`, with the provider's status if it had one.
///
/// Throws `TDetailedException` if `open` throws, with its status, and its words as the detail;
/// `TChildLostException` if the child is lost. A class that the kit refuses is left out, with a
/// notice.
HWX_EXPORT boost::shared_ptr<ICIMNamespace> OpenInChild(
    const TNamespaceOpener& open, const TChildLimits& limits,
    const TChildNotice& notice = TChildNotice());

/// Runs `call` in a child and returns its result. Throws `TDetailedException` if it throws, and
/// `TChildLostException` if the child is lost.
HWX_EXPORT std::string CallInChild(const std::function<std::string()>& call,
                                   const TChildLimits& limits);

}  // namespace NQORHWX20

#endif  // HWXKIT_CHILDREADING_H
