#ifndef HWXCORE_SCHEMA_ICIMQUALIFIERDECL_H
#define HWXCORE_SCHEMA_ICIMQUALIFIERDECL_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMContext.h"

namespace NQORHWX20 {

class ICIMNamespace;

/// The declaration of a qualifier in a namespace: name, default value, and two words whose encoding
/// is the provider's.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT ICIMQualifierDecl {
 public:
  // Contract: slot-order.
  virtual ~ICIMQualifierDecl();

  /// Removes the declaration from its namespace.
  virtual void Delete(TCIMContext context);

  /// Makes a declaration begun by `ICIMNamespace::CreateQualifierDecl` final.
  virtual void Commit(TCIMContext context) = 0;

  /// The namespace that holds the declaration.
  virtual boost::shared_ptr<ICIMNamespace> GetNamespace(TCIMContext context);

  /// The name; valid as long as the declaration lives and is not changed.
  virtual const std::string& GetName(TCIMContext context) = 0;

  /// Gives the qualifier another name.
  virtual void Rename(const std::string& name, TCIMContext context);

  /// The type, which is that of the default value.
  virtual TCIMValue::TCIMType GetType(TCIMContext context);

  /// Changes the default value.
  virtual void SetDefaultValue(const TCIMValue& value, TCIMContext context);

  /// The default value, a typed null where there is none.
  virtual const TCIMValue& GetDefaultValue(TCIMContext context) = 0;

  /// Changes the kinds of elements that may bear the qualifier.
  virtual void SetScope(unsigned int scope, TCIMContext context);

  /// The kinds of elements that may bear the qualifier, in the provider's encoding.
  virtual unsigned int GetScope(TCIMContext context) = 0;

  /// Changes the rules of inheritance.
  virtual void SetFlavor(unsigned int flavor, TCIMContext context);

  /// Whether a subclass may give the qualifier another value.
  virtual bool IsOverridable(TCIMContext context);

  /// The rules of inheritance, in the provider's encoding.
  virtual unsigned int GetFlavor(TCIMContext context) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_ICIMQUALIFIERDECL_H
