#ifndef HWX_TEXT_FAILURE_H
#define HWX_TEXT_FAILURE_H

#include <stdexcept>
#include <string>

namespace hwx {

/// Why a command can't do its work, in words for the user. It ends the program with status 1.
///
/// Thread-safety: a plain value.
class TFailure : public std::runtime_error {
 public:
  explicit TFailure(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace hwx

#endif  // HWX_TEXT_FAILURE_H
