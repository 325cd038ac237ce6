#include "providers/linux/LiveClass.h"
#include "providers/linux/Processors.h"

namespace linux_machine {

namespace {

// Sockets that are newer than the standard are others to it.
constexpr std::uint16_t kOtherMethod = 1;
constexpr std::uint16_t kLastMethod = 56;

std::optional<std::uint16_t> UpgradeMethod(const TProcessor& processor) {
  const auto method = processor.fUpgradeMethod;
  return method > kLastMethod ? std::optional(kOtherMethod) : method;
}

// The firmware's numbers are the standard's, but for two that it keeps to itself.
std::optional<std::uint16_t> Status(const TProcessor& processor) {
  const bool isReserved = processor.fStatus == 5 || processor.fStatus == 6;
  return isReserved ? std::nullopt : processor.fStatus;
}

}  // namespace

void DefineProcessor(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TProcessor;
  TLiveClass<Row>(ns, "QORSG_Processor", &ReadProcessors)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("Name", &Row::fName)
      .Set("ElementName", &Row::fSocket)
      .Set("Manufacturer", &Row::fManufacturer)
      .Set("Family", &Row::fFamily)
      .Set("UpgradeMethod", &UpgradeMethod)
      .Set("MaxClockSpeed", &Row::fMaxClockSpeed)
      .Set("CurrentClockSpeed", &Row::fCurrentClockSpeed)
      .Set("ExternalBusClockSpeed", &Row::fExternalBusClockSpeed)
      .Set("DataWidth", &Row::fDataWidth)
      .Set("AddressWidth", &Row::fAddressWidth)
      .Set("Stepping", &Row::fStepping)
      .Set("CPUStatus", &Status)
      .Set("Characteristics", &Row::fCharacteristics)
      .Set("NumberOfEnabledCores", &Row::fEnabledCores)
      .Set("NumberOfHardwareThreads", &Row::fThreads)
      .Commit();
}

}  // namespace linux_machine
