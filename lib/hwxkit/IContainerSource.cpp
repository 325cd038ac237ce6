#include "hwxkit/IContainerSource.h"

namespace NQORHWX20 {

const char* const IContainerSource::kFileContextName = "file";
const char* const IContainerSource::kDefaultNamespaceName = "root/container";

IContainerSource::~IContainerSource() = default;

}  // namespace NQORHWX20
