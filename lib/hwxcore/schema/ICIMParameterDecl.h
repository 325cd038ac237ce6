#ifndef HWXCORE_SCHEMA_ICIMPARAMETERDECL_H
#define HWXCORE_SCHEMA_ICIMPARAMETERDECL_H

#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMQualifiedElement.h"

namespace NQORHWX20 {

class ICIMMethodDecl;

/// The declaration of a method's parameter.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT ICIMParameterDecl : public ICIMQualifiedElement {
 public:
  // Contract: slot-order.
  ~ICIMParameterDecl() override;

  /// Makes a parameter begun by `ICIMMethodDecl::CreateParameterDecl` final.
  virtual void Commit(TCIMContext context) = 0;

  /// The name; valid as long as the declaration lives and is not changed.
  virtual const std::string& GetName(TCIMContext context) = 0;

  /// The method that has the parameter.
  virtual boost::shared_ptr<ICIMMethodDecl> GetMethodDecl(TCIMContext context);

  /// The type, with the array flag for an array.
  virtual TCIMValue::TCIMType GetType(TCIMContext context) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_ICIMPARAMETERDECL_H
