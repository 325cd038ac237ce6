#ifndef HWXTESTS_SUPPORT_SCHEMASTUBS_H
#define HWXTESTS_SUPPORT_SCHEMASTUBS_H

#include <stdexcept>

#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMNamespace.h"
#include "hwxcore/schema/ICIMParameterDecl.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "support/Ptr.h"

namespace hwxtest {

/// The least that a provider has to write: each abstract class with a body for what has none. Every
/// body throws `std::logic_error`; a test overrides those that it expects to be called.

[[noreturn]] inline void UnexpectedCall() {
  throw std::logic_error("unexpected call of a schema object");
}

template <typename T>
using Callback = boost::function<bool(boost::shared_ptr<T>)>;
using Context = NQORHWX20::TCIMContext;
using NQORHWX20::TCIMValue;

class StubNamespace : public NQORHWX20::ICIMNamespace {
 public:
  Ptr<NQORHWX20::ICIMClass> CreateClass(const std::string&, Ptr<NQORHWX20::ICIMClass>,
                                        Context) override {
    UnexpectedCall();
  }
  Ptr<NQORHWX20::ICIMClass> GetClass(const std::string&, Context) override { UnexpectedCall(); }
  void EnumerateClasses(const Callback<NQORHWX20::ICIMClass>&, Context) override {
    UnexpectedCall();
  }
  Ptr<NQORHWX20::ICIMQualifierDecl> CreateQualifierDecl(const std::string&, const TCIMValue&,
                                                        unsigned int, unsigned int,
                                                        Context) override {
    UnexpectedCall();
  }
  Ptr<NQORHWX20::ICIMQualifierDecl> GetQualifierDecl(const std::string&, Context) override {
    UnexpectedCall();
  }
  void EnumerateQualifierDecls(const Callback<NQORHWX20::ICIMQualifierDecl>&, Context) override {
    UnexpectedCall();
  }
  Ptr<NQORHWX20::ICIMInstance> GetInstance(const NQORHWX20::TCIMReference&, Context) override {
    UnexpectedCall();
  }
};

/// Puts the qualifier operations into a stub.
template <typename Base>
class StubQualified : public Base {
 public:
  Ptr<NQORHWX20::ICIMQualifier> CreateQualifier(Ptr<NQORHWX20::ICIMQualifierDecl>, const TCIMValue&,
                                                Context) override {
    UnexpectedCall();
  }
  Ptr<NQORHWX20::ICIMQualifier> GetQualifier(const std::string&, Context) override {
    UnexpectedCall();
  }
  void EnumerateQualifiers(const Callback<NQORHWX20::ICIMQualifier>&, Context) override {
    UnexpectedCall();
  }
};

using StubQualifiedElement = StubQualified<NQORHWX20::ICIMQualifiedElement>;

class StubClass : public StubQualified<NQORHWX20::ICIMClass> {
 public:
  void Commit(Context) override { UnexpectedCall(); }
  const std::string& GetName(Context) override { UnexpectedCall(); }
  Ptr<NQORHWX20::ICIMNamespace> GetNamespace(Context) override { UnexpectedCall(); }
  bool IsAssociation(Context) override { UnexpectedCall(); }
  bool IsAbstract(Context) override { UnexpectedCall(); }
  bool IsRootClass(Context) override { UnexpectedCall(); }
  Ptr<NQORHWX20::ICIMClass> GetSuperClass(Context) override { UnexpectedCall(); }
  void EnumerateSubClasses(const Callback<NQORHWX20::ICIMClass>&, bool, Context) override {
    UnexpectedCall();
  }
  Ptr<NQORHWX20::ICIMPropertyDecl> CreatePropertyDecl(const std::string&, const TCIMValue&,
                                                      Context) override {
    UnexpectedCall();
  }
  Ptr<NQORHWX20::ICIMPropertyDecl> GetPropertyDecl(const std::string&, Context) override {
    UnexpectedCall();
  }
  void EnumeratePropertyDecls(const Callback<NQORHWX20::ICIMPropertyDecl>&, Context) override {
    UnexpectedCall();
  }
  void SetStaticPropertyValue(const std::string&, const TCIMValue&, Context) override {
    UnexpectedCall();
  }
  void EnumerateStaticProperties(const Callback<NQORHWX20::ICIMProperty>&, Context) override {
    UnexpectedCall();
  }
  Ptr<NQORHWX20::ICIMInstance> CreateInstance(Context) override { UnexpectedCall(); }
  void EnumerateInstances(const Callback<NQORHWX20::ICIMInstance>&, bool, Context) override {
    UnexpectedCall();
  }
  Ptr<NQORHWX20::ICIMMethodDecl> CreateMethodDecl(const std::string&, TCIMValue::TCIMType,
                                                  Context) override {
    UnexpectedCall();
  }
  void EnumerateMethodDecls(const Callback<NQORHWX20::ICIMMethodDecl>&, Context) override {
    UnexpectedCall();
  }
  void AddInstance(Ptr<NQORHWX20::ICIMInstance>) override { UnexpectedCall(); }
};

class StubInstance : public NQORHWX20::ICIMInstance {
 public:
  Ptr<NQORHWX20::ICIMClass> GetClass(Context) override { UnexpectedCall(); }
  Ptr<NQORHWX20::ICIMProperty> GetProperty(const std::string&, Context) override {
    UnexpectedCall();
  }
  void SetPropertyValue(const std::string&, const TCIMValue&, Context) override {
    UnexpectedCall();
  }
  void EnumerateProperties(const Callback<NQORHWX20::ICIMProperty>&, Context) override {
    UnexpectedCall();
  }
};

class StubProperty : public NQORHWX20::ICIMProperty {
 public:
  const TCIMValue& GetValue(Context) override { UnexpectedCall(); }
  Ptr<NQORHWX20::ICIMPropertyDecl> GetPropertyDecl(Context) override { UnexpectedCall(); }
  std::string GetStringValue() override { UnexpectedCall(); }
  std::vector<std::string> GetStringArrayValue() override { UnexpectedCall(); }
};

class StubPropertyDecl : public StubQualified<NQORHWX20::ICIMPropertyDecl> {
 public:
  void Commit(Context) override { UnexpectedCall(); }
  const std::string& GetName(Context) override { UnexpectedCall(); }
  TCIMValue::TCIMType GetType(Context) override { UnexpectedCall(); }
  const TCIMValue& GetDefaultValue(Context) override { UnexpectedCall(); }
};

class StubMethodDecl : public StubQualified<NQORHWX20::ICIMMethodDecl> {
 public:
  const std::string& GetName(Context) override { UnexpectedCall(); }
  TCIMValue::TCIMType GetReturnType(Context) override { UnexpectedCall(); }
  Ptr<NQORHWX20::ICIMParameterDecl> CreateParameterDecl(const std::string&, TCIMValue::TCIMType,
                                                        Context) override {
    UnexpectedCall();
  }
  void EnumerateParameterDecls(const Callback<NQORHWX20::ICIMParameterDecl>&, Context) override {
    UnexpectedCall();
  }
};

class StubParameterDecl : public StubQualified<NQORHWX20::ICIMParameterDecl> {
 public:
  void Commit(Context) override { UnexpectedCall(); }
  const std::string& GetName(Context) override { UnexpectedCall(); }
  TCIMValue::TCIMType GetType(Context) override { UnexpectedCall(); }
};

class StubQualifier : public NQORHWX20::ICIMQualifier {
 public:
  void Commit(Context) override { UnexpectedCall(); }
  Ptr<NQORHWX20::ICIMQualifierDecl> GetQualifierDecl(Context) override { UnexpectedCall(); }
  const TCIMValue& GetValue(Context) override { UnexpectedCall(); }
};

class StubQualifierDecl : public NQORHWX20::ICIMQualifierDecl {
 public:
  void Commit(Context) override { UnexpectedCall(); }
  const std::string& GetName(Context) override { UnexpectedCall(); }
  const TCIMValue& GetDefaultValue(Context) override { UnexpectedCall(); }
  unsigned int GetScope(Context) override { UnexpectedCall(); }
  unsigned int GetFlavor(Context) override { UnexpectedCall(); }
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_SCHEMASTUBS_H
