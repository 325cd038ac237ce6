#include "hwxcore/value/TDetailedException.h"

namespace NQORHWX20 {

TDetailedException::TDetailedException(THWXStatusCode status, const std::string& detail)
    : THWXException(status), fDetail(std::make_shared<const std::string>(detail)) {}

TDetailedException::~TDetailedException() = default;

}  // namespace NQORHWX20
