#include "hwxkit/TMemoryParameterDecl.h"

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryMethodDecl.h"

namespace NQORHWX20 {

TMemoryParameterDecl::TMemoryParameterDecl(const boost::weak_ptr<TMemoryMethodDecl>& method,
                                           const std::string& name, TCIMValue::TCIMType type,
                                           const boost::shared_ptr<TQualifierTable>& qualifiers)
    : TMemoryQualifiedElement<ICIMParameterDecl>(qualifiers),
      fMethod(method),
      fName(name),
      fType(type),
      fCommitted(false) {}

TMemoryParameterDecl::~TMemoryParameterDecl() = default;

void TMemoryParameterDecl::Commit(TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryMethodDecl> method = fMethod.lock();
  if (fCommitted || !method) throw THWXException(kHWXStatusInvalidOpSequence);
  method->CommitParameter(shared_from_this());
  fCommitted = true;
  fQualifiers->Close();
}

const std::string& TMemoryParameterDecl::GetName(TCIMContext /*context*/) {
  return fName;
}

boost::shared_ptr<ICIMMethodDecl> TMemoryParameterDecl::GetMethodDecl(TCIMContext /*context*/) {
  return fMethod.lock();
}

TCIMValue::TCIMType TMemoryParameterDecl::GetType(TCIMContext /*context*/) {
  return fType;
}

}  // namespace NQORHWX20
