#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

THWXException::~THWXException() = default;

// Contract: status-name-alone.
const char* THWXException::what() const noexcept {
  return fStatus.TranslateStatusCode().c_str();
}

}  // namespace NQORHWX20
