#ifndef HWXCORE_VALUE_TCIMREFERENCE_H
#define HWXCORE_VALUE_TCIMREFERENCE_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <memory>
#include <string>
#include <utility>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMContext.h"

namespace NQORHWX20 {

class ICIMClass;
class ICIMElement;
class ICIMNamespace;
class TCIMReferenceImpl;

/// A CIM object path: a class, or one instance of it by its key properties.
///
/// The text form is `Class.Key1="value",Key2="value"`. Every value is quoted, with a backslash
/// before each quotation mark and backslash in it; the value of a reference key is a path of its
/// own, which isn't escaped. A path that is read needs a namespace text and ":" before the class as
/// soon as it has keys, and `GetPath` prints none: what is printed has to be led by "some text:" to
/// be read again, and a path with nested references can't be read again at all.
///
/// A reference holds its namespace weakly and its class strongly: it never keeps the namespace
/// alive, and goes on naming its class when the namespace is gone. Copies are deep in the keys; a
/// copy keeps the instance that its source has found.
///
/// Thread-safety: none; a reference belongs to one thread at a time, even for reading, as
/// `GetCIMElement` keeps what it finds.
class HWX_EXPORT TCIMReference {
 public:
  /// An empty reference on `ns`. `context` goes with the look-ups of classes.
  TCIMReference(boost::shared_ptr<ICIMNamespace> ns, TCIMContext context);
  /// The same, then `SetPath(path)`, with its failures.
  TCIMReference(boost::shared_ptr<ICIMNamespace> ns, const std::string& path, TCIMContext context);
  TCIMReference(const TCIMReference& other);
  ~TCIMReference();

  TCIMReference& operator=(const TCIMReference& other);

  /// The body; the handle keeps it.
  TCIMReferenceImpl* GetBody() const;

  /// Takes class and keys from a path, typed by the declarations of the class. Throws
  /// `kHWXStatusInvalidOpSequence` unless the reference has a namespace and neither class nor keys;
  /// `kHWXStatusUnknownClass` for a class without keys that isn't there;
  /// `kHWXStatusInvalidReference`, after a log entry, for everything that is wrong in a path with
  /// keys; `kHWXStatusTypeMismatch` for a key whose type can't be read from text, after a log entry
  /// for a `char16` and without one for an array; `kHWXStatusInvalidDateTime` for a text that is no
  /// date-time. A path that fails leaves the class and the keys in front of the fault.
  void SetPath(const std::string& path);

  /// The path, with the keys in the order of their names. Throws `kHWXStatusInvalidReference`
  /// without a class and `kHWXStatusValueIsNULL` for a null key.
  std::string GetPath() const;

  /// Adds a key; one that is there already stays as it is. Throws `kHWXStatusInvalidOpSequence`
  /// without a class, `kHWXStatusTypeMismatch`, after a log entry, unless `value` is of the
  /// declared type, and what the class throws for a property that it lacks.
  void AddKeyValue(const std::string& name, const TCIMValue& value);

  /// Presents copies of the keys in the order of their names until `callback` returns false. The
  /// callback may add keys to this reference, but must not clear or replace it.
  void EnumerateKeyBindings(
      const boost::function<bool(std::pair<std::string, TCIMValue>)>& callback) const;

  void SetNamespace(boost::shared_ptr<ICIMNamespace> ns);
  /// Empty if the namespace is gone.
  boost::shared_ptr<ICIMNamespace> GetNamespace() const;

  void SetContext(TCIMContext context);

  /// A label, which only `operator==` looks at.
  void SetNameSpaceName(std::string name);
  std::string GetNameSpaceName() const;

  /// Binds a class, or unbinds it by an empty pointer. Throws `kHWXStatusInvalidOpSequence` if
  /// there are keys.
  void SetClass(boost::shared_ptr<ICIMClass> newClass);
  /// Looks a class up and binds it. Throws `kHWXStatusInvalidOpSequence` if there are keys or no
  /// namespace, `kHWXStatusUnknownClass` if the namespace lacks the class.
  void SetClassName(const std::string& name);
  /// Throws `kHWXStatusInvalidReference` without a class.
  boost::shared_ptr<ICIMClass> GetClass() const;
  /// Throws as `GetClass` does. The text is the class's own.
  const std::string& GetClassName() const;

  /// Forgets namespace, class, keys and the instance found. The context and the label stay.
  void Clear();

  /// The instance that the keys name, asked of the class's namespace once and then kept; the class,
  /// which may be empty, if `classOnly` or without keys. Throws `kHWXStatusNotFound` if there is no
  /// such instance; failures of the namespace pass through.
  boost::shared_ptr<ICIMElement> GetCIMElement(bool classOnly) const;

  /// The same class object, equal keys, the same label.
  bool operator==(const TCIMReference& other) const;
  /// Between classes, an order that is stable while they live and differs from run to run; within
  /// one, by the keys. The label plays no part. Throws what comparing two keys throws.
  bool operator<(const TCIMReference& other) const;

 private:
  std::unique_ptr<TCIMReferenceImpl> fBody;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMREFERENCE_H
