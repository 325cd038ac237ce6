#include "hwxcore/diagnostics/TConfig.h"

#include <cstdlib>
#include <exception>
#include <fstream>

#include "hwxcore/diagnostics/detail/ConfigLines.h"
#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/os/TOSSpecific.h"

namespace NQORHWX20 {

namespace {

const char kDirectory[] = "/dct/";
const char kFileName[] = "dct.cfg";
const char kMapIsEmpty[] = "TConfig::getValue(): map is empty";

// A plain failure isn't logged; the stream's state tells it. Contract: config-unopened-is-silent.
void Open(std::ifstream& file, const std::string& path) {
  try {
    file.open(path);
  } catch (const std::exception&) {
    detail::LogError("TConfig::parseConfigFile(): Open config file " + path + " failed");
    file.setstate(std::ios::failbit);  // however far the opening got
  }
}

}  // namespace

TConfig* TConfig::cfgInstance = nullptr;

TConfig* TConfig::GetInstance() {
  if (!cfgInstance) cfgInstance = new TConfig;
  return cfgInstance;
}

TConfig::TConfig() : cfgFilePath(TOSSpecific::GetHWXRootPath() + kDirectory + kFileName) {
  detail::LogStatus("Config file path:" + cfgFilePath);  // Contract: config-path-line.
  parseConfigFile();  // a missing file still gives a usable, empty configuration
}

// An instance takes the singleton with it, and the singleton would take itself, without end.
TConfig::~TConfig() {
  if (cfgInstance) std::abort();
}

std::string TConfig::getValue(const std::string& key) const {
  if (cfgMap.empty()) {
    detail::LogError(kMapIsEmpty);
    return "";
  }
  const auto entry = cfgMap.find(key);
  if (entry == cfgMap.end()) {
    detail::LogError("TConfig::getValue(): key not found");  // Contract: config-absent-is-error.
    return "";
  }
  detail::LogDebug("TConfig::getValue(): key ", key, " found, value is ", entry->second);
  return entry->second;
}

std::vector<std::string> TConfig::listKeys() const {
  if (cfgMap.empty()) detail::LogError(kMapIsEmpty);  // Contract: config-list-in-foreign-name.
  std::vector<std::string> keys;
  keys.reserve(cfgMap.size());
  for (const auto& entry : cfgMap)
    keys.push_back(entry.first);
  return keys;
}

bool TConfig::parseConfigFile() {
  detail::LogDebug("TConfig::parseConfigFile(): start to parse config file");
  if (cfgFilePath.empty()) return false;
  // Contract: config-empty-is-missing.
  if (!TOSSpecific::FileExists(cfgFilePath) || TOSSpecific::GetFileSize(cfgFilePath) == 0) {
    detail::LogError("TConfig::parseConfigFile(): config file doesn't exist");
    return false;
  }
  std::ifstream file;
  Open(file, cfgFilePath);
  if (file.fail()) return false;
  detail::ReadConfigLines(file, cfgMap);
  return true;
}

}  // namespace NQORHWX20
