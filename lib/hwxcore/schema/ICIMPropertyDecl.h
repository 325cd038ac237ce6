#ifndef HWXCORE_SCHEMA_ICIMPROPERTYDECL_H
#define HWXCORE_SCHEMA_ICIMPROPERTYDECL_H

#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMQualifiedElement.h"

namespace NQORHWX20 {

class ICIMClass;

/// The declaration of a property in a class: name, type, default value, qualifiers.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT ICIMPropertyDecl : public ICIMQualifiedElement {
 public:
  // Contract: slot-order.
  ~ICIMPropertyDecl() override;

  /// Makes a declaration begun by `ICIMClass::CreatePropertyDecl` final.
  virtual void Commit(TCIMContext context) = 0;

  /// Gives the property another name.
  virtual void Rename(const std::string& name, TCIMContext context);

  /// The name; valid as long as the declaration lives and is not changed.
  virtual const std::string& GetName(TCIMContext context) = 0;

  /// The class that declares the property.
  virtual boost::shared_ptr<ICIMClass> GetClass(TCIMContext context);

  /// The type, with the array flag for an array.
  virtual TCIMValue::TCIMType GetType(TCIMContext context) = 0;

  /// Changes the default value.
  virtual void SetDefaultValue(const TCIMValue& value, TCIMContext context);

  /// The default value, a typed null where there is none.
  virtual const TCIMValue& GetDefaultValue(TCIMContext context) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_ICIMPROPERTYDECL_H
