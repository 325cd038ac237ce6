#include "hwxkit/TChildLostException.h"

namespace NQORHWX20 {

TChildLostException::TChildLostException(const std::string& why)
    : TDetailedException(kHWXStatusFail, why) {}

TChildLostException::~TChildLostException() = default;

}  // namespace NQORHWX20
