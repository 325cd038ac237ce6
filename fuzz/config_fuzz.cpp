// Keys and values of any configuration file.

#include <cstddef>
#include <cstdint>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "Require.h"
#include "hwxcore/diagnostics/detail/ConfigLines.h"

namespace {

using fuzz::Require;
using Bytes = std::vector<std::uint8_t>;
using TEntries = std::map<std::string, std::string>;

TEntries Read(const std::string& text) {
  TEntries entries;
  std::istringstream stream(text);
  NQORHWX20::detail::ReadConfigLines(stream, entries);
  return entries;
}

// What the file means, line by line.
TEntries Expected(const std::string& text) {
  TEntries entries;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.empty() || line[0] == '#') continue;
    const std::size_t sign = line.find('=');
    const bool isWhole = sign == std::string::npos;
    const std::string key = isWhole ? line : line.substr(0, sign);
    const std::string value = isWhole ? line : line.substr(sign + 1);
    if (!key.empty() && !value.empty()) entries.emplace(key, value);
  }
  return entries;
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
  const TEntries entries = Read(text);
  Require(entries == Expected(text));
  Require(Read(PlainText(entries)) == entries);
  Require(Read(text + "\n" + text) == entries);
  return 0;
}
