// Bounded reading of the files and directories in which the kernel and the distribution tell about
// the machine. What is read is taken for anything: too large, binary, a directory, absent. Links
// are followed within the tree that `HWX_SYSROOT` names, if it names one.
// Thread-safety: no state is kept. The environment is read, which no thread may change meanwhile.

#ifndef PROVIDERS_LINUX_TEXTFILE_H
#define PROVIDERS_LINUX_TEXTFILE_H

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linux_machine {

/// Bytes that a file may have, where its kind sets no narrower limit.
constexpr std::size_t kFileSizeLimit = std::size_t{4} * 1024 * 1024;

/// Bytes that a file may have in which the kernel lists what there is: ten times what it takes for
/// 8,192 processors.
constexpr std::size_t kListSizeLimit = std::size_t{256} * 1024 * 1024;

/// The bytes of a regular file. None when it can't be opened or read, is something other than a
/// regular file, or holds more than `limit` bytes: part of a file is never passed off as the whole.
std::optional<std::string> ReadFile(const std::string& path, std::size_t limit = kFileSizeLimit);

/// The bytes of a file that lists things; no bytes when it can't be read. Throws
/// `std::runtime_error` for more than `limit` bytes: who asks for a list must hear that there is
/// more than was read.
std::string ReadList(const std::string& path, std::size_t limit = kListSizeLimit);

/// The value in a file that holds one, as those of /sys and /proc/sys do: at most a page, without
/// the newline at its end, cut at the first NUL byte. Blanks stay, as do bytes of whatever
/// encoding.
std::optional<std::string> ReadAttribute(const std::string& path);

/// The number in such a file; none when something else stands there.
std::optional<std::uint64_t> ReadNumber(const std::string& path);

/// Names in a directory, sorted by bytes; none when it can't be read.
std::vector<std::string> ListDirectory(const std::string& path);

/// Whether something is there, be it a link that leads nowhere.
bool Exists(const std::string& path);

/// The text up to the first NUL byte.
std::string CutAtNul(std::string_view text);

/// The text without the blanks at its end.
std::string WithoutTrailingBlanks(std::string_view text);

/// A value as `ReadAttribute` gives it, without the blanks at both ends; none when nothing is left.
std::optional<std::string> ReadTrimmed(const std::string& path);

/// The decimal number that the text is, whole and without a sign. None for anything else, and for a
/// number of more than 64 bits.
std::optional<std::uint64_t> ParseNumber(std::string_view text);

/// The same of a hexadecimal number, with "0x" in front or without.
std::optional<std::uint64_t> ParseHex(std::string_view text);

/// The number as a narrower type; none when it doesn't fit.
template <typename Number>
std::optional<Number> Narrow(std::optional<std::uint64_t> number) {
  if (!number || *number > std::numeric_limits<Number>::max()) {
    return std::nullopt;
  }
  return static_cast<Number>(*number);
}

/// The product; none when either is, or when it doesn't fit.
std::optional<std::uint64_t> Multiply(std::optional<std::uint64_t> left,
                                      std::optional<std::uint64_t> right);

/// Takes `prefix` off the front of `text` if it stands there, and returns whether it did.
bool TakePrefix(std::string_view& text, std::string_view prefix);

/// Takes the first line off `text` and returns it, without its newline.
std::string_view TakeLine(std::string_view& text);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_TEXTFILE_H
