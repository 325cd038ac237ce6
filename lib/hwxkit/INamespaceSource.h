#ifndef HWXKIT_INAMESPACESOURCE_H
#define HWXKIT_INAMESPACESOURCE_H

#include <boost/shared_ptr.hpp>

#include "hwxbase/Export.h"
#include "hwxcore/schema/INamespaceProvider.h"

namespace NQORHWX20 {

class ICIMNamespace;

/// A provider that hands out its namespace. This is how a front end gets at one: it takes the
/// provider from the registry and converts it with `boost::dynamic_pointer_cast`.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT INamespaceSource : public INamespaceProvider {
 public:
  ~INamespaceSource() override;

  /// Opens the namespace; the caller owns it. Throws `kHWXStatusNotFound` if the key "nspID" of the
  /// context names another provider; more keys are the provider's business.
  virtual boost::shared_ptr<ICIMNamespace> OpenNamespace(TCIMContext context) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_INAMESPACESOURCE_H
