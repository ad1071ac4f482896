// What the formulas of a compiled template refer to: the cells of their tables, bookmarks.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "word/merge/program.h"

namespace zorkanca::word {

/// A table with formulas. While a copy is made, each cell's text is known once it was passed; before that, formulas
/// take what its program gives for the current record.
struct TableCells {
  std::vector<std::vector<Operand>> ahead;  ///< by row and column
  std::vector<std::size_t> widths;          ///< how many cells each row has
};

/// Where a formula stands and the names in it.
struct FormulaScope {
  std::shared_ptr<const TableCells> table;  ///< around it; may be null
  std::size_t row = 0;                      ///< of its cell, from 0
  std::size_t column = 0;
  std::map<Text, std::shared_ptr<const Operand>> bookmarks;  ///< their texts, by name in upper case
  std::map<Text, std::shared_ptr<const TableCells>> tables;  ///< that bookmarks mark
};

}  // namespace zorkanca::word
