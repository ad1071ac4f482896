#include "excel/pasting.h"

#include "excel/grid/excel_errors.h"

namespace zorkanca::excel {

namespace {

[[noreturn]] void RefusePlace() {
  RaiseExcelError(u"What was copied does not fit into the sheet, which has 1048576 rows and 16384 columns.");
}

// The import that a sheet consists of, when nothing else was done to it.
const ContentsLayer* ImportOf(const SheetModel& sheet) {
  if (sheet.layers().size() != 1 || !sheet.part().rows().empty()) return nullptr;
  const auto* layer = std::get_if<ContentsLayer>(&sheet.layers().front());
  return layer && layer->withFormats ? layer : nullptr;
}

void PasteRows(const CopiedRows& rows, OpenWorkbook& workbook, std::size_t sheet, CellAddress place,
               std::int32_t copies) {
  if (rows.workbook.lock().get() != &workbook || rows.sheet != sheet) {
    RaiseUnsupportedExcelMember(u"Worksheet.Paste of rows of another sheet");
  }
  const std::int64_t last = place.row + std::int64_t{rows.block->RowCount()} * copies - 1;
  if (place.column != 1 || last > kLastRow) RefusePlace();
  workbook.Sheet(sheet).PasteRows(rows.block, place.row, copies);
}

void PasteImport(const CopiedImport& import, SheetModel& sheet, CellAddress place, bool withFormats) {
  const CellArea area = import.part.Moved(place.row - import.part.top, place.column - import.part.left);
  if (!IsInSheet(area)) RefusePlace();
  sheet.Lay({.area = area,
             .source = import.source,
             .sourceRow = import.part.top - 1,
             .sourceColumn = import.part.left - 1,
             .withFormats = withFormats});
}

}  // namespace

Clipboard CopiedFrom(const std::shared_ptr<OpenWorkbook>& workbook, std::size_t sheet, const CellArea& area) {
  const SheetModel& model = workbook->Sheet(sheet);
  if (const ContentsLayer* import = ImportOf(model)) {
    const std::optional<CellArea> part = Common(area, import->area);
    if (part && part->top == area.top && part->left == area.left) return CopiedImport{import->source, *part};
  }
  if (!area.IsWholeRows()) RaiseUnsupportedExcelMember(u"Range.Copy of other than whole rows or an imported text");
  return CopiedRows{workbook, sheet, model.CopyRows(area.top, area.bottom)};
}

void PasteAt(const Clipboard& clipboard, OpenWorkbook& workbook, std::size_t sheet, CellAddress place,
             std::int32_t copies, bool withFormats) {
  if (const auto* import = std::get_if<CopiedImport>(&clipboard)) {
    PasteImport(*import, workbook.Sheet(sheet), place, withFormats);
  } else if (const auto* rows = std::get_if<CopiedRows>(&clipboard)) {
    if (!withFormats) RaiseUnsupportedExcelMember(u"Range.PasteSpecial of formulas of rows");
    PasteRows(*rows, workbook, sheet, place, copies);
  } else {
    RaiseExcelError(u"Nothing was copied that could be pasted.");
  }
}

void PasteAtSelection(OpenWorkbook& workbook, std::size_t sheet) {
  SheetModel& model = workbook.Sheet(sheet);
  const CellArea selection = model.selection().value_or(CellArea());
  const Clipboard clipboard = *workbook.holder().clipboard;
  std::int32_t copies = 1;
  if (const auto* rows = std::get_if<CopiedRows>(&clipboard)) {
    const std::int32_t count = rows->block->RowCount();
    if (selection.IsWholeRows() && selection.RowCount() % count == 0) copies = selection.RowCount() / count;
  }
  PasteAt(clipboard, workbook, sheet, {selection.top, selection.left}, copies, true);
}

}  // namespace zorkanca::excel
