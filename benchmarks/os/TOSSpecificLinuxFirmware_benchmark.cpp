// The machine's identity from a dump of ordinary size: the machine type in this process, and the
// whole program beside dmidecode on the same dump.

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <numeric>
#include <string>
#include <vector>

#include "hwxcore/os/TOSSpecific.h"
#include "os/SideBySide.h"

namespace {

using Bytes = std::vector<unsigned char>;

const std::string kDump = "/tmp/hwx-benchmark.bin";
const char kDmidecode[] = "/usr/sbin/dmidecode";

void AddStructure(Bytes& table, int type, std::size_t formattedSize,
                  const std::vector<std::string>& strings) {
  const std::size_t start = table.size();
  table.resize(start + formattedSize);
  table[start] = static_cast<unsigned char>(type);
  table[start + 1] = static_cast<unsigned char>(formattedSize);
  // As many of the first fields as there are strings number them.
  for (std::size_t i = 0; i < strings.size(); ++i)
    table[start + 4 + i] = static_cast<unsigned char>(i + 1);
  for (const std::string& text : strings) {
    table.insert(table.end(), text.begin(), text.end());
    table.push_back(0);
  }
  table.insert(table.end(), strings.empty() ? 2 : 1, 0);
}

// A server with two processors and 24 memory modules.
Bytes Table() {
  const struct {
    int fCount;
    int fType;
    std::size_t fSize;
    std::vector<std::string> fStrings;
  } kinds[] = {
      {1, 0, 26, {"Example Systems", "-[A3E105A-1.05]-"}},
      {1, 1, 27, {"Example Systems", "Rack Server 3650 -[7915AC1]-", "07", "KQ12345"}},
      {1, 2, 15, {"Example Systems", "EX-3650-MB", "B02", "MB0098765"}},
      {1, 3, 22, {"Example Systems"}},
      {2, 4, 48, {"CPU"}},
      {6, 7, 27, {"L1 cache"}},
      {30, 8, 9, {"J1"}},
      {12, 9, 17, {"PCIe slot"}},
      {1, 16, 23, {}},
      {24, 17, 40, {}},
      {24, 20, 35, {}},
      {20, 26, 22, {"Voltage"}},
      {30, 41, 11, {"Ethernet"}},
      {1, 127, 4, {}},
  };
  Bytes table;
  for (const auto& kind : kinds)
    for (int i = 0; i < kind.fCount; ++i)
      AddStructure(table, kind.fType, kind.fSize, kind.fStrings);
  return table;
}

void WriteDump() {
  const Bytes table = Table();
  Bytes dump = {'_', 'S', 'M', '3', '_', 0, 24, 3, 2, 0, 1, 0};
  dump.resize(32);
  dump[12] = static_cast<unsigned char>(table.size());
  dump[13] = static_cast<unsigned char>(table.size() >> 8);
  dump[16] = 32;
  dump[5] = static_cast<unsigned char>(-std::accumulate(dump.begin(), dump.end(), 0));
  dump.insert(dump.end(), table.begin(), table.end());
  std::ofstream(kDump, std::ios::binary)
      .write(reinterpret_cast<const char*>(dump.data()), static_cast<std::streamsize>(dump.size()));
  ::setenv("HWX_SMBIOS_TABLES", kDump.c_str(), 1);
}

void RunProgram(std::vector<std::string> arguments) {
  std::vector<char*> pointers;
  for (std::string& argument : arguments)
    pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  int status = -1;
  if (::posix_spawn(&child, pointers[0], &actions, nullptr, pointers.data(), environ) != 0 ||
      ::waitpid(child, &status, 0) != child || status != 0) {
    std::abort();
  }
  ::posix_spawn_file_actions_destroy(&actions);
}

void MachineTypeFromDump(benchmark::State& state) {
  WriteDump();
  for (auto _ : state)
    if (NQORHWX20::TOSSpecific::GetMachineType() != "7915") std::abort();
}
BENCHMARK(MachineTypeFromDump)->Unit(benchmark::kMicrosecond);

void IdentityBesideDmidecode(benchmark::State& state) {
  if (::access(kDmidecode, X_OK) != 0) {
    state.SkipWithError("dmidecode is not installed");
    return;
  }
  WriteDump();
  hwxbench::Compare(
      state, 20, 10,
      [] {
        RunProgram({HWX_BENCHMARK_PROGRAM, "--firmware", kDump, "identity"});
      },
      [] {
        RunProgram({kDmidecode, "--from-dump", kDump});
      });
}
BENCHMARK(IdentityBesideDmidecode)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
