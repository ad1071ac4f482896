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

/// Arguments that both methods have, under their published names.
struct XlTemplateArguments : TemplateArguments {
  Text rsSourceFile{};                ///< data file, see `OutputPathInWorkFolder`; receives its path
  ExcelWorkbookReference roRetXls{};  ///< receives the workbook, after a failure too unless the user has cancelled
  bool rbSetAppVisible = true;        ///< Excel is shown maximised at the end
};

/// Arguments of XlExport_sab.
struct XlSabArguments : XlTemplateArguments {
  /// Column names separated by ";", may be followed by a bar-code specification; receives the names alone.
  Text rsFieldNames{};
  std::int16_t ri_rsOptions = 0;
};

/// Runs XlExport_sab from start to end; failures are shown to the user.
/// @return true when the template is filled; false, too, when the user chose no template
bool ExportIntoTemplate(ExportContext& context, Database& database, TextView select, XlSabArguments& arguments);
/// The same for XlExport_sab_file.
bool ExportIntoTemplate(ExportContext& context, TextView headersFile, TextView dataFile,
                        XlTemplateArguments& arguments);

/// One run of either.
class ExcelTemplateExport {
 public:
  ExcelTemplateExport(ExportContext& context, XlTemplateArguments& arguments);

  /// For the records; its ending is that of this object.
  ExportSession& session() { return session_; }
  bool Run(TemplateRecords& records);

 private:
  bool Export(TemplateRecords& records);
  void Fill(TemplateRecords& records, std::int32_t recordCount);
  void WarnOfUnread(ExcelWorksheet& sheet, const ExcelRowPatterns& patterns) const;
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
