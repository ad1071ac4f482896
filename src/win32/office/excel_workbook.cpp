#include "win32/office/excel_objects.h"

namespace zorkanca::win32 {

namespace {

ExcelWorksheetReference SheetOf(LateObject sheet) {
  return std::make_shared<LateExcelWorksheet>(std::move(sheet));
}

std::unique_ptr<ExcelRange> RangeOf(LateObject range) {
  return std::make_unique<LateExcelRange>(std::move(range));
}

}  // namespace

ExcelApplicationReference LateExcelWorkbook::Application() {
  return std::make_shared<LateExcelApplication>(object_.Child(u"Application"));
}

Text LateExcelWorkbook::Name() const {
  return AsText(object_.Get(u"Name"));
}

Text LateExcelWorkbook::FullName() const {
  return AsText(object_.Get(u"FullName"));
}

ExcelWorksheetReference LateExcelWorkbook::Sheets(std::int32_t index) {
  return SheetOf(object_.Item(u"Sheets", index));
}

ExcelWorksheetReference LateExcelWorkbook::ActiveSheet() {
  return SheetOf(object_.Child(u"ActiveSheet"));
}

void LateExcelWorkbook::Activate() {
  object_.Call(u"Activate");
}

void LateExcelWorkbook::SaveAs(TextView fileName, ExcelSaveFormat format) {
  object_.Call(u"SaveAs", fileName, static_cast<std::int32_t>(format));
}

void LateExcelWorkbook::ExportAsFixedFormat(const ExportWorkbookArguments& arguments) {
  object_.CallNamed(u"ExportAsFixedFormat", {{u"Type", ToVariant(arguments.Type)},
                                             {u"fileName", ToVariant(arguments.fileName)},
                                             {u"Quality", ToVariant(arguments.Quality)},
                                             {u"IncludeDocProperties", ToVariant(arguments.IncludeDocProperties)},
                                             {u"IgnorePrintAreas", ToVariant(arguments.IgnorePrintAreas)},
                                             {u"OpenAfterPublish", ToVariant(arguments.OpenAfterPublish)}});
}

void LateExcelWorkbook::Close(bool SaveChanges) {
  object_.Call(u"Close", SaveChanges);
}

std::unique_ptr<ExcelRange> LateExcelWorksheet::Range(TextView address) {
  return RangeOf(object_.Child(u"Range", address));
}

std::unique_ptr<ExcelRange> LateExcelWorksheet::Rows(TextView address) {
  return RangeOf(object_.Item(u"Rows", address));
}

std::unique_ptr<ExcelRange> LateExcelWorksheet::Columns(std::int32_t index) {
  return RangeOf(object_.Item(u"Columns", index));
}

std::int32_t LateExcelWorksheet::ShapeCount() {
  return AsLong(object_.Child(u"Shapes").Get(u"Count"));
}

void LateExcelWorksheet::Paste() {
  object_.Call(u"Paste");
}

void LateExcelWorksheet::Activate() {
  object_.Call(u"Activate");
}

}  // namespace zorkanca::win32
