#ifndef HWXCORE_VALUE_TCIMREFERENCEIMPL_H
#define HWXCORE_VALUE_TCIMREFERENCEIMPL_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <map>
#include <string>
#include <utility>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMContext.h"

namespace NQORHWX20 {

class ICIMClass;
class ICIMElement;
class ICIMNamespace;
class TCIMReference;

/// The body of `TCIMReference`, which documents the operations.
class HWX_EXPORT TCIMReferenceImpl {
 public:
  TCIMReferenceImpl(TCIMReference* owner, boost::shared_ptr<ICIMNamespace> ns, TCIMContext context);
  /// A copy for another owner.
  TCIMReferenceImpl(TCIMReference* owner, const TCIMReferenceImpl& other);
  TCIMReferenceImpl(const TCIMReferenceImpl&) = delete;
  TCIMReferenceImpl& operator=(const TCIMReferenceImpl&) = delete;
  ~TCIMReferenceImpl();

  void SetPath(const std::string& path);
  std::string GetPath() const;
  void AddKeyValue(const std::string& name, const TCIMValue& value);
  void EnumerateKeyBindings(
      const boost::function<bool(std::pair<std::string, TCIMValue>)>& callback) const;

  /// Reads a path into `target`, looking classes up in this object's namespace. `position` is the
  /// place in `path` and moves along: 0 for a whole path, else the opening quotation mark of a
  /// nested one. Ends on the closing mark, or at or behind the end. Throws as `SetPath` does.
  void ParsePath(TCIMReferenceImpl* target, const std::string& path, unsigned long& position);

  void SetNamespace(boost::shared_ptr<ICIMNamespace> ns);
  boost::shared_ptr<ICIMNamespace> GetNamespace() const;
  void SetContext(TCIMContext context);
  void SetNameSpaceName(std::string name);
  std::string GetNameSpaceName() const;
  void SetClass(boost::shared_ptr<ICIMClass> newClass);
  void SetClassName(const std::string& name);
  boost::shared_ptr<ICIMClass> GetClass() const;
  const std::string& GetClassName() const;
  void Clear();
  boost::shared_ptr<ICIMElement> GetCIMElement(bool classOnly) const;

  bool operator==(const TCIMReferenceImpl& other) const;
  bool operator<(const TCIMReferenceImpl& other) const;

 private:
  void ParsePathAtDepth(TCIMReferenceImpl* target, const std::string& path, unsigned long& position,
                        unsigned depth);
  void ParseKey(TCIMReferenceImpl* target, const boost::shared_ptr<ICIMNamespace>& ns,
                ICIMClass& keyClass, const std::string& path, unsigned long& position,
                unsigned depth);
  /// Throws what `AddKeyValue` throws.
  void CheckKey(const std::string& name, const TCIMValue& value) const;
  void AppendPath(std::string& path) const;

  /// Negative, zero or positive: less, neither, greater.
  int Compare(const TCIMReferenceImpl& other) const;
  static int CompareValues(const TCIMValue& one, const TCIMValue& other);

  TCIMReference* fOwner;
  boost::weak_ptr<ICIMNamespace> fNamespace;
  TCIMContext fContext;
  boost::shared_ptr<ICIMClass> fClass;
  std::map<std::string, TCIMValue> fKeyBindings;
  mutable boost::shared_ptr<ICIMElement> fElement;
  std::string fNameSpaceName;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMREFERENCEIMPL_H
