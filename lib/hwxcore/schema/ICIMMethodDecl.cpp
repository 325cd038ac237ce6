#include "hwxcore/schema/ICIMMethodDecl.h"

#include "hwxcore/schema/detail/NotImplemented.h"

namespace NQORHWX20 {

ICIMMethodDecl::~ICIMMethodDecl() = default;

void ICIMMethodDecl::Rename(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

boost::shared_ptr<ICIMClass> ICIMMethodDecl::GetClass(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

boost::shared_ptr<ICIMParameterDecl> ICIMMethodDecl::GetParameterDecl(const std::string& /*name*/,
                                                                      TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

}  // namespace NQORHWX20
