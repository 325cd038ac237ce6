#include "hwx/media/MountTable.h"

#include <algorithm>
#include <cctype>
#include <sstream>

#include "hwxcore/os/TOSSpecific.h"

namespace hwx {

namespace {

bool IsOctal(char character) {
  return character >= '0' && character <= '7';
}

bool IsDigit(char character) {
  return std::isdigit(static_cast<unsigned char>(character)) != 0;
}

// The kernel writes blanks, tabs, line feeds and backslashes as a backslash and three octal digits.
std::string Unescaped(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isEscape = text[i] == '\\' && i + 3 < text.size() &&
                          std::all_of(&text[i + 1], &text[i + 3] + 1, &IsOctal);
    plain += isEscape ? static_cast<char>(std::stoi(text.substr(i + 1, 3), nullptr, 8)) : text[i];
    if (isEscape) i += 3;
  }
  return plain;
}

}  // namespace

std::vector<TMount> ParseMounts(const std::string& text) {
  std::vector<TMount> mounts;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string source;
    std::string mountPoint;
    if (words >> source >> mountPoint) mounts.push_back({Unescaped(source), Unescaped(mountPoint)});
  }
  return mounts;
}

std::vector<TMount> ReadMounts() {
  return ParseMounts(NQORHWX20::TOSSpecific::CaptureFile("/proc/self/mounts"));
}

bool IsOfDevice(const std::string& source, const std::string& device) {
  if (device.empty() || source.compare(0, device.size(), device) != 0) return false;
  std::string rest = source.substr(device.size());
  if (rest.empty()) return true;
  // A name that ends in a digit has a "p" between itself and the partition's number.
  if (IsDigit(device.back())) {
    if (rest.front() != 'p') return false;
    rest.erase(0, 1);
  }
  return !rest.empty() && std::all_of(rest.begin(), rest.end(), &IsDigit);
}

std::vector<std::string> MountPointsOf(const std::string& device,
                                       const std::vector<TMount>& mounts) {
  std::vector<std::string> points;
  for (const TMount& mount : mounts) {
    if (IsOfDevice(mount.fSource, device)) points.push_back(mount.fMountPoint);
  }
  return points;
}

std::string SourceAt(const std::string& mountPoint, const std::vector<TMount>& mounts) {
  const auto found =
      std::find_if(mounts.rbegin(), mounts.rend(),
                   [&mountPoint](const TMount& mount) { return mount.fMountPoint == mountPoint; });
  return found == mounts.rend() ? std::string() : found->fSource;
}

}  // namespace hwx
