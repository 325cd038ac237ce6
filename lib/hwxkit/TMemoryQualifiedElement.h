#ifndef HWXKIT_TMEMORYQUALIFIEDELEMENT_H
#define HWXKIT_TMEMORYQUALIFIEDELEMENT_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "hwxkit/TQualifierTable.h"

namespace NQORHWX20 {

/// The qualifier operations of the kit's classes and declarations, under the interface that each
/// implements. An absent qualifier is an empty pointer; only `TMemoryPropertyDecl` tells it by an
/// exception.
///
/// Thread-safety: none.
template <typename TInterface>
class HWX_EXPORT TMemoryQualifiedElement : public TInterface {
 public:
  unsigned int GetQualifierCount(TCIMContext /*context*/) override {
    return fQualifiers->GetCount();
  }

  /// See `TQualifierTable::CreateQualifier`.
  boost::shared_ptr<ICIMQualifier> CreateQualifier(boost::shared_ptr<ICIMQualifierDecl> decl,
                                                   const TCIMValue& value,
                                                   TCIMContext /*context*/) override {
    return fQualifiers->CreateQualifier(decl, value);
  }

  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                TCIMContext /*context*/) override {
    return fQualifiers->Find(name);
  }

  void EnumerateQualifiers(const boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback,
                           TCIMContext /*context*/) override {
    fQualifiers->Enumerate(callback);
  }

  bool HasQualifier(const std::string& name, TCIMContext /*context*/) override {
    return fQualifiers->Find(name) != nullptr;
  }

 protected:
  explicit TMemoryQualifiedElement(const boost::shared_ptr<TQualifierTable>& qualifiers)
      : fQualifiers(qualifiers) {}

  const boost::shared_ptr<TQualifierTable> fQualifiers;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYQUALIFIEDELEMENT_H
