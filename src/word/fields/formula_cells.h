// Cells and ranges in formulas; what references look like stands in formula.h.
#pragma once

#include <optional>
#include <vector>

#include "word/fields/formula.h"

namespace zorkanca::word {

/// A rectangle of cells, both ends included, from 0. Rows may have fewer cells than its columns.
struct CellRange {
  const FormulaTable* table = nullptr;
  std::size_t firstRow = 0;
  std::size_t lastRow = 0;
  std::size_t firstColumn = 0;
  std::size_t lastColumn = 0;

  bool IsOneCell() const { return firstRow == lastRow && firstColumn == lastColumn; }
};

enum class TableSide { kAbove, kBelow, kLeft, kRight };

/// The cells that a whole text refers to; nothing for another text, and for a cell that the table does not have.
std::optional<CellRange> ReferenceOf(TextView text, const FormulaTable& table);
/// The side that a text names: ABOVE, BELOW, LEFT, RIGHT.
std::optional<TableSide> SideOf(TextView text);

/// Appends the numbers of a range's cells.
void AppendRange(std::vector<double>& list, const CellRange& range, const Locale& locale);
/// Appends the numbers on a side of the formula's cell, up to the first cell without one.
void AppendSide(std::vector<double>& list, TableSide side, const FormulaContext& context, const Locale& locale);

}  // namespace zorkanca::word
