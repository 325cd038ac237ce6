#include "hwx/media/MountTable.h"

#include <algorithm>
#include <cctype>

namespace hwx {

namespace {

bool IsDigit(char character) {
  return std::isdigit(static_cast<unsigned char>(character)) != 0;
}

}  // namespace

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
