#ifndef HWXKIT_TMEMORYQUALIFIER_H
#define HWXKIT_TMEMORYQUALIFIER_H

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "hwxcore/schema/ICIMQualifier.h"

namespace NQORHWX20 {

class TQualifierTable;

/// The kit's qualifier. An element's `CreateQualifier` makes one, and its `Commit` puts it on the
/// element. Nothing changes or removes it afterwards.
///
/// Thread-safety: none.
class TMemoryQualifier : public ICIMQualifier,
                         public boost::enable_shared_from_this<TMemoryQualifier> {
 public:
  ~TMemoryQualifier() override;

  /// Throws `kHWXStatusInvalidOpSequence` the second time and when the element is gone or final,
  /// and what `TQualifierTable::CreateQualifier` throws, should the element have changed meanwhile.
  void Commit(TCIMContext context) override;
  const std::string& GetName(TCIMContext context) override;
  TCIMValue::TCIMType GetType(TCIMContext context) override;
  bool IsInherited(TCIMContext context) override;
  boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(TCIMContext context) override;
  const TCIMValue& GetValue(TCIMContext context) override;

 private:
  friend class TQualifierTable;

  TMemoryQualifier(const boost::shared_ptr<ICIMQualifierDecl>& decl, const TCIMValue& value,
                   const boost::weak_ptr<TQualifierTable>& table, bool inherited);

  const boost::shared_ptr<ICIMQualifierDecl> fDecl;
  const TCIMValue fValue;
  const boost::weak_ptr<TQualifierTable> fTable;  // empty for an inherited one
  const bool fInherited;
  bool fCommitted;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYQUALIFIER_H
