#include "hwxkit/INamespaceSource.h"

namespace NQORHWX20 {

// Here rather than in the header, so that all modules share one type information.
INamespaceSource::~INamespaceSource() = default;

}  // namespace NQORHWX20
