#include "hwx/inventory/ShowReport.h"

#include <algorithm>
#include <set>
#include <utility>

#include "hwx/inventory/ValueText.h"
#include "hwx/text/FittedTable.h"
#include "hwx/text/Json.h"
#include "hwx/text/Printable.h"
#include "hwx/text/Table.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxkit/CIMName.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

using TRow = std::vector<std::string>;

std::string ShownText(const TReadValue& value, EValues values) {
  return values == EValues::kMeant ? value.Text() : PlainText(value.fStored);
}

TJson ShownJson(const TReadValue& value, EValues values) {
  return values == EValues::kMeant ? WithWords(value.fStored, *value.fMeaning) : value.fStored;
}

std::string LongTable(const TReadInstance& instance, EValues values) {
  std::vector<TRow> rows;
  for (const TReadValue& value : instance.fValues) {
    if (!value.fStored.is_null()) rows.push_back({value.fName, ShownText(value, values)});
  }
  return Printable(instance.fPath) + "\n" + AlignedTable(rows, "  ");
}

bool HasValueIn(const TReadClass& cimClass, const std::string& property) {
  return std::any_of(cimClass.fInstances.begin(), cimClass.fInstances.end(),
                     [&property](const TReadInstance& instance) {
                       const TReadValue* const value = instance.Find(property);
                       return value && !value->fStored.is_null();
                     });
}

void AddOnce(const std::string& name, TRow& names) {
  const auto isSame = [&name](const std::string& other) { return IsSameCIMName(name, other); };
  if (std::none_of(names.begin(), names.end(), isSame)) names.push_back(name);
}

// The keys first, then what has a value in one of the instances at least.
TRow UsualColumns(const TReadClass& cimClass) {
  TRow columns = cimClass.fKeys;
  for (const TReadValue& value : cimClass.fInstances.front().fValues) {
    if (HasValueIn(cimClass, value.fName)) AddOnce(value.fName, columns);
  }
  return columns;
}

TRow Cells(const TReadInstance& instance, const TRow& columns, EValues values) {
  TRow cells;
  for (const std::string& column : columns) {
    const TReadValue* const value = instance.Find(column);
    cells.push_back(value && !value->fStored.is_null() ? ShownText(*value, values) : "");
  }
  return cells;
}

// Without keys and other values an instance is its path.
std::vector<TRow> Rows(const TReadClass& cimClass, const TColumnsStyle& style) {
  const TRow columns = style.fColumns.empty() ? UsualColumns(cimClass) : style.fColumns;
  std::vector<TRow> rows;
  if (style.fHasHeader) rows.push_back(columns);
  for (const TReadInstance& instance : cimClass.fInstances)
    rows.push_back(columns.empty() ? TRow{instance.fPath}
                                   : Cells(instance, columns, style.fValues));
  return rows;
}

std::string LeftOut(std::size_t columns) {
  return "(" + std::to_string(columns) + (columns == 1 ? " column" : " columns") +
         " left out: --wide, --long)\n";
}

std::string ClassColumns(const TReadClass& cimClass, const TColumnsStyle& style) {
  const bool mayLeaveOut = style.fColumns.empty();
  const TFittedTable table = FittedTable(Rows(cimClass, style), style.fWidth, mayLeaveOut);
  const bool tells = style.fHasHeader && table.fLeftColumns != 0;
  return table.fText + (tells ? LeftOut(table.fLeftColumns) : "");
}

TJson DeclarationsJson(const TReadClass& read) {
  std::set<std::string> keys;
  for (const std::string& key : read.fKeys)
    keys.insert(FoldedCIMName(key));
  TJson declarations = TJson::array();
  const auto add = [&](const boost::shared_ptr<ICIMPropertyDecl>& property) {
    const std::string& name = property->GetName(TCIMContext());
    declarations.push_back({{"name", name},
                            {"type", TypeName(property->GetType(TCIMContext()))},
                            {"key", keys.count(FoldedCIMName(name)) != 0}});
    return true;
  };
  read.fClass->EnumeratePropertyDecls(add, TCIMContext());
  return declarations;
}

TJson SuperclassJson(ICIMClass& cimClass) {
  if (cimClass.IsRootClass(TCIMContext())) return nullptr;
  return cimClass.GetSuperClass(TCIMContext())->GetName(TCIMContext());
}

TJson ValuesJson(const TReadInstance& instance, EValues values) {
  TJson json = TJson::object();
  for (const TReadValue& value : instance.fValues)
    json[value.fName] = ShownJson(value, values);
  return json;
}

TJson ClassJson(const TReadClass& read, EValues values) {
  TJson json;
  json["name"] = read.fName;
  json["superclass"] = SuperclassJson(*read.fClass);
  json["abstract"] = read.fClass->IsAbstract(TCIMContext());
  json["association"] = read.fClass->IsAssociation(TCIMContext());
  json["properties"] = DeclarationsJson(read);
  json["instances"] = TJson::array();
  for (const TReadInstance& instance : read.fInstances)
    json["instances"].push_back(
        {{"path", instance.fPath}, {"values", ValuesJson(instance, values)}});
  return json;
}

// The properties that instances have, in the order in which the classes have them.
TRow CsvColumns(const TReading& reading) {
  TRow columns;
  for (const TReadClass& cimClass : reading.fClasses) {
    if (cimClass.fInstances.empty()) continue;
    for (const TReadValue& value : cimClass.fInstances.front().fValues)
      AddOnce(value.fName, columns);
  }
  return columns;
}

std::string CsvField(const std::string& text) {
  if (text.find_first_of("\",") == std::string::npos) return text;
  std::string field = "\"";
  for (const char character : text)
    field += character == '"' ? std::string("\"\"") : std::string(1, character);
  return field + '"';
}

std::string CsvLine(const TRow& fields) {
  std::string line;
  for (const std::string& field : fields)
    line += (line.empty() && &field == &fields.front() ? "" : ",") + CsvField(Printable(field));
  return line + "\n";
}

TRow Joined(TRow front, const TRow& rest) {
  front.insert(front.end(), rest.begin(), rest.end());
  return front;
}

}  // namespace

std::string ShowColumns(const TReading& reading, const TColumnsStyle& style) {
  const auto& classes = reading.fClasses;
  const auto isShown = [](const TReadClass& read) { return !read.fInstances.empty(); };
  const bool areSeveral = std::count_if(classes.begin(), classes.end(), isShown) > 1;
  std::string text;
  for (const TReadClass& cimClass : classes) {
    if (!isShown(cimClass)) continue;
    if (areSeveral && style.fHasHeader)
      text += (text.empty() ? "" : "\n") + Printable(cimClass.fName) + "\n";
    text += ClassColumns(cimClass, style);
  }
  return text;
}

std::string ShowLong(const TReading& reading, EValues values) {
  std::string text;
  for (const TReadClass& cimClass : reading.fClasses) {
    for (const TReadInstance& instance : cimClass.fInstances)
      text += (text.empty() ? "" : "\n") + LongTable(instance, values);
  }
  return text;
}

std::string ShowJson(const TReading& reading, EValues values) {
  TJson json;
  json["classes"] = TJson::array();
  for (const TReadClass& cimClass : reading.fClasses)
    json["classes"].push_back(ClassJson(cimClass, values));
  return JsonText(json);
}

std::string ShowJsonLines(const TReading& reading, EValues values) {
  std::string lines;
  for (const TReadClass& cimClass : reading.fClasses) {
    for (const TReadInstance& instance : cimClass.fInstances) {
      lines += JsonLine({{"class", cimClass.fName},
                         {"path", instance.fPath},
                         {"values", ValuesJson(instance, values)}});
    }
  }
  return lines;
}

std::string ShowCsv(const TReading& reading, EValues values, bool hasHeader) {
  const TRow columns = CsvColumns(reading);
  std::string text = hasHeader ? CsvLine(Joined({"Class", "Path"}, columns)) : std::string();
  for (const TReadClass& cimClass : reading.fClasses) {
    for (const TReadInstance& instance : cimClass.fInstances)
      text += CsvLine(Joined({cimClass.fName, instance.fPath}, Cells(instance, columns, values)));
  }
  return text;
}

}  // namespace hwx
