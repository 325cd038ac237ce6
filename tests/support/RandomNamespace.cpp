#include "support/RandomNamespace.h"

#include <string>
#include <vector>

#include "hwxcore/hwxcore.h"
#include "hwxkit/hwxkit.h"
#include "support/Ptr.h"
#include "support/RandomValues.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using Tag = RandomValues::Type;

bool IsArray(Tag type) {
  return (type & TCIMValue::TCIMType::kCIMTypeArrayFlag) != 0;
}

class NamespaceMaker {
 public:
  explicit NamespaceMaker(std::uint64_t seed) : fRandom(seed) {}

  Ptr<TMemoryNamespace> Make() {
    fNamespace =
        TMemoryNamespace::Create(fRandom.Below(4) == 0 ? fRandom.Text() : "root/" + fRandom.Text());
    DeclareStandardQualifiers(*fNamespace);
    for (auto count = fRandom.Below(5); count > 0; --count)
      AddQualifierDecl();
    for (auto count = 1 + fRandom.Below(8); count > 0; --count) {
      AddClass();
      AddInstances(*fClasses.back());
      if (fRandom.Below(4) == 0) AddQualifierDecl();
    }
    return fNamespace;
  }

 private:
  // Whatever the kit refuses isn't part of the namespace.
  template <typename Call>
  static bool Try(Call call) {
    try {
      call();
      return true;
    } catch (const THWXException&) {
      return false;
    }
  }

  template <typename T>
  const T& Any(const std::vector<T>& from) {
    return from[fRandom.Below(from.size())];
  }

  // The same number gives names that differ in length, case and bytes.
  std::string Name(const std::string& prefix, std::uint64_t number) {
    static const char* const kEndings[] = {"", "_", "x", "\xC3\xA9", "\xFF", "Name"};
    return prefix + kEndings[number % 6] + std::to_string(number);
  }

  void AddQualifierDecl() {
    const std::string name = Name("Q", fQualifiers.size());
    const TCIMValue value = fRandom.Any(fRandom.AnyType());
    const auto scope = static_cast<unsigned int>(fRandom.Below(2) == 0 ? 127 : fRandom.Below(1000));
    const auto flavor = static_cast<unsigned int>(fRandom.Below(fRandom.Below(8) == 0 ? 1000 : 8));
    Try([&] {
      const auto decl = fNamespace->CreateQualifierDecl(name, value, scope, flavor, {});
      decl->Commit({});
      fQualifiers.push_back(decl);
    });
  }

  void Qualify(ICIMQualifiedElement& element) {
    if (fQualifiers.empty()) return;
    for (auto count = fRandom.Below(3); count > 0; --count) {
      Try([&] {
        const auto& decl = Any(fQualifiers);
        element.CreateQualifier(decl, fRandom.Any(decl->GetType({})), {})->Commit({});
      });
    }
  }

  void QualifyAs(ICIMQualifiedElement& element, const std::string& name) {
    element.CreateQualifier(fNamespace->GetQualifierDecl(name, {}), true, {})->Commit({});
  }

  void AddClass() {
    const std::string name = Name("C", fClasses.size());
    Ptr<TMemoryClass> superclass;
    if (!fClasses.empty() && fRandom.Below(2) == 0) superclass = Any(fClasses);
    const auto added =
        boost::static_pointer_cast<TMemoryClass>(fNamespace->CreateClass(name, superclass, {}));
    if (fRandom.Below(8) == 0) QualifyAs(*added, "Abstract");
    Qualify(*added);
    const auto first = fRandom.Below(3);
    for (auto count = 1 + fRandom.Below(8), i = first; i < first + count; ++i)
      AddProperty(*added, Name("P", i), !superclass && (i == first || fRandom.Below(8) == 0));
    for (auto count = fRandom.Below(3), i = fRandom.Below(2); count > 0; --count, ++i)
      AddMethod(*added, Name("M", i));
    added->Commit({});
    added->EnumeratePropertyDecls(
        [&](const Ptr<ICIMPropertyDecl>& decl) {
          if (fRandom.Below(4) == 0) {
            Try([&] {
              added->SetStaticPropertyValue(decl->GetName({}), fRandom.Any(decl->GetType({})), {});
            });
          }
          return true;
        },
        {});
    fClasses.push_back(added);
    AddTarget(added);
  }

  void AddProperty(TMemoryClass& to, const std::string& name, bool isKey) {
    const auto inherited = to.FindPropertyDecl(name);
    Tag type = fRandom.AnyType();
    if (inherited) type = inherited->GetType({});
    if (isKey && fRandom.Below(4) == 0) type = TCIMValue::TCIMType::kCIMTypeReference;
    if (isKey && IsArray(type)) type = TCIMValue::TCIMType::kCIMTypeString;
    Try([&] {
      const auto decl = to.CreatePropertyDecl(name, fRandom.Any(type), {});
      if (isKey) QualifyAs(*decl, "Key");
      Qualify(*decl);
      decl->Commit({});
    });
  }

  void AddMethod(TMemoryClass& to, const std::string& name) {
    const Tag type = fRandom.Below(4) == 0 ? TCIMValue::TCIMType::kCIMTypeNone : fRandom.AnyType();
    Try([&] {
      const auto method = to.CreateMethodDecl(name, type, {});
      Qualify(*method);
      for (auto i = fRandom.Below(4); i > 0; --i) {
        const auto parameter = method->CreateParameterDecl(Name("A", i), fRandom.AnyType(), {});
        Qualify(*parameter);
        parameter->Commit({});
      }
    });
  }

  void AddInstances(TMemoryClass& to) {
    if (to.IsAbstract({})) return;
    for (auto count = fRandom.Below(5); count > 0; --count) {
      const auto instance = to.NewInstance();
      Try([&] {
        instance->EnumerateProperties(
            [&](const Ptr<ICIMProperty>& property) {
              SetValue(*instance, *property->GetPropertyDecl({}));
              return true;
            },
            {});
        to.AddInstance(instance);
        AddTarget(*instance);
      });
    }
  }

  void SetValue(TMemoryInstance& instance, ICIMPropertyDecl& decl) {
    const Tag type = decl.GetType({});
    const bool isKey = decl.HasQualifier("Key", {});
    if (!isKey && fRandom.Below(4) == 0) return;
    Try([&] { instance.Set(decl.GetName({}), isKey ? fRandom.Key(type) : fRandom.Any(type)); });
  }

  void AddTarget(const Ptr<ICIMClass>& target) {
    TCIMReference reference(fNamespace, {});
    reference.SetClass(target);
    AddTarget(reference);
  }

  void AddTarget(ICIMInstance& target) {
    TCIMReference reference(fNamespace, {});
    reference.SetClass(target.GetClass({}));
    target.EnumerateKeyProperties(
        [&](const Ptr<ICIMProperty>& key) {
          reference.AddKeyValue(key->GetPropertyDecl({})->GetName({}), key->GetValue({}));
          return true;
        },
        {});
    AddTarget(reference);
  }

  void AddTarget(TCIMReference& reference) {
    if (fRandom.Below(3) == 0) reference.SetNameSpaceName(fRandom.Text());
    fTargets.push_back(reference);
    fRandom.SetTargets(fTargets);
  }

  RandomValues fRandom;
  Ptr<TMemoryNamespace> fNamespace;
  std::vector<Ptr<ICIMQualifierDecl>> fQualifiers;
  std::vector<Ptr<TMemoryClass>> fClasses;
  std::vector<TCIMReference> fTargets;
};

}  // namespace

boost::shared_ptr<NQORHWX20::TMemoryNamespace> RandomNamespace(std::uint64_t seed) {
  return NamespaceMaker(seed).Make();
}

}  // namespace hwxtest
