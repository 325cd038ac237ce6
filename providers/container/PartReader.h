#ifndef CONTAINER_PARTREADER_H
#define CONTAINER_PARTREADER_H

#include <string>

#include "providers/container/Parts.h"
#include "providers/container/Scanner.h"
#include "providers/container/Warnings.h"

namespace container {

/// The value of a text, as `ScalarValue` gives it. The asterisks of a date-time that leaves places
/// open are read as its first moment, with a warning.
NQORHWX20::TCIMValue ScalarOf(TType type, EForm form, const std::string& text, TWarnings& warnings);

/// Reads the elements of a document into parts. Nothing is taken on trust: what is malformed,
/// unknown, of a wrong type or out of range is refused with the line and the element.
///
/// Thread-safety: none.
class TPartReader {
 public:
  TPartReader(TScanner& scanner, TWarnings& warnings) : fScanner(scanner), fWarnings(warnings) {}

  // Each reads the open element, and closes it.

  TQualifierDeclPart QualifierDecl();
  TClassPart Class();
  TStaticPart Static();
  /// Into a part that may hold another instance, whose memory it takes over.
  void Instance(TInstancePart& instance);
  TInstanceName InstanceName() { return InstanceName(0); }
  /// A NAMESPACEPATH or LOCALNAMESPACEPATH; one with a host becomes "//host/name".
  std::string NamespaceName();
  /// A CLASSNAME, an INSTANCENAME or one of their paths.
  TReferencePart Object() { return Object(0); }

 private:
  // A form that a note or the attribute FORM gives to the text behind it.
  struct TForm {
    EForm fForm = EForm::kPlain;
    bool fHasText = false;
    std::string fText;  // in place of the one in the document
  };

  std::string Name(const char* attribute) const;
  std::string OptionalName(const char* attribute) const;
  bool Flag(const char* attribute, bool absent = false) const;
  unsigned int Number(const char* attribute) const;
  TType Type() const;
  NQORHWX20::EEmbeddedObject Embedded() const;
  NQORHWX20::TElementNotes Notes() const;
  unsigned int Flavor(unsigned int& said) const;

  TForm ReadForm() const;
  bool IsCleared() const;
  NQORHWX20::TCIMValue Scalar(TType type);
  NQORHWX20::TCIMValue Array(TType type, unsigned int maxArraySize);
  void References(TValuePart& value, TType type);
  void ReadExtent(TValuePart& value, TType type) const;
  void Value(TValuePart& value, TType type);
  unsigned int Scope();

  TReferencePart Reference(unsigned int depth);
  TReferencePart Object(unsigned int depth);
  void NamedObject(TReferencePart& object, unsigned int depth);
  TInstanceName InstanceName(unsigned int depth);
  TKeyPart KeyBinding(unsigned int depth);
  void KeyContent(TKeyPart& key, unsigned int depth);
  void KeyValue(TKeyPart& key);
  void KeyElements(TKeyPart& key, unsigned int depth);

  TQualifierPart Qualifier();
  bool IsProperty() const;
  void Property(TPropertyPart& property, bool isOfInstance);
  TMethodPart Method();
  TParameterPart Parameter();

  TScanner& fScanner;
  TWarnings& fWarnings;
};

}  // namespace container

#endif  // CONTAINER_PARTREADER_H
