#include "export/word_query_export.h"

#include "export/bar_code_specification.h"
#include "export/export_failure.h"
#include "export/query_merge_data.h"

namespace zorkanca {

namespace {

// Shown after the message of an unforeseen failure, for whoever is asked for help.
constexpr TextView kStoppedAtCheckpoint = u"Přerušení v kontrolním bodě ";

}  // namespace

WordQueryExport::WordQueryExport(ExportContext& context, Database& database, TextView select,
                                 WdExportArguments& arguments)
    : context_(context),
      database_(database),
      select_(select),
      arguments_(arguments),
      session_(context),
      reader_(session_) {}

bool WordQueryExport::Run() {
  return RunToEdge(session_, kWordExportTitle, [&] { return Export(); }, {.afterwards = [&] { ShowCheckpoint(); }});
}

bool WordQueryExport::Export() {
  barCode_ = TakeBarCode(arguments_.rsFieldNames, context_.platform.locale);
  checkpointNumber_ = 1;
  const ColumnNameSource names =
      ChooseColumnNames(select_, arguments_.rsFieldNames, context_.preferences.namesOfRecordset);
  checkpointNumber_ = 2;
  session_.ShowPointer(MousePointer::kHourglass);
  reader_.Open(database_, select_, arguments_.ri_rsOptions);
  if (barCode_) barCode_->SetRecordset(session_.recordset());
  std::vector<Text> columns = ColumnNamesOf(names, arguments_.rsFieldNames, session_.recordset());
  WarnOfNameCount(context_, columns.size(), reader_.FieldCount());
  if (barCode_) columns.push_back(barCode_->BarCodeField());
  TemplateCheck check(context_, TemplateUse::kMerge);
  check.Before(arguments_, columns);
  WriteQueryMergeData(session_, reader_, names, arguments_.rsFieldNames, arguments_.rsSourceFile,
                      {.multiDocument = arguments_.MultiDocument,
                       .formats = arguments_.rvFormat,
                       .barCode = barCode_.get(),
                       .checkpointNumber = &checkpointNumber_});
  session_.ShowPointer(MousePointer::kDefault);
  TemplateChoice choice(context_, ApplOffice::MSWord, arguments_);
  checkpointNumber_ = 8;
  if (!MergeIntoTemplate(session_, choice, check, arguments_)) return false;
  checkpointNumber_ = 9;
  session_.CloseRecordset();
  return true;
}

void WordQueryExport::ShowCheckpoint() const {
  Text text(kStoppedAtCheckpoint);
  AppendDecimal(text, checkpointNumber_);
  context_.platform.userInterface.Show({.text = std::move(text), .title = Text()});
}

}  // namespace zorkanca
