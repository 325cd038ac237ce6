#ifndef HWXKIT_TMEMORYNAMESPACE_H
#define HWXKIT_TMEMORYNAMESPACE_H

#include <boost/enable_shared_from_this.hpp>
#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMNamespace.h"
#include "hwxkit/TMemoryQualifierDecl.h"
#include "hwxkit/TNameTable.h"

namespace NQORHWX20 {

class TMemoryClass;
class TMemoryInstance;

namespace detail {
struct TClassContents;
}

/// The kit's namespace: the root of an implementation in memory of all the schema interfaces. It
/// owns its classes, their instances and its qualifier declarations; none of them keeps it alive.
///
/// Names are CIM names (`hwxkit/CIMName.h`). Enumerations work on a snapshot: the callback may
/// change the namespace. Operations that the kit leaves out throw `kHWXStatusNotImplemented`: those
/// that would change a definition once it is final.
///
/// Contexts are ignored, with one exception: in a namespace that was given the name of a provider,
/// `GetClass` and `EnumerateClasses` act as if it were empty when the key "nspID" of the context
/// names another one.
///
/// Thread-safety: none, also for reading.
class HWX_EXPORT TMemoryNamespace : public ICIMNamespace,
                                    public boost::enable_shared_from_this<TMemoryNamespace> {
 public:
  /// An empty namespace. `providerName` is the provider that it answers for, empty for all.
  static boost::shared_ptr<TMemoryNamespace> Create(const std::string& name,
                                                    const std::string& providerName = "");
  ~TMemoryNamespace() override;

  /// How many classes may stand one under the other.
  static constexpr unsigned int kMaxClassDepth = 1000;

  const std::string& GetName(TCIMContext context) override;
  void SetName(const std::string& name) { fName = name; }
  /// Counts all classes, not only root classes.
  unsigned int GetClassCount(TCIMContext context) override;
  /// Throws `kHWXStatusAlreadyExists`, `kHWXStatusInvalidCIMName`, `kHWXStatusInvalidOpSequence`
  /// for a superclass that isn't committed, `kHWXStatusInvalidClass` for one that isn't in this
  /// namespace and none of its `OutsideClass`, and `kHWXStatusNotSupported` beyond
  /// `kMaxClassDepth`.
  boost::shared_ptr<ICIMClass> CreateClass(const std::string& name,
                                           boost::shared_ptr<ICIMClass> superclass,
                                           TCIMContext context) override;
  /// Finds committed classes only.
  boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TCIMContext context) override;
  /// Presents the root classes in the order of commitment, and with them the classes whose
  /// superclass is outside the namespace.
  void EnumerateClasses(const boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback,
                        TCIMContext context) override;
  /// Removes a class and its instances. Throws `kHWXStatusNotFound`, and
  /// `kHWXStatusInvalidOpSequence` for a class that has subclasses.
  void DeleteClass(const std::string& name, TCIMContext context) override;

  /// Throws `kHWXStatusAlreadyExists`, `kHWXStatusInvalidCIMName`, `kHWXStatusTypeMismatch` for a
  /// default value without a type, and `kHWXStatusInvalidClass` for one that refers to a class
  /// of the kit that isn't committed.
  boost::shared_ptr<ICIMQualifierDecl> CreateQualifierDecl(const std::string& name,
                                                           const TCIMValue& defaultValue,
                                                           unsigned int scope, unsigned int flavor,
                                                           TCIMContext context) override;
  boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                        TCIMContext context) override;
  /// In the order of commitment, unless `OrderQualifierDecls` has changed it.
  void EnumerateQualifierDecls(
      const boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>& callback,
      TCIMContext context) override;

  /// Puts the declarations with these names in front of all others, in this order.
  void OrderQualifierDecls(const std::vector<std::string>& names);

  /// `FindInstance` with the class name and the keys of the reference. A reference to a class of
  /// another namespace finds what this one has by those names. Throws `kHWXStatusInvalidReference`
  /// for a reference without a class.
  boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& reference,
                                              TCIMContext context) override;

  /// All classes, in the order of commitment: each behind its superclass.
  std::vector<boost::shared_ptr<TMemoryClass> > GetClasses() const;

  /// The committed class of that name, or an empty pointer.
  boost::shared_ptr<TMemoryClass> FindClass(const std::string& name) const;

  /// A class of which no more than the name is known, such as the superclass of a class that came
  /// without it, or what a reference leads to in another namespace. It isn't among the classes of
  /// the namespace, but can be a superclass in it, and be referred to. The same for the same name.
  /// Throws `kHWXStatusInvalidCIMName`.
  boost::shared_ptr<TMemoryClass> OutsideClass(const std::string& name);

  /// The instance of that class, or of a subclass, with those keys, or an empty pointer. The keys
  /// must be all keys of the class, each of the declared type. An added instance is found in
  /// constant time; only where there is none are the instance sources asked, whose exceptions pass
  /// through.
  boost::shared_ptr<ICIMInstance> FindInstance(const std::string& className,
                                               const std::map<std::string, TCIMValue>& keys) const;

 private:
  friend class TMemoryClass;
  friend class TMemoryQualifierDecl;

  TMemoryNamespace(const std::string& name, const std::string& providerName);

  bool Answers(const TCIMContext& context) const;
  bool Knows(const boost::shared_ptr<TMemoryClass>& parent) const;
  void CommitClass(const boost::shared_ptr<TMemoryClass>& newClass);
  void CommitQualifierDecl(const boost::shared_ptr<TMemoryQualifierDecl>& decl);

  std::string fName;
  const std::string fProviderName;
  TNameTable<TMemoryClass> fClasses;
  TNameTable<TMemoryClass> fOutside;
  TNameTable<TMemoryQualifierDecl> fQualifierDecls;
  // Instances and static values may refer back to their class. They are held here and not by the
  // class: otherwise the two would keep each other alive.
  std::unordered_map<const TMemoryClass*, boost::shared_ptr<detail::TClassContents> > fContents;
  unsigned long fCommitments;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TMEMORYNAMESPACE_H
