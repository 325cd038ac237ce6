#include "NetworkInterfaces.h"

#include <filesystem>
#include <fstream>

namespace {

std::optional<std::string> ReadLine(const std::filesystem::path& file) {
  std::ifstream stream(file);
  std::string line;
  if (!std::getline(stream, line) || line.empty()) return std::nullopt;
  return line;
}

std::optional<unsigned int> ReadNumber(const std::filesystem::path& file) {
  std::ifstream stream(file);
  unsigned int number = 0;
  if (!(stream >> number)) return std::nullopt;
  return number;
}

}  // namespace

std::vector<TNetworkInterface> ReadNetworkInterfaces() {
  std::vector<TNetworkInterface> interfaces;
  std::error_code none;  // no such directory: no interfaces
  for (const auto& entry : std::filesystem::directory_iterator("/sys/class/net", none)) {
    // Beside the interfaces there may be files, such as bonding_masters.
    if (!entry.is_directory(none)) continue;
    interfaces.push_back({entry.path().filename(), ReadLine(entry.path() / "address"),
                          ReadNumber(entry.path() / "mtu")});
  }
  return interfaces;
}
