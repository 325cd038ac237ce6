#ifndef HWXKIT_TCHILDLOSTEXCEPTION_H
#define HWXKIT_TCHILDLOSTEXCEPTION_H

#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TDetailedException.h"

namespace NQORHWX20 {

/// A child that reads a provider was lost: it crashed, exited, or had to be ended. The status is
/// `kHWXStatusFail`, and the detail says what happened: "it was killed by SIGSEGV", "it gave
/// nothing for 30 s".
///
/// Thread-safety: as of `TDetailedException`.
class HWX_EXPORT TChildLostException : public TDetailedException {
 public:
  explicit TChildLostException(const std::string& why);
  ~TChildLostException() override;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TCHILDLOSTEXCEPTION_H
