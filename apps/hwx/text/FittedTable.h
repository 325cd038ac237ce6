// Rows of text in columns, fitted to a width. Thread-safety: functions without state.

#ifndef HWX_TEXT_FITTEDTABLE_H
#define HWX_TEXT_FITTEDTABLE_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace hwx {

/// The width in characters of the terminal that the standard output is; missing if it is none.
std::optional<std::size_t> OutputWidth();

/// A table of which as much is shown as there is room for.
struct TFittedTable {
  std::string fText;             ///< A line for each row.
  std::size_t fLeftColumns = 0;  ///< Columns at the right that were left out.
};

/// The rows in columns with two blanks between them. Cells may hold any bytes: they are made
/// printable. Where the lines would be longer than `width`, long cells are cut, with a "~" at their
/// ends, and columns at the right left out that have no room even then, if `mayLeaveOut`. The first
/// column is always there.
TFittedTable FittedTable(const std::vector<std::vector<std::string>>& rows,
                         std::optional<std::size_t> width, bool mayLeaveOut);

/// The text in lines of at most `width` characters where it has blanks to break it at. Without a
/// width one line. The lines behind the first begin with `indent`.
std::string Wrapped(const std::string& text, std::optional<std::size_t> width,
                    const std::string& indent);

}  // namespace hwx

#endif  // HWX_TEXT_FITTEDTABLE_H
