#include "hwxkit/StandardQualifiers.h"

#include "hwxkit/QualifierFlags.h"
#include "hwxkit/TMemoryNamespace.h"

namespace NQORHWX20 {

namespace {

using TCIMType = TCIMValue::TCIMType;

const unsigned int kAnyClass = kScopeClass | kScopeAssociation | kScopeIndication;
const unsigned int kKeys = kScopeProperty | kScopeReference;
const unsigned int kValues = kScopeProperty | kScopeMethod | kScopeParameter;

const unsigned int kFixed = kFlavorToSubclass;
const unsigned int kFree = kFlavorDefault;
const unsigned int kFreeText = kFree | kFlavorTranslatable;
const unsigned int kOwn = kFlavorRestricted | kFlavorEnableOverride;

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
  Declare(ns, "Abstract", false, kAnyClass, kOwn);
  Declare(ns, "Aggregate", false, kScopeReference, kFixed);
  Declare(ns, "Aggregation", false, kScopeAssociation, kFixed);
  Declare(ns, "Association", false, kScopeAssociation, kFixed);
  Declare(ns, "Deprecated", NullStringArray(), kScopeAny, kOwn);
  Declare(ns, "Description", nullString, kScopeAny, kFreeText);
  Declare(ns, "In", true, kScopeParameter, kFixed);
  Declare(ns, "Key", false, kKeys, kFixed);
  Declare(ns, "MaxLen", NullOf(TCIMType::kCIMTypeUInt32), kValues, kFree);
  Declare(ns, "Out", false, kScopeParameter, kFixed);
  Declare(ns, "Override", nullString, kKeys | kScopeMethod, kOwn);
  Declare(ns, "Propagated", nullString, kScopeProperty, kFixed);
  Declare(ns, "PUnit", nullString, kValues, kFree);
  Declare(ns, "Read", true, kScopeProperty, kFree);
  Declare(ns, "Required", false, kKeys | kValues, kFixed);
  Declare(ns, "Units", nullString, kValues, kFreeText);
  Declare(ns, "ValueMap", NullStringArray(), kValues, kFree);
  Declare(ns, "Values", NullStringArray(), kValues, kFreeText);
  Declare(ns, "Version", nullString, kAnyClass, kOwn | kFlavorTranslatable);
  Declare(ns, "Weak", false, kScopeReference, kFixed);
  Declare(ns, "Write", false, kScopeProperty, kFree);
}

}  // namespace NQORHWX20
