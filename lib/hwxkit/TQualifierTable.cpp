#include "hwxkit/TQualifierTable.h"

#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/QualifierFlags.h"
#include "hwxkit/TMemoryNamespace.h"
#include "hwxkit/TMemoryQualifier.h"
#include "hwxkit/detail/Enumerate.h"
#include "hwxkit/detail/ReferencedClass.h"
#include "hwxkit/detail/ValueText.h"

namespace NQORHWX20 {

TQualifierTable::TQualifierTable(const boost::weak_ptr<TMemoryNamespace>& ns)
    : fNamespace(ns), fOpen(true) {}

TQualifierTable::~TQualifierTable() = default;

boost::shared_ptr<TQualifierTable> TQualifierTable::Create(
    const boost::weak_ptr<TMemoryNamespace>& ns, const TQualifierTable* inherited) {
  const boost::shared_ptr<TQualifierTable> table(new TQualifierTable(ns));
  if (inherited) table->Inherit(*inherited);
  return table;
}

boost::shared_ptr<TQualifierTable> TQualifierTable::InheritedForm() const {
  const boost::shared_ptr<TQualifierTable> table = Create(fNamespace, this);
  table->Close();
  return table;
}

void TQualifierTable::Inherit(const TQualifierTable& inherited) {
  for (const auto& qualifier : inherited.fQualifiers.Items()) {
    if ((qualifier->fFlavor & kFlavorToSubclass) == 0) continue;
    fQualifiers.Put(qualifier->fDecl->GetName(TCIMContext()), qualifier->InheritedForm());
  }
}

boost::shared_ptr<ICIMQualifier> TQualifierTable::CreateQualifier(
    const boost::shared_ptr<ICIMQualifierDecl>& decl, const TCIMValue& value) {
  if (!fOpen) throw THWXException(kHWXStatusInvalidOpSequence);
  const boost::shared_ptr<TMemoryNamespace> ns = fNamespace.lock();
  const TCIMContext none;
  if (!decl || !ns || ns->GetQualifierDecl(decl->GetName(none), none) != decl)
    throw THWXException(kHWXStatusNotFound);
  if (value.GetType() != decl->GetDefaultValue(none).GetType())
    throw THWXException(kHWXStatusTypeMismatch);
  detail::CheckReferencedClass(value);
  CheckFree(decl->GetName(none), value);
  return boost::shared_ptr<TMemoryQualifier>(
      new TMemoryQualifier(decl, value, shared_from_this(), false));
}

// An inherited qualifier may be repeated with its own value, as the copy of an element does.
void TQualifierTable::CheckFree(const std::string& name, const TCIMValue& value) const {
  const boost::shared_ptr<TMemoryQualifier> there = fQualifiers.Find(name);
  if (!there) return;
  if (!there->fInherited) throw THWXException(kHWXStatusAlreadyExists);
  const bool overridable = (there->fFlavor & kFlavorEnableOverride) != 0;
  if (!overridable && detail::ContentText(value) != detail::ContentText(there->fValue))
    throw THWXException(kHWXStatusNotOverridable);
}

void TQualifierTable::Commit(const boost::shared_ptr<TMemoryQualifier>& qualifier) {
  if (!fOpen) throw THWXException(kHWXStatusInvalidOpSequence);
  const std::string& name = qualifier->fDecl->GetName(TCIMContext());
  CheckFree(name, qualifier->fValue);
  fQualifiers.Put(name, qualifier);
}

boost::shared_ptr<ICIMQualifier> TQualifierTable::Find(const std::string& name) const {
  return fQualifiers.Find(name);
}

bool TQualifierTable::IsTrue(const std::string& name) const {
  const boost::shared_ptr<TMemoryQualifier> qualifier = fQualifiers.Find(name);
  if (!qualifier || qualifier->fValue.IsNull()) return false;
  if (qualifier->fValue.GetType() != TCIMValue::TCIMType::kCIMTypeBoolean) return false;
  return qualifier->fValue.operator bool();
}

unsigned int TQualifierTable::GetCount() const {
  return static_cast<unsigned int>(fQualifiers.Items().size());
}

void TQualifierTable::Enumerate(
    const boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const {
  detail::Enumerate(fQualifiers.Items(), callback);
}

}  // namespace NQORHWX20
