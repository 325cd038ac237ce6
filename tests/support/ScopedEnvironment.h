#ifndef HWXTESTS_SUPPORT_SCOPEDENVIRONMENT_H
#define HWXTESTS_SUPPORT_SCOPEDENVIRONMENT_H

#include <cstdlib>
#include <optional>
#include <string>

namespace hwxtest {

/// Sets an environment variable, or unsets it, and puts back at the end what was there.
class ScopedEnvironment {
 public:
  ScopedEnvironment(const std::string& name, const std::optional<std::string>& value)
      : fName(name) {
    if (const char* before = std::getenv(name.c_str())) fBefore = before;
    Set(value);
  }

  ~ScopedEnvironment() { Set(fBefore); }

  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

  /// Changes the variable once more.
  void Set(const std::optional<std::string>& value) {
    if (value) {
      ::setenv(fName.c_str(), value->c_str(), 1);
    } else {
      ::unsetenv(fName.c_str());
    }
  }

 private:
  std::string fName;
  std::optional<std::string> fBefore;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_SCOPEDENVIRONMENT_H
