#include "export/html_export.h"

#include "export/export_failure.h"
#include "export/html_cells.h"
#include "platform/paths.h"

namespace zorkanca {

namespace {

constexpr TextView kTitle = u"Export dat do formátu HTML";
constexpr TextView kOpeningViewer = u"Otvírá se prohlížeč formátu HTML ...";
constexpr TextView kViewerOpened = u"Dokončeno otvírání prohlížeče formátu HTML";

}  // namespace

HtmlExport::HtmlExport(ExportContext& context, Database& database, TextView select, HtmlExportArguments& arguments)
    : context_(context),
      database_(database),
      select_(select),
      arguments_(arguments),
      session_(context),
      reader_(session_) {}

bool HtmlExport::Run() {
  return RunToEdge(session_, kTitle, [&] {
    Export();
    return true;
  });
}

void HtmlExport::Export() {
  const ColumnNameSource names =
      ChooseColumnNames(select_, arguments_.rsFieldNames, context_.preferences.namesOfRecordset);
  session_.ShowPointer(MousePointer::kHourglass);
  reader_.Open(database_, select_, arguments_.ri_rsOptions);
  WarnOfNameCount(context_, ColumnNamesOf(names, arguments_.rsFieldNames, session_.recordset()).size(),
                  reader_.FieldCount());
  SettlePath();
  output_ = &session_.OpenOutput(arguments_.rsSourceFile, AnsiOrUtf8(context_.preferences));
  WriteTable(names);
  session_.CloseOutput();
  session_.CloseRecordset();
  OpenViewer();
}

void HtmlExport::SettlePath() {
  FileSystem& files = context_.platform.files;
  const Text path = OutputPathInWorkFolder(context_, arguments_.rsSourceFile);
  Text extension = LowerCase(Trim(GetExtensionName(path)));
  if (extension != u"htm" && extension != u"html") extension = u"htm";
  Text name(Trim(GetBaseName(path)));
  name.append(u".").append(extension);
  arguments_.rsSourceFile = BuildPath(files, Trim(GetParentFolderName(path)), name);
}

void HtmlExport::WriteTable(ColumnNameSource names) {
  output_->WriteLine(u"<HTML>");
  output_->WriteLine(u"<HEAD>");
  if (context_.preferences.unicode) output_->WriteLine(u"<META charset=\"utf-8\">");
  output_->WriteLine(u"<TITLE>" + arguments_.rsTitle + u"</TITLE>");
  output_->WriteLine(u"</HEAD>");
  output_->WriteLine(u"<BODY>");
  output_->WriteLine(u"<TABLE border=" + DecimalText(arguments_.riTblBorder) + u" cellPadding=" +
                     DecimalText(arguments_.riTblCellPadding) + u" cellSpacing=" +
                     DecimalText(arguments_.riTblCellSpacing) + u">");
  WriteHeaderRow(names);
  WriteBlankRows();
  columns_ = reader_.Columns();
  reader_.ForEachRecord(QueryReader::Reporting::kPercent, [&](std::int16_t copies) {
    for (; copies > 0; --copies) WriteRecord();
  });
  output_->WriteLine(u"</TABLE>");
  output_->WriteLine(u"</BODY>");
  output_->WriteLine(u"</HTML>");
}

void HtmlExport::WriteHeaderRow(ColumnNameSource names) {
  row_.clear();
  html::BeginRow(row_);
  if (names == ColumnNameSource::kFieldNames) {
    for (const Text& name : FieldNames(session_.recordset())) html::AppendHeaderCell(row_, name);
  } else {
    for (const TextView name : Split(arguments_.rsFieldNames, kExportSeparator)) html::AppendHeaderCell(row_, name);
    arguments_.rsFieldNames.clear();
  }
  html::EndRow(row_);
  output_->Write(row_);
}

void HtmlExport::WriteBlankRows() {
  row_.clear();
  html::BeginRow(row_);
  for (std::int32_t index = 0; index < reader_.FieldCount(); ++index) html::AppendBlankCell(row_);
  html::EndRow(row_);
  for (std::int16_t left = context_.blankRecordsBefore; left > 0; --left) output_->Write(row_);
}

void HtmlExport::WriteRecord() {
  row_.clear();
  html::BeginRow(row_);
  for (const QueryColumn& column : columns_) {
    html::AppendDataCell(row_, *column.field, column.isMultiplier, context_.platform.locale);
  }
  html::EndRow(row_);
  output_->Write(row_);
}

void HtmlExport::OpenViewer() {
  context_.RaiseExportState(ExportStateValue::esOpenApp, kOpeningViewer);
  session_.ShowPointer(MousePointer::kHourglass);
  context_.platform.shell.OpenDocument(arguments_.rsSourceFile);
  context_.RaiseExportState(ExportStateValue::esStill, kViewerOpened);
}

}  // namespace zorkanca
