#ifndef HWXTESTS_SUPPORT_FAKESCSISYSTEM_H
#define HWXTESTS_SUPPORT_FAKESCSISYSTEM_H

#include <map>
#include <string>
#include <vector>

#include "hwxcore/os/detail/ScsiBlockDevice.h"

namespace hwxtest {

/// A machine of made-up SCSI devices, which keeps what is opened, in order. What isn't added can't
/// be opened.
class FakeScsiSystem : public NQORHWX20::detail::IScsiSystem {
 public:
  using TGenericAddress = NQORHWX20::detail::TGenericAddress;
  using TBlockAddress = NQORHWX20::detail::TBlockAddress;

  /// Without an address, the device can be opened and tells none.
  void AddGeneric(const std::string& path, std::optional<TGenericAddress> address) {
    fDevices[path].fGeneric = address;
  }
  void AddBlock(const std::string& path, std::optional<TBlockAddress> address) {
    fDevices[path].fBlock = address;
  }

  const std::vector<std::string>& Opened() const { return fOpened; }

  int Open(const std::string& path) override {
    fOpened.push_back(path);
    return fDevices.count(path) == 0 ? -1 : static_cast<int>(fOpened.size()) - 1;
  }
  std::optional<TGenericAddress> GenericAddress(int descriptor) override {
    return Device(descriptor).fGeneric;
  }
  std::optional<TBlockAddress> BlockAddress(int descriptor) override {
    return Device(descriptor).fBlock;
  }

 private:
  struct TDevice {
    std::optional<TGenericAddress> fGeneric;
    std::optional<TBlockAddress> fBlock;
  };

  const TDevice& Device(int descriptor) const {
    return fDevices.at(fOpened.at(static_cast<std::size_t>(descriptor)));
  }

  std::map<std::string, TDevice> fDevices;
  std::vector<std::string> fOpened;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FAKESCSISYSTEM_H
