#ifndef CONTAINER_VALUEWRITER_H
#define CONTAINER_VALUEWRITER_H

#include <boost/shared_ptr.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_set>

#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/TCIMValue.h"
#include "hwxcore/value/THWXStatusCode.h"
#include "hwxkit/CIMName.h"
#include "hwxkit/TMemoryNamespace.h"

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
  /// `ns` is the namespace that is being saved. References may name classes that were added by
  /// `AddClass`, or with `isComplete` all of the namespace.
  explicit TValueWriter(const NQORHWX20::TMemoryNamespace& ns, bool isComplete = false)
      : fNamespace(ns), fIsComplete(isComplete) {}

  /// What has been written so far, to be taken away or added to.
  std::string& XML() { return fXML; }

  void AddClass(const std::string& name) { fClasses.insert(name); }
  bool HasClass(const std::string& name) const { return fIsComplete || fClasses.count(name) != 0; }

  /// Appends ` NAME="text"`. A name's escapes need no mark, as no other name has a backslash.
  void Attribute(const char* name, std::string_view text);

  /// Appends an element of the PROPERTY family, up to its `>`; `value` gives the type, the size of
  /// an array and the class of a reference. Returns the element's name, for the end tag.
  const char* BeginProperty(const std::string& name, const NQORHWX20::TCIMValue& value);
  void EndAttributes() { fXML += '>'; }
  void End(const char* element);

  /// Appends the attributes ARRAYSIZE and REFERENCECLASS that a value needs.
  void Extent(const NQORHWX20::TCIMValue& value);

  /// Appends the element of a value, or nothing for a null.
  void Value(const NQORHWX20::TCIMValue& value) { Value(value, false, 0); }

  /// Appends a KEYBINDING.
  void Key(const std::string& name, const NQORHWX20::TCIMValue& value) { Key(name, value, 0); }

  /// Appends a LOCALNAMESPACEPATH, with a NAMESPACE for each part of the name.
  void NamespacePath(const std::string& name);

 private:
  void Value(const NQORHWX20::TCIMValue& value, bool isKey, unsigned int depth);
  void Key(const std::string& name, const NQORHWX20::TCIMValue& value, unsigned int depth);
  void Scalar(const NQORHWX20::TCIMValue& value, bool isKey);
  void Array(const NQORHWX20::TCIMValue& value, unsigned int depth);
  void Reference(const NQORHWX20::TCIMValue& value, unsigned int depth);
  void Target(const NQORHWX20::TCIMReference& reference, unsigned int depth);
  void CheckKey(const NQORHWX20::TMemoryClass& keyClass, const std::string& name,
                const NQORHWX20::TCIMValue& value) const;
  boost::shared_ptr<NQORHWX20::TMemoryClass> ClassOf(
      const boost::shared_ptr<NQORHWX20::ICIMClass>& referenced) const;

  const NQORHWX20::TMemoryNamespace& fNamespace;
  const bool fIsComplete;
  std::unordered_set<std::string, NQORHWX20::TCIMNameHash, NQORHWX20::TCIMNameEqual> fClasses;
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
