#include "hwxcore/schema/ClassNames.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TInstanceList.h"
#include "providers/linux/Classes.h"

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
  NQORHWX20::TClassBuilder(ns, NQORHWX20::kProductClassName)
      .Description("The software that produced the data.")
      .Key("Name", "string", "What the software is called.")
      .Property("Version", "string", "Major and minor version, patch level and build number.")
      .Property("Build", "string", "The build number.")
      .Source(&ListProduct)
      .Commit();
}

}  // namespace linux_machine
