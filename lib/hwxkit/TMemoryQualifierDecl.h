#ifndef HWXKIT_TMEMORYQUALIFIERDECL_H
#define HWXKIT_TMEMORYQUALIFIERDECL_H

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMQualifierDecl.h"

namespace NQORHWX20 {

class TMemoryNamespace;

/// The kit's qualifier declaration. `TMemoryNamespace::CreateQualifierDecl` makes one, and its
/// `Commit` puts it in the namespace, which owns it from then on. Nothing changes or removes it
/// afterwards.
///
/// Thread-safety: none.
class HWX_EXPORT TMemoryQualifierDecl
    : public ICIMQualifierDecl,
      public boost::enable_shared_from_this<TMemoryQualifierDecl> {
 public:
  ~TMemoryQualifierDecl() override;

  /// Throws `kHWXStatusInvalidOpSequence` the second time and when the namespace is gone,
  /// `kHWXStatusAlreadyExists` if another of that name was committed meanwhile.
  void Commit(TCIMContext context) override;
  /// Empty when the namespace is gone.
  boost::shared_ptr<ICIMNamespace> GetNamespace(TCIMContext context) override;
  const std::string& GetName(TCIMContext context) override;
  TCIMValue::TCIMType GetType(TCIMContext context) override;
  const TCIMValue& GetDefaultValue(TCIMContext context) override;
  /// Bits of `EQualifierScope`.
  unsigned int GetScope(TCIMContext context) override;
  /// Whether `kFlavorEnableOverride` is set.
  bool IsOverridable(TCIMContext context) override;
  /// Bits of `EQualifierFlavor`.
  unsigned int GetFlavor(TCIMContext context) override;

  /// Whether nothing but its use is known of the qualifier: its declaration was left to others.
  bool IsOutside() const { return fIsOutside; }
  void SetOutside() { fIsOutside = true; }

 private:
  friend class TMemoryNamespace;

  TMemoryQualifierDecl(const boost::shared_ptr<TMemoryNamespace>& ns, const std::string& name,
                       const TCIMValue& defaultValue, unsigned int scope, unsigned int flavor);

  const boost::weak_ptr<TMemoryNamespace> fNamespace;
  const std::string fName;
  const TCIMValue fDefaultValue;
  const unsigned int fScope;
  const unsigned int fFlavor;
  bool fCommitted;
  bool fIsOutside;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYQUALIFIERDECL_H
