// A data file that Excel has imported as text, from which the cells go into the result.
#pragma once

#include <memory>
#include <vector>

#include "export/excel_data_file.h"
#include "export/export_context.h"
#include "platform/excel/excel_application.h"
#include "runtime/text.h"

namespace zorkanca {

/// The import of a data file (`ExcelDataFile`), its numbers by the system's separators.
OpenTextArguments DataFileImport(const ExportContext& context, const Text& path, std::vector<ExcelColumnInfo> columns);

/// The workbook of one import. The destructor closes it when a failure has left it open.
class ExcelTextImport {
 public:
  explicit ExcelTextImport(ExcelApplication& excel) : excel_(excel) {}
  ~ExcelTextImport();
  ExcelTextImport(const ExcelTextImport&) = delete;
  ExcelTextImport& operator=(const ExcelTextImport&) = delete;

  /// Errors: those of `ExcelApplication::OpenText`.
  void Open(const OpenTextArguments& arguments);

  ExcelWorkbook& workbook() { return *workbook_; }
  /// The imported cells.
  std::unique_ptr<ExcelRange> Block();
  /// Closes the workbook unsaved.
  void Close();

 private:
  ExcelApplication& excel_;
  ExcelWorkbookReference workbook_;
};

}  // namespace zorkanca
