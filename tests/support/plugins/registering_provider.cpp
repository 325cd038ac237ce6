// A provider plug-in that enters itself in the registry when it is loaded, under the name
// "registering".

#include "hwxcore/schema/INamespaceProvider.h"
#include "hwxcore/schema/INamespaceProviderManager.h"
#include "hwxcore/schema/TRootObject.h"

namespace {

class RegisteringProvider : public NQORHWX20::INamespaceProvider {
 public:
  const std::string& GetName(NQORHWX20::TCIMContext) override { return fName; }

 private:
  const std::string fName = "registering";
};

bool Register() {
  NQORHWX20::TRootObject::GetNamespaceProviderManager()->RegisterNamespaceProvider(
      boost::shared_ptr<NQORHWX20::INamespaceProvider>(new RegisteringProvider));
  return true;
}

[[maybe_unused]] const bool kRegistered = Register();

}  // namespace

// For plug-ins that are loaded later.
extern "C" int registering_Answer() {
  return 42;
}
