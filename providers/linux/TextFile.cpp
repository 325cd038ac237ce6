#include "providers/linux/TextFile.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <memory>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "hwxsys/RegularFile.h"
#include "hwxsys/SystemRoot.h"
#include "hwxsys/Words.h"

namespace linux_machine {

namespace {

constexpr std::size_t kAttributeSizeLimit = 4096;  // the kernel's own, on the smallest pages

std::optional<std::uint64_t> ParseDigits(std::string_view text, int base) {
  std::uint64_t number = 0;
  const char* end = text.data() + text.size();
  const std::from_chars_result result = std::from_chars(text.data(), end, number, base);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<std::string> ReadFile(const std::string& path, std::size_t limit) {
  std::string bytes;
  const bool isRead = hwxsys::ReadRegularFile(hwxsys::FollowedInRoot(path), limit, bytes) == 0;
  return isRead ? std::optional(std::move(bytes)) : std::nullopt;
}

std::string ReadList(const std::string& path, std::size_t limit) {
  std::string bytes;
  const int error = hwxsys::ReadRegularFile(hwxsys::FollowedInRoot(path), limit, bytes);
  if (error == EFBIG) {
    throw std::runtime_error(path + " has more than " + std::to_string(limit) + " bytes");
  }
  return error == 0 ? bytes : std::string();
}

std::optional<std::string> ReadAttribute(const std::string& path) {
  const std::optional<std::string> bytes = ReadFile(path, kAttributeSizeLimit);
  if (!bytes) {
    return std::nullopt;
  }
  std::string value = CutAtNul(*bytes);
  if (!value.empty() && value.back() == '\n') {
    value.pop_back();
  }
  return value;
}

std::optional<std::uint64_t> ReadNumber(const std::string& path) {
  const std::optional<std::string> value = ReadAttribute(path);
  return value ? ParseNumber(*value) : std::nullopt;
}

std::vector<std::string> ListDirectory(const std::string& path) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> directory(
      ::opendir(hwxsys::FollowedInRoot(path).c_str()), &::closedir);
  if (!directory) {
    return names;
  }
  while (const dirent* entry = ::readdir(directory.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") {
      names.emplace_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool Exists(const std::string& path) {
  const std::size_t name = path.rfind('/') + 1;  // the last name is looked at, not followed
  struct stat status {};
  return ::lstat((hwxsys::FollowedInRoot(path.substr(0, name)) + "/" + path.substr(name)).c_str(),
                 &status) == 0;
}

std::string CutAtNul(std::string_view text) {
  return std::string(text.substr(0, text.find('\0')));
}

std::string WithoutTrailingBlanks(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));  // npos + 1 is 0
}

std::optional<std::string> ReadTrimmed(const std::string& path) {
  const std::string value = ReadAttribute(path).value_or(std::string());
  const std::string_view trimmed = hwxsys::Trimmed(value, " ");
  return trimmed.empty() ? std::nullopt : std::optional(std::string(trimmed));
}

std::optional<std::uint64_t> ParseNumber(std::string_view text) {
  return ParseDigits(text, 10);
}

std::optional<std::uint64_t> ParseHex(std::string_view text) {
  text.remove_prefix(text.substr(0, 2) == "0x" ? 2 : 0);
  return ParseDigits(text, 16);
}

std::optional<std::uint64_t> Multiply(std::optional<std::uint64_t> left,
                                      std::optional<std::uint64_t> right) {
  std::uint64_t product = 0;
  const bool isKnown = left && right && !__builtin_mul_overflow(*left, *right, &product);
  return isKnown ? std::optional(product) : std::nullopt;
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
  const bool found = text.substr(0, prefix.size()) == prefix;
  text.remove_prefix(found ? prefix.size() : 0);
  return found;
}

std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

}  // namespace linux_machine
