// What repeated rows do to everything that is said of areas of a sheet: merged cells, conditional formats, validations.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "excel/grid/cell_address.h"

namespace zorkanca::excel {

/// Rows that were copied, and where their copies lie one below the other.
struct RowRepeat {
  std::int32_t top = 1;  ///< of the source
  std::int32_t rows = 1;
  std::int32_t first = 1;  ///< of the copies
  std::int32_t copies = 1;

  std::int32_t bottom() const { return top + rows - 1; }
  std::int32_t last() const { return first + rows * copies - 1; }
  CellArea Source() const { return {top, 1, bottom(), kLastColumn}; }
  CellArea Target() const { return {first, 1, last(), kLastColumn}; }
};

/// The areas of a rule after the repeat: the copies get what the source had, what the copies replace is taken out. The
/// first area stays the first, because formulas of rules are read from its corner. What hangs together is one area.
std::vector<CellArea> RepeatAreas(const std::vector<CellArea>& areas, const RowRepeat& repeat);

/// Merged cells after the repeat: those wholly within the source are repeated, those that the copies cut end above
/// them or go.
std::vector<CellArea> RepeatMerges(const std::vector<CellArea>& merges, const RowRepeat& repeat);

/// The areas of a list like "A1:B2 C3". What is no area is left out.
std::vector<CellArea> ParseAreas(std::string_view list);
std::string AreasText(const std::vector<CellArea>& areas);

}  // namespace zorkanca::excel
