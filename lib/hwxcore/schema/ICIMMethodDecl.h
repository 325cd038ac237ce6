#ifndef HWXCORE_SCHEMA_ICIMMETHODDECL_H
#define HWXCORE_SCHEMA_ICIMMETHODDECL_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMQualifiedElement.h"

namespace NQORHWX20 {

class ICIMClass;
class ICIMParameterDecl;

/// The declaration of a method in a class. It has no commit step: it counts as final with its
/// class.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT ICIMMethodDecl : public ICIMQualifiedElement {
 public:
  // Contract: slot-order.
  ~ICIMMethodDecl() override;

  /// Gives the method another name.
  virtual void Rename(const std::string& name, TCIMContext context);

  /// The name; valid as long as the declaration lives and is not changed.
  virtual const std::string& GetName(TCIMContext context) = 0;

  /// The class that declares the method.
  virtual boost::shared_ptr<ICIMClass> GetClass(TCIMContext context);

  /// The type of the method's result.
  virtual TCIMValue::TCIMType GetReturnType(TCIMContext context) = 0;

  /// A new parameter behind those there are, final with its `Commit`.
  virtual boost::shared_ptr<ICIMParameterDecl> CreateParameterDecl(const std::string& name,
                                                                   TCIMValue::TCIMType type,
                                                                   TCIMContext context) = 0;

  /// The parameter of that name.
  virtual boost::shared_ptr<ICIMParameterDecl> GetParameterDecl(const std::string& name,
                                                                TCIMContext context);

  /// Presents the parameters in order until `callback` returns false.
  virtual void EnumerateParameterDecls(
      const boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)>& callback,
      TCIMContext context) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_ICIMMETHODDECL_H
