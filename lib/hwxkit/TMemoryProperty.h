#ifndef HWXKIT_TMEMORYPROPERTY_H
#define HWXKIT_TMEMORYPROPERTY_H

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMProperty.h"

namespace NQORHWX20 {

class TMemoryClass;
class TMemoryInstance;
class TMemoryPropertyDecl;
struct TElementNotes;

namespace detail {
struct TInstanceValues;
}

/// The kit's property: of an instance, or a static one of a class. It holds its declaration
/// strongly and its instance weakly, and shows the value that was set last. An instance makes one
/// whenever it is asked for a property.
///
/// Thread-safety: none.
class HWX_EXPORT TMemoryProperty : public ICIMProperty {
 public:
  ~TMemoryProperty() override;

  const std::string& GetName(TCIMContext context) override;
  TCIMValue::TCIMType GetType(TCIMContext context) override;
  bool IsNull(TCIMContext context) override;
  /// Valid until the property is given another value.
  const TCIMValue& GetValue(TCIMContext context) override;
  /// The same as the instance's `SetPropertyValue`, or as the class's `SetStaticPropertyValue`.
  /// Throws `kHWXStatusTypeMismatch` for a value of another type; a null has to be of the declared
  /// type too. Throws `kHWXStatusInvalidClass` for a reference to another class than the declared
  /// one and its subclasses, by name.
  void SetValue(const TCIMValue& value, TCIMContext context) override;
  /// Empty for a static property, and when the instance is gone.
  boost::shared_ptr<ICIMInstance> GetInstance(TCIMContext context) override;
  boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(TCIMContext context) override;

  /// Each throws `kHWXStatusValueIsNULL` for a null value, `kHWXStatusTypeMismatch` for one of
  /// another type.
  bool GetBooleanValue() override;
  unsigned short GetUInt16Value() override;
  unsigned int GetUInt32Value() override;
  unsigned long GetUInt64Value() override;
  int GetSInt32Value() override;
  long GetSInt64Value() override;
  double GetReal64Value() override;
  std::string GetStringValue() override;
  TCIMDateTime GetDateTimeValue() override;
  /// Also throws `kHWXStatusValueIsNULL` for a null element.
  std::vector<std::string> GetStringArrayValue() override;

  /// What a file said of the property; empty for a static one.
  const TElementNotes& GetNotes() const;

 private:
  friend class TMemoryClass;
  friend class TMemoryInstance;

  /// A property of an instance, which has the place `index` among its values.
  TMemoryProperty(const boost::shared_ptr<TMemoryPropertyDecl>& decl,
                  const boost::weak_ptr<TMemoryInstance>& instance,
                  const boost::shared_ptr<detail::TInstanceValues>& values, std::size_t index);
  /// A static property.
  TMemoryProperty(const boost::shared_ptr<TMemoryPropertyDecl>& decl, const TCIMValue& value);

  const TCIMValue& Value() const;
  void Replace(const TCIMValue& value);

  const boost::shared_ptr<TMemoryPropertyDecl> fDecl;
  const boost::weak_ptr<TMemoryInstance> fInstance;
  const boost::shared_ptr<detail::TInstanceValues> fValues;
  const std::size_t fIndex;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYPROPERTY_H
