#include "smbios/TableReader.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <map>
#include <mutex>
#include <system_error>
#include <utility>

#include "hwxsys/RegularFile.h"

namespace smbios {

namespace {

// Tables take some kilobytes. The limit keeps a mistaken path from filling the memory.
constexpr std::size_t kSizeLimit = std::size_t{16} * 1024 * 1024;

// The tables that can't be had because of an error of the operating system on a path.
TTables Refused(const std::string& path, int error) {
  if (error == ENOENT || error == ENOTDIR) {
    return TTables::None(kSmBiosAbsent, (path.empty() ? "the empty path" : path) + " is absent");
  }
  if (error == EACCES || error == EPERM) {
    return TTables::None(kSmBiosNoPermission, path + " needs root");
  }
  return TTables::None(kSmBiosReadFailed, path + ": " + std::generic_category().message(error));
}

// Reads the file's bytes. Returns 0 or an error of the operating system.
int ReadBytes(const std::string& path, std::vector<std::uint8_t>& bytes) {
  std::string text;
  const int error = hwxsys::ReadRegularFile(path, kSizeLimit, text);
  bytes.assign(text.begin(), text.end());
  return error;
}

TTables ReadDirectory(const std::string& directory) {
  const std::string entryPointFile = directory + "/smbios_entry_point";
  const std::string tableFile = directory + "/DMI";
  std::vector<std::uint8_t> entryPoint;
  std::vector<std::uint8_t> table;
  if (const int error = ReadBytes(entryPointFile, entryPoint)) {
    return Refused(entryPointFile, error);
  }
  if (const int error = ReadBytes(tableFile, table)) {
    return Refused(tableFile, error);
  }
  return TTables::FromKernelFiles(entryPoint, std::move(table), directory);
}

TTables ReadDump(const std::string& path) {
  std::vector<std::uint8_t> dump;
  if (const int error = ReadBytes(path, dump)) {
    return Refused(path, error);
  }
  return TTables::FromDump(dump, path);
}

TTables ReadAnew(const std::string& location) {
  struct stat status {};
  if (::stat(location.c_str(), &status) != 0) {
    return Refused(location, errno);
  }
  return S_ISDIR(status.st_mode) ? ReadDirectory(location) : ReadDump(location);
}

// What was read while there are snapshots.
struct TKeptTables {
  std::mutex fMutex;
  int fSnapshots = 0;
  std::map<std::string, TTables> fTables;  // by location
};

// Never destroyed: providers may read until the very end.
TKeptTables& Kept() {
  static TKeptTables& kept = *new TKeptTables;
  return kept;
}

}  // namespace

std::string TablesLocation(const std::string& root) {
  const char* location = std::getenv("HWX_SMBIOS_TABLES");
  return location != nullptr ? std::string(location) : root + "/sys/firmware/dmi/tables";
}

TTables ReadTables(const std::string& location) {
  TKeptTables& kept = Kept();
  std::unique_lock<std::mutex> lock(kept.fMutex);
  if (kept.fSnapshots == 0) {
    lock.unlock();
    return ReadAnew(location);
  }
  const auto found = kept.fTables.find(location);
  if (found != kept.fTables.end()) {
    return found->second;
  }
  return kept.fTables.emplace(location, ReadAnew(location)).first->second;
}

TSnapshot::TSnapshot() {
  const std::lock_guard<std::mutex> lock(Kept().fMutex);
  ++Kept().fSnapshots;
}

TSnapshot::~TSnapshot() {
  const std::lock_guard<std::mutex> lock(Kept().fMutex);
  if (--Kept().fSnapshots == 0) {
    Kept().fTables.clear();
  }
}

std::string WhyUnsound(const TTables& tables, const std::string& location) {
  switch (tables.Status()) {
    case kSmBiosOK:
      return std::string();
    case kSmBiosAbsent:
      return "no firmware tables: " + tables.Reason();
    case kSmBiosNoPermission:
      return "needs root: " + location + " can't be read";
    case kSmBiosMalformed:
      return "malformed: " + tables.Reason();
    default:
      return "unreadable: " + tables.Reason();
  }
}

}  // namespace smbios
