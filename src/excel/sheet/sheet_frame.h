// What surrounds the rows of a written sheet.
#pragma once

#include <string>
#include <vector>

#include "excel/sheet/row_repeats.h"
#include "excel/sheet/sheet_model.h"

namespace zorkanca::excel {

/// The XML before and behind the rows.
struct SheetFrame {
  std::string before;
  std::string behind;
  std::vector<CellArea> merges = {};  ///< all merged cells
};

/// The repeats that a sheet's layers hold, in order.
std::vector<RowRepeat> RepeatsOf(const SheetModel& sheet);

/// Carries out on everything round the rows what the layers say: dimension, columns, selection; merged cells,
/// conditional formats, validations, links and sparklines of repeated rows.
/// @param columns  with fitted widths
SheetFrame MakeFrame(const SheetModel& sheet, const ColumnTable& columns);

}  // namespace zorkanca::excel
