#ifndef HWXTESTS_SUPPORT_RECORDINGNAMESPACE_H
#define HWXTESTS_SUPPORT_RECORDINGNAMESPACE_H

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "hwxcore/value/THWXException.h"
#include "support/SchemaStubs.h"

namespace hwxtest {

/// A namespace of classes and instances that records each call with the context it got, and fails
/// where a test says so:
///
///     RecordingNamespace ns;
///     ns.AddInstance("EX_Disk", {{"Size", 5}});
///     ns.Fail("EX_Disk[0].GetProperty(Size)", kHWXStatusAccessDenied);
///
/// The calls are "GetClass(EX_Disk)", "EX_Disk.EnumerateInstances(deep)" or "(shallow)",
/// "EX_Disk[0].GetProperty(Size)", "EX_Disk[0].Size.GetValue", "....GetStringValue" and
/// "....GetStringArrayValue". The namespace must outlive the objects that it hands out.
class RecordingNamespace {
 public:
  /// A call, and its context as "key=text" parts; "none" for an operation that takes none.
  using Call = std::pair<std::string, std::string>;
  using Properties = std::map<std::string, TCIMValue>;

  /// What queries are given.
  Ptr<NQORHWX20::ICIMNamespace> Get() {
    return Ptr<NQORHWX20::ICIMNamespace>(new Namespace(*this));
  }

  /// A class, without instances at first.
  void AddClass(const std::string& name) { fClasses[name]; }

  /// An instance behind those of the class there are.
  void AddInstance(const std::string& className, const Properties& properties) {
    fClasses[className].push_back(properties);
  }

  /// Makes a call throw.
  void Fail(const std::string& call, NQORHWX20::EHWXStatusCode status) {
    Do(call, [status] { throw NQORHWX20::THWXException(status); });
  }

  /// Makes a call run `action` first.
  void Do(const std::string& call, const std::function<void()>& action) { fActions[call] = action; }

  /// Makes a call hand out an empty pointer. "EX_Disk[0]" stands for the enumeration's first one.
  void HandOutNothing(const std::string& call) { fNothings.insert(call); }

  const std::vector<Call>& Calls() const { return fCalls; }
  void ForgetCalls() { fCalls.clear(); }

 private:
  class Property : public StubProperty {
   public:
    Property(RecordingNamespace& ns, const std::string& name, const TCIMValue& value)
        : fNamespace(ns), fName(name), fValue(value) {}

    const TCIMValue& GetValue(Context context) override {
      fNamespace.Record(fName + ".GetValue", Text(context));
      return fValue;
    }
    std::string GetStringValue() override {
      fNamespace.Record(fName + ".GetStringValue", "none");
      return fValue;
    }
    std::vector<std::string> GetStringArrayValue() override {
      fNamespace.Record(fName + ".GetStringArrayValue", "none");
      std::vector<TCIMValue>& elements = fValue;
      return std::vector<std::string>(elements.begin(), elements.end());
    }

   private:
    RecordingNamespace& fNamespace;
    const std::string fName;
    const TCIMValue fValue;
  };

  class Instance : public StubInstance {
   public:
    Instance(RecordingNamespace& ns, const std::string& name, const Properties& properties)
        : fNamespace(ns), fName(name), fProperties(properties) {}

    Ptr<NQORHWX20::ICIMProperty> GetProperty(const std::string& name, Context context) override {
      const std::string call = fName + ".GetProperty(" + name + ")";
      fNamespace.Record(call, Text(context));
      if (fNamespace.fNothings.count(call) != 0) return nullptr;
      const auto found = fProperties.find(name);
      if (found == fProperties.end()) throw NQORHWX20::THWXException(NQORHWX20::kHWXStatusNotFound);
      return Ptr<NQORHWX20::ICIMProperty>(
          new Property(fNamespace, fName + "." + name, found->second));
    }

   private:
    RecordingNamespace& fNamespace;
    const std::string fName;
    const Properties fProperties;
  };

  class Class : public StubClass {
   public:
    Class(RecordingNamespace& ns, const std::string& name) : fNamespace(ns), fName(name) {}

    void EnumerateInstances(const Callback<NQORHWX20::ICIMInstance>& callback, bool deep,
                            Context context) override {
      fNamespace.Record(fName + ".EnumerateInstances(" + (deep ? "deep" : "shallow") + ")",
                        Text(context));
      int index = 0;
      for (const Properties& properties : fNamespace.fClasses[fName]) {
        const std::string name = fName + "[" + std::to_string(index++) + "]";
        Ptr<Instance> instance;
        if (fNamespace.fNothings.count(name) == 0) {
          instance.reset(new Instance(fNamespace, name, properties));
        }
        if (!callback(instance)) return;
      }
    }

   private:
    RecordingNamespace& fNamespace;
    const std::string fName;
  };

  class Namespace : public StubNamespace {
   public:
    explicit Namespace(RecordingNamespace& ns) : fNamespace(ns) {}

    Ptr<NQORHWX20::ICIMClass> GetClass(const std::string& name, Context context) override {
      const std::string call = "GetClass(" + name + ")";
      fNamespace.Record(call, Text(context));
      if (fNamespace.fNothings.count(call) != 0) return nullptr;
      if (fNamespace.fClasses.count(name) == 0) {
        throw NQORHWX20::THWXException(NQORHWX20::kHWXStatusNotFound);
      }
      return Ptr<Class>(new Class(fNamespace, name));
    }

   private:
    RecordingNamespace& fNamespace;
  };

  static std::string Text(const Context& context) {
    std::string text;
    for (const auto& entry : context) {
      text += (text.empty() ? "" : " ") + entry.first + "=" + entry.second.ToString(10);
    }
    return text;
  }

  void Record(const std::string& call, const std::string& context) {
    fCalls.emplace_back(call, context);
    const auto action = fActions.find(call);
    if (action != fActions.end()) action->second();
  }

  std::map<std::string, std::vector<Properties> > fClasses;
  std::map<std::string, std::function<void()> > fActions;
  std::set<std::string> fNothings;
  std::vector<Call> fCalls;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_RECORDINGNAMESPACE_H
