#ifndef HWXKIT_TQUALIFIERTABLE_H
#define HWXKIT_TQUALIFIERTABLE_H

#include <boost/enable_shared_from_this.hpp>
#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMValue.h"
#include "hwxkit/TNameTable.h"

namespace NQORHWX20 {

class ICIMQualifier;
class ICIMQualifierDecl;
class TMemoryNamespace;
class TMemoryQualifier;

/// The qualifiers of one element: first those that it inherits, then its own, each in the order of
/// commitment; one that overrides stands in the inherited one's place. The kit's elements are built
/// on it; providers have no need of it.
///
/// Thread-safety: none.
class HWX_EXPORT TQualifierTable : public boost::enable_shared_from_this<TQualifierTable> {
 public:
  /// An open table. From `inherited`, which may be null, it takes what has the flavor
  /// `kFlavorToSubclass`.
  static boost::shared_ptr<TQualifierTable> Create(const boost::weak_ptr<TMemoryNamespace>& ns,
                                                   const TQualifierTable* inherited);
  ~TQualifierTable();

  /// A final table of what a subclass inherits from this one.
  boost::shared_ptr<TQualifierTable> InheritedForm() const;

  /// A new qualifier; its `Commit` puts it on the element. Throws `kHWXStatusInvalidOpSequence` if
  /// the element is final, `kHWXStatusNotFound` unless `decl` is a committed declaration of the
  /// element's namespace, `kHWXStatusTypeMismatch` if the value isn't of the declaration's type,
  /// `kHWXStatusInvalidClass` for a reference to a class of the kit that isn't committed,
  /// `kHWXStatusAlreadyExists` if the element itself bears such a qualifier, and
  /// `kHWXStatusNotOverridable` if it inherits one with another value and without
  /// `kFlavorEnableOverride`.
  boost::shared_ptr<ICIMQualifier> CreateQualifier(const boost::shared_ptr<ICIMQualifierDecl>& decl,
                                                   const TCIMValue& value);

  /// The qualifier of that name, or an empty pointer.
  boost::shared_ptr<ICIMQualifier> Find(const std::string& name) const;

  /// Whether there is such a qualifier whose value is the boolean true.
  bool IsTrue(const std::string& name) const;

  unsigned int GetCount() const;

  /// Presents the qualifiers until `callback` returns false.
  void Enumerate(const boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const;

  /// Makes the table final.
  void Close() { fOpen = false; }

 private:
  friend class TMemoryQualifier;

  explicit TQualifierTable(const boost::weak_ptr<TMemoryNamespace>& ns);

  void Inherit(const TQualifierTable& inherited);
  void CheckFree(const std::string& name, const TCIMValue& value) const;
  void Commit(const boost::shared_ptr<TMemoryQualifier>& qualifier);

  const boost::weak_ptr<TMemoryNamespace> fNamespace;
  TNameTable<TMemoryQualifier> fQualifiers;
  bool fOpen;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TQUALIFIERTABLE_H
