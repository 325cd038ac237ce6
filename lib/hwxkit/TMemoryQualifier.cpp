#include "hwxkit/TMemoryQualifier.h"

#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/TQualifierTable.h"

namespace NQORHWX20 {

TMemoryQualifier::TMemoryQualifier(const boost::shared_ptr<ICIMQualifierDecl>& decl,
                                   const TCIMValue& value,
                                   const boost::weak_ptr<TQualifierTable>& table, bool inherited)
    : fDecl(decl),
      fValue(value),
      fTable(table),
      fInherited(inherited),
      fCommitted(false),
      fFlavor(decl->GetFlavor(TCIMContext())) {}

TMemoryQualifier::~TMemoryQualifier() = default;

// One for all who inherit it: a description is long, and a class may have thousands of subclasses.
boost::shared_ptr<TMemoryQualifier> TMemoryQualifier::InheritedForm() {
  if (fInherited) return shared_from_this();
  if (!fInheritedForm) {
    fInheritedForm.reset(
        new TMemoryQualifier(fDecl, fValue, boost::weak_ptr<TQualifierTable>(), true));
    fInheritedForm->fFlavor = fFlavor;
    fInheritedForm->SetNotes(GetNotes());
  }
  return fInheritedForm;
}

void TMemoryQualifier::Commit(TCIMContext /*context*/) {
  const boost::shared_ptr<TQualifierTable> table = fTable.lock();
  if (fCommitted || !table) throw THWXException(kHWXStatusInvalidOpSequence);
  table->Commit(shared_from_this());
  fCommitted = true;
}

const std::string& TMemoryQualifier::GetName(TCIMContext /*context*/) {
  return fDecl->GetName(TCIMContext());
}

TCIMValue::TCIMType TMemoryQualifier::GetType(TCIMContext /*context*/) {
  return fValue.GetType();
}

bool TMemoryQualifier::IsInherited(TCIMContext /*context*/) {
  return fInherited;
}

boost::shared_ptr<ICIMQualifierDecl> TMemoryQualifier::GetQualifierDecl(TCIMContext /*context*/) {
  return fDecl;
}

const TCIMValue& TMemoryQualifier::GetValue(TCIMContext /*context*/) {
  return fValue;
}

}  // namespace NQORHWX20
