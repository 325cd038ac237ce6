#ifndef HWXKIT_TMEMORYMETHODDECL_H
#define HWXKIT_TMEMORYMETHODDECL_H

#include <boost/enable_shared_from_this.hpp>
#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxkit/TElementNotes.h"
#include "hwxkit/TMemoryParameterDecl.h"
#include "hwxkit/TMemoryQualifiedElement.h"
#include "hwxkit/TNameTable.h"

namespace NQORHWX20 {

class TMemoryClass;

/// The kit's method declaration. `TMemoryClass::CreateMethodDecl` puts it in the class at once; it
/// becomes final with the class. A declaration holds its class weakly.
///
/// Subclasses that don't override the method see an inherited form of it, as they do of properties.
/// One that overrides a method declares all parameters anew.
///
/// Thread-safety: none.
class HWX_EXPORT TMemoryMethodDecl : public TMemoryQualifiedElement<ICIMMethodDecl>,
                                     public TNotedElement,
                                     public boost::enable_shared_from_this<TMemoryMethodDecl> {
 public:
  ~TMemoryMethodDecl() override;

  const std::string& GetName(TCIMContext context) override;
  /// The class that declares the method, also for an inherited form; empty when it is gone.
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext context) override;
  TCIMValue::TCIMType GetReturnType(TCIMContext context) override;
  /// Throws `kHWXStatusInvalidOpSequence` when the class is gone or final,
  /// `kHWXStatusInvalidCIMName`, `kHWXStatusTypeMismatch` for a type without a name, and
  /// `kHWXStatusAlreadyExists`.
  boost::shared_ptr<ICIMParameterDecl> CreateParameterDecl(const std::string& name,
                                                           TCIMValue::TCIMType type,
                                                           TCIMContext context) override;
  /// Throws `kHWXStatusNotFound` if there is none.
  boost::shared_ptr<ICIMParameterDecl> GetParameterDecl(const std::string& name,
                                                        TCIMContext context) override;
  void EnumerateParameterDecls(
      const boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)>& callback,
      TCIMContext context) override;

  /// Whether this is an inherited form.
  bool IsInherited() const { return fInherited; }

 private:
  friend class TMemoryClass;
  friend class TMemoryParameterDecl;

  TMemoryMethodDecl(const boost::weak_ptr<TMemoryClass>& declaringClass, const std::string& name,
                    TCIMValue::TCIMType returnType,
                    const boost::shared_ptr<TQualifierTable>& qualifiers,
                    const boost::shared_ptr<TMemoryMethodDecl>& overridden, bool inherited);

  boost::shared_ptr<TMemoryMethodDecl> InheritedForm();
  void CommitParameter(const boost::shared_ptr<TMemoryParameterDecl>& parameter);
  void CheckOpen() const;

  const boost::weak_ptr<TMemoryClass> fClass;
  const std::string fName;
  const TCIMValue::TCIMType fReturnType;
  const boost::shared_ptr<TMemoryMethodDecl> fOverridden;  // the inherited form, or empty
  const bool fInherited;
  TNameTable<TMemoryParameterDecl> fParameters;
  boost::shared_ptr<TMemoryMethodDecl> fInheritedForm;  // made when a subclass first needs it
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYMETHODDECL_H
