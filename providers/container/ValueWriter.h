#ifndef CONTAINER_VALUEWRITER_H
#define CONTAINER_VALUEWRITER_H

#include <boost/shared_ptr.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/TCIMValue.h"
#include "hwxcore/value/THWXStatusCode.h"
#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/ScalarText.h"

namespace container {

/// Why something can't be saved, without the name of the file.
class TUnsavable : public std::runtime_error {
 public:
  TUnsavable(NQORHWX20::THWXStatusCode status, const std::string& why)
      : std::runtime_error(why), fStatus(status) {}
  const NQORHWX20::THWXStatusCode& GetStatus() const { return fStatus; }

 private:
  NQORHWX20::THWXStatusCode fStatus;
};

/// Appends values to a piece of XML. What couldn't be read back is refused with `TUnsavable`.
///
/// Thread-safety: none.
class TValueWriter {
 public:
  /// `ns` is the namespace that is being saved.
  explicit TValueWriter(const NQORHWX20::TMemoryNamespace& ns) : fNamespace(ns) {}

  /// What has been written so far, to be taken away or added to.
  std::string& XML() { return fXML; }

  /// Appends ` NAME="text"`. A name's escapes need no mark, as no other name has a backslash.
  void Attribute(const char* name, std::string_view text);

  /// Appends an element of the PROPERTY family, up to its `>`; `value` gives the type, the size of
  /// an array and the class of a reference. Returns the element's name, for the end tag.
  const char* BeginProperty(const std::string& name, const NQORHWX20::TCIMValue& value);
  void EndAttributes() { fXML += '>'; }
  void End(const char* element);

  /// Appends the attributes ARRAYSIZE and REFERENCECLASS that a value needs.
  void Extent(const NQORHWX20::TCIMValue& value);

  /// Appends the element of a value, or nothing for a null. A note in front of it tells how it is
  /// to be read where CIM-XML can't say it.
  void Value(const NQORHWX20::TCIMValue& value) { Value(value, false, 0); }

  /// Appends a KEYBINDING.
  void Key(const std::string& name, const NQORHWX20::TCIMValue& value) { Key(name, value, 0); }

  /// Appends a LOCALNAMESPACEPATH, with a NAMESPACE for each part of the name, or a NAMESPACEPATH
  /// for a name of the form "//host/name".
  void NamespacePath(const std::string& name);

 private:
  void Value(const NQORHWX20::TCIMValue& value, bool isKey, unsigned int depth);
  void Key(const std::string& name, const NQORHWX20::TCIMValue& value, unsigned int depth);
  void Scalar(const NQORHWX20::TCIMValue& value, bool isKey);
  void Note(EForm form, const std::string& text);
  void Array(const NQORHWX20::TCIMValue& value, unsigned int depth);
  void Reference(const NQORHWX20::TCIMValue& value, unsigned int depth);
  void Target(const NQORHWX20::TCIMReference& reference, unsigned int depth);
  void CheckKey(const std::string& className, const std::string& name,
                const NQORHWX20::TCIMValue& value) const;

  const NQORHWX20::TMemoryNamespace& fNamespace;
  std::string fXML;
};

/// Calls `call`, and puts `place()` in front of the text of its `TUnsavable`.
template <typename Place, typename Call>
void Within(Place place, Call call) {
  try {
    call();
  } catch (const TUnsavable& failure) {
    throw TUnsavable(failure.GetStatus(), place() + ": " + failure.what());
  }
}

}  // namespace container

#endif  // CONTAINER_VALUEWRITER_H
