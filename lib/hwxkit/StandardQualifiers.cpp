#include "hwxkit/StandardQualifiers.h"

#include "hwxkit/QualifierFlags.h"
#include "hwxkit/TMemoryNamespace.h"

namespace NQORHWX20 {

namespace {

typedef TCIMValue::TCIMType TCIMType;

const unsigned int kAnyClass = kScopeClass | kScopeAssociation | kScopeIndication;
const unsigned int kAnyProperty = kScopeProperty | kScopeReference;
const unsigned int kAnyMember = kAnyProperty | kScopeMethod | kScopeParameter;

const unsigned int kFixed = kFlavorToSubclass;
const unsigned int kFree = kFlavorDefault;
const unsigned int kFreeText = kFree | kFlavorTranslatable;

TCIMValue NullOf(TCIMType::ECIMType type) {
  return TCIMValue(type, 0);
}

TCIMValue NullStringArray() {
  return NullOf(
      static_cast<TCIMType::ECIMType>(TCIMType::kCIMTypeString | TCIMType::kCIMTypeArrayFlag));
}

void Declare(TMemoryNamespace& ns, const char* name, const TCIMValue& defaultValue,
             unsigned int scope, unsigned int flavor) {
  const TCIMContext none;
  if (ns.GetQualifierDecl(name, none)) return;
  ns.CreateQualifierDecl(name, defaultValue, scope, flavor, none)->Commit(none);
}

}  // namespace

void DeclareStandardQualifiers(TMemoryNamespace& ns) {
  const TCIMValue nullString = NullOf(TCIMType::kCIMTypeString);
  Declare(ns, "Abstract", false, kAnyClass, kFlavorRestricted);
  Declare(ns, "Association", false, kScopeAssociation, kFixed);
  Declare(ns, "Description", nullString, kScopeAny, kFreeText);
  Declare(ns, "In", true, kScopeParameter, kFixed);
  Declare(ns, "Key", false, kAnyProperty, kFixed);
  Declare(ns, "MaxLen", NullOf(TCIMType::kCIMTypeUInt32), kAnyMember, kFree);
  Declare(ns, "Out", false, kScopeParameter, kFixed);
  Declare(ns, "Override", nullString, kAnyProperty | kScopeMethod, kFlavorRestricted);
  Declare(ns, "PUnit", nullString, kAnyMember, kFree);
  Declare(ns, "Read", true, kAnyProperty, kFree);
  Declare(ns, "Required", false, kAnyMember, kFixed);
  Declare(ns, "Units", nullString, kAnyMember, kFreeText);
  Declare(ns, "ValueMap", NullStringArray(), kAnyMember, kFree);
  Declare(ns, "Values", NullStringArray(), kAnyMember, kFreeText);
  Declare(ns, "Version", nullString, kAnyClass, kFlavorRestricted);
  Declare(ns, "Write", false, kAnyProperty, kFree);
}

}  // namespace NQORHWX20
