#include "hwxcore/os/TLoadException.h"

namespace NQORHWX20 {

TLoadException::TLoadException(THWXStatusCode status, const std::string& loaderWords)
    : TDetailedException(status, loaderWords) {}

TLoadException::~TLoadException() = default;

}  // namespace NQORHWX20
