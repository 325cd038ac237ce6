// Words of CIM-XML that reading and writing share.
// Thread-safety: all of it is free of state.

#ifndef CONTAINER_VOCABULARY_H
#define CONTAINER_VOCABULARY_H

#include "hwxcore/value/TCIMValue.h"
#include "hwxkit/QualifierFlags.h"

namespace container {

using TType = NQORHWX20::TCIMValue::TCIMType;

inline bool IsArrayType(const TType& type) {
  return (type & TType::kCIMTypeArrayFlag) != 0;
}

/// The type itself, or an array of it.
inline TType AsArray(const TType& type, bool isArray = true) {
  if (!isArray) return type;
  return static_cast<TType::ECIMType>(type | TType::kCIMTypeArrayFlag);
}

/// The type of a single element.
inline TType AsElement(const TType& type) {
  return static_cast<TType::ECIMType>(type & ~TType::kCIMTypeArrayFlag);
}

/// Whether a type is a reference or an array of references.
inline bool IsReferenceType(const TType& type) {
  return AsElement(type) == TType::kCIMTypeReference;
}

/// The element in which a value of the type stands.
inline const char* ValueElement(const TType& type, bool isKey) {
  if (IsArrayType(type)) return IsReferenceType(type) ? "VALUE.REFARRAY" : "VALUE.ARRAY";
  if (IsReferenceType(type)) return "VALUE.REFERENCE";
  return isKey ? "KEYVALUE" : "VALUE";
}

/// The VALUETYPE of a key.
inline const char* KindOfKey(const TType& type) {
  switch (type) {
    case TType::kCIMTypeBoolean:
      return "boolean";
    case TType::kCIMTypeString:
    case TType::kCIMTypeChar16:
    case TType::kCIMTypeDateTime:
      return "string";
    default:
      return "numeric";
  }
}

/// A bit of a qualifier declaration's scope or flavor, and the attribute that tells it.
struct TFlagName {
  const char* fName;
  unsigned int fBit;
};

constexpr TFlagName kScopeNames[] = {
    {"CLASS", NQORHWX20::kScopeClass},          {"ASSOCIATION", NQORHWX20::kScopeAssociation},
    {"REFERENCE", NQORHWX20::kScopeReference},  {"PROPERTY", NQORHWX20::kScopeProperty},
    {"METHOD", NQORHWX20::kScopeMethod},        {"PARAMETER", NQORHWX20::kScopeParameter},
    {"INDICATION", NQORHWX20::kScopeIndication}};

constexpr TFlagName kFlavorNames[] = {{"OVERRIDABLE", NQORHWX20::kFlavorEnableOverride},
                                      {"TOSUBCLASS", NQORHWX20::kFlavorToSubclass},
                                      {"TOINSTANCE", NQORHWX20::kFlavorToInstance},
                                      {"TRANSLATABLE", NQORHWX20::kFlavorTranslatable}};

}  // namespace container

#endif  // CONTAINER_VOCABULARY_H
