// The keys that most instances share: the class that made them, and the machine that they are of.
// Thread-safety: none, as the kit has none.

#ifndef PROVIDERS_LINUX_OWNERKEYS_H
#define PROVIDERS_LINUX_OWNERKEYS_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <utility>
#include <vector>

#include "hwxcore/value/TCIMValue.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryNamespace.h"

namespace linux_machine {

/// The class of that name. Throws `std::logic_error` if the schema doesn't declare it.
boost::shared_ptr<NQORHWX20::TMemoryClass> DeclaredClass(const NQORHWX20::TMemoryNamespace& ns,
                                                         const std::string& name);

/// Throws `std::logic_error` unless the class declares or inherits a property of that type.
void CheckDeclared(const NQORHWX20::TMemoryClass& declaring, const std::string& property,
                   NQORHWX20::TCIMValue::TCIMType type);

/// The keys of a class that are the same in all its instances, with their values:
/// "CreationClassName", and what names the machine.
class TOwnerKeys {
 public:
  /// Reads the machine's name below `root`.
  TOwnerKeys(NQORHWX20::TMemoryClass& owned, const std::string& root);

  void Fill(NQORHWX20::TMemoryInstance& instance) const;

  const std::vector<std::pair<const char*, NQORHWX20::TCIMValue>>& Values() const {
    return fValues;
  }

 private:
  std::vector<std::pair<const char*, NQORHWX20::TCIMValue>> fValues;
};

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_OWNERKEYS_H
