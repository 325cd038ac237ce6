// The plain main of every fuzzer: replays files, then runs inputs from a seeded generator.
//
//     NAME_fuzz [--runs N] [--seed S] [FILE...]
//
// The same seed gives the same inputs. The input that ends the process is kept in the current
// directory, as crash-S-RUN, for replay.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Well-formed inputs, for the generator to damage.
std::vector<Bytes> FuzzSeeds();

// There under the sanitizers only.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizers' own name
extern "C" [[gnu::weak]] void __sanitizer_set_death_callback(void (*callback)());

namespace {

struct Options {
  std::uint64_t runs = 100000;
  std::uint64_t seed = 1;
  std::vector<std::string> files;
};

Bytes gInput;                   // what is being run
char gCrashFile[64] = "crash";  // where it is kept if it ends the process

// Called in a process that is about to end: system calls only.
void KeepInput() {
  const int file = ::open(gCrashFile, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (file < 0 || ::write(file, gInput.data(), gInput.size()) < 0) return;
  ::close(file);
  static const char kNote[] = "the input is kept in a file crash-SEED-RUN\n";
  if (::write(STDERR_FILENO, kNote, sizeof kNote - 1) < 0) return;
}

void OnSignal(int signal) {
  KeepInput();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void KeepInputOnDeath() {
  std::signal(SIGABRT, OnSignal);
  if (__sanitizer_set_death_callback != nullptr) {
    __sanitizer_set_death_callback(KeepInput);  // the sanitizers handle the other signals
  } else {
    std::signal(SIGSEGV, OnSignal);
    std::signal(SIGBUS, OnSignal);
    std::signal(SIGFPE, OnSignal);
  }
}

class Generator {
 public:
  Generator(std::uint64_t seed, std::vector<Bytes> seeds)
      : fEngine(seed), fSeeds(std::move(seeds)) {}

  /// Random bytes, or a seed with a few changes.
  Bytes Next() {
    if (fSeeds.empty() || Below(4) == 0) return RandomBytes();
    Bytes bytes = fSeeds[Below(fSeeds.size())];
    for (std::size_t changes = Below(6); changes > 0; --changes)
      Change(bytes);
    return bytes;
  }

 private:
  std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(fEngine() % limit); }

  std::uint8_t Byte() {
    static constexpr std::uint8_t kTelling[] = {0, 1, 3, 4, 0x7F, 0x80, 0xFE, 0xFF};
    return Below(2) == 0 ? kTelling[Below(std::size(kTelling))]
                         : static_cast<std::uint8_t>(Below(256));
  }

  // Mostly short; half of them text, since most parsers leave early at anything else.
  Bytes RandomBytes() {
    Bytes bytes(Below(Below(8) == 0 ? 4096 : 64));
    const bool text = Below(2) == 0;
    for (std::uint8_t& byte : bytes) {
      byte = text ? static_cast<std::uint8_t>(' ' + Below(95)) : Byte();
    }
    return bytes;
  }

  void Change(Bytes& bytes) {
    const std::size_t at = Below(bytes.size() + 1);
    const std::size_t count = std::min(Below(16), bytes.size() - at);
    const auto place = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    const Bytes range(place, place + static_cast<std::ptrdiff_t>(count));
    switch (Below(6)) {
      case 0:
        bytes.resize(at);
        break;
      case 1:
        bytes.erase(place, place + static_cast<std::ptrdiff_t>(count));
        break;
      case 2:
        bytes.insert(place, range.begin(), range.end());
        break;
      case 3:
        bytes.insert(place, Byte());
        break;
      case 4:
        std::fill_n(place, count, Byte());
        break;
      default:
        if (at < bytes.size()) bytes[at] = Byte();
    }
  }

  std::mt19937_64 fEngine;
  const std::vector<Bytes> fSeeds;
};

bool Replay(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  gInput.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  if (!file.is_open() || file.bad()) {
    std::fprintf(stderr, "can't read %s\n", path.c_str());
    return false;
  }
  LLVMFuzzerTestOneInput(gInput.data(), gInput.size());
  return true;
}

void Run(const Options& options) {
  Generator generator(options.seed, FuzzSeeds());
  for (std::uint64_t run = 0; run < options.runs; ++run) {
    gInput = generator.Next();
    std::snprintf(gCrashFile, sizeof gCrashFile, "crash-%ju-%ju",
                  static_cast<std::uintmax_t>(options.seed), static_cast<std::uintmax_t>(run));
    LLVMFuzzerTestOneInput(gInput.data(), gInput.size());
  }
}

bool ParseNumber(const char* text, std::uint64_t& number) {
  char* end = nullptr;
  number = text != nullptr ? std::strtoull(text, &end, 10) : 0;
  return end != nullptr && end != text && *end == '\0';
}

bool ParseOptions(char** argument, Options& options) {
  for (; *argument != nullptr; ++argument) {
    const std::string text = *argument;
    if (text == "--runs" || text == "--seed") {
      ++argument;
      if (!ParseNumber(*argument, text == "--runs" ? options.runs : options.seed)) return false;
    } else if (text.rfind("--", 0) == 0) {
      return false;
    } else {
      options.files.push_back(text);
    }
  }
  return true;
}

}  // namespace

int main(int, char** arguments) {
  Options options;
  if (!ParseOptions(arguments + 1, options)) {
    std::fprintf(stderr, "usage: %s [--runs N] [--seed S] [FILE...]\n", arguments[0]);
    return 2;
  }
  KeepInputOnDeath();
  if (!std::all_of(options.files.begin(), options.files.end(), Replay)) return 2;
  Run(options);
  std::printf("%zu files, %ju runs from seed %ju: nothing found\n", options.files.size(),
              static_cast<std::uintmax_t>(options.runs), static_cast<std::uintmax_t>(options.seed));
  return 0;
}
