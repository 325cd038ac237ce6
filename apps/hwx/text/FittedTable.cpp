#include "hwx/text/FittedTable.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <numeric>
#include <sstream>

#include "hwx/text/Printable.h"
#include "hwx/text/Table.h"

namespace hwx {

namespace {

using TWidths = std::vector<std::size_t>;

constexpr std::size_t kColumnGap = 2;
constexpr std::size_t kNarrowest = 6;  // to which a cell is cut before another column goes
constexpr std::size_t kEnough = 16;    // what a column gets before there is one more

std::vector<std::vector<std::string>> PrintableRows(std::vector<std::vector<std::string>> rows) {
  for (auto& row : rows) {
    for (std::string& cell : row)
      cell = Printable(cell);
  }
  return rows;
}

TWidths NaturalWidths(const std::vector<std::vector<std::string>>& rows) {
  TWidths widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column)
      widths[column] = std::max(widths[column], CharacterCount(row[column]));
  }
  return widths;
}

std::size_t LineWidth(const TWidths& widths) {
  const std::size_t gaps = widths.empty() ? 0 : (widths.size() - 1) * kColumnGap;
  return std::accumulate(widths.begin(), widths.end(), gaps);
}

// How many columns have room, each with as much as it needs at least.
std::size_t ColumnsWithRoom(const TWidths& widths, std::size_t width) {
  std::size_t used = 0;
  std::size_t count = 0;
  for (const std::size_t natural : widths) {
    used += std::min(natural, kEnough) + (count == 0 ? 0 : kColumnGap);
    if (used > width && count > 0) break;
    ++count;
  }
  return count;
}

// Takes from the widest, one character after the other.
void Shrink(TWidths& widths, std::size_t width) {
  for (std::size_t line = LineWidth(widths); line > width; --line) {
    const auto widest = std::max_element(widths.begin(), widths.end());
    if (*widest <= kNarrowest) return;
    --*widest;
  }
}

std::string Cut(const std::string& cell, std::size_t width) {
  if (CharacterCount(cell) <= width) return cell;
  return std::string(FirstCharacters(cell, width - 1)) + "~";
}

}  // namespace

std::optional<std::size_t> OutputWidth() {
  winsize size{};
  if (::isatty(STDOUT_FILENO) != 1 || ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0)
    return std::nullopt;
  constexpr std::size_t kUsual = 80;
  return size.ws_col == 0 ? kUsual : std::size_t{size.ws_col};
}

TFittedTable FittedTable(const std::vector<std::vector<std::string>>& rows,
                         std::optional<std::size_t> width, bool mayLeaveOut) {
  auto cells = PrintableRows(rows);
  TWidths widths = NaturalWidths(cells);
  const std::size_t all = widths.size();
  if (!width) return {AlignedTable(cells), 0};
  if (mayLeaveOut && LineWidth(widths) > *width) widths.resize(ColumnsWithRoom(widths, *width));
  Shrink(widths, *width);
  for (auto& row : cells) {
    row.resize(std::min(row.size(), widths.size()));
    for (std::size_t column = 0; column < row.size(); ++column)
      row[column] = Cut(row[column], widths[column]);
  }
  return {AlignedTable(cells), all - widths.size()};
}

std::string Wrapped(const std::string& text, std::optional<std::size_t> width,
                    const std::string& indent) {
  std::istringstream words(text);
  std::string lines;
  std::size_t used = 0;
  for (std::string word; words >> word;) {
    word = Printable(word);
    const std::size_t size = CharacterCount(word);
    const bool isFirst = lines.empty();
    if (!isFirst && width && used + 1 + size > *width) {
      lines += "\n" + indent;
      used = indent.size();
    } else if (!isFirst) {
      lines += ' ';
      ++used;
    }
    lines += word;
    used += size;
  }
  return lines;
}

}  // namespace hwx
