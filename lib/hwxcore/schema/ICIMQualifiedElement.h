#ifndef HWXCORE_SCHEMA_ICIMQUALIFIEDELEMENT_H
#define HWXCORE_SCHEMA_ICIMQUALIFIEDELEMENT_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMContext.h"

namespace NQORHWX20 {

class ICIMQualifier;
class ICIMQualifierDecl;

/// What can bear qualifiers: classes, property, method and parameter declarations. A pointer to a
/// class is no pointer to this base: convert it.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT ICIMQualifiedElement {
 public:
  // Contract: slot-order.
  virtual ~ICIMQualifiedElement();

  /// The number of qualifiers on this element.
  virtual unsigned int GetQualifierCount(TCIMContext context);

  /// A new qualifier on this element, final with its `Commit`.
  virtual boost::shared_ptr<ICIMQualifier> CreateQualifier(
      boost::shared_ptr<ICIMQualifierDecl> decl, const TCIMValue& value, TCIMContext context) = 0;

  /// Takes a qualifier off this element.
  virtual void DeleteQualifier(const std::string& name, TCIMContext context);

  /// The qualifier of that name. Absence is told in the way that the class copier expects: a class
  /// returns an empty pointer, a property declaration throws `kHWXStatusNotFound`.
  virtual boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                        TCIMContext context) = 0;

  /// Presents the qualifiers until `callback` returns false.
  virtual void EnumerateQualifiers(
      const boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback,
      TCIMContext context) = 0;

  /// Whether this element bears the qualifier.
  virtual bool HasQualifier(const std::string& name, TCIMContext context);

  /// Changes the value of a qualifier.
  virtual void SetQualifierValue(const std::string& name, const TCIMValue& value,
                                 TCIMContext context);
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_ICIMQUALIFIEDELEMENT_H
