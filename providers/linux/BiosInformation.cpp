#include "providers/linux/BiosInformation.h"

#include <algorithm>

#include "providers/linux/FirmwareTables.h"

namespace linux_machine {

namespace {

constexpr std::uint64_t kParagraph = 16;            // what a segment's number counts
constexpr std::uint64_t kLastLowAddress = 0xFFFFF;  // a BIOS ends where the first MiB does

std::vector<TBios> ReadBiosCopy(const std::string& root) {
  TBios bios;
  bios.fManufacturer = KernelCopy(root, "bios_vendor");
  bios.fVersion = KernelCopy(root, "bios_version");
  bios.fReleaseDate = ParseFirmwareDate(KernelCopy(root, "bios_date").value_or(std::string()));
  const bool isKnown = bios.fManufacturer || bios.fVersion || bios.fReleaseDate;
  return isKnown ? std::vector<TBios>{bios} : std::vector<TBios>();
}

}  // namespace

TBios ParseBios(const smbios::TStructure& structure) {
  TBios bios;
  bios.fManufacturer = FirmwareText(structure, 0x04);
  bios.fVersion = FirmwareText(structure, 0x05);
  bios.fReleaseDate = ParseFirmwareDate(structure.StringAt(0x08));
  if (const std::uint16_t segment = structure.Word(0x06)) {  // UEFI has none
    bios.fStartingAddress = segment * kParagraph;
    bios.fEndingAddress = kLastLowAddress;
  }
  return bios;
}

void ParseBiosLanguages(const smbios::TStructure& structure, TBios& bios) {
  if (!structure.HasField(0x15, 1)) {
    return;
  }
  const std::vector<std::string_view> texts = structure.Strings();
  const std::size_t count = std::min<std::size_t>(structure.Byte(0x04), texts.size());
  if (count > 0) {
    bios.fLanguages.emplace(texts.begin(), texts.begin() + static_cast<std::ptrdiff_t>(count));
  }
  bios.fCurrentLanguage = FirmwareText(structure, 0x15);
}

std::vector<TBios> ReadBios(const std::string& root) {
  const smbios::TTables tables = ReadFirmwareTables(root);
  const auto information = tables.FindFirst(smbios::kTypeBiosInformation);
  if (!information) {
    return ReadBiosCopy(root);
  }
  TBios bios = ParseBios(*information);
  if (const auto languages = tables.FindFirst(smbios::kTypeBiosLanguage)) {
    ParseBiosLanguages(*languages, bios);
  }
  return {bios};
}

}  // namespace linux_machine
