#ifndef HWXCORE_SCHEMA_ICIMQUALIFIER_H
#define HWXCORE_SCHEMA_ICIMQUALIFIER_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMContext.h"

namespace NQORHWX20 {

class ICIMQualifiedElement;
class ICIMQualifierDecl;

/// A qualifier on an element: a value for a qualifier declaration.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT ICIMQualifier {
 public:
  // Contract: slot-order.
  virtual ~ICIMQualifier();

  /// Takes the qualifier off its element.
  virtual void Delete(TCIMContext context);

  /// Makes a qualifier begun by `ICIMQualifiedElement::CreateQualifier` final.
  virtual void Commit(TCIMContext context) = 0;

  /// The name, which is that of the declaration.
  virtual const std::string& GetName(TCIMContext context);

  /// The type, which is that of the declaration.
  virtual TCIMValue::TCIMType GetType(TCIMContext context);

  /// Whether the qualifier comes from a superclass.
  virtual bool IsInherited(TCIMContext context);

  /// The element that bears the qualifier.
  virtual boost::shared_ptr<ICIMQualifiedElement> GetElement(TCIMContext context);

  /// Changes the value.
  virtual void SetValue(const TCIMValue& value, TCIMContext context);

  /// The declaration.
  virtual boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(TCIMContext context) = 0;

  /// The value; valid as long as the qualifier lives and is not changed.
  virtual const TCIMValue& GetValue(TCIMContext context) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_ICIMQUALIFIER_H
