// What the instances of one machine have in common: the keys that name the machine, and the class.
// Thread-safety: that of the namespace.

#ifndef HWX_INVENTORY_ONEMACHINE_H
#define HWX_INVENTORY_ONEMACHINE_H

#include <string>

#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMNamespace.h"

namespace hwx {

/// Whether a namespace has one computer system, so that all its instances are of that machine.
bool IsOfOneMachine(NQORHWX20::ICIMNamespace& ns);

/// Whether a property only repeats the class or the machine: "CreationClassName", and the keys that
/// name the system that an element belongs to.
bool IsOwnerKey(const std::string& property);

/// The path without those keys, which says as much among the instances of one machine. It stays
/// whole where nothing would be left of the keys.
std::string ShortPath(NQORHWX20::ICIMInstance& instance);

}  // namespace hwx

#endif  // HWX_INVENTORY_ONEMACHINE_H
