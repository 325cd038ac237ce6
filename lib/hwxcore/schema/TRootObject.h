#ifndef HWXCORE_SCHEMA_TROOTOBJECT_H
#define HWXCORE_SCHEMA_TROOTOBJECT_H

#include <boost/shared_ptr.hpp>

namespace NQORHWX20 {

class ILogger;
class INamespaceProviderManager;

/// The two entry points of the library.
class TRootObject {
 public:
  /// The calling thread's logger; never null, owned by the library.
  static ILogger* GetCoreLogger();

  /// The process's registry of namespace providers: one object for all callers.
  static boost::shared_ptr<INamespaceProviderManager> GetNamespaceProviderManager();
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_TROOTOBJECT_H
