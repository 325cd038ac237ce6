// Rows of text in aligned columns. Thread-safety: a function without state.

#ifndef HWX_TEXT_TABLE_H
#define HWX_TEXT_TABLE_H

#include <string>
#include <vector>

namespace hwx {

/// One line for each row, behind `indent`; its cells stand in columns with two blanks between them.
/// Cells may hold any bytes: they are made printable. Lines have no blanks at their ends.
std::string AlignedTable(const std::vector<std::vector<std::string>>& rows,
                         const std::string& indent = "");

}  // namespace hwx

#endif  // HWX_TEXT_TABLE_H
