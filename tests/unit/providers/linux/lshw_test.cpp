// What lshw finds on this machine, beside what the provider publishes, where both must agree.

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>

#include "unit/providers/linux/ProviderFixture.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using nlohmann::json;

std::string OutputOf(const char* command) {
  std::string output;
  FILE* pipe = ::popen(command, "r");
  if (pipe == nullptr) return output;
  char block[4096];
  while (const std::size_t count = std::fread(block, 1, sizeof block, pipe)) {
    output.append(block, count);
  }
  ::pclose(pipe);
  return output;
}

// The nodes of the tree, one after the other.
void Flatten(const json& node, std::vector<json>& nodes) {
  if (node.is_array()) {
    for (const json& one : node) {
      Flatten(one, nodes);
    }
    return;
  }
  nodes.push_back(node);
  Flatten(node.value("children", json::array()), nodes);
}

// A node may have one name or several.
std::vector<std::string> LogicalNames(const json& node) {
  const json names = node.value("logicalname", json::array());
  return names.is_array() ? names.get<std::vector<std::string>>()
                          : std::vector<std::string>{names.get<std::string>()};
}

class LshwComparison : public ProviderTest {
 protected:
  void SetUp() override {
    if (OutputOf("command -v lshw").empty()) GTEST_SKIP() << "SKIPPED: lshw is not installed";
    ProviderTest::SetUp();
    fRoot.Set(std::nullopt);
    const json tree = json::parse(OutputOf("lshw -quiet -json 2>/dev/null"), nullptr, false);
    ASSERT_FALSE(tree.is_discarded()) << "lshw printed no JSON";
    Flatten(tree, fNodes);
  }

  std::vector<json> Nodes(const std::string& nodeClass) {
    std::vector<json> found;
    for (const json& node : fNodes) {
      if (node.value("class", "") == nodeClass && !node.value("disabled", false)) {
        found.push_back(node);
      }
    }
    return found;
  }

  // A number of each instance, by the text of its key.
  std::map<std::string, unsigned long> Numbers(const char* className, const char* key,
                                               const char* property) {
    std::map<std::string, unsigned long> numbers;
    for (const auto& instance : List(className)) {
      const TCIMValue value = Value(instance, property);
      if (!value.IsNull()) {
        numbers[Value(instance, key).ToString(10)] = value;
      }
    }
    return numbers;
  }

  unsigned long Sum(const char* className, const char* key, const char* property) {
    unsigned long sum = 0;
    for (const auto& [name, number] : Numbers(className, key, property)) {
      sum += number;
    }
    return sum;
  }

  std::vector<json> fNodes;
};

TEST_F(LshwComparison, SameSizeOfMemory) {
  unsigned long theirs = 0;
  for (const json& node : Nodes("memory")) {
    const std::string description = node.value("description", "");
    if (description == "System memory" || description == "System Memory") {
      theirs += node.value("size", 0UL);
    }
  }
  if (theirs == 0) GTEST_SKIP() << "SKIPPED: lshw tells no size here";
  const unsigned long modules = Sum("CIM_PhysicalMemory", "Tag", "Capacity");
  const char* const memory = "System Memory";  // beside the caches
  const unsigned long blocks = Numbers("CIM_Memory", "DeviceID", "NumberOfBlocks")[memory] *
                               Numbers("CIM_Memory", "DeviceID", "BlockSize")[memory];
  EXPECT_EQ(modules != 0 ? modules : blocks, theirs);
}

TEST_F(LshwComparison, SameNumberOfProcessorsAndCores) {
  const std::vector<json> processors = Nodes("processor");
  EXPECT_EQ(List("CIM_Processor").size(), processors.size());
  unsigned long cores = 0;
  for (const json& node : processors) {
    const json configuration = node.value("configuration", json::object());
    if (!configuration.contains("enabledcores")) return;  // only firmware tells it lshw
    cores += std::stoul(configuration["enabledcores"].get<std::string>());
  }
  EXPECT_EQ(Sum("CIM_Processor", "DeviceID", "NumberOfEnabledCores"), cores);
}

TEST_F(LshwComparison, SameAddressesOfPorts) {
  std::map<std::string, std::string> ours;
  for (const auto& port : List("CIM_EthernetPort")) {
    const TCIMValue value = Value(port, "NetworkAddresses");
    if (!value.IsNull()) {
      const std::vector<TCIMValue>& addresses = value;
      ours[Value(port, "DeviceID").ToString(10)] = addresses.at(0).ToString(10);
    }
  }
  std::size_t compared = 0;
  for (const json& node : Nodes("network")) {
    std::string address = node.value("serial", "");
    address.erase(std::remove(address.begin(), address.end(), ':'), address.end());
    for (char& c : address) {
      c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    for (const std::string& name : LogicalNames(node)) {
      // Addresses of other lengths are of no Ethernet ports, and a port may have names besides.
      if (address.size() == 12 && std::filesystem::exists("/sys/class/net/" + name)) {
        EXPECT_EQ(ours[name], address) << name;
        ++compared;
      }
    }
  }
  if (compared == 0) GTEST_SKIP() << "SKIPPED: lshw finds no port here";
}

TEST_F(LshwComparison, SameDisksOfTheSameSizes) {
  const auto ours = Numbers("CIM_DiskDrive", "DeviceID", "Size");
  std::size_t compared = 0;
  for (const json& node : Nodes("disk")) {
    if (node.value("id", "").rfind("cdrom", 0) == 0) {
      continue;
    }
    for (const std::string& path : LogicalNames(node)) {
      const std::string name = std::filesystem::path(path).filename();
      if (path != "/dev/" + name || !std::filesystem::exists("/sys/block/" + name)) {
        continue;  // a place where it is mounted, or another device of the same disk
      }
      ++compared;
      ASSERT_EQ(ours.count(path), 1u) << path;
      if (node.contains("size")) {
        EXPECT_EQ(ours.at(path), node["size"].get<unsigned long>()) << path;
      }
    }
  }
  if (compared == 0) GTEST_SKIP() << "SKIPPED: lshw finds no disk here";
}

}  // namespace

}  // namespace hwxtest
