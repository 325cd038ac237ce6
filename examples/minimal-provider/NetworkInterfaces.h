#ifndef MINIMAL_PROVIDER_NETWORKINTERFACES_H
#define MINIMAL_PROVIDER_NETWORKINTERFACES_H

#include <optional>
#include <string>
#include <vector>

// Reading, which knows nothing of classes and instances.

struct TNetworkInterface {
  std::string fName;
  std::optional<std::string> fAddress;  // none where the kernel has none
  std::optional<unsigned int> fMTU;     // in bytes
};

/// The network interfaces as they are now.
std::vector<TNetworkInterface> ReadNetworkInterfaces();

#endif  // MINIMAL_PROVIDER_NETWORKINTERFACES_H
