// Help with names that were mistyped. Thread-safety: functions without state.

#ifndef HWX_TEXT_SUGGESTION_H
#define HWX_TEXT_SUGGESTION_H

#include <string>
#include <vector>

namespace hwx {

/// The one of `names` that is most like `given`, without regard to case; empty if none is alike.
std::string MostAlike(const std::string& given, const std::vector<std::string>& names);

/// "; did you mean NAME?" for the one that is most alike, else nothing.
std::string DidYouMean(const std::string& given, const std::vector<std::string>& names);

}  // namespace hwx

#endif  // HWX_TEXT_SUGGESTION_H
