#include "excel/open_sheet.h"

#include "excel/grid/excel_errors.h"
#include "excel/pasting.h"
#include "excel/sheet_range.h"
#include "runtime/utf8.h"

namespace zorkanca::excel {

namespace {

[[noreturn]] void RefuseAddress(TextView address) {
  RaiseExcelError(Text(address).append(u" is no address within the sheet."));
}

}  // namespace

std::unique_ptr<ExcelRange> OpenSheet::RangeOf(const CellArea& area) const {
  return std::make_unique<SheetRange>(workbook_, index_, area);
}

std::unique_ptr<ExcelRange> OpenSheet::Range(TextView address) {
  workbook_->Opened();
  const std::optional<CellArea> area = ParseArea(ToUtf8(address));
  if (!area) RefuseAddress(address);
  return RangeOf(*area);
}

std::unique_ptr<ExcelRange> OpenSheet::Rows(TextView address) {
  workbook_->Opened();
  const std::optional<CellArea> area = ParseArea(ToUtf8(address));
  if (!area || !area->IsWholeRows()) RefuseAddress(address);
  return RangeOf(*area);
}

std::unique_ptr<ExcelRange> OpenSheet::Columns(std::int32_t index) {
  workbook_->Opened();
  if (index < 1 || index > kLastColumn) RaiseExcelError(u"There is no such column.");
  return RangeOf({1, index, kLastRow, index});
}

std::int32_t OpenSheet::ShapeCount() {
  return workbook_->Opened().ShapeCount(index_);
}

void OpenSheet::Paste() {
  PasteAtSelection(*workbook_, index_);
}

void OpenSheet::Activate() {
  workbook_->Opened().ActivateSheet(index_);
}

}  // namespace zorkanca::excel
