// What the SMBIOS format calls its structures. Thread-safety: a function without state.

#ifndef HWX_FIRMWARE_STRUCTURENAMES_H
#define HWX_FIRMWARE_STRUCTURENAMES_H

#include <cstdint>

namespace hwx {

/// The name of a structure type; null for a type that the format leaves to the makers, or doesn't
/// know yet.
const char* StructureName(std::uint8_t type);

}  // namespace hwx

#endif  // HWX_FIRMWARE_STRUCTURENAMES_H
