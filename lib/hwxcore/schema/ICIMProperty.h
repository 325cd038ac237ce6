#ifndef HWXCORE_SCHEMA_ICIMPROPERTY_H
#define HWXCORE_SCHEMA_ICIMPROPERTY_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMContext.h"
#include "hwxcore/value/TCIMDateTime.h"

namespace NQORHWX20 {

class ICIMInstance;
class ICIMPropertyDecl;

/// A property of an instance, or a static property of a class: a value for a property declaration.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT ICIMProperty {
 public:
  // Contract: slot-order.
  virtual ~ICIMProperty();

  /// The name, which is that of the declaration.
  virtual const std::string& GetName(TCIMContext context);

  /// The type, which is that of the declaration.
  virtual TCIMValue::TCIMType GetType(TCIMContext context);

  /// Whether the value is null.
  virtual bool IsNull(TCIMContext context);

  /// The value; valid as long as the property lives and is not changed.
  virtual const TCIMValue& GetValue(TCIMContext context) = 0;

  /// Changes the value.
  virtual void SetValue(const TCIMValue& value, TCIMContext context);

  /// The instance that has the property.
  virtual boost::shared_ptr<ICIMInstance> GetInstance(TCIMContext context);

  /// The declaration.
  virtual boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(TCIMContext context) = 0;

  /// The value as a boolean.
  virtual bool GetBooleanValue();

  /// The value as a `uint16`.
  virtual unsigned short GetUInt16Value();

  /// The value as a `uint32`.
  virtual unsigned int GetUInt32Value();

  /// The value as a `uint64`.
  virtual unsigned long GetUInt64Value();

  /// The value as a `sint32`.
  virtual int GetSInt32Value();

  /// The value as a `sint64`.
  virtual long GetSInt64Value();

  /// The value as a `real64`.
  virtual double GetReal64Value();

  /// The value as a string.
  virtual std::string GetStringValue() = 0;

  /// The value as a date-time.
  virtual TCIMDateTime GetDateTimeValue();

  /// The value as an array of strings.
  virtual std::vector<std::string> GetStringArrayValue() = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_ICIMPROPERTY_H
