#ifndef HWXKIT_TMEMORYPARAMETERDECL_H
#define HWXKIT_TMEMORYPARAMETERDECL_H

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMParameterDecl.h"
#include "hwxkit/TElementNotes.h"
#include "hwxkit/TMemoryQualifiedElement.h"

namespace NQORHWX20 {

class TMemoryMethodDecl;

/// The kit's parameter declaration. `TMemoryMethodDecl::CreateParameterDecl` makes one, and its
/// `Commit` puts it in the method, which owns it from then on.
///
/// Thread-safety: none.
class HWX_EXPORT TMemoryParameterDecl
    : public TMemoryQualifiedElement<ICIMParameterDecl>,
      public TNotedElement,
      public boost::enable_shared_from_this<TMemoryParameterDecl> {
 public:
  ~TMemoryParameterDecl() override;

  /// Throws `kHWXStatusInvalidOpSequence` the second time and when the method is gone or its class
  /// is final, `kHWXStatusAlreadyExists` if another of that name was committed meanwhile.
  void Commit(TCIMContext context) override;
  const std::string& GetName(TCIMContext context) override;
  /// Empty when the method is gone.
  boost::shared_ptr<ICIMMethodDecl> GetMethodDecl(TCIMContext context) override;
  TCIMValue::TCIMType GetType(TCIMContext context) override;

 private:
  friend class TMemoryMethodDecl;

  TMemoryParameterDecl(const boost::weak_ptr<TMemoryMethodDecl>& method, const std::string& name,
                       TCIMValue::TCIMType type,
                       const boost::shared_ptr<TQualifierTable>& qualifiers);

  const boost::weak_ptr<TMemoryMethodDecl> fMethod;
  const std::string fName;
  const TCIMValue::TCIMType fType;
  bool fCommitted;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYPARAMETERDECL_H
