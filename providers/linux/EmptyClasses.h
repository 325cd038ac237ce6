// Why a class of the inventory has no instances on a machine: so that nobody takes what can't be
// seen for what isn't there.
// Thread-safety: no state is kept. Reading looks at the environment, which no thread may change
// meanwhile.

#ifndef PROVIDERS_LINUX_EMPTYCLASSES_H
#define PROVIDERS_LINUX_EMPTYCLASSES_H

#include <string>
#include <vector>

namespace linux_machine {

struct TEmptyClass {
  std::string fName;
  std::string fReason;
};

/// The classes that have no instances on the machine whose files lie below `root`, each with the
/// reason: what isn't there, can't be read or has no entry. A class that fails is none of them.
std::vector<TEmptyClass> FindEmptyClasses(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_EMPTYCLASSES_H
