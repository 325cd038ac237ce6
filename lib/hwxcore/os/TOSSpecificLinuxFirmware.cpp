#include "hwxcore/os/TOSSpecific.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <new>
#include <optional>
#include <stdexcept>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxidentity/BiosBuilds.h"
#include "smbios/smbios.h"

namespace NQORHWX20 {

using detail::LogDebug;
using detail::LogError;

namespace {

const char kDefaultType[] = "0000";
const char kDefaultBiosID[] = "00";
const char kUnknownValue[] = "Unknown";

// Where the fields stand in a structure. They are read wherever the formatted area ends: in a
// shorter one, the strings or the zeros behind them stand there.
constexpr std::size_t kFormattedSizeField = 1;
constexpr std::size_t kBiosVersionField = 5;
constexpr std::size_t kProductNameField = 5;
constexpr std::size_t kSerialNumberField = 7;

constexpr int kBiosInformation = 0;
constexpr int kSystemInformation = 1;
constexpr int kBiosBufferSize = 4096;
constexpr int kSystemBufferSize = 1024;
constexpr int kBiosStringsSize = 100;  // Contract: version-within-100-bytes.

// Why the tables can't be opened, as `operation` tells it; missing if they can.
std::optional<std::string> OpenTables(const char* operation, void*& handle) {
  const int code = ::smBiosLoad(nullptr, &handle).code;  // Contract: firmware-read-anew.
  if (code == kSmBiosOK) return std::nullopt;
  return operation + (": Unable to open SMBIOS lib error = " + std::to_string(code));
}

std::size_t Field(const char* structure, std::size_t offset) {
  return static_cast<unsigned char>(structure[offset]);
}

// `std::string::substr`, whose own check adds numbers to the text of the error.
std::string PieceOf(const std::string& text, std::size_t start, std::size_t length) {
  if (start > text.size()) throw std::out_of_range("basic_string::substr");
  return text.substr(start, length);
}

// The strings of the type 1 structure, by the fields that number them.
class TSystemStrings {
 public:
  // `structure` is the buffer, of which `length` bytes were filled.
  TSystemStrings(char* structure, std::size_t length)
      : fProductName(Field(structure, kProductNameField)),
        fSerialNumber(Field(structure, kSerialNumberField)) {
    const std::size_t formattedSize = Field(structure, kFormattedSizeField);
    if (formattedSize > length) return;
    fStrings = TOSSpecific::multiStringTok(structure + formattedSize, length - formattedSize, '\0');
  }

  // Null if there is none, or none of its number.
  const std::string* ProductName() const {
    const bool isThere = fProductName != 0 && fProductName <= fStrings.size();
    return isThere ? &fStrings[fProductName - 1] : nullptr;
  }

  bool HasSerialNumber() const { return fSerialNumber != 0; }

  const std::string& SerialNumber() const {
    // Contract: serial-past-strings-throws.
    if (fSerialNumber > fStrings.size()) throw std::out_of_range("vector::_M_range_check");
    return fStrings[fSerialNumber - 1];
  }

 private:
  std::size_t fProductName;
  std::size_t fSerialNumber;
  std::vector<std::string> fStrings;
};

// Reads the type 1 structure into a zeroed buffer and hands its strings to `use`. False if there is
// no such structure.
template <typename Use>
bool UseSystemStrings(void* handle, char* buffer, Use use) {
  int length = kSystemBufferSize;
  const int code = ::smBiosGetFirst(handle, kSystemInformation, buffer, &length).code;
  if (code != kSmBiosOK || length <= 0) return false;
  use(TSystemStrings(buffer, static_cast<std::size_t>(std::min(length, kSystemBufferSize))));
  return true;
}

// The read that GetMachineType and GetMachineInfo have in common, with its log lines. `type` is
// what `use` finds, for the last of them. False if the tables can't be opened. An exception of
// `use` leaves the buffer and the handle unreleased.
//
// Contract: firmware-left-open, load-failure-ends, one-name-for-two-reads.
template <typename Use>
bool ReadSystem(const std::string& type, Use use) {
  void* handle = nullptr;
  if (const auto failure = OpenTables("getMachineType", handle)) {
    LogError(*failure);
    return false;
  }
  char* const buffer = handle ? new (std::nothrow) char[kSystemBufferSize]() : nullptr;
  if (!handle) {
    LogDebug("Unable to read machine type from SMBIOS. Invalid Handle was encountered.");
  } else if (!buffer) {
    LogDebug("Unable to allocate memory to hold machineType");
  } else if (!UseSystemStrings(handle, buffer, use)) {
    LogDebug("Unable to read DMI structure type 1 from SMBIOS");
  } else {
    LogDebug("Machine type detected: ", type);  // Contract: default-detected.
  }
  delete[] buffer;
  ::smBiosClose(&handle);
  LogDebug("getMachineType() completed.");
  return true;
}

// The machine type in a product name without a "-", `type` if there is none.
std::string BareType(const std::string& productName, const std::string& type) {
  constexpr std::size_t kTypeAndModelSize = 7;
  return productName.size() == kTypeAndModelSize ? productName.substr(0, 4) : type;
}

std::string TypeIn(const std::string& productName, const std::string& type) {
  const std::size_t dash = productName.find('-');
  if (dash == std::string::npos) return BareType(productName, type);
  return PieceOf(productName, dash + 2, 4);  // Contract: type-two-behind-dash.
}

struct TMachineInfo {
  std::string fType = kDefaultType;
  std::string fName = kUnknownValue;
  std::string fModel = kUnknownValue;
  std::string fSerialNumber = kUnknownValue;
};

// Contract: eight-lines.
void LogProduct(const std::string& productName, const TMachineInfo& info) {
  LogDebug("GetMachineInfo productDesc");
  LogDebug(productName);
  LogDebug("GetMachineInfo machineName");
  LogDebug(info.fName);
  LogDebug("GetMachineInfo machineType");
  LogDebug(info.fType);
  LogDebug("GetMachineInfo machineModel");
  LogDebug(info.fModel);
}

void TakeProductName(const std::string& productName, TMachineInfo& info) {
  const std::size_t dash = productName.find('-');
  if (dash == std::string::npos) {
    info.fType = BareType(productName, info.fType);
    return;
  }
  info.fName = productName.substr(0, dash);  // Contract: name-keeps-its-blank.
  info.fType = PieceOf(productName, dash + 2, 4);
  info.fModel = PieceOf(productName, dash + 6, 3);
  LogProduct(productName, info);
}

// Without a product name there is no serial number either. Contract: no-name-no-serial.
void TakeStrings(const TSystemStrings& strings, TMachineInfo& info) {
  const std::string* const productName = strings.ProductName();
  if (!productName) return;
  TakeProductName(*productName, info);
  if (strings.HasSerialNumber()) info.fSerialNumber = strings.SerialNumber();
}

// A handle for the tables, given back at the end.
class TOpenTables {
 public:
  explicit TOpenTables(void* handle) : fHandle(handle) {}
  ~TOpenTables() { ::smBiosClose(&fHandle); }
  TOpenTables(const TOpenTables&) = delete;
  TOpenTables& operator=(const TOpenTables&) = delete;
  void* Handle() const { return fHandle; }

 private:
  void* fHandle;
};

// The BIOS version, without its brackets; empty if the structure numbers no string, or one that
// isn't found. Missing if the handle is null or there is no structure. `prefix` begins the log
// lines.
std::optional<std::string> ReadBiosVersion(void* handle, const char* prefix) {
  if (!handle) return std::nullopt;
  std::vector<char> buffer(kBiosBufferSize);
  int length = kBiosBufferSize;
  LogDebug(prefix, "Retrieving first SMBIOS structure");
  const int code = ::smBiosGetFirst(handle, kBiosInformation, buffer.data(), &length).code;
  if (code == kSmBiosNoStructure) {
    LogDebug(prefix, "read all smbios structures available for type 0");
    return std::nullopt;
  }
  // Contract: failed-read-goes-on.
  if (code == kSmBiosReadFailed) LogDebug(prefix, "smbios read operation failed! ");
  char strings[kBiosStringsSize];
  char version[kBiosStringsSize] = {};
  std::memcpy(strings, buffer.data() + Field(buffer.data(), kFormattedSizeField), sizeof strings);
  TOSSpecific::getBIDString(strings, version, kBiosStringsSize,
                            static_cast<int>(Field(buffer.data(), kBiosVersionField)));
  std::string text = version;
  TOSSpecific::removeNonAlpaNumeric(text);
  return text;
}

// What lies in front of the version's number, whole.
std::string BuildOf(std::string version) {
  std::string build = version;
  TOSSpecific::breakApartVersion(version, build);
  return build;
}

// The first two characters in lower case; empty if there aren't two.
std::string BuildCode(const std::string& build) {
  if (build.size() < 2) return std::string();
  std::string code = build.substr(0, 2);
  for (char& c : code)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return code;
}

}  // namespace

std::string TOSSpecific::GetMachineType() {
  LogDebug("getMachineType() entered.");
  std::string type = kDefaultType;
  ReadSystem(type, [&](const TSystemStrings& strings) {
    if (const std::string* const name = strings.ProductName()) type = TypeIn(*name, type);
  });
  return type;
}

std::string TOSSpecific::GetMachineInfo(std::string field) {
  LogDebug("getMachineInfo() entered.");
  TMachineInfo info;
  const bool isOpened =
      ReadSystem(info.fType, [&](const TSystemStrings& strings) { TakeStrings(strings, info); });
  if (!isOpened) return kDefaultType;  // Contract: default-of-every-field.
  if (field == "type") return info.fType;
  if (field == "name") return info.fName;
  if (field == "model") return info.fModel;
  if (field == "SN") return info.fSerialNumber;
  return "error param of GetMachineInfo";  // Contract: unknown-field-is-text.
}

std::string TOSSpecific::GetMachineSN() {
  return GetMachineInfo("SN");
}

std::string TOSSpecific::GetMachineModel() {
  return GetMachineInfo("model");
}

std::string TOSSpecific::GetMachineName() {
  return GetMachineInfo("name");
}

std::string TOSSpecific::GetOperatingSystemName() {
  return GetMachineName();  // Contract: firmware-operating-system.
}

std::string TOSSpecific::GetBiosID() {
  void* handle = nullptr;
  if (const auto failure = OpenTables("GetBiosID", handle)) {
    LogError(*failure);
    return kDefaultBiosID;
  }
  const TOpenTables tables(handle);
  const auto version = ReadBiosVersion(tables.Handle(), "TOSSpecific::GetBiosID - ");
  if (!version || version->size() <= 1) return kDefaultBiosID;
  const std::string build = BuildOf(*version);
  // Contract: short-build-throws.
  if (build.size() < 2) throw std::out_of_range("basic_string::erase");
  const std::string biosID = build.substr(0, 2);  // Contract: bios-id-keeps-case.
  LogDebug("TOSSpecific::GetBiosID - biosID = ", biosID);
  return biosID;
}

std::string TOSSpecific::GetMachineTypeFromID() {
  const std::string type = GetMachineType();
  void* handle = nullptr;
  if (const auto failure = OpenTables("getBIOSstructure", handle)) {
    LogError(*failure);
    // Contract: load-failure-twice.
    LogDebug(*failure, "Failed in getting machineType from Bios ID.\n",
             "Get machineType from GetMachineType().\n", "machineType=", type);
    return type;
  }
  const TOpenTables tables(handle);
  const auto version = ReadBiosVersion(tables.Handle(), "TOSSpecific::GetMachineTypeFromID - ");
  if (!version) return type;
  const std::string build = BuildCode(BuildOf(*version));
  LogDebug("TOSSpecific::GetMachineTypeFromID - buildNumber is ", build);
  const std::string typeOfBuild = hwxidentity::MachineTypeOfBuild(build).value_or(type);
  // Contract: no-match-same-words.
  LogDebug("Get machineType from Bios ID().\n", "machineType=", typeOfBuild, "\tBios ID =", build);
  return typeOfBuild;
}

int TOSSpecific::getBIDString(char* src, char* dst, int size, int index) {
  int number = 1;
  int start = 0;
  for (int position = 0; position < size; ++position) {
    if (src[position] != '\0') continue;
    if (number == index) {
      // Any string but the first is copied with its NUL. Contract: later-strings-with-nul.
      const char* const text = number == 1 ? src : src + start + 1;
      std::copy_n(text, position - start, dst);
      return 1;
    }
    ++number;
    start = position;
  }
  return 0;
}

std::vector<std::string> TOSSpecific::multiStringTok(char* text, unsigned long size,
                                                     char separator) {
  std::vector<std::string> strings;
  if (size <= 2) return strings;
  const char* const limit = text + size - 2;  // Contract: last-string-left-out.
  const char* start = text;
  // Contract: separator-once.
  const char* end = std::find(start, limit, separator);
  while (end != limit) {
    strings.emplace_back(start, end);
    start = end + 1;
    end = std::find(start, limit, '\0');
  }
  return strings;
}

int TOSSpecific::removeNonAlpaNumeric(std::string& text) {
  // Contract: brackets-only.
  const std::size_t opening = text.find('[');
  if (opening != std::string::npos) text.erase(0, opening + 1);
  const std::size_t closing = text.find(']');
  if (closing != std::string::npos) text.erase(closing);
  return 1;
}

int TOSSpecific::breakApartVersion(std::string& text, std::string& build) {
  const std::size_t first = text.find('-');
  if (first == std::string::npos) return 1;
  const std::size_t second = text.find('-', first + 1);
  const std::size_t end = second == std::string::npos ? first : second;  // Contract: second-dash.
  build.erase(std::min(end, build.size()));
  text.erase(0, end + 1);
  return 1;
}

}  // namespace NQORHWX20
