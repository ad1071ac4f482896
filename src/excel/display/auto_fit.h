// Columns as wide as their longest content.
#pragma once

#include <cstdint>
#include <map>

#include "excel/grid/work_watch.h"
#include "excel/sheet/sheet_model.h"
#include "excel/tables/shared_strings.h"
#include "runtime/locale.h"

namespace zorkanca::excel {

/// The widths of the columns of an area by what its cells show, found in one walk over its rows. Texts of several lines
/// count by their longest line; columns without any content are not in the result. Errors: 18 when cancelled.
std::map<std::int32_t, double> FittedWidths(const SheetModel& sheet, const CellArea& area, const SharedStrings& texts,
                                            const Locale& locale, const ExcelWatch& watch);

}  // namespace zorkanca::excel
