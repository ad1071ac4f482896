#include "export/excel_template_export.h"

#include <algorithm>

#include "export/export_failure.h"
#include "export/progress.h"
#include "export/template_check.h"
#include "foundation/ignore_errors.h"

namespace zorkanca {

namespace {

constexpr TextView kReadingTemplate = u"Načítají se nastavení uložená v šabloně ...";
constexpr TextView kWritingData = u"Probíhá výstup dat do aplikace MS Excel ...";
constexpr TextView kItemName = u"Název položky: \"";

Text MissingItem(const Error& error, const Text& name) {
  if (error.number() != static_cast<std::int32_t>(RuntimeError::kItemNotFound)) return Text();
  return Text(kCrLf).append(kItemName).append(name).append(u"\"");
}

}  // namespace

ExcelTemplateExport::ExcelTemplateExport(ExportContext& context, XlTemplateArguments& arguments)
    : context_(context), arguments_(arguments), excel_(context, arguments.rbSetAppVisible), session_(context) {
  session_.KeepOutputAfterFailure();
}

bool ExcelTemplateExport::Run(TemplateRecords& records) {
  const bool done = RunToEdge(session_, kExcelExportTitle, [&] { return Export(records); },
                              {.details = [&](const Error& error) { return MissingItem(error, records.LastName()); }});
  arguments_.roRetXls = excel_.workbook();
  return done;
}

bool ExcelTemplateExport::Export(TemplateRecords& records) {
  const std::int32_t recordCount = records.Open();
  session_.ShowPointer(MousePointer::kDefault);
  TemplateCheck check(context_, TemplateUse::kCells);
  check.Before(arguments_, records.ColumnNames());
  if (!TemplateChoice(context_, ApplOffice::MSExcel, arguments_).Settle()) return false;
  check.Chosen(arguments_.rsTemplate);
  session_.ShowPointer(MousePointer::kHourglass);
  excel_.Open(arguments_.rsTemplate);
  session_.ShowPointer(MousePointer::kHourglass);
  Fill(records, recordCount);
  return true;
}

void ExcelTemplateExport::Fill(TemplateRecords& records, std::int32_t recordCount) {
  const ExcelWorksheetReference sheet = excel_.workbook()->ActiveSheet();
  excel_.KeepUserOut();
  context_.RaiseExportState(ExportStateValue::esWaitForApp, kReadingTemplate);
  ExcelRowPatterns patterns = TakeRowPatterns(*sheet);
  if (context_.report && context_.report->HasListener()) WarnOfUnread(*sheet, patterns);
  for (auto& row : patterns.rows) {
    for (ExcelCellPattern& cell : row) cell.Bind(records);
  }
  const std::int64_t copies = std::int64_t{recordCount} + std::max<std::int16_t>(context_.blankRecordsBefore, 0);
  CheckSheetRows(patterns.RowCount() * copies);
  RepeatRows(excel_.application(), *sheet, patterns.RowCount(), static_cast<std::int32_t>(copies));

  WriteDataFile(records, recordCount, patterns);
  LayOver(*sheet, patterns.width);
  sheet->Range(u"A1")->Select();
  session_.ShowPointer(MousePointer::kDefault);
}

void ExcelTemplateExport::WarnOfUnread(ExcelWorksheet& sheet, const ExcelRowPatterns& patterns) const {
  for (const Text& address : PlaceholdersBehindPatterns(sheet, patterns)) {
    Text warning = u"Cell ";
    warning.append(address).append(
        u" of the template stays as it is: an empty cell before it ends the pattern of its row.");
    context_.Warn(warning);
  }
}

void ExcelTemplateExport::WriteDataFile(TemplateRecords& records, std::int32_t recordCount,
                                        ExcelRowPatterns& patterns) {
  arguments_.rsSourceFile = OutputPathInWorkFolder(context_, arguments_.rsSourceFile);
  ExcelDataFile file(session_.OpenOutput(arguments_.rsSourceFile, AnsiOrUtf8(context_.preferences)));
  for (std::int16_t left = context_.blankRecordsBefore; left > 0; --left) {
    for (const auto& row : patterns.rows) file.WriteBlankLine(static_cast<std::int32_t>(row.size()));
  }
  context_.RaiseExportState(ExportStateValue::esWaitForApp, kWritingData);
  try {
    WriteRecords(records, recordCount, patterns, file);
  } catch (const Error& error) {
    // Who cancels does not want to see what is done so far.
    if (StopMessage(error) == kCancelledByUser) IgnoreErrors([&] { excel_.Discard(); });
    throw;
  }
  session_.CloseRecordset();
  session_.CloseOutput();
}

void ExcelTemplateExport::WriteRecords(TemplateRecords& records, std::int32_t recordCount, ExcelRowPatterns& patterns,
                                       ExcelDataFile& file) {
  Progress progress(context_, recordCount);
  records.ForEach([&](std::int16_t copies) {
    if (copies < 1) return;
    for (auto& row : patterns.rows) {
      for (ExcelCellPattern& cell : row) cell.AddTo(file, context_.platform.locale);
      file.EndLine();
    }
    for (; copies > 0; --copies) {
      file.WriteRecord();
      progress.RecordDone();
    }
    file.ClearRecord();
  });
  progress.Finish();
}

void ExcelTemplateExport::LayOver(ExcelWorksheet& sheet, std::int32_t width) {
  std::vector<ExcelColumnInfo> columns;
  for (std::int32_t column = 1; column <= width; ++column) {
    columns.push_back({.column = column, .type = ExcelColumnType::kText});
  }
  ExcelTextImport import(excel_.application());
  import.Open(DataFileImport(context_, arguments_.rsSourceFile, std::move(columns)));
  import.workbook().Activate();
  const std::unique_ptr<ExcelRange> corner = sheet.Range(u"A1");
  if (context_.settings.XlPasteFormulasNoClipboard) {
    TransferContents(*import.Block(), *corner);
  } else {
    import.Block()->Copy();
    corner->PasteSpecial({.Paste = ExcelPasteType::kFormulas});
    context_.platform.shell.ClearClipboard();
  }
  import.Close();
}

bool ExportIntoTemplate(ExportContext& context, Database& database, TextView select, XlSabArguments& arguments) {
  ExcelTemplateExport run(context, arguments);
  QueryTemplateRecords records(run.session(), database, select, arguments.rsFieldNames, arguments.ri_rsOptions);
  return run.Run(records);
}

bool ExportIntoTemplate(ExportContext& context, TextView headersFile, TextView dataFile,
                        XlTemplateArguments& arguments) {
  ExcelTemplateExport run(context, arguments);
  PreparedTemplateRecords records(run.session(), headersFile, dataFile);
  return run.Run(records);
}

}  // namespace zorkanca
