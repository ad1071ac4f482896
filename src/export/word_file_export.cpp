#include "export/word_file_export.h"

#include "export/bar_code_specification.h"
#include "export/column_names.h"
#include "export/export_failure.h"
#include "export/progress.h"
#include "formats/column_formats.h"

namespace zorkanca {

bool WordFileExport::Run() {
  return RunToEdge(session_, kWordExportTitle, [&] { return Export(); });
}

bool WordFileExport::Export() {
  Text header = ReadPreparedHeader(context_, headersFileName_);
  barCode_ = TakeBarCode(header, context_.platform.locale);
  TemplateCheck check(context_, TemplateUse::kMerge);
  check.Before(arguments_, ColumnsOf(header));
  {
    session_.ShowPointer(MousePointer::kHourglass);
    const PreparedData data(context_, dataFileName_);
    session_.ShowPointer(MousePointer::kDefault);
    WriteMergeData(std::move(header), data);
  }
  session_.ShowPointer(MousePointer::kDefault);
  TemplateChoice choice(context_, ApplOffice::MSWord, arguments_);
  return MergeIntoTemplate(session_, choice, check, arguments_);
}

std::vector<Text> WordFileExport::ColumnsOf(TextView header) const {
  std::vector<Text> columns;
  SplitColumnsFromDataRow(header, columns);
  if (barCode_) columns.push_back(barCode_->BarCodeField());
  return columns;
}

void WordFileExport::WriteMergeData(Text header, const PreparedData& data) {
  MergeDataFile file = OpenMergeDataFile(session_, arguments_.rsSourceFile, arguments_.MultiDocument);
  std::vector<Text> names;
  SplitColumnsFromDataRow(header, names);
  if (barCode_) header.append(1, kExportSeparator).append(barCode_->BarCodeField());
  file.WriteHeader(header);
  const auto valueCount = static_cast<std::int32_t>(names.size()) + (barCode_ ? 1 : 0);
  file.WriteBlankRecords(context_.blankRecordsBefore, valueCount);
  WriteRecords(file, data, names.size());
  session_.CloseOutput();
}

// What the message says of it does not help to find it.
void WordFileExport::RaiseShortLine(const PreparedData& data, TextView line, std::size_t values,
                                    std::size_t columns) const {
  const Error error = ShortLine(data, line, dataFileName_, values, columns);
  context_.NoteCause(error);
  Raise(RuntimeError::kSubscriptOutOfRange);
}

void WordFileExport::WriteRecords(MergeDataFile& file, const PreparedData& data, std::size_t columnCount) {
  ColumnFormats formats(arguments_.rvFormat, static_cast<std::int32_t>(columnCount), context_.platform.locale);
  Progress progress(context_, static_cast<std::int32_t>(data.lines().size()));
  std::vector<Text> values;
  for (const TextView line : data.lines()) {
    SplitColumnsFromDataRow(line, values);
    if (values.size() < columnCount) RaiseShortLine(data, line, values.size(), columnCount);
    for (std::size_t column = 0; column < columnCount; ++column) {
      const cFormat* format = formats.Of(static_cast<std::int32_t>(column));
      file.AppendValue(format ? format->Apply(values[column]) : values[column]);
    }
    if (barCode_) file.AppendBarCode(barCode_->EncodeValue(values.back()));
    file.EndRecord(1);
    if (!arguments_.MultiDocument) progress.RecordDone();
  }
  context_.NoteRecords(static_cast<std::int64_t>(data.lines().size()));
  if (!arguments_.MultiDocument) progress.Finish();
}

}  // namespace zorkanca
