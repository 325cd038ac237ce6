#include "hwxcore/schema/ICIMParameterDecl.h"

#include "hwxcore/schema/detail/NotImplemented.h"

namespace NQORHWX20 {

ICIMParameterDecl::~ICIMParameterDecl() = default;

boost::shared_ptr<ICIMMethodDecl> ICIMParameterDecl::GetMethodDecl(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

}  // namespace NQORHWX20
