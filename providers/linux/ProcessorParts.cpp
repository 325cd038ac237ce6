#include "providers/linux/ProcessorParts.h"

#include <map>
#include <utility>

#include "providers/linux/Processors.h"

namespace linux_machine {

TProcessorParts SplitProcessors(const std::vector<TLogicalProcessor>& logical) {
  struct TKnownCore {
    std::string fInstanceID;
    std::size_t fThreads = 0;
  };
  struct TKnownProcessor {
    std::string fDeviceID;
    std::map<std::string, TKnownCore> fCores;
  };
  TProcessorParts parts;
  std::map<std::string, TKnownProcessor> processors;
  for (const TLogicalProcessor& one : logical) {
    const std::size_t processorNumber = processors.size();
    TKnownProcessor& processor = processors[one.fPackage];
    if (processor.fDeviceID.empty()) {
      processor.fDeviceID = "CPU" + std::to_string(processorNumber);
    }
    const std::size_t coreNumber = processor.fCores.size();
    TKnownCore& core = processor.fCores[one.fCore];
    if (core.fInstanceID.empty()) {
      core.fInstanceID = "QORSG:" + processor.fDeviceID + ":Core" + std::to_string(coreNumber);
      parts.fCores.push_back({core.fInstanceID, processor.fDeviceID});
    }
    parts.fThreads.push_back({core.fInstanceID + ":Thread" + std::to_string(core.fThreads++),
                              core.fInstanceID, processor.fDeviceID,
                              "cpu" + std::to_string(one.fNumber), one.fNumber});
  }
  return parts;
}

TProcessorParts ReadProcessorParts(const std::string& root) {
  return SplitProcessors(ReadLogicalProcessors(root));
}

std::vector<TProcessorCore> ReadProcessorCores(const std::string& root) {
  return ReadProcessorParts(root).fCores;
}

std::vector<THardwareThread> ReadHardwareThreads(const std::string& root) {
  return ReadProcessorParts(root).fThreads;
}

}  // namespace linux_machine
