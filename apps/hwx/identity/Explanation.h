#ifndef HWX_IDENTITY_EXPLANATION_H
#define HWX_IDENTITY_EXPLANATION_H

#include <string>
#include <vector>

#include "hwx/identity/Identity.h"
#include "hwx/inventory/Namespace.h"
#include "hwx/text/Answer.h"

namespace hwx {

/// What becomes of a source's answer.
enum EVerdict {
  kTaken,     ///< It is the one that the identity shows.
  kAgrees,    ///< It isn't taken, and says the same as the one that is.
  kDiffers,   ///< It isn't taken, and says something else.
  kNotTaken,  ///< There is no other that was taken either.
  kFiller,    ///< Rejected: it is what makers leave in the place of a value.
  kMissing    ///< The source has no answer.
};

/// What one source says of a fact.
struct TSourceAnswer {
  std::string fSource;  ///< "schema query", "type 1", "type 0", "type 0 table" or "sysfs".
  TAnswer<std::string> fAnswer;
  EVerdict fVerdict;
};

/// All sources of a fact of the identity, side by side.
struct TExplanation {
  std::string fKey;    ///< As in the identity's JSON.
  std::string fLabel;  ///< As in the identity's text.
  std::vector<TSourceAnswer> fSources;
  bool fDisagree;  ///< Whether two answers that are no filler say different things.
};

/// Explains the facts of `identity`, the machine's, that several sources tell. Blanks at the ends
/// of texts make no difference. Thread-safety: that of the namespace, and of the environment, which
/// no thread may use meanwhile.
std::vector<TExplanation> Explain(const NamespacePtr& machine, const TIdentity& identity);

}  // namespace hwx

#endif  // HWX_IDENTITY_EXPLANATION_H
