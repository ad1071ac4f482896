// An open workbook of the engine under the members of the object model.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "excel/book/workbook_content.h"
#include "excel/grid/work_watch.h"
#include "excel/text/imported_text.h"
#include "libreoffice/libreoffice_converter.h"
#include "platform/excel/excel_application.h"

namespace zorkanca::excel {

class OpenWorkbook;

/// Rows that were copied, and the sheet that they are of.
struct CopiedRows {
  std::weak_ptr<OpenWorkbook> workbook;
  std::size_t sheet = 0;
  std::shared_ptr<const RowBlock> block;
};
/// A part of an imported text that was copied; its workbook may be closed meanwhile.
struct CopiedImport {
  std::shared_ptr<const CellSource> source;
  CellArea part;  ///< of the source, from 1
};
using Clipboard = std::variant<std::monostate, CopiedRows, CopiedImport>;

/// What a workbook needs of the application that holds it.
struct WorkbookHolder {
  std::function<std::shared_ptr<ExcelApplication>()> application;
  std::function<void(const ExcelWorkbook&)> activate;
  std::function<bool(const ExcelWorkbook&)> isActive;
  std::function<void(const ExcelWorkbook&)> close;
  std::shared_ptr<Clipboard> clipboard;
  const LibreOfficeConverter& converter;
  const Locale& locale;
  const ExcelWatch& watch;
};

class OpenWorkbook final : public ExcelWorkbook, public std::enable_shared_from_this<OpenWorkbook> {
 public:
  /// @param fullName  full path of its file, or its name while it has none
  OpenWorkbook(std::unique_ptr<WorkbookContent> content, Text fullName, WorkbookHolder holder);

  std::shared_ptr<ExcelApplication> Application() override;
  Text Name() const override;
  Text FullName() const override;
  ExcelWorksheetReference Sheets(std::int32_t index) override;
  ExcelWorksheetReference ActiveSheet() override;
  void Activate() override;
  void SaveAs(TextView fileName, ExcelSaveFormat format) override;
  void ExportAsFixedFormat(const ExportWorkbookArguments& arguments) override;
  void Close(bool SaveChanges) override;

  /// Errors: 424 after it was closed.
  WorkbookContent& Opened() const;
  SheetModel& Sheet(std::size_t index) const { return Opened().Sheet(index); }
  const WorkbookHolder& holder() const { return holder_; }
  bool IsActive() const { return holder_.isActive(*this); }

 private:
  ExcelWorksheetReference SheetAt(std::size_t index);
  Package PackageFor(const std::string& path) const;

  std::unique_ptr<WorkbookContent> content_;  // null after closing
  Text fullName_;
  WorkbookHolder holder_;
};

}  // namespace zorkanca::excel
