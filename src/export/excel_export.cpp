#include "export/excel_export.h"

#include "export/export_failure.h"
#include "runtime/convert.h"

namespace zorkanca {

namespace {

constexpr TextView kCurrentItem = u"Zpracovávaná datová položka: \"";

}  // namespace

ExcelExport::ExcelExport(ExportContext& context, Database& database, TextView select, XlExportArguments& arguments)
    : context_(context),
      database_(database),
      select_(select),
      arguments_(arguments),
      excel_(context, arguments.rbSetAppVisible),
      session_(context),
      reader_(session_) {}

bool ExcelExport::Run() {
  const auto body = [&] {
    Export();
    return true;
  };
  const auto currentItem = [&](const Error&) {
    Text details(kCrLf);
    details.append(kCurrentItem);
    if (current_) details.append(current_->field().Name());
    return details.append(u"\"");
  };
  const bool done = RunToEdge(session_, kExcelExportTitle, body, {.details = currentItem});
  arguments_.roRetXls = excel_.workbook();
  return done;
}

void ExcelExport::Export() {
  const ColumnNameSource names =
      ChooseColumnNames(select_, arguments_.rsFieldNames, context_.preferences.namesOfRecordset);
  session_.ShowPointer(MousePointer::kHourglass);
  reader_.Open(database_, select_, arguments_.ri_rsOptions);
  WarnOfNameCount(context_, ColumnNamesOf(names, arguments_.rsFieldNames, session_.recordset()).size(),
                  reader_.FieldCount());
  WriteDataFile(names);
  session_.ShowPointer(MousePointer::kDefault);
  session_.ShowPointer(MousePointer::kHourglass);
  excel_.Open(/*templatePath=*/{});

  const ExcelWorksheetReference sheet = excel_.workbook()->Sheets(1);
  ExcelTextImport import(excel_.application());
  Import(import);
  import.Block()->Copy(*sheet->Range(u"A1"));
  std::int32_t index = 0;
  for (const ExcelColumn& column : columns_) sheet->Columns(++index)->HorizontalAlignment(column.Alignment());
  import.Close();
  Format(*sheet);
  session_.CloseRecordset();
}

void ExcelExport::WriteDataFile(ColumnNameSource names) {
  // Without a multiplier the size of the result is known before anything is written.
  if (context_.multiplier.empty()) {
    CheckSheetRows(std::int64_t{1} + context_.blankRecordsBefore + reader_.RecordCount());
  }
  arguments_.rsSourceFile = OutputPathInWorkFolder(context_, arguments_.rsSourceFile);
  ExcelDataFile file(session_.OpenOutput(arguments_.rsSourceFile, AnsiOrUtf8(context_.preferences)));
  if (names == ColumnNameSource::kFieldNames) {
    arguments_.rsFieldNames = FieldNameHeader(session_.recordset(), context_.preferences.namesOfRecordset);
  }
  file.WriteHeader(arguments_.rsFieldNames);
  for (std::int16_t left = context_.blankRecordsBefore; left > 0; --left) file.WriteBlankLine(reader_.FieldCount());
  reader_.ValidateMultiplier();
  WriteRecords(file);
  session_.CloseOutput();
}

void ExcelExport::WriteRecords(ExcelDataFile& file) {
  for (const QueryColumn& column : reader_.Columns()) columns_.emplace_back(column, context_.platform.locale);
  reader_.ForEachRecord(QueryReader::Reporting::kPercent, [&](std::int16_t copies) {
    for (ExcelColumn& column : columns_) AddCell(column, file);
    file.EndLine();
    for (; copies > 0; --copies) file.WriteRecord();
    file.ClearRecord();
  });
}

void ExcelExport::AddCell(ExcelColumn& column, ExcelDataFile& file) {
  const Value& value = column.field().Value();
  if (IsNull(value)) {
    file.BeginCell();
    return;
  }
  current_ = &column;
  column.LookAt(value);
  const Locale& locale = context_.platform.locale;
  const FormatPattern* format = column.numberFormat();
  if (column.isMultiplier()) {
    file.BeginCell().push_back(u'1');
  } else if (const Text* text = std::get_if<Text>(&value)) {
    if (format) {
      file.AddText(format->Apply(value, locale));  // a text where numbers are expected
    } else {
      file.AddText(*text);
    }
  } else if (format) {
    format->Append(file.BeginCell(), value, locale);
  } else {
    AppendText(file.BeginCell(), value, locale);
  }
}

void ExcelExport::Import(ExcelTextImport& import) {
  OpenTextArguments arguments = DataFileImport(context_, arguments_.rsSourceFile, ImportTypes(columns_));
  arguments.DecimalSeparator = Text(1, context_.separators.decimal);
  arguments.ThousandsSeparator = Text(1, context_.separators.grouping);
  try {
    import.Open(arguments);
  } catch (const Error&) {
    // An old Excel does not know the separators; it takes the system's, which are the same.
    arguments.DecimalSeparator.reset();
    arguments.ThousandsSeparator.reset();
    import.Open(arguments);
  }
}

void ExcelExport::Format(ExcelWorksheet& sheet) {
  sheet.Range(u"A1")->CurrentRegion()->AutoFitColumns();
  const std::unique_ptr<ExcelRange> captions = sheet.Rows(u"1:1");
  captions->FontBold(true);
  captions->HorizontalAlignment(ExcelAlignment::kCenter);
  excel_.workbook()->Activate();
  sheet.Activate();
  sheet.Range(u"A1")->Select();
}

}  // namespace zorkanca
