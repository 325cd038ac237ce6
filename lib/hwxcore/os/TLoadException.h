#ifndef HWXCORE_OS_TLOADEXCEPTION_H
#define HWXCORE_OS_TLOADEXCEPTION_H

#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TDetailedException.h"

namespace NQORHWX20 {

/// A shared object, a plug-in or libcurl, could not be opened. The detail is why, in the words of
/// the dynamic loader, which name the file. Thread-safety: a plain value. Copying never fails.
class HWX_EXPORT TLoadException : public TDetailedException {
 public:
  TLoadException(THWXStatusCode status, const std::string& loaderWords);
  ~TLoadException() override;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_OS_TLOADEXCEPTION_H
