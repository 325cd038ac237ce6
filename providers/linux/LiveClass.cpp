#include "providers/linux/LiveClass.h"

#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/THWXException.h"

namespace linux_machine {

using NQORHWX20::TCIMValue;

TCIMValue ToValue(const TDate& date) {
  try {
    return NQORHWX20::TCIMDateTime(date.fYear, date.fMonth, date.fDay, 0, 0, 0, 0, 0);
  } catch (const NQORHWX20::THWXException&) {
    return TCIMValue(TTag::kCIMTypeDateTime, 0);
  }
}

}  // namespace linux_machine
