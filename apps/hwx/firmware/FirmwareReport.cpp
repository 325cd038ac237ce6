#include "hwx/firmware/FirmwareReport.h"

#include <cstdio>

#include "hwx/firmware/StructureNames.h"
#include "hwx/text/Json.h"
#include "hwx/text/Printable.h"
#include "hwx/text/Table.h"

namespace hwx {

namespace {

std::string Version(const smbios::TTables& tables) {
  const smbios::TEntryPoint& entryPoint = tables.EntryPoint();
  return std::to_string(entryPoint.fMajor) + "." + std::to_string(entryPoint.fMinor);
}

// Null where there is no entry point.
const char* Form(const smbios::TTables& tables) {
  switch (tables.EntryPoint().fForm) {
    case smbios::EEntryPointForm::kLegacy:
      return "legacy";
    case smbios::EEntryPointForm::k32Bit:
      return "32-bit";
    case smbios::EEntryPointForm::k64Bit:
      return "64-bit";
    case smbios::EEntryPointForm::kNone:
      break;
  }
  return nullptr;
}

std::string FormText(const smbios::TTables& tables) {
  const char* const form = Form(tables);
  return form ? std::string(form) + " entry point" : "no entry point";
}

std::string HandleText(const smbios::TStructure& structure) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%04X", unsigned{structure.Handle()});
  return text;
}

std::string Counted(std::size_t count, const char* noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string Heading(const smbios::TStructure& structure) {
  const char* const name = StructureName(structure.Type());
  return "Type " + std::to_string(structure.Type()) + (name ? std::string(", ") + name : "") +
         ", handle " + HandleText(structure) + ", " + Counted(structure.Size(), "byte") + " (" +
         std::to_string(structure.FormattedSize()) + " formatted)\n";
}

std::string StringRows(const smbios::TStructure& structure) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string_view text : structure.Strings())
    rows.push_back({std::to_string(rows.size() + 1), std::string(text)});
  return AlignedTable(rows, "  ");
}

TJson StructureObject(const smbios::TStructure& structure) {
  TJson json = {{"handle", structure.Handle()}, {"type", structure.Type()}, {"name", nullptr}};
  if (const char* const name = StructureName(structure.Type())) json["name"] = name;
  json["formattedSize"] = structure.FormattedSize();
  json["size"] = structure.Size();
  json["strings"] = structure.Strings();
  return json;
}

}  // namespace

std::string FirmwareText(const std::string& location, const smbios::TTables& tables) {
  std::string text;
  const smbios::TWalk walk = tables.ForEach([&](const smbios::TStructure& structure) {
    text += "\n" + Heading(structure) + StringRows(structure);
    return true;
  });
  return Printable(location) + ": version " + Version(tables) + ", " + FormText(tables) + ", " +
         Counted(walk.fCount, "structure") + " in " + Counted(walk.fOffset, "byte") + "\n" + text;
}

std::string FirmwareJson(const std::string& location, const smbios::TTables& tables) {
  TJson structures = TJson::array();
  const smbios::TWalk walk = tables.ForEach([&](const smbios::TStructure& structure) {
    structures.push_back(StructureObject(structure));
    return true;
  });
  TJson json = {{"location", location}, {"version", Version(tables)}, {"entryPoint", nullptr}};
  if (const char* const form = Form(tables)) json["entryPoint"] = form;
  json["size"] = walk.fOffset;
  json["damage"] = nullptr;
  if (!walk.fDamage.empty()) json["damage"] = walk.fDamage;
  json["structures"] = structures;
  return JsonText(json);
}

}  // namespace hwx
