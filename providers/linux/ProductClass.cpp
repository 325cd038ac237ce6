#include "hwxcore/schema/ClassNames.h"
#include "hwxkit/TInstanceList.h"
#include "providers/linux/Classes.h"
#include "providers/linux/OwnerKeys.h"

namespace linux_machine {

namespace {

void ListProduct(NQORHWX20::TInstanceList& instances) {
  instances.Add()
      .Set("Name", "hwx")
      .Set("Version", HWX_VERSION "." HWX_BUILD_NUMBER)
      .Set("Build", HWX_BUILD_NUMBER);
}

}  // namespace

void DefineProduct(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  DeclaredClass(*ns, NQORHWX20::kProductClassName)->SetInstanceSource(&ListProduct);
}

}  // namespace linux_machine
