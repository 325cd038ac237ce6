#ifndef HWXTESTS_UNIT_HWXCORE_SCHEMA_COPYTESTING_H
#define HWXTESTS_UNIT_HWXCORE_SCHEMA_COPYTESTING_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <map>
#include <string>
#include <vector>

#include "hwxcore/hwxcore.h"
#include "hwxkit/hwxkit.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"
#include "support/TracedNamespace.h"
#include "support/ValueText.h"

namespace hwxtest {

/// Whether another thread could take `copyInstMutex` now.
inline bool IsCopyInstMutexFree() {
  return std::async(std::launch::async,
                    [] {
                      const bool taken = copyInstMutex.try_lock();
                      if (taken) copyInstMutex.unlock();
                      return taken;
                    })
      .get();
}

/// Tests that copy from one traced namespace of the kit to another. The source is filled by way of
/// the traced namespace too, so that references in it lead to traced classes.
class CopyTest : public ::testing::Test {
 protected:
  template <typename T>
  using Ptr = boost::shared_ptr<T>;
  using Type = NQORHWX20::TCIMValue::TCIMType;
  using Strings = std::vector<std::string>;

  /// The calls that `action` makes, also those in front of an exception of the library.
  template <typename Action>
  Strings CallsOf(const Action& action) {
    fTrace.Forget();
    fStatus = StatusOf(action);
    return fTrace.Calls();
  }

  static NQORHWX20::TCIMValue Null(Type::ECIMType type) { return NQORHWX20::TCIMValue(type, 0); }

  /// A null reference to a class.
  static NQORHWX20::TCIMValue ReferenceTo(const Ptr<NQORHWX20::ICIMClass>& referenced) {
    NQORHWX20::TCIMValue value(Null(Type::kCIMTypeReference));
    value.SetReferencedClass(referenced);
    return value;
  }

  /// A reference with keys.
  static NQORHWX20::TCIMReference Reference(
      const Ptr<NQORHWX20::ICIMNamespace>& ns, const std::string& className,
      const std::map<std::string, NQORHWX20::TCIMValue>& keys) {
    NQORHWX20::TCIMReference reference(ns, {});
    reference.SetClassName(className);
    for (const auto& [name, value] : keys)
      reference.AddKeyValue(name, value);
    return reference;
  }

  /// The same as a value.
  static NQORHWX20::TCIMValue ReferenceValue(
      const Ptr<NQORHWX20::ICIMNamespace>& ns, const std::string& className,
      const std::map<std::string, NQORHWX20::TCIMValue>& keys) {
    NQORHWX20::TCIMReference reference = Reference(ns, className, keys);
    return NQORHWX20::TCIMValue(reference);
  }

  static void Declare(NQORHWX20::ICIMNamespace& ns, const std::string& name,
                      const NQORHWX20::TCIMValue& defaultValue,
                      unsigned int scope = NQORHWX20::kScopeAny,
                      unsigned int flavor = NQORHWX20::kFlavorDefault) {
    ns.CreateQualifierDecl(name, defaultValue, scope, flavor, {})->Commit({});
  }

  static void Qualify(NQORHWX20::ICIMNamespace& ns, NQORHWX20::ICIMQualifiedElement& element,
                      const std::string& name, const NQORHWX20::TCIMValue& value) {
    element.CreateQualifier(ns.GetQualifierDecl(name, {}), value, {})->Commit({});
  }

  static Ptr<NQORHWX20::ICIMPropertyDecl> AddProperty(NQORHWX20::ICIMClass& to,
                                                      const std::string& name,
                                                      const NQORHWX20::TCIMValue& defaultValue) {
    const auto decl = to.CreatePropertyDecl(name, defaultValue, {});
    decl->Commit({});
    return decl;
  }

  /// A committed class with properties of these default values, in the order of their names.
  static Ptr<NQORHWX20::ICIMClass> AddClass(
      NQORHWX20::ICIMNamespace& ns, const std::string& name,
      const std::map<std::string, NQORHWX20::TCIMValue>& properties = {},
      const Ptr<NQORHWX20::ICIMClass>& superclass = {}) {
    const auto made = ns.CreateClass(name, superclass, {});
    for (const auto& [property, value] : properties)
      AddProperty(*made, property, value);
    made->Commit({});
    return ns.GetClass(name, {});
  }

  /// An instance that its class holds, with these values set.
  static Ptr<NQORHWX20::ICIMInstance> AddInstance(
      NQORHWX20::ICIMClass& to, const std::map<std::string, NQORHWX20::TCIMValue>& values) {
    const auto instance = to.CreateInstance({});
    for (const auto& [name, value] : values)
      instance->SetPropertyValue(name, value, {});
    to.AddInstance(instance);
    return instance;
  }

  /// The names of the properties that a class declares or inherits.
  static Strings Properties(NQORHWX20::ICIMClass& of) {
    Strings names;
    of.EnumeratePropertyDecls(
        [&](Ptr<NQORHWX20::ICIMPropertyDecl> decl) {
          names.push_back(decl->GetName({}));
          return true;
        },
        {});
    return names;
  }

  const Ptr<NQORHWX20::TMemoryNamespace> fSourceKit = NQORHWX20::TMemoryNamespace::Create("from");
  const Ptr<NQORHWX20::TMemoryNamespace> fTargetKit = NQORHWX20::TMemoryNamespace::Create("to");
  CallTrace fTrace;
  const Ptr<NQORHWX20::ICIMNamespace> fSource = TracedNamespace(fSourceKit, "source", fTrace);
  const Ptr<NQORHWX20::ICIMNamespace> fTarget = TracedNamespace(fTargetKit, "target", fTrace);
  ScopedLogCapture fLog;
  int fStatus = NQORHWX20::kHWXStatusOK;  // of the last `CallsOf`
};

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_HWXCORE_SCHEMA_COPYTESTING_H
