// JSON as the commands print it. Thread-safety: functions without state.

#ifndef HWX_TEXT_JSON_H
#define HWX_TEXT_JSON_H

#include <nlohmann/json.hpp>
#include <string>

#include "hwx/text/Answer.h"

namespace hwx {

/// Keeps the keys in the order in which they were put in.
using TJson = nlohmann::ordered_json;

/// `json` in whole lines of pure ASCII, so that no control character, also of the higher ones,
/// reaches a terminal raw. Bytes that aren't UTF-8 are replaced by U+FFFD.
inline std::string JsonText(const TJson& json) {
  constexpr int kIndent = 2;
  return json.dump(kIndent, ' ', true, TJson::error_handler_t::replace) + "\n";
}

/// `json` in one line, as `JsonText` otherwise.
inline std::string JsonLine(const TJson& json) {
  return json.dump(-1, ' ', true, TJson::error_handler_t::replace) + "\n";
}

/// {"value": ...}, {"value": ..., "guess": true}, or {"value": null, "reason": "..."}.
template <typename T>
TJson Json(const TAnswer<T>& answer) {
  TJson json;
  if (answer.fValue) {
    json["value"] = *answer.fValue;
    if (answer.fIsGuess) json["guess"] = true;
  } else {
    json["value"] = nullptr;
    json["reason"] = answer.fReason;
  }
  return json;
}

}  // namespace hwx

#endif  // HWX_TEXT_JSON_H
