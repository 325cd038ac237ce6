#ifndef HWXCORE_VALUE_TDETAILEDEXCEPTION_H
#define HWXCORE_VALUE_TDETAILEDEXCEPTION_H

#include <memory>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

/// A failure that carries, besides its status, what the user needs to hear: the words of the
/// dynamic loader, of libcurl. Status, `what()` and log are those of the bare exception, so who
/// needs no detail catches `THWXException`.
///
/// Thread-safety: a plain value. Copying never fails: copies share the text.
class HWX_EXPORT TDetailedException : public THWXException {
 public:
  /// Any bytes may be in `detail`, also none.
  TDetailedException(THWXStatusCode status, const std::string& detail);
  ~TDetailedException() override;

  /// The text lives as long as one of the copies.
  const std::string& GetDetail() const { return *fDetail; }

 private:
  std::shared_ptr<const std::string> fDetail;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TDETAILEDEXCEPTION_H
