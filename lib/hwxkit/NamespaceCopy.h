// Copying a namespace into one of the kit, with all that it says. `TCIMCopy` does so too, and
// leaves out what its callers rely on: null values, the namespaces of references, properties that
// override without saying so, what only the kit knows of parameters, properties and qualifiers.
//
// Thread-safety: that of both namespaces.

#ifndef HWXKIT_NAMESPACECOPY_H
#define HWXKIT_NAMESPACECOPY_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMValue.h"

namespace NQORHWX20 {

class ICIMInstance;
class ICIMNamespace;
class TMemoryNamespace;

/// Is told what can't be copied, and why: "the property Size of EX_Disk", "...".
using TCopyFailure = boost::function<void(const std::string& what, const std::string& why)>;

/// Copies qualifier declarations and classes, with their static values, into an empty namespace. A
/// declaration that can't be copied is left out and told. Throws what the source throws, and
/// `kHWXStatusAlreadyExists` and the like where the target isn't empty.
HWX_EXPORT void CopySchema(ICIMNamespace& source, const boost::shared_ptr<TMemoryNamespace>& target,
                           const TCopyFailure& failed);

/// Copies an instance to the target's class of the same name, and adds it there. Throws
/// `kHWXStatusNotFound` if there is no such class, and what the target refuses: then the instance
/// isn't added.
HWX_EXPORT void CopyInstance(ICIMInstance& source,
                             const boost::shared_ptr<TMemoryNamespace>& target);

/// A value that is bound to the target: references by the names of their classes. A class that the
/// target doesn't have is one outside it.
HWX_EXPORT TCIMValue CopyValue(const TCIMValue& value,
                               const boost::shared_ptr<TMemoryNamespace>& target);

}  // namespace NQORHWX20

#endif  // HWXKIT_NAMESPACECOPY_H
