#ifndef HWXTESTS_SUPPORT_TIMEZONEFILE_H
#define HWXTESTS_SUPPORT_TIMEZONEFILE_H

#include <cstdint>
#include <string>

namespace hwxtest {

/// The bytes of an /etc/localtime without changes of the past: one type of local time, an hour
/// ahead of UTC, and `rules` for all times, such as "EST5".
inline std::string TimeZoneFile(const std::string& rules) {
  using namespace std::string_literals;
  const auto number = [](std::uint32_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) {
      bytes += static_cast<char>(value >> shift);
    }
    return bytes;
  };
  std::string block = "TZif2"s + std::string(15, '\0');
  for (const std::uint32_t count : {0u, 0u, 0u, 0u, 1u, 4u}) {
    block += number(count);
  }
  block += number(3600) + "\0\0CET\0"s;
  return block + block + "\n" + rules + "\n";
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_TIMEZONEFILE_H
