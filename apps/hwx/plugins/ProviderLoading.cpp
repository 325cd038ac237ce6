#include "hwx/plugins/ProviderLoading.h"

#include <algorithm>
#include <boost/pointer_cast.hpp>
#include <vector>

#include "hwx/text/Failure.h"
#include "hwx/text/StatusWords.h"
#include "hwxcore/os/TLoadException.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/schema/INamespaceProviderManager.h"
#include "hwxcore/schema/TRootObject.h"
#include "hwxcore/value/THWXException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

std::vector<std::string> ProviderNames() {
  try {
    return TOSSpecific::FindNSPs();
  } catch (const THWXException& failure) {
    throw TFailure("the library's directory can't be searched for providers: " +
                   InWords(failure.GetStatus()));
  }
}

void RequireProviderFile(const std::string& name) {
  const std::vector<std::string> names = ProviderNames();
  if (std::find(names.begin(), names.end(), name) != names.end()) return;
  throw TFailure("there is no provider: " + TOSSpecific::GetHWXRootPath() + "/lib" + name +
                 ".nsp.so is absent");
}

void LoadPlugin(const std::string& name) {
  try {
    TOSSpecific::LoadNSPLibrary(name);
  } catch (const TLoadException& failure) {
    throw TFailure("the provider can't be loaded: Couldn't load NSP: " + name + " (" +
                   failure.GetDetail() + ")");
  } catch (const THWXException& failure) {  // of the plug-in's own code
    throw TFailure("the provider can't be loaded: " + InWords(failure));
  }
}

boost::shared_ptr<INamespaceProvider> RegisteredProvider(const std::string& name) {
  try {
    return TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider(name);
  } catch (const THWXException&) {
    throw TFailure("the provider was loaded, but didn't register itself as \"" + name + "\"");
  }
}

}  // namespace

boost::shared_ptr<INamespaceSource> LoadProvider(const std::string& name) {
  RequireProviderFile(name);
  LoadPlugin(name);
  auto source = boost::dynamic_pointer_cast<INamespaceSource>(RegisteredProvider(name));
  if (!source) throw TFailure("the provider \"" + name + "\" opens no namespace");
  return source;
}

}  // namespace hwx
