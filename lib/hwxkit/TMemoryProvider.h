#ifndef HWXKIT_TMEMORYPROVIDER_H
#define HWXKIT_TMEMORYPROVIDER_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxkit/INamespaceSource.h"

namespace NQORHWX20 {

/// Builds a provider's namespace.
using TNamespaceFactory = boost::function<boost::shared_ptr<ICIMNamespace>()>;

/// A provider that consists of a name and a way to build its namespace, which it does anew at each
/// opening. It holds no namespace itself.
///
/// The registry lets go of a provider when the process ends, after the static objects of the
/// provider's plug-in are gone: the factory must not need any of them to be destroyed.
///
/// Thread-safety: that of the factory.
class HWX_EXPORT TMemoryProvider : public INamespaceSource {
 public:
  TMemoryProvider(const std::string& name, const TNamespaceFactory& factory);
  ~TMemoryProvider() override;

  const std::string& GetName(TCIMContext context) override;

  /// Throws `kHWXStatusNotFound` if the key "nspID" of the context is anything but this provider's
  /// name, and what the factory throws.
  boost::shared_ptr<ICIMNamespace> OpenNamespace(TCIMContext context) override;

 private:
  const std::string fName;
  const TNamespaceFactory fFactory;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYPROVIDER_H
