#include "hwxkit/IContainerSource.h"

namespace NQORHWX20 {

const char* const IContainerSource::kFileContextName = "file";

IContainerSource::~IContainerSource() = default;

}  // namespace NQORHWX20
