#ifndef HWXCORE_SCHEMA_TCIMCOPY_H
#define HWXCORE_SCHEMA_TCIMCOPY_H

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>
#include <utility>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/TCIMValue.h"

namespace boost {
class recursive_mutex;
}

namespace NQORHWX20 {
class ICIMClass;
class ICIMInstance;
class ICIMMethodDecl;
class ICIMNamespace;
class ICIMParameterDecl;
class ICIMProperty;
class ICIMPropertyDecl;
class ICIMQualifiedElement;
class ICIMQualifier;
class ICIMQualifierDecl;
}  // namespace NQORHWX20

/// Held for the whole of `TCIMCopy::CopyInstance`. Recursive, since provider code runs under it.
/// Who locks it includes <boost/thread/recursive_mutex.hpp>, which is larger than all else here.
extern HWX_EXPORT boost::recursive_mutex copyInstMutex;

/// Moves data and schema from one namespace to another, for example from a live provider into a
/// container. Plain values move as they are; a reference is built anew against the target, by the
/// names of its class and keys.
///
/// Unlike the rest of the library it stands in the global namespace. Every call of the schema goes
/// out with an empty context. Nothing is rolled back: a copy that fails leaves in the target what
/// it had done.
///
/// Thread-safety: `CopyInstance` is serialised; otherwise that of the two namespaces.
class HWX_EXPORT TCIMCopy {
 public:
  /// A copy of `value` that is valid in `target`. An array of references is copied as it stands. A
  /// reference value must carry its class. Throws `kHWXStatusNotFound` if the target lacks a
  /// referenced class, and what adding a key throws.
  static NQORHWX20::TCIMValue CopyValue(const NQORHWX20::TCIMValue& value,
                                        boost::shared_ptr<NQORHWX20::ICIMNamespace> target);

  /// Copies an instance to the target's class of the same name, and adds it there. Null properties
  /// are left at what the new instance starts with. Throws `kHWXStatusNotFound` if the target lacks
  /// the class; after any failure the instance isn't added.
  static boost::shared_ptr<NQORHWX20::ICIMInstance> CopyInstance(
      boost::shared_ptr<NQORHWX20::ICIMInstance> source,
      boost::shared_ptr<NQORHWX20::ICIMNamespace> target);

  /// Builds `source` anew in `target`: qualifiers, properties, static values, methods. The target
  /// must have the superclass. A property that can't be built is left out, with a debug entry; any
  /// other failure leaves the new class uncommitted.
  static void CopyClass(boost::shared_ptr<NQORHWX20::ICIMClass> source,
                        boost::shared_ptr<NQORHWX20::ICIMNamespace> target);

  /// Copies a whole schema: qualifier declarations, then classes, then associations, each
  /// superclass ahead of its subclasses. The instances of the product class come along unless
  /// `skipProductInstances`; no others do.
  static void CopyClasses(boost::shared_ptr<NQORHWX20::ICIMNamespace> source,
                          boost::shared_ptr<NQORHWX20::ICIMNamespace> target,
                          bool skipProductInstances);
};

// The callbacks of the copies. Each goes on in every path and stops an enumeration only by an
// exception. A weak handle is locked anew for each use.

/// Copies the keys of a reference to the one being built, which must outlive the enumeration.
class HWX_EXPORT TCopyReferenceKeys {
 public:
  TCopyReferenceKeys(const boost::weak_ptr<NQORHWX20::ICIMNamespace>& target,
                     NQORHWX20::TCIMReference* reference);
  bool operator()(std::pair<std::string, NQORHWX20::TCIMValue> key) const;

 private:
  boost::weak_ptr<NQORHWX20::ICIMNamespace> fNamespace;
  NQORHWX20::TCIMReference* fReference;
};

/// Copies the properties of an instance that aren't null to the one being filled.
class HWX_EXPORT TCopyInstanceProperty {
 public:
  TCopyInstanceProperty(const boost::weak_ptr<NQORHWX20::ICIMNamespace>& target,
                        const boost::shared_ptr<NQORHWX20::ICIMInstance>& instance);
  bool operator()(boost::shared_ptr<NQORHWX20::ICIMProperty> property) const;

 private:
  boost::weak_ptr<NQORHWX20::ICIMNamespace> fNamespace;
  boost::shared_ptr<NQORHWX20::ICIMInstance> fInstance;
};

/// Copies the static properties of a class, null ones too, to the one being built.
class HWX_EXPORT TCopyStaticProperty {
 public:
  TCopyStaticProperty(const boost::shared_ptr<NQORHWX20::ICIMClass>& newClass,
                      const boost::weak_ptr<NQORHWX20::ICIMNamespace>& target);
  bool operator()(boost::shared_ptr<NQORHWX20::ICIMProperty> property) const;

 private:
  boost::shared_ptr<NQORHWX20::ICIMClass> fClass;
  boost::weak_ptr<NQORHWX20::ICIMNamespace> fNamespace;
};

/// Copies qualifiers to an element, and their declarations where the target lacks them.
class HWX_EXPORT TCopyQualifier {
 public:
  TCopyQualifier(const boost::weak_ptr<NQORHWX20::ICIMQualifiedElement>& element,
                 const boost::weak_ptr<NQORHWX20::ICIMNamespace>& target);
  bool operator()(boost::shared_ptr<NQORHWX20::ICIMQualifier> qualifier) const;

 private:
  boost::weak_ptr<NQORHWX20::ICIMQualifiedElement> fElement;
  boost::weak_ptr<NQORHWX20::ICIMNamespace> fNamespace;
};

/// Copies the qualifier declarations of a namespace. What a collision does is up to the target.
class HWX_EXPORT TCopyQualifierDecls {
 public:
  explicit TCopyQualifierDecls(const boost::weak_ptr<NQORHWX20::ICIMNamespace>& target);
  bool operator()(boost::shared_ptr<NQORHWX20::ICIMQualifierDecl> decl) const;

 private:
  boost::weak_ptr<NQORHWX20::ICIMNamespace> fNamespace;
};

/// Copies a class if it belongs to the pass, and the instances of the product class.
class HWX_EXPORT TCopyClass {
 public:
  TCopyClass(const boost::weak_ptr<NQORHWX20::ICIMNamespace>& target, bool associationPass,
             bool skipProductInstances);
  bool operator()(boost::shared_ptr<NQORHWX20::ICIMClass> source) const;

 private:
  void CopyProductInstances(NQORHWX20::ICIMClass& product) const;

  boost::weak_ptr<NQORHWX20::ICIMNamespace> fNamespace;
  bool fAssociationPass;
  bool fSkipProductInstances;
};

/// Copies a root class with all its descendants.
class HWX_EXPORT TCopyClassTree {
 public:
  TCopyClassTree(const boost::weak_ptr<NQORHWX20::ICIMNamespace>& target, bool associationPass,
                 bool skipProductInstances);
  bool operator()(boost::shared_ptr<NQORHWX20::ICIMClass> root) const;

 private:
  boost::weak_ptr<NQORHWX20::ICIMNamespace> fNamespace;
  bool fAssociationPass;
  bool fSkipProductInstances;
};

/// Copies a property declaration, unless it is inherited and not overridden. The one step that
/// survives a failure.
class HWX_EXPORT TCopyPropertyDecl {
 public:
  TCopyPropertyDecl(const boost::shared_ptr<NQORHWX20::ICIMClass>& newClass,
                    const boost::weak_ptr<NQORHWX20::ICIMNamespace>& target);
  bool operator()(boost::shared_ptr<NQORHWX20::ICIMPropertyDecl> source) const;

 private:
  boost::shared_ptr<NQORHWX20::ICIMClass> fClass;
  boost::weak_ptr<NQORHWX20::ICIMNamespace> fNamespace;
};

/// Copies a method declaration with its parameters and qualifiers.
class HWX_EXPORT TCopyMethodDecl {
 public:
  TCopyMethodDecl(const boost::shared_ptr<NQORHWX20::ICIMClass>& newClass,
                  const boost::weak_ptr<NQORHWX20::ICIMNamespace>& target);
  bool operator()(boost::shared_ptr<NQORHWX20::ICIMMethodDecl> source) const;

 private:
  boost::shared_ptr<NQORHWX20::ICIMClass> fClass;
  boost::weak_ptr<NQORHWX20::ICIMNamespace> fNamespace;
};

/// Copies a parameter declaration with its qualifiers.
class HWX_EXPORT TCopyParameterDecl {
 public:
  TCopyParameterDecl(const boost::weak_ptr<NQORHWX20::ICIMMethodDecl>& method,
                     const boost::weak_ptr<NQORHWX20::ICIMNamespace>& target);
  bool operator()(boost::shared_ptr<NQORHWX20::ICIMParameterDecl> source) const;

 private:
  boost::weak_ptr<NQORHWX20::ICIMMethodDecl> fMethodDecl;
  boost::weak_ptr<NQORHWX20::ICIMNamespace> fNamespace;
};

#endif  // HWXCORE_SCHEMA_TCIMCOPY_H
