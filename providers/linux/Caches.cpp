#include "providers/linux/Caches.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

constexpr std::size_t kMostNumbers = 1000000;
constexpr std::uint64_t kLastLevel = 3;  // that CIM has a number for

enum ELevel : std::uint16_t { kUnknownLevel = 0, kOtherLevel = 1 };  // the first is 3
enum EType : std::uint16_t { kOtherType = 1, kInstruction = 2, kData = 3, kUnified = 4 };
enum EPolicy : std::uint16_t { kWriteBack = 2, kWriteThrough = 3 };
enum EAssociativity : std::uint16_t { kOtherWays = 1, kDirectMapped = 2, kFullyAssociative = 5 };

// Ways and the numbers of CIM.
constexpr std::pair<std::uint64_t, std::uint16_t> kWays[] = {
    {1, kDirectMapped}, {2, 3},  {4, 4},   {8, 6},   {12, 8},  {16, 7},
    {20, 13},           {24, 9}, {32, 10}, {48, 11}, {64, 12},
};

struct TKind {
  const char* fWord;  // the kernel's
  EType fType;
  const char* fName;
};
constexpr TKind kKinds[] = {
    {"Data", kData, "Data Cache"},
    {"Instruction", kInstruction, "Instruction Cache"},
    {"Unified", kUnified, "Cache"},
};

std::string ReadText(const std::string& path) {
  return ReadTrimmed(path).value_or(std::string());
}

std::uint16_t LevelNumber(std::uint64_t level) {
  if (level > kLastLevel) {
    return kOtherLevel;
  }
  return level == 0 ? std::uint16_t{kUnknownLevel} : static_cast<std::uint16_t>(level + 2);
}

void SetKind(const std::string& directory, TCache& cache) {
  const std::uint64_t level = ReadNumber(directory + "/level").value_or(0);
  const std::string name = "L" + std::to_string(level);
  cache.fLevel = LevelNumber(level);
  if (level > kLastLevel) {
    cache.fLevelName = name;
  }
  cache.fType = kOtherType;
  cache.fName = name + " Cache";
  for (const TKind& kind : kKinds) {
    if (ReadText(directory + "/type") == kind.fWord) {
      cache.fType = kind.fType;
      cache.fName = name + " " + kind.fName;
    }
  }
}

void SetAssociativity(const std::string& directory, TCache& cache) {
  const auto ways = ReadNumber(directory + "/ways_of_associativity");
  if (!ways) {
    return;
  }
  if (*ways == 0) {  // the kernel's way to say that a line may stand anywhere
    cache.fAssociativity = kFullyAssociative;
    return;
  }
  const auto known = std::find_if(std::begin(kWays), std::end(kWays),
                                  [&ways](const auto& entry) { return entry.first == *ways; });
  cache.fAssociativity = known == std::end(kWays) ? std::uint16_t{kOtherWays} : known->second;
  if (known == std::end(kWays)) {
    cache.fAssociativityName = std::to_string(*ways) + "-way Set-Associative";
  }
}

TCache ReadCache(const std::string& directory) {
  TCache cache;
  SetKind(directory, cache);
  SetAssociativity(directory, cache);
  const std::string policy = ReadText(directory + "/write_policy");
  if (policy == "WriteBack" || policy == "WriteThrough") {
    cache.fWritePolicy = policy == "WriteBack" ? kWriteBack : kWriteThrough;
  }
  cache.fLineSize = Narrow<std::uint32_t>(ReadNumber(directory + "/coherency_line_size"));
  cache.fSize = ParseCacheSize(ReadText(directory + "/size"));
  return cache;
}

// Who shares a cache: cores and processors by the numbers of their threads.
class TSharers {
 public:
  explicit TSharers(const TProcessorParts& parts) {
    for (const THardwareThread& thread : parts.fThreads) {
      fThreads.emplace(thread.fNumber, &thread);
      fThreadsOfProcessor[thread.fProcessor].insert(thread.fNumber);
    }
  }

  // Whole processors where the cache serves nothing but such, else cores.
  void AddTo(const std::vector<std::uint64_t>& numbers, TCache& cache) const {
    std::set<std::string> cores;
    std::map<std::string, std::size_t> processors;
    for (const std::uint64_t number : numbers) {
      const auto thread = fThreads.find(number);
      if (thread != fThreads.end()) {
        cores.insert(thread->second->fCore);
        ++processors[thread->second->fProcessor];
      }
    }
    const bool areWhole =
        cores.size() > 1 &&
        std::all_of(processors.begin(), processors.end(), [this](const auto& processor) {
          return fThreadsOfProcessor.at(processor.first).size() == processor.second;
        });
    if (!areWhole) {
      cache.fCores.assign(cores.begin(), cores.end());
      return;
    }
    for (const auto& processor : processors) {
      cache.fProcessors.push_back(processor.first);
    }
  }

 private:
  std::map<std::uint64_t, const THardwareThread*> fThreads;
  std::map<std::string, std::set<std::uint64_t>> fThreadsOfProcessor;
};

}  // namespace

std::optional<std::uint64_t> ParseCacheSize(std::string_view text) {
  std::uint64_t unit = 1;
  if (!text.empty() && (text.back() == 'K' || text.back() == 'M')) {
    unit = text.back() == 'K' ? 1024 : 1024 * 1024;
    text.remove_suffix(1);
  }
  return Multiply(ParseNumber(text), unit);
}

std::vector<std::uint64_t> ParseNumberList(std::string_view text) {
  std::vector<std::uint64_t> numbers;
  while (!text.empty()) {
    const std::string_view part = text.substr(0, text.find(','));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    const std::size_t dash = part.find('-');
    const auto first = ParseNumber(part.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : ParseNumber(part.substr(dash + 1));
    if (!first || !last || *last < *first || *last - *first >= kMostNumbers - numbers.size()) {
      return {};
    }
    for (std::uint64_t number = *first; number <= *last; ++number) {
      numbers.push_back(number);
    }
  }
  return numbers;
}

std::vector<TCache> ReadCaches(const std::string& root) {
  const TProcessorParts parts = ReadProcessorParts(root);
  const TSharers sharers(parts);
  std::vector<TCache> caches;
  std::set<std::string> seen;
  std::map<std::string, std::size_t> counts;
  for (const THardwareThread& thread : parts.fThreads) {
    const std::string directory = root + "/sys/devices/system/cpu/" + thread.fName + "/cache/";
    for (const std::string& name : ListDirectory(directory)) {
      const std::string index = directory + name;
      const auto sharing = ReadTrimmed(index + "/shared_cpu_list");
      if (!sharing || !seen.insert(name + " " + *sharing).second) {
        continue;
      }
      TCache cache = ReadCache(index);
      cache.fDeviceID = cache.fName + " " + std::to_string(counts[cache.fName]++);
      sharers.AddTo(ParseNumberList(*sharing), cache);
      caches.push_back(std::move(cache));
    }
  }
  return caches;
}

}  // namespace linux_machine
