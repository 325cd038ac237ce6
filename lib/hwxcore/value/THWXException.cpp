#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

THWXException::~THWXException() = default;

const char* THWXException::what() const noexcept {
  return fStatus.TranslateStatusCode().c_str();
}

}  // namespace NQORHWX20
