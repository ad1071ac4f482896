// XlExport_sab and XlExport_sab_file: an Excel template filled with records. The rows of the template's pattern are
// repeated for each record with all that belongs to them; the texts are written into a data file of the same shape,
// which Excel imports; the imported block is laid over the repeated rows in one step.
#pragma once

#include <cstdint>

#include "export/excel_session.h"
#include "export/excel_template_sheet.h"
#include "export/excel_text_import.h"
#include "export/export_session.h"
#include "export/template_choice.h"
#include "export/template_records.h"
#include "platform/database.h"

namespace zorkanca {

/// Arguments of both methods under their published names.
struct XlTemplateArguments {
  TemplateArguments templates{};      ///< rsZorApl, rsTemplate, rbAdmin, rsListCaption, rbSupply
  Text rsFieldNames{};                ///< of a query: column names and specification of a bar code
  std::int16_t ri_rsOptions = 0;      ///< of a query
  Text rsSourceFile{};                ///< data file, see `OutputPathInWorkFolder`; receives its path
  ExcelWorkbookReference roRetXls{};  ///< receives the workbook, after a failure too unless the user has cancelled
  bool rbSetAppVisible = true;        ///< Excel is shown maximised at the end
};

class ExcelTemplateExport {
 public:
  ExcelTemplateExport(ExportContext& context, XlTemplateArguments& arguments);

  /// Each runs an export from start to end; failures are shown to the user.
  /// @return true when the template is filled; false as well when the user has chosen none
  bool RunOverQuery(Database& database, TextView select);
  bool RunOverFiles(TextView headersFile, TextView dataFile);

 private:
  bool Run(TemplateRecords& records);
  bool Export(TemplateRecords& records);
  void Fill(TemplateRecords& records, std::int32_t recordCount);
  void WriteDataFile(TemplateRecords& records, std::int32_t recordCount, ExcelRowPatterns& patterns);
  void WriteRecords(TemplateRecords& records, std::int32_t recordCount, ExcelRowPatterns& patterns,
                    ExcelDataFile& file);
  void LayOver(ExcelWorksheet& sheet, std::int32_t width);

  ExportContext& context_;
  XlTemplateArguments& arguments_;
  ExcelSession excel_;
  ExportSession session_;
};

}  // namespace zorkanca
