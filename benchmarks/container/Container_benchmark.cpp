// Saving and loading a container with many instances of ten properties, as bytes in memory, plain
// and compressed; beside it the bare making of the same instances, and pugixml taking the document
// in whole. Says how many bytes an instance takes, kept in memory and in the document, and how many
// more bytes than those kept loading needs at its peak.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdint>
#include <fstream>
#include <pugixml.hpp>
#include <string>

#include "hwxcore/value/TCIMDateTime.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/Reader.h"
#include "providers/container/Writer.h"

namespace {

using namespace container;
using NQORHWX20::TMemoryNamespace;
using TNamespace = boost::shared_ptr<TMemoryNamespace>;

// Bytes that are allocated at the moment.
double Allocated() {
  const auto info = ::mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

// Forgets the largest size that the process has had so far.
void ForgetPeak() {
  ::malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << 5;
}

// A field of /proc/self/status that is a size, in bytes.
double StatusBytes(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string field; status >> field;) {
    double kibibytes = 0;
    if (field == name && status >> kibibytes) return kibibytes * 1024;
  }
  return 0;
}

TNamespace MakeNamespace(std::int64_t count) {
  const TNamespace ns = TMemoryNamespace::Create("root/many");
  const auto disk = NQORHWX20::TClassBuilder(ns, "EX_Disk")
                        .Key("DeviceID", "string")
                        .Property("Caption", "string")
                        .Property("Description", "string")
                        .Property("Size", "uint64")
                        .Property("BlockSize", "uint32")
                        .Property("Slot", "uint16")
                        .Property("Removable", "boolean")
                        .Property("Temperature", "real32")
                        .Property("InstallDate", "datetime")
                        .Property("Capabilities", "string[]")
                        .Commit();
  for (std::int64_t i = 0; i < count; ++i) {
    const auto instance = disk->NewInstance();
    instance->Set("DeviceID", "disk" + std::to_string(i))
        .Set("Caption", std::string("A disk of this machine"))
        .Set("Description", std::string("An example of a disk that somebody describes"))
        .Set("Size", static_cast<unsigned long>(i) << 30)
        .Set("BlockSize", 4096U)
        .Set("Slot", static_cast<unsigned short>(i % 24))
        .Set("Removable", i % 2 == 0)
        .Set("Temperature", 36.5F)
        .Set("InstallDate", NQORHWX20::TCIMDateTime(2007, 1, 2, 3, 4, 5, 6, 60));
    disk->AddInstance(instance);
  }
  return ns;
}

std::string Save(TMemoryNamespace& ns) {
  TStringSink sink;
  WriteContainer(ns, sink, "bench.xml");
  return sink.Bytes();
}

TNamespace Load(const std::string& document) {
  TMemorySource source(document);
  return ReadContainer(source, "bench.xml");
}

void SetCounters(benchmark::State& state, const std::string& document) {
  state.SetComplexityN(state.range(0));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
  state.counters["document_bytes_per_instance"] =
      static_cast<double>(document.size()) / static_cast<double>(state.range(0));
}

void Sizes(benchmark::internal::Benchmark* run) {
  run->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity();
}

void MakeInstances(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(MakeNamespace(state.range(0)));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(MakeInstances)->Apply(Sizes);

void SaveContainer(benchmark::State& state) {
  const TNamespace ns = MakeNamespace(state.range(0));
  std::string document;
  for (auto _ : state)
    document = Save(*ns);
  SetCounters(state, document);
}
BENCHMARK(SaveContainer)->Apply(Sizes);

void LoadContainer(benchmark::State& state) {
  const std::string document = Save(*MakeNamespace(state.range(0)));
  for (auto _ : state)
    benchmark::DoNotOptimize(Load(document));
  SetCounters(state, document);
  const auto count = static_cast<double>(state.range(0));
  ForgetPeak();
  const double before = Allocated();
  const TNamespace kept = Load(document);
  state.counters["kept_bytes_per_instance"] = (Allocated() - before) / count;
  state.counters["bytes_beside_those_kept"] = StatusBytes("VmHWM:") - StatusBytes("VmRSS:");
}
BENCHMARK(LoadContainer)->Apply(Sizes);

void ParseDocumentWhole(benchmark::State& state) {
  const std::string document = Save(*MakeNamespace(state.range(0)));
  for (auto _ : state) {
    pugi::xml_document parsed;
    benchmark::DoNotOptimize(parsed.load_buffer(document.data(), document.size()));
  }
  SetCounters(state, document);
  ForgetPeak();
  const double before = Allocated();
  pugi::xml_document parsed;
  parsed.load_buffer(document.data(), document.size());
  state.counters["kept_bytes_per_instance"] =
      (Allocated() - before) / static_cast<double>(state.range(0));
}
BENCHMARK(ParseDocumentWhole)->Apply(Sizes);

void SaveCompressed(benchmark::State& state) {
  const TNamespace ns = MakeNamespace(state.range(0));
  for (auto _ : state) {
    TStringSink sink;
    TGzipSink compressed(sink);
    WriteContainer(*ns, compressed, "bench.xml.gz");
    compressed.Finish();
    benchmark::DoNotOptimize(sink.Bytes().data());
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(SaveCompressed)->Apply(Sizes);

void LoadCompressed(benchmark::State& state) {
  TStringSink sink;
  TGzipSink compressed(sink);
  WriteContainer(*MakeNamespace(state.range(0)), compressed, "bench.xml.gz");
  compressed.Finish();
  for (auto _ : state) {
    TMemorySource source(sink.Bytes());
    TGunzipSource expanded(source, "bench.xml.gz");
    benchmark::DoNotOptimize(ReadContainer(expanded, "bench.xml.gz"));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(LoadCompressed)->Apply(Sizes);

}  // namespace
