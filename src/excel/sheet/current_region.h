// The block of cells round a cell.
#pragma once

#include "excel/grid/work_watch.h"
#include "excel/sheet/sheet_model.h"

namespace zorkanca::excel {

/// The smallest area with the cell round which no cell has a content, corners included. Errors: 18 when cancelled.
CellArea CurrentRegionOf(const SheetModel& sheet, CellAddress cell, const ExcelWatch& watch);

}  // namespace zorkanca::excel
