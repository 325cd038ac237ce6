#ifndef HWXTESTS_SUPPORT_STRUCTURES_H
#define HWXTESTS_SUPPORT_STRUCTURES_H

#include <string>
#include <vector>

#include "smbios/TableWalker.h"
#include "support/SmbiosTables.h"

namespace hwxtest {

/// Puts a number into the fields of a structure, at the offset that the format tells, which counts
/// the header too.
inline void PutField(Bytes& fields, std::size_t offset, std::size_t width, std::uint64_t value) {
  PutNumber(fields, offset - 4, width, value);
}

/// One structure of the firmware's tables, made of the fields behind its header and its strings.
class MadeStructure {
 public:
  MadeStructure(int type, const Bytes& fields, const std::vector<std::string>& strings = {})
      : fBytes(SmbiosTables().Add(type, fields, strings).Table()), fSize(fields.size() + 4) {}

  /// A view that lives as long as this object.
  smbios::TStructure Get() const { return {fBytes.data(), fSize, fBytes.size()}; }

 private:
  const Bytes fBytes;
  const std::size_t fSize;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_STRUCTURES_H
