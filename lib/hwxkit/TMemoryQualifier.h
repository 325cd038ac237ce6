#ifndef HWXKIT_TMEMORYQUALIFIER_H
#define HWXKIT_TMEMORYQUALIFIER_H

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxkit/TElementNotes.h"

namespace NQORHWX20 {

class TQualifierTable;

/// The kit's qualifier. An element's `CreateQualifier` makes one, and its `Commit` puts it on the
/// element. Nothing changes or removes it afterwards.
///
/// Thread-safety: none.
class HWX_EXPORT TMemoryQualifier : public ICIMQualifier,
                                    public TNotedElement,
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

  /// Bits of `EQualifierFlavor`, by which the qualifier is inherited: those of its declaration,
  /// unless it was given its own.
  unsigned int GetFlavor() const { return fFlavor; }
  /// To be called before the commitment.
  void SetFlavor(unsigned int flavor) { fFlavor = flavor; }

 private:
  friend class TQualifierTable;

  TMemoryQualifier(const boost::shared_ptr<ICIMQualifierDecl>& decl, const TCIMValue& value,
                   const boost::weak_ptr<TQualifierTable>& table, bool inherited);

  boost::shared_ptr<TMemoryQualifier> InheritedForm();

  const boost::shared_ptr<ICIMQualifierDecl> fDecl;
  const TCIMValue fValue;
  const boost::weak_ptr<TQualifierTable> fTable;  // empty for an inherited one
  const bool fInherited;
  bool fCommitted;
  unsigned int fFlavor;
  boost::shared_ptr<TMemoryQualifier> fInheritedForm;  // made when a subclass first needs it
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYQUALIFIER_H
