// The block of cells round a cell.
#pragma once

#include "excel/sheet/sheet_model.h"

namespace zorkanca::excel {

/// The smallest area with the cell round which no cell has a content, corners included.
CellArea CurrentRegionOf(const SheetModel& sheet, CellAddress cell);

}  // namespace zorkanca::excel
