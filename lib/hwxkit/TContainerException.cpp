#include "hwxkit/TContainerException.h"

namespace NQORHWX20 {

TContainerException::TContainerException(THWXStatusCode status, const std::string& message)
    : THWXException(status), fMessage(message) {}

TContainerException::~TContainerException() = default;

const char* TContainerException::what() const noexcept {
  return fMessage.c_str();
}

}  // namespace NQORHWX20
