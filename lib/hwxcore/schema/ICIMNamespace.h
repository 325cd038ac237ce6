#ifndef HWXCORE_SCHEMA_ICIMNAMESPACE_H
#define HWXCORE_SCHEMA_ICIMNAMESPACE_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMContext.h"

namespace NQORHWX20 {

class ICIMClass;
class ICIMInstance;
class ICIMQualifierDecl;
class TCIMReference;

/// A namespace: classes, qualifier declarations, and the way to instances by reference. How a front
/// end obtains one is settled between it and the provider.
///
/// The conventions of all schema interfaces: objects are passed as shared pointers, and strings and
/// values returned by reference are valid as long as their owner lives and is not changed.
/// Enumerations call back until the callback returns false, and pass its exceptions through.
/// Absence is told by `kHWXStatusNotFound` or by an empty pointer, as each operation says.
/// Operations with a default body throw `kHWXStatusNotImplemented` unless a provider overrides
/// them; the library calls none of those.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT ICIMNamespace {
 public:
  // Contract: slot-order.
  virtual ~ICIMNamespace();

  /// The name of the namespace.
  virtual const std::string& GetName(TCIMContext context);

  /// Gives the namespace another name.
  virtual void Rename(const std::string& name, TCIMContext context);

  /// The number of classes.
  virtual unsigned int GetClassCount(TCIMContext context);

  /// A new class, final with its `Commit`; `superclass` is empty for a root class.
  virtual boost::shared_ptr<ICIMClass> CreateClass(const std::string& name,
                                                   boost::shared_ptr<ICIMClass> superclass,
                                                   TCIMContext context) = 0;

  /// The class of that name. Throws `kHWXStatusNotFound` if there is none.
  virtual boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TCIMContext context) = 0;

  /// Presents the root classes until `callback` returns false; subclasses are reached through
  /// `ICIMClass::EnumerateSubClasses`.
  virtual void EnumerateClasses(const boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback,
                                TCIMContext context) = 0;

  /// Removes a class.
  virtual void DeleteClass(const std::string& name, TCIMContext context);

  /// A new qualifier declaration, final with its `Commit`.
  virtual boost::shared_ptr<ICIMQualifierDecl> CreateQualifierDecl(const std::string& name,
                                                                   const TCIMValue& defaultValue,
                                                                   unsigned int scope,
                                                                   unsigned int flavor,
                                                                   TCIMContext context) = 0;

  /// The qualifier declaration of that name, or an empty pointer.
  virtual boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                                TCIMContext context) = 0;

  /// Presents the qualifier declarations until `callback` returns false.
  virtual void EnumerateQualifierDecls(
      const boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>& callback,
      TCIMContext context) = 0;

  /// Removes a qualifier declaration.
  virtual void DeleteQualifierDecl(const std::string& name, TCIMContext context);

  /// The instance that `reference` names, or an empty pointer.
  virtual boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& reference,
                                                      TCIMContext context) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_ICIMNAMESPACE_H
