#ifndef HWXCORE_SCHEMA_ICIMCLASS_H
#define HWXCORE_SCHEMA_ICIMCLASS_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/ICIMElement.h"
#include "hwxcore/schema/ICIMQualifiedElement.h"
#include "hwxcore/value/TCIMContext.h"

namespace NQORHWX20 {

class ICIMInstance;
class ICIMMethodDecl;
class ICIMNamespace;
class ICIMProperty;
class ICIMPropertyDecl;

/// A class: declarations, static values, and the instances that it holds. A definition is built in
/// the order create, fill, commit; an instance is handed over with `AddInstance`.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT ICIMClass : public ICIMElement, public ICIMQualifiedElement {
 public:
  // Contract: slot-order.
  ~ICIMClass() override;

  /// Removes the class from its namespace.
  virtual void Delete(TCIMContext context);

  /// Ends the definition of a class begun by `ICIMNamespace::CreateClass`.
  virtual void Commit(TCIMContext context) = 0;

  /// Whether the definition has ended.
  virtual bool IsCommitted(TCIMContext context);

  /// Gives the class another name.
  virtual void Rename(const std::string& name, TCIMContext context);

  /// The name; valid as long as the class lives and is not changed.
  virtual const std::string& GetName(TCIMContext context) = 0;

  /// The namespace that holds the class.
  virtual boost::shared_ptr<ICIMNamespace> GetNamespace(TCIMContext context) = 0;

  /// Whether the class joins others by references.
  virtual bool IsAssociation(TCIMContext context) = 0;

  /// Whether the class has no instances of its own.
  virtual bool IsAbstract(TCIMContext context) = 0;

  /// Whether the class has no superclass.
  virtual bool IsRootClass(TCIMContext context) = 0;

  /// The superclass; ask only when `IsRootClass` is false.
  virtual boost::shared_ptr<ICIMClass> GetSuperClass(TCIMContext context) = 0;

  /// Presents the subclasses until `callback` returns false; with `deep` all descendants, each
  /// after its superclass.
  virtual void EnumerateSubClasses(
      const boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback, bool deep,
      TCIMContext context) = 0;

  /// The number of subclasses.
  virtual unsigned int GetSubClassCount(bool deep, TCIMContext context);

  /// Whether there are subclasses.
  virtual bool HasSubClasses(TCIMContext context);

  /// Whether the class descends from that class.
  virtual bool IsSubClassOf(const std::string& name, TCIMContext context);

  /// Whether that class descends from this class.
  virtual bool IsSuperClassOf(const std::string& name, TCIMContext context);

  /// A new property of the default value's type, final with its `Commit`.
  virtual boost::shared_ptr<ICIMPropertyDecl> CreatePropertyDecl(const std::string& name,
                                                                 const TCIMValue& defaultValue,
                                                                 TCIMContext context) = 0;

  /// The property of that name. Throws `kHWXStatusNotFound` if there is none.
  virtual boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                              TCIMContext context) = 0;

  /// Presents the properties until `callback` returns false.
  virtual void EnumeratePropertyDecls(
      const boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback,
      TCIMContext context) = 0;

  /// Removes a property.
  virtual void DeletePropertyDecl(const std::string& name, TCIMContext context);

  /// Gives a property a value that belongs to the class.
  virtual void SetStaticPropertyValue(const std::string& name, const TCIMValue& value,
                                      TCIMContext context) = 0;

  /// Presents the static properties until `callback` returns false.
  virtual void EnumerateStaticProperties(
      const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
      TCIMContext context) = 0;

  /// A new instance, which the class does not hold until `AddInstance`.
  virtual boost::shared_ptr<ICIMInstance> CreateInstance(TCIMContext context) = 0;

  /// Presents the instances until `callback` returns false; with `deep` those of subclasses too.
  virtual void EnumerateInstances(
      const boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback, bool deep,
      TCIMContext context) = 0;

  /// A new method, final with its class.
  virtual boost::shared_ptr<ICIMMethodDecl> CreateMethodDecl(const std::string& name,
                                                             TCIMValue::TCIMType returnType,
                                                             TCIMContext context) = 0;

  /// The method of that name.
  virtual boost::shared_ptr<ICIMMethodDecl> GetMethodDecl(const std::string& name,
                                                          TCIMContext context);

  /// Presents the methods until `callback` returns false.
  virtual void EnumerateMethodDecls(
      const boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>& callback,
      TCIMContext context) = 0;

  /// Removes a method.
  virtual void DeleteMethodDecl(const std::string& name, TCIMContext context);

  /// The number of properties.
  virtual unsigned int GetPropertyDeclCount(TCIMContext context);

  /// The number of methods.
  virtual unsigned int GetMethodDeclCount(TCIMContext context);

  /// The static property of that name.
  virtual boost::shared_ptr<ICIMProperty> GetStaticProperty(const std::string& name,
                                                            TCIMContext context);

  /// Takes a static value away.
  virtual void DeleteStaticProperty(const std::string& name, TCIMContext context);

  /// Presents the key properties until `callback` returns false.
  virtual void EnumerateKeyPropertyDecls(
      const boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback,
      TCIMContext context);

  /// The number of instances.
  virtual unsigned int GetInstanceCount(bool deep, TCIMContext context);

  /// Removes all instances that the class itself holds.
  virtual void DeleteInstances(TCIMContext context);

  /// Hands a finished instance to the class. It alone takes no context.
  virtual void AddInstance(boost::shared_ptr<ICIMInstance> instance) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_ICIMCLASS_H
