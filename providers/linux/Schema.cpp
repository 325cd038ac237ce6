#include "providers/linux/Schema.h"

#include <cctype>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hwxkit/TClassBuilder.h"
#include "providers/linux/LiveClass.h"
#include "providers/linux/SchemaTables.h"
#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

using NQORHWX20::TClassBuilder;
using TNamespacePtr = boost::shared_ptr<NQORHWX20::TMemoryNamespace>;

constexpr std::uint64_t kShortRange = 256;
constexpr std::string_view kReference = "ref ";

// The columns of a line, by what the head of standard.tsv says.
enum EClassColumn { kClassName = 1, kSuperclass, kKind, kSuccessors, kClassDescription };
enum EPropertyColumn {
  kPropertyName = 1,
  kType,
  kKey,
  kUnits,
  kValueMap,
  kOverridden,
  kDeprecated,
  kMaximumLength,
  kValues,
  kPropertyDescription
};

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) {
      return parts;
    }
    text.remove_prefix(end + 1);
  }
}

// A column's text; empty for "-".
std::string Column(const std::vector<std::string>& line, std::size_t column) {
  const std::string& text = line.at(column);
  return text == "-" ? std::string() : text;
}

// The entries of a value map that a table writes in short: "0..2,8,9..99,.." are "0", "1", "2",
// "8", "9..99" and "..". A range that follows on the number before it, one of 256 numbers or more,
// and one that is open to one side is a single entry.
std::vector<std::string> ExpandedValueMap(std::string_view text) {
  std::vector<std::string> entries;
  std::optional<std::uint64_t> before;
  for (const std::string& part : Split(text, ',')) {
    const std::size_t dots = part.find("..");
    const auto first = ParseNumber(part.substr(0, dots));
    const auto last = dots == std::string::npos ? first : ParseNumber(part.substr(dots + 2));
    const bool isRun = first && last && *last >= *first && *last - *first < kShortRange &&
                       !(dots != std::string::npos && before && *first == *before + 1);
    if (isRun) {
      for (std::uint64_t number = *first; number <= *last; ++number) {
        entries.push_back(std::to_string(number));
      }
    } else {
      entries.push_back(part);
    }
    before = last;
  }
  return entries;
}

// The schema has units in two forms: words, and expressions for programs, which are in lower case.
void AddUnits(TClassBuilder& builder, const std::string& units) {
  const bool isExpression = std::islower(static_cast<unsigned char>(units.front())) != 0;
  builder.Qualifier(isExpression ? "PUnit" : "Units", units);
}

void AddValueMap(TClassBuilder& builder, const std::string& map, const std::string& values) {
  builder.Qualifier("ValueMap", ToValue(ExpandedValueMap(map)));
  if (!values.empty()) {
    builder.Qualifier("Values", ToValue(Split(values, '|')));
  }
}

void AddProperty(TClassBuilder& builder, const std::vector<std::string>& line) {
  const std::string type = Column(line, kType);
  const std::string description = Column(line, kPropertyDescription);
  std::string_view referenced = type;
  if (TakePrefix(referenced, kReference)) {
    builder.Reference(line[kPropertyName], std::string(referenced), description);
  } else {
    builder.Property(line[kPropertyName], type.c_str(), description);
  }
  if (!Column(line, kKey).empty()) {
    builder.Qualifier("Key", true);
  }
  if (const std::string units = Column(line, kUnits); !units.empty()) {
    AddUnits(builder, units);
  }
  if (const std::string map = Column(line, kValueMap); !map.empty()) {
    AddValueMap(builder, map, Column(line, kValues));
  }
  if (!Column(line, kDeprecated).empty()) {
    builder.Qualifier("Deprecated", ToValue(std::vector<std::string>{"No value"}));
  }
  if (const auto length = Narrow<std::uint32_t>(ParseNumber(Column(line, kMaximumLength)))) {
    builder.Qualifier("MaxLen", *length);
  }
}

std::unique_ptr<TClassBuilder> BeginClass(const TNamespacePtr& ns,
                                          const std::vector<std::string>& line) {
  auto builder =
      std::make_unique<TClassBuilder>(ns, line.at(kClassName), Column(line, kSuperclass));
  builder->Description(Column(line, kClassDescription));
  const std::string kind = Column(line, kKind);
  if (kind.find("abstract") != std::string::npos) {
    builder->Abstract();
  }
  if (kind.find("association") != std::string::npos) {
    builder->Association();
  }
  if (const std::string successors = Column(line, kSuccessors); !successors.empty()) {
    builder->Qualifier("Deprecated", ToValue(Split(successors, ',')));
  }
  return builder;
}

void PublishTable(const TNamespacePtr& ns, std::string_view table) {
  std::unique_ptr<TClassBuilder> builder;
  while (!table.empty()) {
    const std::string_view text = TakeLine(table);
    if (text.empty() || text.front() == '#') {
      continue;
    }
    const std::vector<std::string> line = Split(text, '\t');
    if (line.front() == "class") {
      if (builder) {
        builder->Commit();
      }
      builder = BeginClass(ns, line);
    } else if (builder) {
      AddProperty(*builder, line);
    }
  }
  if (builder) {
    builder->Commit();
  }
}

}  // namespace

void PublishSchema(const TNamespacePtr& ns) {
  PublishTable(ns, kStandardSchema);
  PublishTable(ns, kOwnSchema);
}

}  // namespace linux_machine
