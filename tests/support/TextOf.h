#ifndef HWXTESTS_SUPPORT_TEXTOF_H
#define HWXTESTS_SUPPORT_TEXTOF_H

#include <string>

namespace hwxtest {

/// The text of the exception that `operation` ends with; empty if it returns. Exceptions of other
/// kinds pass.
template <typename Exception, typename Operation>
std::string TextOf(Operation operation) {
  try {
    operation();
  } catch (const Exception& failure) {
    return failure.what();
  }
  return std::string();
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_TEXTOF_H
