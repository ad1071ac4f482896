// What ranges exchange with the product as whole arrays: values or formulas of a rectangle of cells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "runtime/value.h"

namespace zorkanca {

/// An error in a cell, as the automation's error variant carries it: #N/A is 2042, #DIV/0! 2007. In a `Value` it is an
/// object reference to this.
struct CellError final : Object {
  explicit CellError(std::int32_t errorNumber) : number(errorNumber) {}
  std::int32_t number;
};

/// A two-dimensional array, row after row, counted from 0. Cells are what `Value2` knows: Empty, bool, double (dates
/// are numbers), Text, `CellError`; Null where a record of an imported text has no field at all: assigned to a cell, it
/// leaves the cell alone.
class CellGrid {
 public:
  CellGrid() = default;
  /// All cells Empty.
  CellGrid(std::int32_t rows, std::int32_t columns)
      : rows_(rows), columns_(columns), cells_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)) {}

  std::int32_t rows() const { return rows_; }
  std::int32_t columns() const { return columns_; }
  Value& At(std::int32_t row, std::int32_t column) { return cells_[Index(row, column)]; }
  const Value& At(std::int32_t row, std::int32_t column) const { return cells_[Index(row, column)]; }

 private:
  std::size_t Index(std::int32_t row, std::int32_t column) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) + static_cast<std::size_t>(column);
  }

  std::int32_t rows_ = 0;
  std::int32_t columns_ = 0;
  std::vector<Value> cells_;
};

}  // namespace zorkanca
