// Keys and values of any configuration file.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "hwxcore/diagnostics/detail/ConfigLines.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using TEntries = std::map<std::string, std::string>;

void Require(bool condition) {
  if (!condition) std::abort();
}

TEntries Read(const std::string& text) {
  TEntries entries;
  std::istringstream stream(text);
  NQORHWX20::detail::ReadConfigLines(stream, entries);
  return entries;
}

// An entry stands in the text as a line of its own. It is not a comment, and has two sides.
void CheckEntry(const std::string& lines, const std::string& key, const std::string& value) {
  Require(!key.empty() && !value.empty());
  Require(key.front() != '#');
  const bool isSplit = lines.find("\n" + key + "=" + value + "\n") != std::string::npos;
  const bool isWhole = key == value && lines.find("\n" + key + "\n") != std::string::npos;
  Require(isSplit || isWhole);
  Require(key.find_first_of("=\n") == std::string::npos);
  Require(value.find('\n') == std::string::npos);
}

// The same file in its plainest form, which reads as the file did.
std::string PlainText(const TEntries& entries) {
  std::string text;
  for (const auto& entry : entries)
    text += entry.first + "=" + entry.second + "\n";
  return text;
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  std::vector<Bytes> seeds;
  for (const std::string text :
       {"a=1\nb=2\n", "# comment\nkey = value # none\r\n", "a=b=c\na=d\n=\n=x\ny=\n\nz",
        "==\n a\n\ta=\t\n#=\n #=1", "\r\n\r\na\r=b\r\n"}) {
    seeds.emplace_back(text.begin(), text.end());
  }
  return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const std::string lines = "\n" + text + "\n";
  const TEntries entries = Read(text);
  for (const auto& entry : entries)
    CheckEntry(lines, entry.first, entry.second);
  Require(Read(PlainText(entries)) == entries);
  Require(Read(text + "\n" + text) == entries);
  return 0;
}
