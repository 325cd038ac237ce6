#include "hwxkit/detail/ReferencedClass.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryClass.h"

namespace NQORHWX20::detail {

namespace {

void CheckCommitted(const boost::shared_ptr<ICIMClass>& referenced) {
  const auto inMemory = boost::dynamic_pointer_cast<TMemoryClass>(referenced);
  if (inMemory && !inMemory->IsCommitted(TCIMContext())) {
    throw THWXException(kHWXStatusInvalidClass);
  }
}

// Other providers' classes need not know their superclasses.
bool DescendsFrom(const std::string& name, ICIMClass& referenced) {
  try {
    return IsSameCIMName(referenced.GetName(TCIMContext()), name) ||
           referenced.IsSubClassOf(name, TCIMContext());
  } catch (const THWXException&) {
    return false;
  }
}

}  // namespace

// Values of other types may bear a class too, but their copies don't, and copies are what is kept.
void CheckReferencedClass(const TCIMValue& value) {
  if (value.IsArray() && !value.IsNull()) {
    const std::vector<TCIMValue>& elements = value;
    std::for_each(elements.begin(), elements.end(), &CheckReferencedClass);
  }
  if (!value.IsReference()) return;
  CheckCommitted(value.GetReferencedClass());
  if (value.IsNull()) return;
  const TCIMReference reference = value;
  CheckCommitted(reference.GetClass());
  reference.EnumerateKeyBindings([](std::pair<std::string, TCIMValue> key) {
    CheckReferencedClass(key.second);
    return true;
  });
}

void CheckRefersTo(const boost::shared_ptr<ICIMClass>& declared, const TCIMValue& value) {
  if (!value.IsReference()) return;
  const boost::shared_ptr<ICIMClass> referenced =
      value.IsNull() ? value.GetReferencedClass() : value.operator TCIMReference().GetClass();
  if (!declared || !referenced) return;
  if (!DescendsFrom(declared->GetName(TCIMContext()), *referenced)) {
    throw THWXException(kHWXStatusInvalidClass);
  }
}

}  // namespace NQORHWX20::detail
