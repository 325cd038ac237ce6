#ifndef HWXKIT_TCLASSBUILDER_H
#define HWXKIT_TCLASSBUILDER_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxkit/TMemoryClass.h"

namespace NQORHWX20 {

class ICIMMethodDecl;
class ICIMParameterDecl;
class ICIMPropertyDecl;
class ICIMQualifiedElement;
class TMemoryNamespace;

/// The type of a declaration: a tag, or a name as a schema has it, "uint32" or "string[]". A name
/// that is none throws `kHWXStatusTypeMismatch`.
class HWX_EXPORT TDeclaredType {
 public:
  TDeclaredType(TCIMValue::TCIMType::ECIMType type)  // NOLINT(google-explicit-constructor)
      : fType(type) {}
  TDeclaredType(TCIMValue::TCIMType type) : fType(type) {}  // NOLINT(google-explicit-constructor)
  TDeclaredType(const char* name);                          // NOLINT(google-explicit-constructor)

  TCIMValue::TCIMType Get() const { return fType; }

 private:
  TCIMValue::TCIMType fType;
};

/// Defines a class in one expression:
///
///     TClassBuilder(ns, "EX_Disk", "EX_Device")
///         .Description("A disk.")
///         .Key("DeviceID", "string", "The kernel's name of the disk.")
///         .Property("Size", "uint64", "In bytes.").Qualifier("Units", "Bytes")
///         .Source(&ListDisks)
///         .Commit();
///
/// `Qualifier` and `Description` go to what was declared last: the class itself at first, then a
/// property, method or parameter. A property or method that the superclass has gets the qualifier
/// "Override". Descriptions become qualifiers; an empty one becomes none.
///
/// Each operation throws what the operations of the kit throw that it calls. After that, or without
/// `Commit`, there is no such class.
///
/// Thread-safety: none.
class HWX_EXPORT TClassBuilder {
 public:
  /// Begins a class, and declares in `ns` what it lacks of the standard qualifiers. A superclass
  /// that isn't there throws `kHWXStatusNotFound`; the empty name stands for none.
  TClassBuilder(const boost::shared_ptr<TMemoryNamespace>& ns, const std::string& name,
                const std::string& superclass = "");
  ~TClassBuilder();

  TClassBuilder& Abstract();
  TClassBuilder& Association();
  TClassBuilder& Description(const std::string& text);
  /// Throws `kHWXStatusNotFound` for a qualifier that the namespace doesn't declare.
  TClassBuilder& Qualifier(const std::string& name, const TCIMValue& value);

  /// A property whose default value is a null of the type.
  TClassBuilder& Property(const std::string& name, TDeclaredType type,
                          const std::string& description = "");
  /// A property of the default value's type.
  TClassBuilder& PropertyWithDefault(const std::string& name, const TCIMValue& defaultValue,
                                     const std::string& description = "");
  /// A property that is a key.
  TClassBuilder& Key(const std::string& name, TDeclaredType type,
                     const std::string& description = "");
  /// A property that refers to objects of a class, which must be committed.
  TClassBuilder& Reference(const std::string& name, const std::string& className,
                           const std::string& description = "");
  /// A reference that is a key.
  TClassBuilder& KeyReference(const std::string& name, const std::string& className,
                              const std::string& description = "");

  TClassBuilder& Method(const std::string& name, TDeclaredType returnType,
                        const std::string& description = "");
  /// A parameter of the method that was declared last. Throws `kHWXStatusInvalidOpSequence` if what
  /// was declared last is neither a method nor a parameter.
  TClassBuilder& Parameter(const std::string& name, TDeclaredType type,
                           const std::string& description = "");

  /// A static value of a property that was declared before or is inherited. It ends the property
  /// that was declared last, so that one's qualifiers come first.
  TClassBuilder& StaticValue(const std::string& name, const TCIMValue& value);

  /// What makes the instances of a live class.
  TClassBuilder& Source(const TInstanceSource& source);

  /// Puts the class in the namespace.
  boost::shared_ptr<TMemoryClass> Commit();

 private:
  TClassBuilder& Describe(const std::string& text);
  void CommitElement();

  const boost::shared_ptr<TMemoryNamespace> fNamespace;
  boost::shared_ptr<TMemoryClass> fClass;
  boost::shared_ptr<ICIMQualifiedElement> fElement;  // what was declared last
  boost::shared_ptr<ICIMPropertyDecl> fProperty;     // declared last and not committed yet
  boost::shared_ptr<ICIMMethodDecl> fMethod;         // whose parameters may follow
  boost::shared_ptr<ICIMParameterDecl> fParameter;   // declared last and not committed yet
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TCLASSBUILDER_H
