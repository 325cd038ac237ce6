// What a question about the machine's identity costs in process, on a namespace in memory.

#include <benchmark/benchmark.h>

#include <string>

#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryNamespace.h"

namespace {

using NQORHWX20::TCIMSchemaHelper;
using NQORHWX20::TMemoryNamespace;

using MemoryNamespacePtr = boost::shared_ptr<TMemoryNamespace>;

// One computer system, in a namespace of the size that a provider publishes.
MemoryNamespacePtr MakeNamespace(const std::string& productName) {
  const MemoryNamespacePtr ns = TMemoryNamespace::Create("root/cimv2", "plugin");
  const auto computerSystem = NQORHWX20::TClassBuilder(ns, "QORSG_ComputerSystem")
                                  .Key("Name", "string")
                                  .Property("ProductName", "string")
                                  .Property("SerialNumber", "string")
                                  .Property("Manufacturer", "string")
                                  .Commit();
  const auto instance = computerSystem->NewInstance();
  instance->Set("Name", "host").Set("ProductName", productName).Set("SerialNumber", "06DXM9");
  computerSystem->AddInstance(instance);

  const auto product = NQORHWX20::TClassBuilder(ns, "QORSG_HWXProduct")
                           .Key("Name", "string")
                           .Property("Version", "string")
                           .Commit();
  const auto version = product->NewInstance();
  version->Set("Name", "product").Set("Version", "12.3.4.567");
  product->AddInstance(version);
  return ns;
}

void MTM(benchmark::State& state, const std::string& productName) {
  const MemoryNamespacePtr ns = MakeNamespace(productName);
  for (auto _ : state)
    benchmark::DoNotOptimize(TCIMSchemaHelper::GetMTM(ns));
}
BENCHMARK_CAPTURE(MTM, fixed_form, "QOR eCorvex k3455-[7870A1B]");
BENCHMARK_CAPTURE(MTM, bracketed_form, "Rack server -[7870A1B]-");
BENCHMARK_CAPTURE(MTM, bare_form, "7870A1B");

void SystemName(benchmark::State& state) {
  const MemoryNamespacePtr ns = MakeNamespace("7870A1B");
  for (auto _ : state)
    benchmark::DoNotOptimize(TCIMSchemaHelper::GetSystemName(ns));
}
BENCHMARK(SystemName);

void SerialNumber(benchmark::State& state) {
  const MemoryNamespacePtr ns = MakeNamespace("7870A1B");
  for (auto _ : state)
    benchmark::DoNotOptimize(TCIMSchemaHelper::GetSerialNumber(ns, {}));
}
BENCHMARK(SerialNumber);

void DataSourceVersion(benchmark::State& state) {
  const MemoryNamespacePtr ns = MakeNamespace("7870A1B");
  for (auto _ : state)
    benchmark::DoNotOptimize(TCIMSchemaHelper::GetDataSourceVersion(ns, {}));
}
BENCHMARK(DataSourceVersion);

}  // namespace
