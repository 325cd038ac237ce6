#include "hwxcore/schema/INamespaceProvider.h"

namespace NQORHWX20 {

INamespaceProvider::~INamespaceProvider() = default;

}  // namespace NQORHWX20
