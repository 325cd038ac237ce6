#include "hwx/text/Table.h"

#include <algorithm>

#include "hwx/text/Printable.h"

namespace hwx {

namespace {

using TRows = std::vector<std::vector<std::string>>;

TRows PrintableCells(TRows rows) {
  for (auto& row : rows) {
    for (std::string& cell : row)
      cell = Printable(cell);
  }
  return rows;
}

std::vector<std::size_t> ColumnWidths(const TRows& rows) {
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column) {
      widths[column] = std::max(widths[column], CharacterCount(row[column]));
    }
  }
  return widths;
}

}  // namespace

std::string AlignedTable(const TRows& rows, const std::string& indent) {
  constexpr std::size_t kGap = 2;
  const TRows cells = PrintableCells(rows);
  const std::vector<std::size_t> widths = ColumnWidths(cells);
  std::string table;
  for (const auto& row : cells) {
    std::string line = indent;
    for (std::size_t column = 0; column < row.size(); ++column) {
      line += row[column];
      line.append(widths[column] - CharacterCount(row[column]) + kGap, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    table += line + "\n";
  }
  return table;
}

}  // namespace hwx
