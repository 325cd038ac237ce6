#ifndef HWXKIT_TMEMORYINSTANCE_H
#define HWXKIT_TMEMORYINSTANCE_H

#include <boost/enable_shared_from_this.hpp>
#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMInstance.h"

namespace NQORHWX20 {

class TMemoryClass;
class TMemoryProperty;
class TMemoryPropertyDecl;
struct TElementNotes;

namespace detail {
struct TInstanceValues;
}

/// The kit's instance: every property that its class declares or inherits, in the class's order. It
/// holds its class strongly. `TMemoryClass::CreateInstance` makes one, with the default values.
///
/// Thread-safety: none.
class HWX_EXPORT TMemoryInstance : public ICIMInstance,
                                   public boost::enable_shared_from_this<TMemoryInstance> {
 public:
  ~TMemoryInstance() override;

  /// Takes the instance out of its class; it may be added again. Throws
  /// `kHWXStatusInvalidOpSequence` if no class holds it.
  void Delete(TCIMContext context) override;
  boost::shared_ptr<ICIMInstance> Clone(TCIMContext context) override;
  bool IsInstanceOf(const std::string& className, TCIMContext context) override;
  const std::string& GetClassName(TCIMContext context) override;
  /// Empty when the namespace is gone.
  boost::shared_ptr<ICIMNamespace> GetNamespace(TCIMContext context) override;
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext context) override;
  unsigned int GetPropertyCount(TCIMContext context) override;
  bool HasProperty(const std::string& name, TCIMContext context) override;
  void EnumerateKeyProperties(
      const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
      TCIMContext context) override;
  boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name,
                                              TCIMContext context) override;
  /// Throws `kHWXStatusNotFound` if there is no such property, `kHWXStatusTypeMismatch` for a value
  /// of another type than declared (a null has to be of that type too), `kHWXStatusInvalidClass`
  /// for a reference to another class than the declared one and its subclasses, by name,
  /// `kHWXStatusInvalidReference` for one without a class, and `kHWXStatusInvalidOpSequence` for a
  /// key of an instance that a class holds.
  void SetPropertyValue(const std::string& name, const TCIMValue& value,
                        TCIMContext context) override;
  void EnumerateProperties(const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
                           TCIMContext context) override;

  /// `SetPropertyValue`, to be chained.
  TMemoryInstance& Set(const std::string& name, const TCIMValue& value);

  /// Makes a property a null of the declared type, to be chained. Throws as `SetPropertyValue`
  /// does.
  TMemoryInstance& SetNull(const std::string& name);

  /// The places of properties are those of `TMemoryClass::PropertyDecls`.
  ///
  /// The value at a place, valid until it is set.
  const TCIMValue& ValueAt(std::size_t index) const;
  /// `SetPropertyValue` by the place, which takes the value over.
  void SetValueAt(std::size_t index, TCIMValue&& value);

  /// What a file says of the property at a place; of the instance itself behind the last place.
  const TElementNotes& NotesAt(std::size_t index) const;
  void SetNotesAt(std::size_t index, const TElementNotes& notes);

 private:
  friend class TMemoryClass;
  friend class TMemoryNamespace;

  explicit TMemoryInstance(const boost::shared_ptr<TMemoryClass>& instanceClass);

  std::size_t IndexOf(const std::string& name) const;
  boost::shared_ptr<TMemoryProperty> PropertyAt(std::size_t index);
  void CheckSettable(const TMemoryPropertyDecl& decl, const TCIMValue& value) const;
  std::string KeyText() const;

  const boost::shared_ptr<TMemoryClass> fClass;
  const boost::shared_ptr<detail::TInstanceValues> fValues;
  bool fHeld;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYINSTANCE_H
