#include "providers/linux/CpuInfo.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>
#include <map>
#include <utility>

#include "providers/linux/ProcessorNames.h"
#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

std::string_view WithoutBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  return text.substr(0, text.find_last_not_of(" \t\r") + 1);
}

std::string InLowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return lower;
}

// The fields of a paragraph by their names in lower case; the first of a name counts.
struct TParagraph {
  std::vector<std::uint64_t> fNumbers;  // of the processors that it is about
  std::map<std::string, std::string_view> fFields;
};

// "processor" bears a number, or on older ARM machines a name.
void TakeField(std::string_view line, std::size_t colon, TParagraph& paragraph) {
  const std::string name = InLowerCase(WithoutBlanks(line.substr(0, colon)));
  const std::string_view value = WithoutBlanks(line.substr(colon + 1));
  const auto number = ParseNumber(value);
  if (number && (name == "processor" || name == "cpu number")) {
    paragraph.fNumbers.push_back(*number);
  } else {
    paragraph.fFields.emplace(name, value);
  }
}

TParagraph TakeParagraph(std::string_view& text) {
  TParagraph paragraph;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    const std::size_t colon = line.find(':');
    if (colon != std::string_view::npos) {
      TakeField(line, colon, paragraph);
    } else if (WithoutBlanks(line).empty()) {
      break;
    }
  }
  return paragraph;
}

// What is said of a processor: in its own paragraph, else in one that is of all.
class TFacts {
 public:
  TFacts(const TParagraph& own, const TParagraph& shared) : fOwn(own), fShared(shared) {}

  // The first of several names that a kernel for this or that architecture uses.
  std::optional<std::string> Of(std::initializer_list<const char*> names) const {
    for (const TParagraph* paragraph : {&fOwn, &fShared}) {
      for (const char* name : names) {
        const auto field = paragraph->fFields.find(name);
        if (field != paragraph->fFields.end() && !field->second.empty()) {
          return CutAtNul(field->second);
        }
      }
    }
    return std::nullopt;
  }

 private:
  const TParagraph& fOwn;
  const TParagraph& fShared;
};

// "2499.998", also with "MHz" behind it; the fraction is dropped.
std::optional<std::uint32_t> ParseMegaHertz(const std::optional<std::string>& text) {
  return text ? Narrow<std::uint32_t>(ParseNumber(text->substr(0, text->find('.')))) : std::nullopt;
}

// The 46 of "46 bits physical, 48 bits virtual".
std::optional<std::uint16_t> ParseAddressWidth(const std::optional<std::string>& text) {
  return text ? Narrow<std::uint16_t>(ParseNumber(text->substr(0, text->find(' ')))) : std::nullopt;
}

// Whether the names of features, between blanks, hold that of the 64-bit mode of x86.
bool HasLongMode(const TFacts& facts) {
  const std::string flags = " " + facts.Of({"flags"}).value_or(std::string()) + " ";
  return flags.find(" lm ") != std::string::npos;
}

// The number of a maker or part, "0x41".
std::optional<std::uint64_t> HexOf(const TFacts& facts, const char* name) {
  return ParseHex(facts.Of({name}).value_or(std::string()));
}

// On SPARC the clock stands by the processor's number, in Hz as a hexadecimal number.
std::optional<std::uint32_t> ClockTick(const TFacts& facts, std::uint64_t number) {
  const std::string name = "cpu" + std::to_string(number) + "clktck";
  const auto hertz = HexOf(facts, name.c_str());
  return hertz ? Narrow<std::uint32_t>(*hertz / 1000000) : std::nullopt;
}

// "r3p1", as the maker of ARM counts variants and revisions.
std::optional<std::string> ArmStepping(const TFacts& facts) {
  const auto variant = HexOf(facts, "cpu variant");
  const auto revision = ParseNumber(facts.Of({"cpu revision"}).value_or(std::string()));
  return variant && revision
             ? std::optional("r" + std::to_string(*variant) + "p" + std::to_string(*revision))
             : std::nullopt;
}

// An IBM mainframe tells its type in a line "processor 0: version = FF, ..., machine = 3906", or in
// a field of each processor's.
std::optional<std::string> MainframeName(const TFacts& facts) {
  const auto type = facts.Of({"machine"});
  if (type) {
    return "Machine type " + *type;
  }
  const std::string line = facts.Of({"processor 0"}).value_or(std::string());
  const std::size_t place = line.find("machine = ");
  return place == std::string::npos ? std::nullopt
                                    : std::optional("Machine type " + line.substr(place + 10));
}

std::optional<std::string> ModelName(const TFacts& facts) {
  const auto maker = HexOf(facts, "cpu implementer");
  const auto part = HexOf(facts, "cpu part");
  if (maker && part) {
    if (const char* name = ArmPartName(*maker, *part)) {
      return name;
    }
  }
  const auto name = facts.Of({"model name", "cpu model", "cpu", "processor", "uarch", "isa"});
  return !name && facts.Of({"vendor_id"}) == "IBM/S390" ? MainframeName(facts) : name;
}

std::optional<std::string> Vendor(const TFacts& facts, const std::optional<std::string>& name) {
  if (auto vendor = facts.Of({"vendor_id"})) {
    return vendor;
  }
  if (const auto maker = HexOf(facts, "cpu implementer")) {
    const char* known = ArmMaker(*maker);
    return known == nullptr ? std::nullopt : std::optional<std::string>(known);
  }
  const std::string microarchitecture = facts.Of({"uarch"}).value_or(std::string());
  const std::size_t comma = microarchitecture.find(',');  // "sifive,u74-mc"
  if (comma != std::string::npos) {
    return microarchitecture.substr(0, comma);
  }
  const char* known = name ? MakerByName(*name) : nullptr;
  return known == nullptr ? std::nullopt : std::optional<std::string>(known);
}

TLogicalProcessor MakeProcessor(std::uint64_t number, const TFacts& facts) {
  TLogicalProcessor logical;
  logical.fNumber = number;
  logical.fPackage = facts.Of({"physical id", "package"}).value_or("0");
  logical.fCore = facts.Of({"core id", "core"}).value_or("processor " + std::to_string(number));
  logical.fModelName = ModelName(facts);
  logical.fVendor = Vendor(facts, logical.fModelName);
  logical.fStepping = ArmStepping(facts);
  if (!logical.fStepping) {
    logical.fStepping = facts.Of({"stepping", "cpu revision"});
  }
  logical.fMegaHertz = ParseMegaHertz(facts.Of({"cpu mhz", "cpu mhz dynamic", "clock"}));
  if (!logical.fMegaHertz) {
    logical.fMegaHertz = ClockTick(facts, number);
  }
  logical.fMaxMegaHertz = ParseMegaHertz(facts.Of({"cpu mhz static"}));
  logical.fAddressWidth = ParseAddressWidth(facts.Of({"address sizes"}));
  logical.fIs64Bit = HasLongMode(facts);
  return logical;
}

}  // namespace

TCpuInfo ParseCpuInfo(std::string_view text) {
  std::vector<TParagraph> paragraphs;
  TParagraph shared;
  while (!text.empty()) {
    TParagraph paragraph = TakeParagraph(text);
    if (paragraph.fNumbers.empty()) {
      shared.fFields.insert(paragraph.fFields.begin(), paragraph.fFields.end());
    } else {
      paragraphs.push_back(std::move(paragraph));
    }
  }
  TCpuInfo info;
  for (const TParagraph& paragraph : paragraphs) {
    for (const std::uint64_t number : paragraph.fNumbers) {
      info.fProcessors.push_back(MakeProcessor(number, TFacts(paragraph, shared)));
    }
  }
  info.fShared = MakeProcessor(0, TFacts(shared, shared));
  return info;
}

}  // namespace linux_machine
