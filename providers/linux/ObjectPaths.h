// Associations: classes whose instances refer to other instances of the namespace.
// Thread-safety: none, as the kit has none.

#ifndef PROVIDERS_LINUX_OBJECTPATHS_H
#define PROVIDERS_LINUX_OBJECTPATHS_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <utility>
#include <vector>

#include "hwxcore/value/TCIMValue.h"
#include "hwxkit/TMemoryNamespace.h"

namespace linux_machine {

using TNamedValue = std::pair<std::string, NQORHWX20::TCIMValue>;

/// An instance by its class and the keys that only it has. Those that name the class and the
/// machine are added.
struct TObject {
  std::string fClass;
  std::vector<TNamedValue> fKeys;
};

/// What an association says of two instances. The first is the antecedent or the group, the second
/// the dependent or the part.
struct TLink {
  TObject fFirst;
  TObject fSecond;
  std::vector<TNamedValue> fValues;  ///< Of the association's other properties.
};

using TLinks = std::vector<TLink>;

TObject ComputerSystem(const std::string& root);

/// A device by its "DeviceID", and a part that can be touched by its "Tag".
TObject Device(const std::string& className, const std::string& deviceID);
TObject Part(const std::string& className, const std::string& tag);

/// Makes the instances of an association those that a reader tells of. Links between the same two
/// instances count once.
void DefineLinks(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns,
                 const std::string& association, TLinks (*read)(const std::string& root));

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_OBJECTPATHS_H
