// Tables whose headings were written over.
#pragma once

#include <string>

#include "excel/grid/table_references.h"
#include "excel/sheet/sheet_model.h"
#include "excel/tables/shared_strings.h"
#include "opc/package.h"
#include "runtime/locale.h"

namespace zorkanca::excel {

/// A table names its columns, and the cells of its heading hold these names as texts; where they differ the office
/// calls the workbook damaged. A table keeps its area whatever is pasted over it, so the columns take the names that
/// the cells show, as the office does it: a cell that holds no text gets what it shows as one, an empty one "Sloupec1",
/// one that repeats a name a number behind it. Tables whose headings nobody touched stay byte for byte.
/// @param package    its table parts are replaced
/// @param sheetPart  the sheet's name in it
/// @param renames    gets the columns that are called otherwise now
/// Errors: 5 for what is no sound table.
void SettleTableHeadings(Package& package, const std::string& sheetPart, SheetModel& sheet, const SharedStrings& texts,
                         const Locale& locale, TableRenames& renames);

}  // namespace zorkanca::excel
