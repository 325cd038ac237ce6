// The cores of the machine's processors and the threads that they run at once.
// Thread-safety: no state is kept. Reading looks at the environment, which no thread may change
// meanwhile.

#ifndef PROVIDERS_LINUX_PROCESSORPARTS_H
#define PROVIDERS_LINUX_PROCESSORPARTS_H

#include <cstdint>
#include <string>
#include <vector>

#include "providers/linux/CpuInfo.h"

namespace linux_machine {

struct TProcessorCore {
  std::string fInstanceID;  ///< "QORSG:CPU0:Core1"
  std::string fProcessor;   ///< "CPU0", as `TProcessor` has it.
};

struct THardwareThread {
  std::string fInstanceID;  ///< "QORSG:CPU0:Core1:Thread0"
  std::string fCore;        ///< The core's `fInstanceID`.
  std::string fProcessor;
  std::string fName;  ///< The kernel's: "cpu5".
  std::uint64_t fNumber = 0;
};

struct TProcessorParts {
  std::vector<TProcessorCore> fCores;
  std::vector<THardwareThread> fThreads;
};

/// The parts that logical processors make up. Processors are numbered as `GroupProcessors` numbers
/// them, cores and threads in the order of their first one.
TProcessorParts SplitProcessors(const std::vector<TLogicalProcessor>& logical);

/// The parts of the machine whose /proc and /sys lie below `root`.
TProcessorParts ReadProcessorParts(const std::string& root);
std::vector<TProcessorCore> ReadProcessorCores(const std::string& root);
std::vector<THardwareThread> ReadHardwareThreads(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_PROCESSORPARTS_H
