// What the command "identity" prints with "--explain", behind the identity. As IdentityReport.h.
// Thread-safety: functions without state.

#ifndef HWX_IDENTITY_EXPLANATIONREPORT_H
#define HWX_IDENTITY_EXPLANATIONREPORT_H

#include <string>
#include <vector>

#include "hwx/identity/Explanation.h"
#include "hwx/text/Json.h"

namespace hwx {

/// A heading for each fact, and below it a line for each source. Behind a guess stands the form in
/// which it was found.
std::string ExplanationText(const std::vector<TExplanation>& explanations);

/// An object for each fact, by its key: {"disagree": ..., "sources": [{"source": "...", "verdict":
/// "...", and the answer as in the identity}, ...]}. What was read out of a text has a "form" too.
TJson ExplanationObject(const std::vector<TExplanation>& explanations);

}  // namespace hwx

#endif  // HWX_IDENTITY_EXPLANATIONREPORT_H
