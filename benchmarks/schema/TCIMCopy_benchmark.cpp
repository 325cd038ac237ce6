// Copying between two namespaces in memory, beside a bare traversal that makes the same calls of
// the providers and nothing else.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "Measure.h"
#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "hwxcore/schema/TCIMCopy.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryNamespace.h"

namespace {

using namespace NQORHWX20;

using NamespacePtr = boost::shared_ptr<ICIMNamespace>;
using ClassPtr = boost::shared_ptr<ICIMClass>;
using InstancePtr = boost::shared_ptr<ICIMInstance>;
using PropertyPtr = boost::shared_ptr<ICIMProperty>;
using PropertyDeclPtr = boost::shared_ptr<ICIMPropertyDecl>;
using QualifierPtr = boost::shared_ptr<ICIMQualifier>;
using QualifierDeclPtr = boost::shared_ptr<ICIMQualifierDecl>;

const TCIMContext kNone;

// What is copied.

// Classes of 10 properties; every tenth is the superclass of the nine behind it.
NamespacePtr MakeSchema(std::size_t classes) {
  const auto ns = TMemoryNamespace::Create("root/source");
  std::string superclass;
  for (std::size_t i = 0; i < classes; ++i) {
    const std::string name = "Class" + std::to_string(i);
    if (i % 10 == 0) superclass.clear();
    TClassBuilder builder(ns, name, superclass);
    builder.Description("A class of the benchmark.");
    if (superclass.empty()) builder.Key("ID", "string", "The key.");
    for (int property = superclass.empty() ? 1 : 0; property < 10; ++property) {
      const char* const type = property % 2 == 0 ? "string" : "uint64";
      builder.Property(name + "_" + std::to_string(property), type, "A property.");
    }
    builder.Commit();
    if (i % 10 == 0) superclass = name;
  }
  return ns;
}

// One class, and instances of 10 properties, one of them null.
NamespacePtr MakeInstances(std::size_t instances) {
  const auto ns = TMemoryNamespace::Create("root/source");
  TClassBuilder builder(ns, "Device");
  builder.Key("ID", "string");
  for (int property = 1; property < 10; ++property) {
    builder.Property("P" + std::to_string(property), property % 2 == 0 ? "string" : "uint64");
  }
  const auto device = builder.Commit();
  for (std::size_t i = 0; i < instances; ++i) {
    const auto instance = device->NewInstance();
    instance->Set("ID", "device " + std::to_string(i));
    for (int property = 1; property < 9; ++property) {
      const std::string name = "P" + std::to_string(property);
      if (property % 2 == 0)
        instance->Set(name, "a value of middling length");
      else
        instance->Set(name, 1000ul * i);
    }
    device->AddInstance(instance);
  }
  return ns;
}

// Associations of two devices each.
NamespacePtr MakeLinks(std::size_t links) {
  const auto ns = TMemoryNamespace::Create("root/source");
  TClassBuilder(ns, "Device").Key("ID", "string").Commit();
  const auto link = TClassBuilder(ns, "Link")
                        .Qualifier("Association", true)
                        .KeyReference("From", "Device")
                        .KeyReference("To", "Device")
                        .Commit();
  for (std::size_t i = 0; i < links; ++i) {
    const auto instance = link->NewInstance();
    for (const char* const end : {"From", "To"}) {
      TCIMReference reference(ns, "Device", kNone);
      reference.AddKeyValue("ID", end + std::to_string(i));
      instance->Set(end, TCIMValue(reference));
    }
    link->AddInstance(instance);
  }
  return ns;
}

NamespacePtr MakeTarget() {
  return TMemoryNamespace::Create("root/target");
}

// The traversal, which passes on what it is given.

void BareQualifier(const QualifierPtr& qualifier, ICIMQualifiedElement& element,
                   const NamespacePtr& target) {
  const QualifierDeclPtr source = qualifier->GetQualifierDecl(kNone);
  QualifierDeclPtr decl = target->GetQualifierDecl(source->GetName(kNone), kNone);
  if (!decl) {
    const unsigned int flavor = source->GetFlavor(kNone);
    const unsigned int scope = source->GetScope(kNone);
    const TCIMValue& value = source->GetDefaultValue(kNone);
    decl = target->CreateQualifierDecl(source->GetName(kNone), value, scope, flavor, kNone);
    decl->Commit(kNone);
  }
  element.CreateQualifier(decl, qualifier->GetValue(kNone), kNone)->Commit(kNone);
}

void BareQualifiers(ICIMQualifiedElement& source, ICIMQualifiedElement& element,
                    const NamespacePtr& target) {
  source.EnumerateQualifiers(
      [&](QualifierPtr qualifier) {
        BareQualifier(qualifier, element, target);
        return true;
      },
      kNone);
}

template <typename Call>
bool Throws(const Call& call) {
  try {
    call();
    return false;
  } catch (const THWXException&) {
    return true;
  }
}

void BarePropertyDecl(const PropertyDeclPtr& source, const ClassPtr& newClass,
                      const NamespacePtr& target) {
  const std::string& name = source->GetName(kNone);
  if (!Throws([&] { newClass->GetPropertyDecl(name, kNone); }) &&
      Throws([&] { source->GetQualifier("OVERRIDE", kNone); })) {
    return;
  }
  const auto decl = newClass->CreatePropertyDecl(name, source->GetDefaultValue(kNone), kNone);
  BareQualifiers(*source, *decl, target);
  decl->Commit(kNone);
}

void BareClass(const ClassPtr& source, const NamespacePtr& target, bool associations) {
  if (source->IsAssociation(kNone) != associations) return;
  ClassPtr superclass;
  if (!source->IsRootClass(kNone)) {
    superclass = target->GetClass(source->GetSuperClass(kNone)->GetName(kNone), kNone);
  }
  const ClassPtr newClass = target->CreateClass(source->GetName(kNone), superclass, kNone);
  BareQualifiers(*source, *newClass, target);
  source->EnumeratePropertyDecls(
      [&](PropertyDeclPtr decl) {
        BarePropertyDecl(decl, newClass, target);
        return true;
      },
      kNone);
  source->EnumerateStaticProperties([](PropertyPtr) { return true; }, kNone);
  source->EnumerateMethodDecls([](boost::shared_ptr<ICIMMethodDecl>) { return true; }, kNone);
  newClass->Commit(kNone);
  benchmark::DoNotOptimize(source->GetQualifier("PLUGINNAME", kNone));
  if (!source->IsAbstract(kNone)) benchmark::DoNotOptimize(source->GetName(kNone).size());
}

void BareClasses(const NamespacePtr& source, const NamespacePtr& target) {
  source->EnumerateQualifierDecls(
      [&](QualifierDeclPtr decl) {
        const unsigned int flavor = decl->GetFlavor(kNone);
        const unsigned int scope = decl->GetScope(kNone);
        const TCIMValue& value = decl->GetDefaultValue(kNone);
        target->CreateQualifierDecl(decl->GetName(kNone), value, scope, flavor, kNone)
            ->Commit(kNone);
        return true;
      },
      kNone);
  for (const bool associations : {false, true}) {
    const auto copy = [&](ClassPtr newClass) {
      BareClass(newClass, target, associations);
      return true;
    };
    source->EnumerateClasses(
        [&](ClassPtr root) {
          copy(root);
          root->EnumerateSubClasses(copy, true, kNone);
          return true;
        },
        kNone);
  }
}

// What rewriting a reference asks of the target, for one key.
void BareReference(const TCIMValue& value, const NamespacePtr& target) {
  const ClassPtr sourceClass = value.GetReferencedClass();
  target->GetClass(sourceClass->GetName(kNone), kNone);
  const ClassPtr newClass = target->GetClass(sourceClass->GetName(kNone), kNone);
  benchmark::DoNotOptimize(newClass->GetPropertyDecl("ID", kNone)->GetType(kNone));
}

void BareInstance(const InstancePtr& source, const NamespacePtr& target) {
  const ClassPtr newClass = target->GetClass(source->GetClass(kNone)->GetName(kNone), kNone);
  const InstancePtr instance = newClass->CreateInstance(kNone);
  source->EnumerateProperties(
      [&](PropertyPtr property) {
        if (property->GetValue(kNone).IsNull()) return true;
        const TCIMValue& value = property->GetValue(kNone);
        if (value.IsReference()) BareReference(value, target);
        const std::string& name = property->GetPropertyDecl(kNone)->GetName(kNone);
        instance->SetPropertyValue(name, value, kNone);
        return true;
      },
      kNone);
  newClass->AddInstance(instance);
}

// The two, each on a target of its own.

struct Copier {
  static void Classes(const NamespacePtr& source, const NamespacePtr& target) {
    TCIMCopy::CopyClasses(source, target, true);
  }
  static void Instance(const InstancePtr& source, const NamespacePtr& target) {
    TCIMCopy::CopyInstance(source, target);
  }
};

struct Bare {
  static void Classes(const NamespacePtr& source, const NamespacePtr& target) {
    BareClasses(source, target);
  }
  static void Instance(const InstancePtr& source, const NamespacePtr& target) {
    BareInstance(source, target);
  }
};

template <typename Way>
NamespacePtr CopiedClasses(const NamespacePtr& source) {
  const NamespacePtr target = MakeTarget();
  Way::Classes(source, target);
  return target;
}

template <typename Way>
NamespacePtr CopiedInstances(const NamespacePtr& source, const std::string& className) {
  const NamespacePtr target = MakeTarget();
  BareClasses(source, target);
  source->GetClass(className, kNone)
      ->EnumerateInstances(
          [&](InstancePtr instance) {
            Way::Instance(instance, target);
            return true;
          },
          false, kNone);
  return target;
}

void CopyClasses(benchmark::State& state) {
  const NamespacePtr source = MakeSchema(static_cast<std::size_t>(state.range(0)));
  hwxbench::CompareWithBase(
      state, 5, [&] { return CopiedClasses<Copier>(source); },
      [&] { return CopiedClasses<Bare>(source); });
}
BENCHMARK(CopyClasses)->Arg(50)->Arg(500)->Arg(5000)->Iterations(1)->Unit(benchmark::kMillisecond);

void CopyInstances(benchmark::State& state) {
  const NamespacePtr source = MakeInstances(static_cast<std::size_t>(state.range(0)));
  hwxbench::CompareWithBase(
      state, 5, [&] { return CopiedInstances<Copier>(source, "Device"); },
      [&] { return CopiedInstances<Bare>(source, "Device"); });
}
BENCHMARK(CopyInstances)
    ->Arg(100)
    ->Arg(10000)
    ->Arg(100000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

void CopyLinks(benchmark::State& state) {
  const NamespacePtr source = MakeLinks(static_cast<std::size_t>(state.range(0)));
  hwxbench::CompareWithBase(
      state, 7, [&] { return CopiedInstances<Copier>(source, "Link"); },
      [&] { return CopiedInstances<Bare>(source, "Link"); });
}
BENCHMARK(CopyLinks)->Arg(1000)->Iterations(1)->Unit(benchmark::kMillisecond);

template <typename Way>
void ClassesExponent(benchmark::State& state) {
  hwxbench::FitExponent(state, {50, 100, 500, 1000, 5000}, 3, [](std::size_t count) {
    return [source = MakeSchema(count)] { return CopiedClasses<Way>(source); };
  });
}
BENCHMARK_TEMPLATE(ClassesExponent, Copier)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(ClassesExponent, Bare)->Iterations(1)->Unit(benchmark::kMillisecond);

template <typename Way>
void InstancesExponent(benchmark::State& state) {
  hwxbench::FitExponent(state, {100, 1000, 10000, 100000}, 3, [](std::size_t count) {
    return [source = MakeInstances(count)] { return CopiedInstances<Way>(source, "Device"); };
  });
}
BENCHMARK_TEMPLATE(InstancesExponent, Copier)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(InstancesExponent, Bare)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
