#ifndef HWX_TEXT_ANSWER_H
#define HWX_TEXT_ANSWER_H

#include <optional>
#include <string>

namespace hwx {

/// A value, or why there is none. Some values are read out of texts that were made for people: then
/// it is told how, and whether that is more than a guess.
///
/// Thread-safety: a plain value.
template <typename T>
struct TAnswer {
  std::optional<T> fValue;
  std::string fReason;  ///< For people; any bytes. Empty if there is a value.
  bool fIsGuess = false;
  std::string fForm = {};  ///< For people: how the text holds the value. Empty if it is a field's.
};

template <typename T>
TAnswer<T> Missing(const std::string& reason) {
  return {std::nullopt, reason};
}

}  // namespace hwx

#endif  // HWX_TEXT_ANSWER_H
