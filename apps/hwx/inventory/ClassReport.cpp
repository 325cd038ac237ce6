#include "hwx/inventory/ClassReport.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "hwx/inventory/ValueText.h"
#include "hwx/text/FittedTable.h"
#include "hwx/text/Printable.h"
#include "hwx/text/Table.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxkit/CIMName.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

// A property as its declaration tells it.
struct TDescribedProperty {
  std::string fName;
  std::string fType;
  bool fIsKey;
  std::string fUnits;
  std::string fDescription;
  std::vector<std::pair<std::string, std::string>> fValueMap;
};

std::vector<std::string> KeysOf(ICIMClass& cimClass) {
  std::vector<std::string> keys;
  const auto add = [&keys](const boost::shared_ptr<ICIMPropertyDecl>& key) {
    keys.push_back(FoldedCIMName(key->GetName(TCIMContext())));
    return true;
  };
  cimClass.EnumerateKeyPropertyDecls(add, TCIMContext());
  return keys;
}

std::vector<TDescribedProperty> DescribedProperties(ICIMClass& cimClass) {
  const std::vector<std::string> keys = KeysOf(cimClass);
  std::vector<TDescribedProperty> properties;
  const auto add = [&](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
    const std::string name = declaration->GetName(TCIMContext());
    const bool isKey = std::find(keys.begin(), keys.end(), FoldedCIMName(name)) != keys.end();
    properties.push_back({name, TypeName(declaration->GetType(TCIMContext())), isKey,
                          UnitsOf(*declaration), DescriptionOf(*declaration),
                          TMeaning(*declaration).ValueMap()});
    return true;
  };
  cimClass.EnumeratePropertyDecls(add, TCIMContext());
  return properties;
}

std::string SuperclassOf(ICIMClass& cimClass) {
  if (cimClass.IsRootClass(TCIMContext())) return std::string();
  return cimClass.GetSuperClass(TCIMContext())->GetName(TCIMContext());
}

TJson TextOrNull(const std::string& text) {
  return text.empty() ? TJson() : TJson(text);
}

std::string InstancesText(const TReadClass& read) {
  const bool hasOwn = !read.fClass->IsAbstract(TCIMContext());
  return hasOwn ? std::to_string(read.fInstances.size()) : "-";
}

// The width of what stands in front of the descriptions.
std::size_t FrontWidth(const std::vector<std::vector<std::string>>& rows) {
  std::size_t names = 0;
  std::size_t counts = 0;
  for (const auto& row : rows) {
    names = std::max(names, CharacterCount(row[0]));
    counts = std::max(counts, CharacterCount(row[1]));
  }
  constexpr std::size_t kGaps = 4;
  return names + counts + kGaps;
}

std::string Padded(const std::string& text, std::size_t width) {
  return text + std::string(width - std::min(width, CharacterCount(text)), ' ');
}

// Where the descriptions have no room beside the names, they stand below.
std::string ClassLine(const std::vector<std::string>& row, std::size_t front,
                      std::optional<std::size_t> width) {
  constexpr std::size_t kLeast = 20;
  const bool isBeside = !width || front + kLeast <= *width;
  const std::size_t indent = isBeside ? front : 4;
  const std::string blanks(indent, ' ');
  const std::string head = isBeside ? Padded(row[0], front - row[1].size() - 2) + row[1] + "  "
                                    : row[0] + "  " + row[1] + "\n" + blanks;
  const auto rest = width ? std::optional(*width - indent) : std::nullopt;
  std::string line = head + Wrapped(row[2], rest, blanks);
  line.erase(line.find_last_not_of(' ') + 1);
  return line + "\n";
}

std::string PropertyHead(const TDescribedProperty& property) {
  return "  " + Printable(property.fName) + "  " + property.fType +
         (property.fUnits.empty() ? "" : ", in " + Printable(property.fUnits)) +
         (property.fIsKey ? ", key" : "") + "\n";
}

std::string ValueList(const TDescribedProperty& property) {
  std::string list;
  for (const auto& [value, word] : property.fValueMap)
    list += (list.empty() ? "" : ", ") + value + " " + word;
  return list;
}

std::string Paragraph(const std::string& text, std::optional<std::size_t> width) {
  const std::string indent(6, ' ');
  if (text.empty()) return std::string();
  const auto rest =
      width ? std::optional(*width > 26 ? *width - 6 : std::size_t{20}) : std::nullopt;
  return indent + Wrapped(text, rest, indent) + "\n";
}

TJson PropertyJson(const TDescribedProperty& property) {
  TJson values = TJson::array();
  for (const auto& [value, word] : property.fValueMap)
    values.push_back({{"value", value}, {"text", word}});
  return {{"name", property.fName},
          {"type", property.fType},
          {"key", property.fIsKey},
          {"units", TextOrNull(property.fUnits)},
          {"description", TextOrNull(property.fDescription)},
          {"values", values}};
}

TJson ClassHead(ICIMClass& cimClass) {
  return {{"name", cimClass.GetName(TCIMContext())},
          {"superclass", TextOrNull(SuperclassOf(cimClass))},
          {"abstract", cimClass.IsAbstract(TCIMContext())},
          {"description", TextOrNull(DescriptionOf(cimClass))}};
}

}  // namespace

std::string ClassesText(const TReading& reading, std::optional<std::size_t> width) {
  std::vector<std::vector<std::string>> rows;
  rows.reserve(reading.fClasses.size());
  for (const TReadClass& read : reading.fClasses)
    rows.push_back({Printable(read.fName), InstancesText(read), DescriptionOf(*read.fClass)});
  const std::size_t front = FrontWidth(rows);
  std::string text;
  for (const auto& row : rows)
    text += ClassLine(row, front, width);
  return text;
}

std::string ClassesJson(const TReading& reading) {
  TJson json;
  json["classes"] = TJson::array();
  for (const TReadClass& read : reading.fClasses) {
    TJson head = ClassHead(*read.fClass);
    head["instances"] = read.fInstances.size();
    json["classes"].push_back(std::move(head));
  }
  return JsonText(json);
}

std::string DescribedText(ICIMClass& cimClass, std::optional<std::size_t> width) {
  const std::string superclass = SuperclassOf(cimClass);
  std::string text = Printable(cimClass.GetName(TCIMContext())) +
                     (superclass.empty() ? "" : ", a subclass of " + Printable(superclass)) +
                     (cimClass.IsAbstract(TCIMContext()) ? ", abstract" : "") + "\n";
  const std::string description = DescriptionOf(cimClass);
  if (!description.empty()) text += "  " + Wrapped(description, width, "  ") + "\n";
  for (const TDescribedProperty& property : DescribedProperties(cimClass)) {
    text += "\n" + PropertyHead(property) + Paragraph(property.fDescription, width) +
            Paragraph(ValueList(property), width);
  }
  return text;
}

std::string DescribedJson(ICIMClass& cimClass) {
  TJson json = ClassHead(cimClass);
  json["properties"] = TJson::array();
  for (const TDescribedProperty& property : DescribedProperties(cimClass))
    json["properties"].push_back(PropertyJson(property));
  return JsonText(json);
}

}  // namespace hwx
