#ifndef HWXTESTS_UNIT_HWXCORE_VALUE_RECORDEDSCHEMA_H
#define HWXTESTS_UNIT_HWXCORE_VALUE_RECORDEDSCHEMA_H

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"
#include "support/SchemaStubs.h"

namespace hwxtest {

/// Classes with properties that record what a reference asks them, with the contexts:
///
///     RecordedSchema schema;
///     schema.AddClass("Thing", {{"Id", TCIMValue(TCIMValue::TCIMType::kCIMTypeUInt32, 0)}});
///     schema.Fail("Thing.GetPropertyDecl(Id)", kHWXStatusAccessDenied);
///
/// The calls are "GetClass(Thing)", "GetInstance", "Thing.GetName", "Thing.GetNamespace",
/// "Thing.GetPropertyDecl(Id)", "Thing.Id.GetDefaultValue" and "Thing.Id.GetType". It must outlive
/// its objects.
class RecordedSchema {
 public:
  /// A call, and its context as "key=text" parts.
  using Call = std::pair<std::string, std::string>;
  /// The default values by name; the type of each is the property's.
  using Properties = std::map<std::string, TCIMValue>;

  RecordedSchema() : fNamespace(new Namespace(*this)) {}

  Ptr<NQORHWX20::ICIMNamespace> Get() const { return fNamespace; }
  /// Lets go of the namespace.
  void Release() { fNamespace.reset(); }

  void AddClass(const std::string& name, const Properties& properties) {
    fClasses[name].reset(new Class(*this, name, properties));
  }

  /// The class itself, unrecorded.
  Ptr<NQORHWX20::ICIMClass> Find(const std::string& name) const { return fClasses.at(name); }

  /// Makes the type of a property, such as "Thing.Id", another than that of its default value.
  void SetType(const std::string& property, TCIMValue::TCIMType type) {
    fTypes.insert_or_assign(property, type);
  }

  /// What GetInstance gives.
  void SetInstance(const Ptr<NQORHWX20::ICIMInstance>& instance) { fInstance = instance; }
  /// The handle that GetInstance was given last.
  const NQORHWX20::TCIMReference* Asked() const { return fAsked; }

  /// Makes a call throw.
  void Fail(const std::string& call, NQORHWX20::EHWXStatusCode status) {
    Do(call, [status] { throw NQORHWX20::THWXException(status); });
  }
  /// Makes a call run `action` first.
  void Do(const std::string& call, const std::function<void()>& action) { fActions[call] = action; }

  /// The calls since the last time, oldest first.
  std::vector<Call> TakeCalls() { return std::exchange(fCalls, {}); }

 private:
  class Decl : public StubPropertyDecl {
   public:
    Decl(RecordedSchema& schema, const std::string& name, const TCIMValue& value)
        : fSchema(schema), fName(name), fValue(value) {}

    TCIMValue::TCIMType GetType(Context context) override {
      fSchema.Record(fName + ".GetType", context);
      const auto set = fSchema.fTypes.find(fName);
      return set != fSchema.fTypes.end() ? set->second : fValue.GetType();
    }
    const TCIMValue& GetDefaultValue(Context context) override {
      fSchema.Record(fName + ".GetDefaultValue", context);
      return fValue;
    }

   private:
    RecordedSchema& fSchema;
    const std::string fName;
    const TCIMValue fValue;
  };

  class Class : public StubClass {
   public:
    Class(RecordedSchema& schema, const std::string& name, const Properties& properties)
        : fSchema(schema), fName(name), fProperties(properties) {}

    const std::string& GetName(Context context) override {
      fSchema.Record(fName + ".GetName", context);
      return fName;
    }
    Ptr<NQORHWX20::ICIMNamespace> GetNamespace(Context context) override {
      fSchema.Record(fName + ".GetNamespace", context);
      return fSchema.fNamespace;
    }
    Ptr<NQORHWX20::ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                     Context context) override {
      fSchema.Record(fName + ".GetPropertyDecl(" + name + ")", context);
      const auto found = fProperties.find(name);
      if (found == fProperties.end()) throw NQORHWX20::THWXException(NQORHWX20::kHWXStatusNotFound);
      return Ptr<Decl>(new Decl(fSchema, fName + "." + name, found->second));
    }

   private:
    RecordedSchema& fSchema;
    const std::string fName;
    const Properties fProperties;
  };

  class Namespace : public StubNamespace {
   public:
    explicit Namespace(RecordedSchema& schema) : fSchema(schema) {}

    Ptr<NQORHWX20::ICIMClass> GetClass(const std::string& name, Context context) override {
      fSchema.Record("GetClass(" + name + ")", context);
      const auto found = fSchema.fClasses.find(name);
      if (found == fSchema.fClasses.end()) {
        throw NQORHWX20::THWXException(NQORHWX20::kHWXStatusNotFound);
      }
      return found->second;
    }
    Ptr<NQORHWX20::ICIMInstance> GetInstance(const NQORHWX20::TCIMReference& reference,
                                             Context context) override {
      fSchema.fAsked = &reference;
      fSchema.Record("GetInstance", context);
      return fSchema.fInstance;
    }

   private:
    RecordedSchema& fSchema;
  };

  void Record(const std::string& call, const Context& context) {
    std::string text;
    for (const auto& entry : context) {
      text += (text.empty() ? "" : " ") + entry.first + "=" + entry.second.ToString(10);
    }
    fCalls.emplace_back(call, text);
    const auto action = fActions.find(call);
    if (action != fActions.end()) action->second();
  }

  Ptr<Namespace> fNamespace;
  std::map<std::string, Ptr<Class> > fClasses;
  std::map<std::string, TCIMValue::TCIMType> fTypes;
  Ptr<NQORHWX20::ICIMInstance> fInstance;
  const NQORHWX20::TCIMReference* fAsked = nullptr;
  std::map<std::string, std::function<void()> > fActions;
  std::vector<Call> fCalls;
};

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_HWXCORE_VALUE_RECORDEDSCHEMA_H
