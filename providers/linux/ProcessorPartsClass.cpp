#include "providers/linux/LiveClass.h"
#include "providers/linux/ProcessorParts.h"

namespace linux_machine {

namespace {

constexpr std::uint16_t kEnabledElement = 2;
constexpr std::uint16_t kEnabledCore = 1;

}  // namespace

void DefineProcessorParts(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  TLiveClass<TProcessorCore>(ns, "CIM_ProcessorCore", &ReadProcessorCores)
      .Key("InstanceID", &TProcessorCore::fInstanceID)
      .SetAll("EnabledState", kEnabledElement)
      .SetAll("CoreEnabledState", kEnabledCore)
      .Commit();
  TLiveClass<THardwareThread>(ns, "CIM_HardwareThread", &ReadHardwareThreads)
      .Key("InstanceID", &THardwareThread::fInstanceID)
      .Set("ElementName", &THardwareThread::fName)
      .SetAll("EnabledState", kEnabledElement)
      .Commit();
}

}  // namespace linux_machine
