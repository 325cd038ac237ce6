#include "hwxkit/detail/ReferencedClass.h"

#include <algorithm>
#include <vector>

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryClass.h"

namespace NQORHWX20::detail {

// Values of other types may bear a class too, but their copies don't, and copies are what is kept.
void CheckReferencedClass(const TCIMValue& value) {
  if (value.IsArray() && !value.IsNull()) {
    const std::vector<TCIMValue>& elements = value;
    std::for_each(elements.begin(), elements.end(), &CheckReferencedClass);
  }
  if (!value.IsReference()) return;
  const auto referenced = boost::dynamic_pointer_cast<TMemoryClass>(value.GetReferencedClass());
  if (referenced && !referenced->IsCommitted(TCIMContext()))
    throw THWXException(kHWXStatusInvalidClass);
}

}  // namespace NQORHWX20::detail
