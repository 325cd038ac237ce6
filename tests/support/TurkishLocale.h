#ifndef HWXTESTS_SUPPORT_TURKISHLOCALE_H
#define HWXTESTS_SUPPORT_TURKISHLOCALE_H

#include <cctype>
#include <clocale>
#include <cstdlib>
#include <string>

#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

/// The process in a Turkish locale of 8 bits, in which the small letter of "I" isn't "i". The
/// locale is made for the test; the one before comes back in the end.
///
///     const TurkishLocale turkish;
///     if (!turkish.IsThere()) GTEST_SKIP() << "no Turkish locale can be made";
class TurkishLocale {
 public:
  TurkishLocale() {
    const std::string name = "tr_TR.ISO-8859-9";
    const std::string make =
        "localedef -c -i tr_TR -f ISO-8859-9 " + fDirectory / name + " >/dev/null 2>&1";
    [[maybe_unused]] const int result = std::system(make.c_str());  // warnings fail it too
    std::setlocale(LC_ALL, name.c_str());
  }
  ~TurkishLocale() { std::setlocale(LC_ALL, fBefore.c_str()); }
  TurkishLocale(const TurkishLocale&) = delete;
  TurkishLocale& operator=(const TurkishLocale&) = delete;

  bool IsThere() const { return std::tolower('I') != 'i'; }

 private:
  const TemporaryDirectory fDirectory;
  const ScopedEnvironment fPath{"LOCPATH", fDirectory.Path()};
  const std::string fBefore = std::setlocale(LC_ALL, nullptr);
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_TURKISHLOCALE_H
