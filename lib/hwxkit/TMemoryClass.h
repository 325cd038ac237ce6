#ifndef HWXKIT_TMEMORYCLASS_H
#define HWXKIT_TMEMORYCLASS_H

#include <boost/enable_shared_from_this.hpp>
#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <cstddef>
#include <exception>
#include <map>
#include <string>
#include <vector>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMClass.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/TMemoryQualifiedElement.h"
#include "hwxkit/TNameTable.h"

namespace NQORHWX20 {

class TInstanceList;
class TMemoryInstance;
class TMemoryMethodDecl;
class TMemoryNamespace;
class TMemoryProperty;
class TMemoryPropertyDecl;

namespace detail {
struct TClassContents;
}

/// Makes the instances of a live class: called for every enumeration and every search, it fills
/// the empty list that it is given. What it throws ends the enumeration, behind the instances that
/// are in the list by then.
using TInstanceSource = boost::function<void(TInstanceList&)>;

/// The kit's class. `TMemoryNamespace::CreateClass` makes one; it is open until its `Commit`, and
/// then final: declarations and qualifiers can only be added before, instances only afterwards.
/// Every operation out of that order throws `kHWXStatusInvalidOpSequence`.
///
/// A class sees the property and method declarations of its superclass. Enumerations present the
/// inherited ones first, in the superclass's order, then its own in the order of commitment; a
/// declaration that overrides stands in the inherited one's place.
///
/// The class holds its superclass strongly, its subclasses and its namespace weakly. Its instances
/// and, once it is final, its static values belong to the namespace: they may refer back to the
/// class. So a class that outlives its namespace has its declarations still, but neither of these.
///
/// Absent things asked for by name throw `kHWXStatusNotFound`, but an absent qualifier is an empty
/// pointer. Enumerations work on a snapshot: the callback may change the class.
///
/// Thread-safety: none.
class HWX_EXPORT TMemoryClass : public TMemoryQualifiedElement<ICIMClass>,
                                public boost::enable_shared_from_this<TMemoryClass> {
 public:
  ~TMemoryClass() override;

  /// See `TMemoryNamespace::DeleteClass`. Throws `kHWXStatusInvalidOpSequence` for a class that no
  /// namespace holds.
  void Delete(TCIMContext context) override;
  /// Puts the class in its namespace. Throws `kHWXStatusInvalidOpSequence` the second time and when
  /// the namespace is gone, `kHWXStatusAlreadyExists` if another class of that name was committed
  /// meanwhile, `kHWXStatusInvalidClass` if the superclass was deleted. Declarations and qualifiers
  /// that aren't committed by then are lost.
  void Commit(TCIMContext context) override;
  bool IsCommitted(TCIMContext context) override;
  const std::string& GetName(TCIMContext context) override;
  /// Empty when the namespace is gone.
  boost::shared_ptr<ICIMNamespace> GetNamespace(TCIMContext context) override;
  /// Whether the qualifier "Association" is true.
  bool IsAssociation(TCIMContext context) override;
  /// Whether the qualifier "Abstract" is true.
  bool IsAbstract(TCIMContext context) override;
  bool IsRootClass(TCIMContext context) override;
  /// Throws `kHWXStatusNotFound` for a root class.
  boost::shared_ptr<ICIMClass> GetSuperClass(TCIMContext context) override;
  /// In the order of commitment, which puts each class after its superclass.
  void EnumerateSubClasses(const boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback,
                           bool deep, TCIMContext context) override;
  unsigned int GetSubClassCount(bool deep, TCIMContext context) override;
  bool HasSubClasses(TCIMContext context) override;
  bool IsSubClassOf(const std::string& name, TCIMContext context) override;
  bool IsSuperClassOf(const std::string& name, TCIMContext context) override;

  /// A name that the class declares itself: `kHWXStatusAlreadyExists`. One that it inherits: the
  /// new declaration overrides, and inherits qualifiers, but has to be of the same type, else
  /// `kHWXStatusNotOverridable`. Also throws `kHWXStatusInvalidCIMName`, `kHWXStatusTypeMismatch`
  /// for a default value without a type, `kHWXStatusInvalidClass` for a default value that refers
  /// to a class of the kit that isn't committed: no class refers to itself by a default value.
  boost::shared_ptr<ICIMPropertyDecl> CreatePropertyDecl(const std::string& name,
                                                         const TCIMValue& defaultValue,
                                                         TCIMContext context) override;
  boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                      TCIMContext context) override;
  void EnumeratePropertyDecls(
      const boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback,
      TCIMContext context) override;

  /// A value for a property that the class declares or inherits, before or after `Commit`. Throws
  /// `kHWXStatusNotFound` if there is no such property, `kHWXStatusTypeMismatch` for a value of
  /// another type, `kHWXStatusInvalidClass` for a reference to a class of the kit that isn't
  /// committed or to another class than the declared one and its subclasses, by name,
  /// `kHWXStatusInvalidOpSequence` when the namespace is gone.
  void SetStaticPropertyValue(const std::string& name, const TCIMValue& value,
                              TCIMContext context) override;
  /// Presents the static values that were set on this class itself: who copies a schema class by
  /// class sets each of them once. `GetStaticProperty` finds those of superclasses too.
  void EnumerateStaticProperties(
      const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
      TCIMContext context) override;
  boost::shared_ptr<ICIMProperty> GetStaticProperty(const std::string& name,
                                                    TCIMContext context) override;
  /// Throws `kHWXStatusNotFound` unless the value was set on this class itself.
  void DeleteStaticProperty(const std::string& name, TCIMContext context) override;

  /// See `NewInstance`.
  boost::shared_ptr<ICIMInstance> CreateInstance(TCIMContext context) override;
  /// Class by class, the class itself first, then in the order of `EnumerateSubClasses`; of each
  /// class the added instances, then those of its instance source. Throws what the source throws,
  /// once its other instances were presented; and so, if the source made it,
  /// `kHWXStatusInvalidInstance` for an instance without its keys, and `kHWXStatusAlreadyExists`
  /// for one whose keys another instance of the class has.
  void EnumerateInstances(const boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback,
                          bool deep, TCIMContext context) override;
  unsigned int GetInstanceCount(bool deep, TCIMContext context) override;
  /// Takes out the instances that were added.
  void DeleteInstances(TCIMContext context) override;
  /// Holds the instance from now on; its keys are fixed then. Throws `kHWXStatusInvalidInstance`
  /// for none, for one of another class or maker, and for a key that is null or an array;
  /// `kHWXStatusInvalidOpSequence` for one that is held already, and when the class isn't in a
  /// namespace; `kHWXStatusAlreadyExists` if an added instance of this class, or of a superclass
  /// or subclass with the same keys, has the same values in them. Two values are the same if their
  /// type and content are: two timestamps with different offsets are two keys.
  void AddInstance(boost::shared_ptr<ICIMInstance> instance) override;

  /// A name that the class declares itself: `kHWXStatusAlreadyExists`. One that it inherits: the
  /// new declaration overrides, but has to return the same type, else `kHWXStatusNotOverridable`.
  /// Also throws `kHWXStatusInvalidCIMName`. The type `kCIMTypeNone` stands for no result.
  boost::shared_ptr<ICIMMethodDecl> CreateMethodDecl(const std::string& name,
                                                     TCIMValue::TCIMType returnType,
                                                     TCIMContext context) override;
  boost::shared_ptr<ICIMMethodDecl> GetMethodDecl(const std::string& name,
                                                  TCIMContext context) override;
  void EnumerateMethodDecls(
      const boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>& callback,
      TCIMContext context) override;
  unsigned int GetPropertyDeclCount(TCIMContext context) override;
  unsigned int GetMethodDeclCount(TCIMContext context) override;
  void EnumerateKeyPropertyDecls(
      const boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback,
      TCIMContext context) override;

  /// Makes the class a live one; an empty source makes it an ordinary one again. The source must
  /// not hold the class or the namespace strongly: the list that it fills knows the class.
  void SetInstanceSource(const TInstanceSource& source);

  /// The declaration that the class declares or inherits, or an empty pointer.
  boost::shared_ptr<TMemoryPropertyDecl> FindPropertyDecl(const std::string& name) const;
  boost::shared_ptr<TMemoryMethodDecl> FindMethodDecl(const std::string& name) const;

  /// All property declarations, in the order of `EnumeratePropertyDecls`. Valid while the class is
  /// not changed.
  const std::vector<boost::shared_ptr<TMemoryPropertyDecl> >& PropertyDecls() const {
    return fProperties.Items();
  }
  /// The place of a declaration in `PropertyDecls`, or its size for a name that isn't there.
  std::size_t PropertyIndex(const std::string& name) const;

  /// A new instance that nobody holds, with the default values. Throws
  /// `kHWXStatusInvalidOpSequence` for a class that isn't committed, `kHWXStatusInvalidClass` for
  /// an abstract one.
  boost::shared_ptr<TMemoryInstance> NewInstance();

  /// Whether the namespace has the class only because others refer to it, or bear its name: see
  /// `TMemoryNamespace::OutsideClass`. One that was derived from its instances says so too.
  bool IsOutside() const { return fIsOutside; }
  void SetOutside() { fIsOutside = true; }
  /// Whether the class descends from one that is outside, so that not all is known that it
  /// inherits.
  bool HasOutsideAncestor() const;
  /// Gives an outside class a key, as references to its instances need it. Throws
  /// `kHWXStatusInvalidOpSequence` for any other class.
  void DeclareOutsideKey(const std::string& name, TCIMValue::TCIMType type);

 private:
  friend class TMemoryInstance;
  friend class TMemoryMethodDecl;
  friend class TMemoryNamespace;
  friend class TMemoryPropertyDecl;

  using TClasses = std::vector<boost::shared_ptr<TMemoryClass> >;
  using TInstances = std::vector<boost::shared_ptr<TMemoryInstance> >;

  TMemoryClass(const boost::shared_ptr<TMemoryNamespace>& ns, const std::string& name,
               const boost::shared_ptr<TMemoryClass>& superclass);

  void CheckOpen() const;
  void CommitProperty(const boost::shared_ptr<TMemoryPropertyDecl>& decl);
  void Finish(unsigned long commitOrder);
  boost::shared_ptr<detail::TClassContents> Contents() const;

  TClasses SubClasses(bool deep) const;
  void CollectSubClasses(bool deep, TClasses& classes) const;
  void RemoveSubClass(const TMemoryClass& subclass);
  bool DescendsFrom(const TMemoryClass& ancestor) const;

  const TMemoryClass& KeyRoot() const;
  TInstances AddedInstances() const;
  TInstances LiveInstances(std::exception_ptr& failure);
  void RemoveInstance(const boost::shared_ptr<TMemoryInstance>& instance);
  bool ComposeKeyText(const std::map<std::string, TCIMValue>& keys, std::string& text) const;
  boost::shared_ptr<TMemoryInstance> FindAdded(const std::string& keyText) const;
  boost::shared_ptr<TMemoryInstance> FindLive(const std::string& keyText);

  const boost::weak_ptr<TMemoryNamespace> fNamespace;
  const std::string fName;
  const boost::shared_ptr<TMemoryClass> fSuperClass;
  const unsigned int fDepth;  // 1 for a root class
  bool fIsOutside;
  bool fCommitted;
  unsigned long fCommitOrder;
  std::vector<boost::weak_ptr<TMemoryClass> > fSubClasses;

  TNameTable<TMemoryPropertyDecl> fProperties;
  TNameTable<TMemoryMethodDecl> fMethods;
  std::vector<std::size_t> fKeys;  // where the keys stand in fProperties; set by the commitment

  TInstanceSource fSource;
  boost::shared_ptr<detail::TClassContents> fOpenContents;  // until the commitment
  boost::weak_ptr<detail::TClassContents> fContents;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYCLASS_H
