#include "hwxcore/schema/ICIMElement.h"

namespace NQORHWX20 {

ICIMElement::~ICIMElement() = default;

}  // namespace NQORHWX20
