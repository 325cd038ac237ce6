#ifndef HWXCORE_SCHEMA_ICIMINSTANCE_H
#define HWXCORE_SCHEMA_ICIMINSTANCE_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMElement.h"
#include "hwxcore/value/TCIMContext.h"

namespace NQORHWX20 {

class ICIMClass;
class ICIMNamespace;
class ICIMProperty;

/// An instance of a class: values for its properties.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT ICIMInstance : public ICIMElement {
 public:
  // Contract: slot-order.
  ~ICIMInstance() override;

  /// Removes the instance from its class.
  virtual void Delete(TCIMContext context);

  /// Reads the instance anew from its source.
  virtual void Refresh(TCIMContext context);

  /// A copy that no class holds yet.
  virtual boost::shared_ptr<ICIMInstance> Clone(TCIMContext context);

  /// Whether the instance's class is that class or descends from it.
  virtual bool IsInstanceOf(const std::string& className, TCIMContext context);

  /// The name of the instance's class.
  virtual const std::string& GetClassName(TCIMContext context);

  /// The namespace of the instance's class.
  virtual boost::shared_ptr<ICIMNamespace> GetNamespace(TCIMContext context);

  /// The instance's class.
  virtual boost::shared_ptr<ICIMClass> GetClass(TCIMContext context) = 0;

  /// The number of properties.
  virtual unsigned int GetPropertyCount(TCIMContext context);

  /// Whether there is a property of that name.
  virtual bool HasProperty(const std::string& name, TCIMContext context);

  /// Presents the key properties until `callback` returns false.
  virtual void EnumerateKeyProperties(
      const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback, TCIMContext context);

  /// The property of that name. Throws `kHWXStatusNotFound` if there is none.
  virtual boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name,
                                                      TCIMContext context) = 0;

  /// Gives a property a value.
  virtual void SetPropertyValue(const std::string& name, const TCIMValue& value,
                                TCIMContext context) = 0;

  /// Presents the properties until `callback` returns false.
  virtual void EnumerateProperties(
      const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
      TCIMContext context) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_ICIMINSTANCE_H
