#include "excel/open_workbook.h"

#include "excel/grid/excel_errors.h"
#include "excel/open_sheet.h"
#include "files/native_path.h"
#include "opc/temporary_package.h"
#include "platform/paths.h"
#include "runtime/error.h"

namespace zorkanca::excel {

OpenWorkbook::OpenWorkbook(std::unique_ptr<WorkbookContent> content, Text fullName, WorkbookHolder holder)
    : content_(std::move(content)), fullName_(std::move(fullName)), holder_(std::move(holder)) {}

WorkbookContent& OpenWorkbook::Opened() const {
  if (!content_) RaiseExcelError(ExcelError::kObjectRequired, u"Object required");
  return *content_;
}

std::shared_ptr<ExcelApplication> OpenWorkbook::Application() {
  Opened();
  return holder_.application();
}

Text OpenWorkbook::Name() const {
  Opened();
  return Text(GetFileName(fullName_));
}

Text OpenWorkbook::FullName() const {
  Opened();
  return fullName_;
}

ExcelWorksheetReference OpenWorkbook::SheetAt(std::size_t index) {
  Opened().Sheet(index);
  return std::make_shared<OpenSheet>(shared_from_this(), index);
}

ExcelWorksheetReference OpenWorkbook::Sheets(std::int32_t index) {
  if (index < 1 || static_cast<std::size_t>(index) > Opened().sheetCount()) Raise(RuntimeError::kSubscriptOutOfRange);
  return SheetAt(static_cast<std::size_t>(index) - 1);
}

ExcelWorksheetReference OpenWorkbook::ActiveSheet() {
  return SheetAt(Opened().activeSheet());
}

void OpenWorkbook::Activate() {
  Opened();
  holder_.activate(*this);
}

// A file that is to hold macros keeps them; the usual format has none.
Package OpenWorkbook::PackageFor(const std::string& path) const {
  const Text extension = LowerCase(GetExtensionName(FromNativePath(path)));
  return extension == u"xlsm" ? Opened().Written() : Opened().WrittenWithoutMacros();
}

void OpenWorkbook::SaveAs(TextView fileName, ExcelSaveFormat format) {
  Opened();
  if (format != ExcelSaveFormat::kWorkbookXml) RaiseUnsupportedExcelMember(u"Workbook.SaveAs in that format");
  const std::string path = AbsolutePath(ToNativePath(fileName));
  PackageFor(path).SaveAs(path);
  fullName_ = FromNativePath(path);
}

void OpenWorkbook::ExportAsFixedFormat(const ExportWorkbookArguments& arguments) {
  Opened();
  if (arguments.Type != 0) RaiseUnsupportedExcelMember(u"Workbook.ExportAsFixedFormat other than PDF");
  if (arguments.IgnorePrintAreas) RaiseUnsupportedExcelMember(u"Workbook.ExportAsFixedFormat with IgnorePrintAreas");
  if (arguments.OpenAfterPublish) RaiseUnsupportedExcelMember(u"Workbook.ExportAsFixedFormat with OpenAfterPublish");
  const std::string path = AbsolutePath(ToNativePath(arguments.fileName));
  if (path == ToNativePath(fullName_)) Raise(RuntimeError::kPermissionDenied);  // an open file is not to be replaced
  const TemporaryPackage file(".xlsx");
  PackageFor(file.path()).SaveAs(file.path());
  holder_.converter.ToPdf(file.path(), path);
}

void OpenWorkbook::Close(bool SaveChanges) {
  Opened();
  if (SaveChanges) RaiseUnsupportedExcelMember(u"Workbook.Close that saves changes");
  content_.reset();
  holder_.close(*this);
}

}  // namespace zorkanca::excel
