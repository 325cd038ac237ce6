#ifndef HWXCORE_DIAGNOSTICS_TBOOSTASSERTEXCEPTION_H
#define HWXCORE_DIAGNOSTICS_TBOOSTASSERTEXCEPTION_H

#include <exception>
#include <string>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

/// What a failed assertion throws where the environment variable `HWX_BOOST_ASSERT` is
/// "throwboost": the assertion's own text, for those who debug.
///
/// Thread-safety: a plain value.
class HWX_EXPORT TBoostAssertException : public std::exception {
 public:
  explicit TBoostAssertException(const std::string& message) : fMessage(message) {}
  ~TBoostAssertException() override;

  /// File, line, expression and function of the assertion. The characters live as long as the
  /// exception.
  const char* what() const noexcept override;

 private:
  std::string fMessage;
};

}  // namespace NQORHWX20

namespace boost {

/// The one policy for failed assertions of the tools and plug-ins that link against the library.
/// `BOOST_ASSERT` calls it in code that is compiled with `BOOST_ENABLE_ASSERT_HANDLER`; the library
/// itself never does. (`BOOST_ASSERT_MSG` calls `assertion_failed_msg`, which a program that uses
/// it has to bring along.)
///
/// The environment variable `HWX_BOOST_ASSERT`, read at each failure, chooses what happens:
///
/// - not set, or "throwhwx": throws `THWXException` with `kHWXStatusFail`; the text is lost.
/// - "throwboost": throws `TBoostAssertException` with the text.
/// - "trap": prints the text on the standard error stream and returns to the failed code. It
///   announces a segmentation fault there, and raises none.
/// - "exit": prints the text on the standard error stream and ends the process by `exit(1)`.
/// - anything else: prints a complaint on the standard error stream and does what "throwhwx" does.
///
/// So code that asserts must be safe for exceptions: a throw out of a destructor, or of another
/// function that may not throw, ends the process.
///
/// Thread-safety: no state. What two threads print may mix; change the environment while no other
/// thread can be here.
HWX_EXPORT void assertion_failed(const char* expression, const char* function, const char* file,
                                 long line);

}  // namespace boost

#endif  // HWXCORE_DIAGNOSTICS_TBOOSTASSERTEXCEPTION_H
