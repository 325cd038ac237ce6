#ifndef HWXTESTS_UNIT_HWXKIT_KITTESTING_H
#define HWXTESTS_UNIT_HWXKIT_KITTESTING_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "hwxcore/hwxcore.h"
#include "hwxkit/hwxkit.h"
#include "support/Ptr.h"
#include "support/StatusOf.h"

namespace hwxtest {

using Type = NQORHWX20::TCIMValue::TCIMType;
using Strings = std::vector<std::string>;

constexpr Type::ECIMType kStringArray =
    static_cast<Type::ECIMType>(Type::kCIMTypeString | Type::kCIMTypeArrayFlag);

inline NQORHWX20::TCIMValue Null(Type::ECIMType type) {
  return NQORHWX20::TCIMValue(type, 0);
}

/// A null reference to a class.
inline NQORHWX20::TCIMValue ReferenceTo(const Ptr<NQORHWX20::ICIMClass>& referenced) {
  NQORHWX20::TCIMValue value(Type(Type::kCIMTypeReference), 0);
  value.SetReferencedClass(referenced);
  return value;
}

/// The name of anything that has one.
template <typename T>
std::string NameOf(const Ptr<T>& element) {
  return element->GetName({});
}

/// The first key of an instance, as text.
inline std::string NameOf(const Ptr<NQORHWX20::ICIMInstance>& instance) {
  std::string name;
  instance->EnumerateKeyProperties(
      [&name](const Ptr<NQORHWX20::ICIMProperty>& key) {
        name = key->GetValue({}).ToString(10);
        return false;
      },
      {});
  return name;
}

/// Every enumeration of the kit, for the names of what it presents: `call` gets the callback.
template <typename T, typename Call>
Strings NamesFrom(const Call& call) {
  Strings names;
  call([&names](Ptr<T> element) {
    names.push_back(NameOf(element));
    return true;
  });
  return names;
}

inline Strings RootClasses(NQORHWX20::ICIMNamespace& ns) {
  return NamesFrom<NQORHWX20::ICIMClass>(
      [&](const auto& callback) { ns.EnumerateClasses(callback, {}); });
}

inline Strings SubClasses(NQORHWX20::ICIMClass& of, bool deep) {
  return NamesFrom<NQORHWX20::ICIMClass>(
      [&](const auto& callback) { of.EnumerateSubClasses(callback, deep, {}); });
}

inline Strings Properties(NQORHWX20::ICIMClass& of) {
  return NamesFrom<NQORHWX20::ICIMPropertyDecl>(
      [&](const auto& callback) { of.EnumeratePropertyDecls(callback, {}); });
}

inline Strings Statics(NQORHWX20::ICIMClass& of) {
  return NamesFrom<NQORHWX20::ICIMProperty>(
      [&](const auto& callback) { of.EnumerateStaticProperties(callback, {}); });
}

inline Strings Methods(NQORHWX20::ICIMClass& of) {
  return NamesFrom<NQORHWX20::ICIMMethodDecl>(
      [&](const auto& callback) { of.EnumerateMethodDecls(callback, {}); });
}

inline Strings Qualifiers(NQORHWX20::ICIMQualifiedElement& of) {
  return NamesFrom<NQORHWX20::ICIMQualifier>(
      [&](const auto& callback) { of.EnumerateQualifiers(callback, {}); });
}

inline Strings Instances(NQORHWX20::ICIMClass& of, bool deep = false) {
  return NamesFrom<NQORHWX20::ICIMInstance>(
      [&](const auto& callback) { of.EnumerateInstances(callback, deep, {}); });
}

/// Tests that start from an empty namespace.
class KitTest : public ::testing::Test {
 protected:
  Ptr<NQORHWX20::ICIMClass> Create(const std::string& name,
                                   const Ptr<NQORHWX20::ICIMClass>& superclass = {}) {
    return fNamespace->CreateClass(name, superclass, {});
  }

  /// A class with nothing in it.
  Ptr<NQORHWX20::ICIMClass> Commit(const std::string& name,
                                   const Ptr<NQORHWX20::ICIMClass>& superclass = {}) {
    const auto made = Create(name, superclass);
    made->Commit({});
    return made;
  }

  static Ptr<NQORHWX20::ICIMPropertyDecl> AddProperty(NQORHWX20::ICIMClass& to,
                                                      const std::string& name,
                                                      const NQORHWX20::TCIMValue& defaultValue) {
    const auto decl = to.CreatePropertyDecl(name, defaultValue, {});
    decl->Commit({});
    return decl;
  }

  Ptr<NQORHWX20::ICIMQualifierDecl> Declare(const std::string& name,
                                            const NQORHWX20::TCIMValue& defaultValue,
                                            unsigned int flavor = NQORHWX20::kFlavorDefault) {
    const auto decl =
        fNamespace->CreateQualifierDecl(name, defaultValue, NQORHWX20::kScopeAny, flavor, {});
    decl->Commit({});
    return decl;
  }

  void Qualify(NQORHWX20::ICIMQualifiedElement& element, const std::string& name,
               const NQORHWX20::TCIMValue& value) {
    element.CreateQualifier(fNamespace->GetQualifierDecl(name, {}), value, {})->Commit({});
  }

  NQORHWX20::TClassBuilder Build(const std::string& name, const std::string& superclass = "") {
    return NQORHWX20::TClassBuilder(fNamespace, name, superclass);
  }

  const Ptr<NQORHWX20::TMemoryNamespace> fNamespace =
      NQORHWX20::TMemoryNamespace::Create("root/test");
};

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_HWXKIT_KITTESTING_H
