#include "providers/linux/TextFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <system_error>

namespace linux_machine {

namespace {

constexpr std::size_t kAttributeSizeLimit = 4096;  // the kernel's own, on the smallest pages

class TDescriptor {
 public:
  // Not blocking, since a pipe may stand in the file's place.
  explicit TDescriptor(const std::string& path)
      : fDescriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  TDescriptor(const TDescriptor&) = delete;
  TDescriptor& operator=(const TDescriptor&) = delete;
  ~TDescriptor() {
    if (fDescriptor >= 0) {
      ::close(fDescriptor);
    }
  }
  int Get() const { return fDescriptor; }

 private:
  int fDescriptor;
};

bool IsRegularFile(const TDescriptor& file) {
  struct stat status {};
  return file.Get() >= 0 && ::fstat(file.Get(), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

std::optional<std::string> ReadFile(const std::string& path, std::size_t limit) {
  const TDescriptor file(path);
  if (!IsRegularFile(file)) {
    return std::nullopt;
  }
  std::string bytes;
  char block[4096];  // files of /proc and /sys don't tell their size beforehand
  for (;;) {
    const ssize_t count = ::read(file.Get(), block, sizeof block);
    if (count == 0) {
      return bytes;
    }
    if (count < 0 || bytes.size() + static_cast<std::size_t>(count) > limit) {
      return std::nullopt;
    }
    bytes.append(block, static_cast<std::size_t>(count));
  }
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
  std::error_code error;
  for (std::filesystem::directory_iterator entry(path, error), end; !error && entry != end;
       entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string CutAtNul(std::string_view text) {
  return std::string(text.substr(0, text.find('\0')));
}

std::string WithoutTrailingBlanks(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));  // npos + 1 is 0
}

std::optional<std::uint64_t> ParseNumber(std::string_view text) {
  std::uint64_t number = 0;
  const char* end = text.data() + text.size();
  const std::from_chars_result result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

}  // namespace linux_machine
