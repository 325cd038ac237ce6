#ifndef HWX_IDENTITY_ANSWER_H
#define HWX_IDENTITY_ANSWER_H

#include <optional>
#include <string>

namespace hwx {

/// A value, or why there is none.
///
/// Thread-safety: a plain value.
template <typename T>
struct TAnswer {
  std::optional<T> fValue;
  std::string fReason;  ///< For people; any bytes. Empty if there is a value.
};

template <typename T>
TAnswer<T> Missing(const std::string& reason) {
  return {std::nullopt, reason};
}

}  // namespace hwx

#endif  // HWX_IDENTITY_ANSWER_H
