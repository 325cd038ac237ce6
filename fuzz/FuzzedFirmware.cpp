#include "FuzzedFirmware.h"

#include <dlfcn.h>

#include <algorithm>

#include "hwxcore/diagnostics/TLogger.h"
#include "smbios/TTables.h"
#include "smbios/smbios.h"

namespace fuzz {

namespace {

using smbios::TTables;

constexpr std::size_t kAnswerHead = 3;

std::optional<TTables> gTables;  // missing: answers are served
Bytes gAnswer;
char* gSystemBuffer = nullptr;  // of the last read of type 1, which an error leaves behind

// The real library's operation on a table.
TSmBiosStatus GetFirstOfTable(int type, void* buffer, int* length) {
  static const auto real =
      reinterpret_cast<decltype(smBiosGetFirst)*>(::dlsym(RTLD_NEXT, "smBiosGetFirst"));
  return real(&*gTables, type, buffer, length);
}

TSmBiosStatus GetFirstOfAnswer(void* buffer, int* length) {
  const auto capacity = static_cast<std::size_t>(*length);
  const std::size_t count = std::min(gAnswer.size() - kAnswerHead, capacity);
  std::copy_n(gAnswer.begin() + kAnswerHead, count, static_cast<std::uint8_t*>(buffer));
  *length = static_cast<std::int16_t>(gAnswer[1] | gAnswer[2] << 8);
  return {gAnswer[0]};
}

// The entry point for a table of any size.
Bytes EntryPoint() {
  Bytes bytes = {'_', 'S', 'M', '3', '_', 0, 24, 3, 2, 0, 1, 0, 0, 0, 0, 1};
  bytes.resize(24);
  unsigned sum = 0;
  for (const std::uint8_t byte : bytes)
    sum += byte;
  bytes[5] = static_cast<std::uint8_t>(0x100 - sum % 0x100);
  return bytes;
}

void Append(Bytes& bytes, const std::string& text) {
  bytes.insert(bytes.end(), text.begin(), text.end());
}

Bytes Structure(Bytes formatted, const std::vector<std::string>& strings) {
  formatted[1] = static_cast<std::uint8_t>(formatted.size());
  for (const std::string& text : strings) {
    Append(formatted, text);
    formatted.push_back(0);
  }
  formatted.insert(formatted.end(), strings.empty() ? 2 : 1, 0);
  return formatted;
}

Bytes Bios(const std::string& version) {
  return Structure({0, 0, 0, 0, 1, 2, 0, 0, 3}, {"Maker", version, "01/02/2020"});
}

Bytes System(const std::string& productName, const std::string& serialNumber) {
  return Structure({1, 0, 1, 0, 1, 2, 0, 3}, {"Maker", productName, serialNumber});
}

Bytes Table(const std::string& version, const std::string& productName,
            const std::string& serialNumber) {
  Bytes table = Bios(version);
  const Bytes system = System(productName, serialNumber);
  table.insert(table.end(), system.begin(), system.end());
  const Bytes end = Structure({127, 0, 2, 0}, {});
  table.insert(table.end(), end.begin(), end.end());
  return table;
}

Bytes Answer(std::uint8_t status, const Bytes& structure) {
  Bytes answer = {status, static_cast<std::uint8_t>(structure.size() + 1), 0};
  answer.insert(answer.end(), structure.begin(), structure.end());
  return answer;
}

}  // namespace

void ServeTable(const std::uint8_t* data, std::size_t size) {
  static const Bytes entryPoint = EntryPoint();
  gTables = TTables::FromKernelFiles(entryPoint, Bytes(data, data + size));
}

void ServeAnswer(const std::uint8_t* data, std::size_t size) {
  gTables.reset();
  gAnswer.assign(data, data + size);
  gAnswer.resize(std::max(size, kAnswerHead));
}

std::optional<smbios::TStructure> Served(int type) {
  return gTables->FindFirst(type);
}

std::size_t CopiedByte(const smbios::TStructure& structure, std::size_t offset) {
  return offset < structure.Size() ? structure.Bytes()[offset] : 0;
}

std::optional<std::string> StringOf(const smbios::TStructure& structure, std::size_t number) {
  const auto strings = structure.Strings();
  if (number == 0 || number > strings.size()) return std::nullopt;
  return std::string(strings[number - 1]);
}

void ReleaseLeftBehind() {
  delete[] gSystemBuffer;
  gSystemBuffer = nullptr;
}

std::vector<Bytes> Seeds() {
  // So that the log's texts are built too, for no file.
  NQORHWX20::TLogger::SetLogThreshold(NQORHWX20::ILogger::kHWXLogVerbose);
  return {Table("-[EXE105A-1.05]-", "Rack Server -[7915AC1]-", "KQ12345"),
          Table("[Y4-12-1.05]", "7915AC1", "  "),
          Table("1.05", "Box -[791", "To Be Filled By O.E.M."),
          Table("-y4", "Box -", "x"),
          Answer(0, Bios("[A3E105A-1.05]")),
          Answer(3, Bios("AB")),
          Answer(0, System("Box -[7915AC1]-", "KQ12345")),
          Answer(0, System("7915AC1", "KQ12345"))};
}

}  // namespace fuzz

extern "C" TSmBiosStatus smBiosLoad(TPluginManagerProvider*, void** handle) {
  *handle = &fuzz::gTables;
  return {kSmBiosOK};
}

extern "C" TSmBiosStatus smBiosGetFirst(void*, int type, void* buffer, int* length) {
  if (type == smbios::kTypeSystemInformation) fuzz::gSystemBuffer = static_cast<char*>(buffer);
  if (fuzz::gTables) return fuzz::GetFirstOfTable(type, buffer, length);
  return fuzz::GetFirstOfAnswer(buffer, length);
}

extern "C" TSmBiosStatus smBiosClose(void**) {
  fuzz::gSystemBuffer = nullptr;  // released by now
  return {kSmBiosOK};
}
