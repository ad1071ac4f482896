// XlExport: the rows of a SELECT as a plain table in a new Excel workbook. The rows are written into a data file, which
// Excel imports; the imported block is copied into the workbook in one step and then formatted: captions bold and
// centred, columns aligned by what is in them and as wide as their texts.
#pragma once

#include <cstdint>
#include <vector>

#include "export/column_names.h"
#include "export/excel_columns.h"
#include "export/excel_data_file.h"
#include "export/excel_session.h"
#include "export/excel_text_import.h"
#include "export/export_session.h"
#include "export/query_reader.h"

namespace zorkanca {

/// Optional arguments of XlExport under their published names.
struct XlExportArguments {
  Text rsFieldNames{};  ///< captions separated by ";"; receives those that were derived
  std::int16_t ri_rsOptions = 0;
  Text rsSourceFile{};  ///< data file, see `OutputPathInWorkFolder`; receives its path. It is gone after a failure.
  ExcelWorkbookReference roRetXls{};  ///< receives the workbook, after a failure too once there is one
  bool rbSetAppVisible = true;        ///< Excel is shown maximised at the end
};

class ExcelExport {
 public:
  ExcelExport(ExportContext& context, Database& database, TextView select, XlExportArguments& arguments);

  /// Runs the export from start to end; failures are shown to the user.
  /// @return true when the table is in the workbook
  bool Run();

 private:
  void Export();
  void WriteDataFile(ColumnNameSource names);
  void WriteRecords(ExcelDataFile& file);
  void AddCell(ExcelColumn& column, ExcelDataFile& file);
  void Import(ExcelTextImport& import);
  void Format(ExcelWorksheet& sheet);

  ExportContext& context_;
  Database& database_;
  Text select_;
  XlExportArguments& arguments_;
  ExcelSession excel_;
  ExportSession session_;
  QueryReader reader_;
  std::vector<ExcelColumn> columns_;
  const ExcelColumn* current_ = nullptr;  // the last one whose value was not Null
};

}  // namespace zorkanca
