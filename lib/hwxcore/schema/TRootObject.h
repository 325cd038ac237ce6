#ifndef HWXCORE_SCHEMA_TROOTOBJECT_H
#define HWXCORE_SCHEMA_TROOTOBJECT_H

#include <boost/shared_ptr.hpp>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

class ILogger;
class INamespaceProviderManager;

/// The two entry points of the library.
class HWX_EXPORT TRootObject {
 public:
  /// The calling thread's logger; never null, owned by the library.
  static ILogger* GetCoreLogger();

  /// The process's registry of namespace providers: one object for all callers.
  static boost::shared_ptr<INamespaceProviderManager> GetNamespaceProviderManager();
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_TROOTOBJECT_H
