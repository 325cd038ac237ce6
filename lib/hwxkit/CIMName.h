#ifndef HWXKIT_CIMNAME_H
#define HWXKIT_CIMNAME_H

#include <cstddef>
#include <string>

#include "hwxbase/Export.h"

// The rules of CIM names. They keep their case, and look-ups ignore the case of ASCII letters, in
// every locale.
// Thread-safety: all of it is free of state.

namespace NQORHWX20 {

/// Whether `name` is a CIM name: a letter, an underscore or a byte of 0x80 and above, and then also
/// digits.
HWX_EXPORT bool IsCIMName(const std::string& name);

/// Throws `kHWXStatusInvalidCIMName` unless `name` is a CIM name.
HWX_EXPORT void CheckCIMName(const std::string& name);

/// Whether two texts are the same CIM name.
HWX_EXPORT bool IsSameCIMName(const std::string& left, const std::string& right);

/// The form that a name shares with all that are the same: its letters in lower case.
HWX_EXPORT std::string FoldedCIMName(std::string name);

/// Hashes names alike that are the same.
struct HWX_EXPORT TCIMNameHash {
  std::size_t operator()(const std::string& name) const;
};

/// `IsSameCIMName` as a function object.
struct TCIMNameEqual {
  bool operator()(const std::string& left, const std::string& right) const {
    return IsSameCIMName(left, right);
  }
};

}  // namespace NQORHWX20

#endif  // HWXKIT_CIMNAME_H
