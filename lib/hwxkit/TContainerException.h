#ifndef HWXKIT_TCONTAINEREXCEPTION_H
#define HWXKIT_TCONTAINEREXCEPTION_H

#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

/// Why a container could not be loaded or saved: a status with a text that names the place, as in
///
///     machine.xml:17: PROPERTY "Size": 70000 is out of range for uint16
///
/// Thread-safety: a plain value. Copying it may fail for want of memory.
class HWX_EXPORT TContainerException : public THWXException {
 public:
  TContainerException(THWXStatusCode status, const std::string& message);
  ~TContainerException() override;

  /// The text; the characters live as long as the exception.
  const char* what() const noexcept override;

 private:
  std::string fMessage;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TCONTAINEREXCEPTION_H
