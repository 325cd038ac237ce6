// Object paths on a namespace in memory: reading beside the least that could be done with the text,
// a split into a map of strings that asks the provider the same questions; printing; ordering.

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

#include "Measure.h"
#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TMemoryNamespace.h"

namespace {

using namespace NQORHWX20;

using NamespacePtr = boost::shared_ptr<ICIMNamespace>;

std::string KeyName(std::size_t index) {
  const std::string digits = std::to_string(index);
  return "Key" + std::string(5 - digits.size(), '0') + digits;
}

// A class "Thing" with that many string keys.
NamespacePtr MakeNamespace(std::size_t keys) {
  const auto ns = TMemoryNamespace::Create("root/bench");
  TClassBuilder builder(ns, "Thing");
  for (std::size_t i = 0; i < keys; ++i)
    builder.Key(KeyName(i), "string");
  builder.Commit();
  return ns;
}

std::string MakePath(std::size_t keys, const std::string& quotedValue) {
  std::string path = "root:Thing";
  for (std::size_t i = 0; i < keys; ++i) {
    path += (i == 0 ? "." : ",") + KeyName(i) + "=\"" + quotedValue + "\"";
  }
  return path;
}

// The plain split of a well-formed path.
std::map<std::string, std::string> Split(const NamespacePtr& ns, const std::string& path) {
  const std::size_t colon = path.find(':');
  std::size_t position = path.find('.', colon);
  const auto thing = ns->GetClass(path.substr(colon + 1, position - colon - 1), TCIMContext());
  std::map<std::string, std::string> keys;
  while (position < path.size()) {
    const std::size_t equals = path.find('=', position);
    const std::string name = path.substr(position + 1, equals - position - 1);
    const auto decl = thing->GetPropertyDecl(name, TCIMContext());
    benchmark::DoNotOptimize(decl->GetDefaultValue(TCIMContext()).IsReference());
    std::string text;
    for (position = equals + 2; path[position] != '"'; ++position) {
      if (path[position] == '\\') ++position;
      text += path[position];
    }
    benchmark::DoNotOptimize(decl->GetType(TCIMContext()));
    const auto again = thing->GetPropertyDecl(name, TCIMContext());
    benchmark::DoNotOptimize(again->GetType(TCIMContext()));
    keys.emplace(name, text);
    ++position;
  }
  return keys;
}

void ParsePath(benchmark::State& state) {
  const auto keys = static_cast<std::size_t>(state.range(0));
  const NamespacePtr ns = MakeNamespace(keys);
  const std::string path = MakePath(keys, "a value of middling length");
  hwxbench::CompareWithBase(
      state, 200, [&] { return TCIMReference(ns, path, TCIMContext()); },
      [&] { return Split(ns, path); });
}
BENCHMARK(ParsePath)->Arg(1)->Arg(5)->Arg(50)->Iterations(1);

void ParsePathKeys(benchmark::State& state) {
  hwxbench::FitExponent(state, {10, 30, 100, 300, 1000, 3000, 10000}, 20, [](std::size_t keys) {
    return [ns = MakeNamespace(keys), path = MakePath(keys, "value")] {
      return TCIMReference(ns, path, TCIMContext());
    };
  });
}
BENCHMARK(ParsePathKeys)->Iterations(1)->Unit(benchmark::kMillisecond);

void ParsePathValueLength(benchmark::State& state, const std::string& character) {
  hwxbench::FitExponent(state, {1000, 10000, 100000, 1000000, 10000000}, 20,
                        [&](std::size_t length) {
                          std::string value;
                          while (value.size() < length)
                            value += character;
                          return [ns = MakeNamespace(1), path = MakePath(1, value)] {
                            return TCIMReference(ns, path, TCIMContext());
                          };
                        });
}
BENCHMARK_CAPTURE(ParsePathValueLength, plain, "v")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ParsePathValueLength, escaped, "\\\\")
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

// References within references.
NamespacePtr MakeNestingNamespace() {
  const auto ns = TMemoryNamespace::Create("root/bench");
  TClassBuilder(ns, "Thing").Key("Name", "string").Commit();
  TClassBuilder(ns, "Link").KeyReference("To", "Thing").Commit();
  return ns;
}

std::string MakeNestedPath(std::size_t depth) {
  std::string path = "r:Thing.Name=\"name\"";
  for (std::size_t i = 0; i < depth; ++i)
    path = "r:Link.To=\"" + path + "\"";
  return path;
}

void ParsePathNesting(benchmark::State& state) {
  hwxbench::FitExponent(state, {5, 10, 20, 40, 80, 160}, 50, [](std::size_t depth) {
    return [ns = MakeNestingNamespace(), path = MakeNestedPath(depth)] {
      return TCIMReference(ns, path, TCIMContext());
    };
  });
}
BENCHMARK(ParsePathNesting)->Iterations(1)->Unit(benchmark::kMillisecond);

void GetPathNesting(benchmark::State& state) {
  hwxbench::FitExponent(state, {5, 10, 20, 40, 80, 160}, 50, [](std::size_t depth) {
    const NamespacePtr ns = MakeNestingNamespace();
    return [ns, reference = TCIMReference(ns, MakeNestedPath(depth), TCIMContext())] {
      return reference.GetPath();
    };
  });
}
BENCHMARK(GetPathNesting)->Iterations(1)->Unit(benchmark::kMillisecond);

void GetPathKeys(benchmark::State& state) {
  hwxbench::FitExponent(state, {10, 30, 100, 300, 1000, 3000, 10000}, 20, [](std::size_t keys) {
    const NamespacePtr ns = MakeNamespace(keys);
    return [ns, reference = TCIMReference(ns, MakePath(keys, "value"), TCIMContext())] {
      return reference.GetPath();
    };
  });
}
BENCHMARK(GetPathKeys)->Iterations(1)->Unit(benchmark::kMillisecond);

void GetPathAllEscaped(benchmark::State& state) {
  hwxbench::FitExponent(state, {1000, 10000, 100000, 1000000, 10000000}, 20,
                        [](std::size_t length) {
                          const NamespacePtr ns = MakeNamespace(1);
                          TCIMReference reference(ns, "Thing", TCIMContext());
                          reference.AddKeyValue(KeyName(0), TCIMValue(std::string(length, '"')));
                          return [ns, reference] { return reference.GetPath(); };
                        });
}
BENCHMARK(GetPathAllEscaped)->Iterations(1)->Unit(benchmark::kMillisecond);

void GetPath(benchmark::State& state) {
  const auto keys = static_cast<std::size_t>(state.range(0));
  const NamespacePtr ns = MakeNamespace(keys);
  const TCIMReference reference(ns, MakePath(keys, "a value of middling length"), TCIMContext());
  for (auto _ : state)
    benchmark::DoNotOptimize(reference.GetPath());
}
BENCHMARK(GetPath)->Arg(1)->Arg(5)->Arg(50);

// Two references that differ in the last of their keys alone.
void Less(benchmark::State& state) {
  const auto keys = static_cast<std::size_t>(state.range(0));
  const NamespacePtr ns = MakeNamespace(keys);
  const std::string common = MakePath(keys - 1, "a value of middling length");
  const std::string last = (keys == 1 ? "." : ",") + KeyName(keys - 1);
  const TCIMReference one(ns, common + last + "=\"1\"", TCIMContext());
  const TCIMReference other(ns, common + last + "=\"2\"", TCIMContext());
  for (auto _ : state)
    benchmark::DoNotOptimize(one < other);
}
BENCHMARK(Less)->Arg(1)->Arg(5)->Arg(50);

void Equal(benchmark::State& state) {
  const auto keys = static_cast<std::size_t>(state.range(0));
  const NamespacePtr ns = MakeNamespace(keys);
  const TCIMReference one(ns, MakePath(keys, "a value of middling length"), TCIMContext());
  const TCIMReference other(one);
  for (auto _ : state)
    benchmark::DoNotOptimize(one == other);
}
BENCHMARK(Equal)->Arg(1)->Arg(5)->Arg(50);

void CopyReference(benchmark::State& state) {
  const auto keys = static_cast<std::size_t>(state.range(0));
  const NamespacePtr ns = MakeNamespace(keys);
  const TCIMReference reference(ns, MakePath(keys, "a value of middling length"), TCIMContext());
  for (auto _ : state)
    benchmark::DoNotOptimize(TCIMReference(reference));
}
BENCHMARK(CopyReference)->Arg(1)->Arg(5)->Arg(50);

}  // namespace
