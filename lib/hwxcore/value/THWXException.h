#ifndef HWXCORE_VALUE_THWXEXCEPTION_H
#define HWXCORE_VALUE_THWXEXCEPTION_H

#include <exception>

#include "hwxbase/Export.h"
#include "hwxcore/value/THWXStatusCode.h"

namespace NQORHWX20 {

/// The exception of the library: a status code. Whatever more there is to say about a failure
/// stands in the log, in an entry that was written before the throw, and where a program is to tell
/// its user more, in a `TDetailedException`.
///
/// Thread-safety: a plain value. Copying never fails.
class HWX_EXPORT THWXException : public std::exception {
 public:
  /// Takes a status, or an enumerator of `EHWXStatusCode`.
  explicit THWXException(THWXStatusCode status) : fStatus(status) {}
  ~THWXException() override;

  /// The name of the status. The characters outlive the exception.
  const char* what() const noexcept override;

  /// What handlers tell failures apart by.
  const THWXStatusCode& GetStatus() const { return fStatus; }

 private:
  THWXStatusCode fStatus;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_THWXEXCEPTION_H
