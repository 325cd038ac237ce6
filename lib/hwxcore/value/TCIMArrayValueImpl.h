#ifndef HWXCORE_VALUE_TCIMARRAYVALUEIMPL_H
#define HWXCORE_VALUE_TCIMARRAYVALUEIMPL_H

#include <string>
#include <vector>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMValueImpl.h"

namespace NQORHWX20 {

/// The body of arrays: values, each with a type of its own and each possibly null.
///
/// Thread-safety: none; a body belongs to one handle.
class HWX_EXPORT TCIMArrayValueImpl : public TCIMValueImpl {
 public:
  /// Copies every element.
  explicit TCIMArrayValueImpl(const std::vector<TCIMValue>& elements) : fElements(elements) {}
  TCIMArrayValueImpl(const TCIMArrayValueImpl& other) = default;
  ~TCIMArrayValueImpl() override;

  /// The elements themselves, for changing too, although the operator is const.
  operator std::vector<TCIMValue>&() const override;  // NOLINT(google-explicit-constructor)

  /// The elements in braces, with commas between them. Throws what an element throws, so an array
  /// with a null element can't be printed.
  std::string ToString(unsigned char base) const override;

  /// Equal in number and pairwise.
  bool operator==(const TCIMValue& other) const override;
  /// Arrays have no order: throws `kHWXStatusNotImplemented`, always.
  bool operator<(const TCIMValue& other) const override;

 private:
  mutable std::vector<TCIMValue> fElements;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMARRAYVALUEIMPL_H
