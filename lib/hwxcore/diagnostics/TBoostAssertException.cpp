#include "hwxcore/diagnostics/TBoostAssertException.h"

#include <cstdlib>
#include <iostream>
#include <sstream>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

TBoostAssertException::~TBoostAssertException() = default;

const char* TBoostAssertException::what() const noexcept {
  return fMessage.c_str();
}

namespace {

// A part of the assertion text. If one is missing, all that follows is left out.
// Contract: missing-text-ends-assertion.
struct TPart {
  const char* fText;
};

std::ostream& operator<<(std::ostream& stream, const TPart& part) {
  if (part.fText) {
    stream << part.fText;
  } else {
    stream.setstate(std::ios::badbit);
  }
  return stream;
}

std::string AssertionText(const char* expression, const char* function, const char* file,
                          long line) {
  std::ostringstream text;
  text << "Boost assertion failure! " << TPart{file} << ":" << line << " [" << TPart{expression}
       << "] func = " << TPart{function};
  return text.str();
}

// Contract: assertion-mode-at-each-failure.
std::string Mode() {
  const char* const mode = std::getenv("HWX_BOOST_ASSERT");
  return mode ? mode : "throwhwx";
}

[[noreturn]] void ExitWith(const std::string& text) {
  std::cerr << std::endl << text << std::endl;
  std::exit(1);  // not _exit. Contract: assertion-exits-in-order.
}

// Raises no fault, whatever the words say: the failed code goes on. Contract: trap-goes-on.
void Trap(const std::string& text) {
  std::cerr << std::endl
            << text << std::endl
            << std::endl
            << "Forcing segmentation fault." << std::endl
            << std::endl;
}

void Complain(const std::string& mode) {
  std::cerr << "Invalid setting for HWX_BOOST_ASSERT '" << mode
            << "'. Valid values are {throwhwx, throwboost, trap, exit}." << std::endl;
}

}  // namespace

}  // namespace NQORHWX20

namespace boost {

void assertion_failed(const char* expression, const char* function, const char* file, long line) {
  using namespace NQORHWX20;
  const std::string mode = Mode();
  const std::string text = AssertionText(expression, function, file, line);
  // The thread gets its logger, and the log gets nothing. Contract: assertion-not-logged.
  NQORHWX20::detail::CoreLogger();
  if (mode == "throwhwx") throw THWXException(kHWXStatusFail);
  if (mode == "throwboost") throw TBoostAssertException(text);
  if (mode == "trap") return Trap(text);
  if (mode == "exit") ExitWith(text);
  Complain(mode);
  throw THWXException(kHWXStatusFail);
}

}  // namespace boost
