#include "hwxkit/TMemoryQualifierDecl.h"

#include "hwxcore/value/THWXException.h"
#include "hwxkit/QualifierFlags.h"
#include "hwxkit/TMemoryNamespace.h"

namespace NQORHWX20 {

TMemoryQualifierDecl::TMemoryQualifierDecl(const boost::shared_ptr<TMemoryNamespace>& ns,
                                           const std::string& name, const TCIMValue& defaultValue,
                                           unsigned int scope, unsigned int flavor)
    : fNamespace(ns),
      fName(name),
      fDefaultValue(defaultValue),
      fScope(scope),
      fFlavor(flavor),
      fCommitted(false),
      fIsOutside(false) {}

TMemoryQualifierDecl::~TMemoryQualifierDecl() = default;

void TMemoryQualifierDecl::Commit(TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryNamespace> ns = fNamespace.lock();
  if (fCommitted || !ns) throw THWXException(kHWXStatusInvalidOpSequence);
  ns->CommitQualifierDecl(shared_from_this());
  fCommitted = true;
}

boost::shared_ptr<ICIMNamespace> TMemoryQualifierDecl::GetNamespace(TCIMContext /*context*/) {
  return fNamespace.lock();
}

const std::string& TMemoryQualifierDecl::GetName(TCIMContext /*context*/) {
  return fName;
}

TCIMValue::TCIMType TMemoryQualifierDecl::GetType(TCIMContext /*context*/) {
  return fDefaultValue.GetType();
}

const TCIMValue& TMemoryQualifierDecl::GetDefaultValue(TCIMContext /*context*/) {
  return fDefaultValue;
}

unsigned int TMemoryQualifierDecl::GetScope(TCIMContext /*context*/) {
  return fScope;
}

bool TMemoryQualifierDecl::IsOverridable(TCIMContext /*context*/) {
  return (fFlavor & kFlavorEnableOverride) != 0;
}

unsigned int TMemoryQualifierDecl::GetFlavor(TCIMContext /*context*/) {
  return fFlavor;
}

}  // namespace NQORHWX20
