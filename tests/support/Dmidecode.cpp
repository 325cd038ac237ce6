#include "support/Dmidecode.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#include "smbios/TableReader.h"

namespace hwxtest {

namespace {

using smbios::TStructure;

struct TField {
  std::size_t fOffset;
  const char* fLabel;
  std::size_t fLeastSize;  // of the formatted area, for dmidecode to show the field
};

// The strings of a structure, as dmidecode labels them.
struct TLayout {
  int fType;
  const char* fTitle;
  std::vector<TField> fFields;
};

const std::vector<TLayout>& Layouts() {
  static const std::vector<TLayout> layouts = {
      {0,
       "BIOS Information\n",
       {{4, "Vendor", 0x12}, {5, "Version", 0x12}, {8, "Release Date", 0x12}}},
      {1,
       "System Information\n",
       {{4, "Manufacturer", 0x08},
        {5, "Product Name", 0x08},
        {6, "Version", 0x08},
        {7, "Serial Number", 0x08},
        {0x19, "SKU Number", 0x1B},
        {0x1A, "Family", 0x1B}}}};
  return layouts;
}

// A string as dmidecode shows it.
std::string Shown(const TStructure& structure, std::size_t field) {
  const std::size_t number = structure.Byte(field);
  if (number == 0) return "Not Specified";
  if (number > structure.Strings().size()) return "<BAD INDEX>";
  std::string text(structure.String(number));
  for (char& c : text)
    if (c < 32 || c == 127) c = '.';
  return text;
}

std::string LineOf(const char* label, const std::string& value) {
  return std::string("\t") + label + ": " + value + "\n";
}

// The paragraph of the first structure with that title.
std::string FirstParagraph(const std::string& output, const char* title) {
  const std::size_t start = output.find(title);
  if (start == std::string::npos) return std::string();
  return output.substr(start, output.find("\n\n", start) + 1 - start);
}

void ExpectSameStrings(const std::string& output, const TStructure& structure,
                       const TLayout& layout) {
  const std::string paragraph = FirstParagraph(output, layout.fTitle);
  for (const TField& field : layout.fFields) {
    if (structure.FormattedSize() < field.fLeastSize) continue;
    const std::string line = LineOf(field.fLabel, Shown(structure, field.fOffset));
    EXPECT_NE(paragraph.find(line), std::string::npos) << line << "isn't in\n" << output;
  }
}

}  // namespace

bool HasDmidecode() {
  static const bool has = !Dmidecode("--version").empty();
  return has;
}

std::string Dmidecode(const std::string& arguments) {
  // Administrators' tools are often outside a user's path.
  const std::string command = "PATH=$PATH:/usr/sbin:/sbin dmidecode " + arguments + " 2>/dev/null";
  std::string output;
  FILE* const pipe = ::popen(command.c_str(), "r");
  if (!pipe) return output;
  char block[4096];
  while (const std::size_t count = std::fread(block, 1, sizeof block, pipe))
    output.append(block, count);
  ::pclose(pipe);
  return output;
}

void ExpectDmidecodeAgrees(const std::string& path) {
  const smbios::TTables tables = smbios::ReadTables(path);
  if (!HasDmidecode() || !tables.IsSound()) return;
  const std::string output = Dmidecode("-t 0,1 --from-dump '" + path + "'");
  for (const TLayout& layout : Layouts())
    if (const auto structure = tables.FindFirst(layout.fType))
      ExpectSameStrings(output, *structure, layout);
}

}  // namespace hwxtest
