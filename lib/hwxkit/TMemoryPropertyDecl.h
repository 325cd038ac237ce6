#ifndef HWXKIT_TMEMORYPROPERTYDECL_H
#define HWXKIT_TMEMORYPROPERTYDECL_H

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxkit/TElementNotes.h"
#include "hwxkit/TMemoryQualifiedElement.h"

namespace NQORHWX20 {

class TMemoryClass;

/// The kit's property declaration. `TMemoryClass::CreatePropertyDecl` makes one, and its `Commit`
/// puts it in the class, which owns it from then on. A declaration holds its class weakly.
///
/// A subclass that doesn't override the property sees an inherited form of the declaration. It
/// lacks the qualifiers without `kFlavorToSubclass`, "Override" for one, and is otherwise the same.
///
/// Thread-safety: none.
class HWX_EXPORT TMemoryPropertyDecl : public TMemoryQualifiedElement<ICIMPropertyDecl>,
                                       public TNotedElement,
                                       public boost::enable_shared_from_this<TMemoryPropertyDecl> {
 public:
  ~TMemoryPropertyDecl() override;

  /// Throws `kHWXStatusInvalidOpSequence` the second time and when the class is gone or final,
  /// `kHWXStatusAlreadyExists` if another of that name was committed meanwhile.
  void Commit(TCIMContext context) override;
  const std::string& GetName(TCIMContext context) override;
  /// The class that declares the property, also for an inherited form; empty when it is gone.
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext context) override;
  TCIMValue::TCIMType GetType(TCIMContext context) override;
  const TCIMValue& GetDefaultValue(TCIMContext context) override;
  /// Throws `kHWXStatusNotFound` if there is none: the copier of classes reads it so.
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                TCIMContext context) override;

  /// Whether the qualifier "Key" is true here or on a declaration that this one overrides: a key
  /// stays one in all subclasses.
  bool IsKey() const;

  /// Throws `kHWXStatusTypeMismatch` for a value of another type than the declared one, null or
  /// not, and `kHWXStatusInvalidClass` for a reference to another class than the declared one and
  /// its subclasses, by name.
  void CheckFits(const TCIMValue& value) const;

  /// Whether this is an inherited form.
  bool IsInherited() const { return fInherited; }

 private:
  friend class TMemoryClass;

  TMemoryPropertyDecl(const boost::weak_ptr<TMemoryClass>& declaringClass, const std::string& name,
                      const TCIMValue& defaultValue,
                      const boost::shared_ptr<TQualifierTable>& qualifiers, bool inheritedKey,
                      bool inherited);

  boost::shared_ptr<TMemoryPropertyDecl> InheritedForm();

  const boost::weak_ptr<TMemoryClass> fClass;
  const std::string fName;
  const TCIMValue fDefaultValue;
  const bool fInheritedKey;
  const bool fInherited;
  bool fCommitted;
  boost::shared_ptr<TMemoryPropertyDecl> fInheritedForm;  // made when a subclass first needs it
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYPROPERTYDECL_H
