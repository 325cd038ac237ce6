// What a document says, element by element, before anybody knows the classes that it names. The
// lines are those where the elements begin.

#ifndef CONTAINER_PARTS_H
#define CONTAINER_PARTS_H

#include <optional>
#include <string>
#include <vector>

#include "hwxkit/TElementNotes.h"
#include "providers/container/ScalarText.h"
#include "providers/container/Vocabulary.h"

namespace container {

using TLine = unsigned long;

struct TReferencePart;

/// An element of an array within a key, or its only value.
struct TKeyElement {
  TLine fLine = 0;
  bool fIsNull = false;
  EForm fForm = EForm::kPlain;
  std::string fText;
  std::string fReferencedClass;  ///< Of a null reference.
};

/// A key of an instance's name. Its type is often known only when the class is.
struct TKeyPart {
  enum EShape { kNothing, kText, kTexts, kReference, kReferences };

  TLine fLine = 0;
  std::string fName;  ///< Empty for the only key of a class, without a KEYBINDING.
  EShape fShape = kNothing;
  std::string fKind;  ///< VALUETYPE; empty if it isn't said.
  TType fType = TType::kCIMTypeNone;
  unsigned int fMaxArraySize = 0;
  std::string fReferencedClass;
  std::vector<TKeyElement> fTexts;
  std::vector<TReferencePart> fReferences;
};

/// A reference, or a null among the elements of an array.
struct TReferencePart {
  TLine fLine = 0;
  bool fIsNull = false;
  std::string fNamespace;
  std::string fClass;  ///< Of a null: the class of the reference, which may be empty.
  std::vector<TKeyPart> fKeys;
};

/// A value whose type is known; without one of the following it is null. Assigning to a `TCIMValue`
/// compares it first, so parts are moved and never assigned.
struct TValuePart {
  std::optional<NQORHWX20::TCIMValue> fValue;  ///< Anything but a reference.
  bool fIsReference = false;                   ///< References, made when their classes are known.
  unsigned int fMaxArraySize = 0;
  std::string fReferencedClass;  ///< REFERENCECLASS
  std::vector<TReferencePart> fReferences;
};

struct TQualifierPart {
  TLine fLine = 0;
  std::string fName;
  TType fType = TType::kCIMTypeNone;  ///< An array only if there is a value that says so.
  TValuePart fValue;
  unsigned int fFlavor = 0;      ///< The bits that are set.
  unsigned int fSaidFlavor = 0;  ///< The bits that are said.
  NQORHWX20::TElementNotes fNotes;
};

using TQualifierParts = std::vector<TQualifierPart>;

struct TQualifierDeclPart {
  TLine fLine = 0;
  std::string fName;
  TType fType = TType::kCIMTypeNone;
  TValuePart fValue;
  unsigned int fScope = 0;
  unsigned int fFlavor = 0;
};

struct TPropertyPart {
  TLine fLine = 0;
  const char* fElement = "";
  std::string fName;
  TType fType = TType::kCIMTypeNone;
  TValuePart fValue;
  NQORHWX20::TElementNotes fNotes;
  TQualifierParts fQualifiers;
};

struct TParameterPart {
  TLine fLine = 0;
  const char* fElement = "";
  std::string fName;
  TType fType = TType::kCIMTypeNone;
  NQORHWX20::TElementNotes fNotes;
  TQualifierParts fQualifiers;
};

struct TMethodPart {
  TLine fLine = 0;
  std::string fName;
  TType fType = TType::kCIMTypeNone;
  NQORHWX20::TElementNotes fNotes;
  TQualifierParts fQualifiers;
  std::vector<TParameterPart> fParameters;
};

struct TClassPart {
  TLine fLine = 0;
  std::string fName;
  std::string fSuperClass;
  TQualifierParts fQualifiers;
  std::vector<TPropertyPart> fProperties;
  std::vector<TMethodPart> fMethods;
};

/// The name of an instance.
struct TInstanceName {
  TLine fLine = 0;
  std::string fClass;
  std::vector<TKeyPart> fKeys;
};

struct TInstancePart {
  TLine fLine = 0;
  std::string fClass;
  std::string fLanguage;
  std::optional<TInstanceName> fInstanceName;
  std::vector<TPropertyPart> fProperties;
};

/// The static values of a class.
struct TStaticPart {
  TLine fLine = 0;
  std::string fClass;
  std::vector<TPropertyPart> fProperties;
};

}  // namespace container

#endif  // CONTAINER_PARTS_H
