#include <hwxcore/hwxcore.h>
#include <hwxkit/INamespaceSource.h>

#include <iostream>

using namespace NQORHWX20;

int main() {
  try {
    TOSSpecific::LoadNSPLibrary("plugin");  // the provider of the machine it runs on
    const auto registry = TRootObject::GetNamespaceProviderManager();
    const auto source =
        boost::dynamic_pointer_cast<INamespaceSource>(registry->GetNamespaceProvider("plugin"));
    const auto machine = source->OpenNamespace(TCIMContext());
    std::cout << TCIMSchemaHelper::GetSystemName(machine) << " runs "
              << TCIMSchemaHelper::GetOperatingSystemName(machine) << "\n";
  } catch (const THWXException& failure) {
    std::cerr << "minimal-frontend: " << failure.what() << "\n";
    return 1;
  }
}
