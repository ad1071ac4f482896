#include "export/query_merge_data.h"

#include "runtime/convert.h"

namespace zorkanca {

namespace {

// Writes the values of the current record; the texts in between are kept for their room.
class RecordWriter {
 public:
  RecordWriter(std::vector<QueryColumn> columns, MergeDataFile& file, ColumnFormats& formats, const Locale& locale)
      : columns_(std::move(columns)), file_(file), formats_(formats), locale_(locale) {}

  void Write() {
    std::int32_t index = 0;
    for (const QueryColumn& column : columns_) AppendValue(column, index++);
  }

 private:
  void AppendValue(const QueryColumn& column, std::int32_t index) {
    const Value& value = column.field->Value();
    if (IsNull(value)) return file_.AppendValue({});
    static const Value kOne = Text(u"1");
    const Value& shown = column.isMultiplier ? kOne : value;
    if (const cFormat* format = formats_.Of(index)) return file_.AppendValue(format->Apply(shown));
    if (const Text* text = std::get_if<Text>(&shown)) return file_.AppendValue(*text);
    text_.clear();
    AppendText(text_, shown, locale_);
    file_.AppendValue(text_);
  }

  std::vector<QueryColumn> columns_;
  MergeDataFile& file_;
  ColumnFormats& formats_;
  const Locale& locale_;
  Text text_;
};

}  // namespace

void WriteQueryMergeData(ExportSession& session, QueryReader& reader, ColumnNameSource names, Text& rsFieldNames,
                         Text& rsSourceFile, const QueryMergeDataOptions& options) {
  const ExportContext& context = session.context();
  const Locale& locale = context.platform.locale;
  std::int16_t unasked = 0;
  std::int16_t& checkpointNumber = options.checkpointNumber ? *options.checkpointNumber : unasked;
  checkpointNumber = 3;
  MergeDataFile file = OpenMergeDataFile(session, rsSourceFile, options.multiDocument);
  checkpointNumber = 4;
  const TextView separator(&kExportSeparator, 1);
  if (names == ColumnNameSource::kFieldNames)
    rsFieldNames = FieldNameHeader(session.recordset(), context.preferences.namesOfRecordset);
  if (options.barCode) rsFieldNames.append(separator).append(options.barCode->BarCodeField());
  file.WriteHeader(rsFieldNames);
  file.WriteBlankRecords(context.blankRecordsBefore, reader.FieldCount() + (options.barCode ? 1 : 0));

  ColumnFormats formats(options.formats, reader.FieldCount(), locale);
  reader.ValidateMultiplier();
  checkpointNumber = 5;
  RecordWriter record(reader.Columns(), file, formats, locale);
  reader.ForEachRecord(options.multiDocument ? QueryReader::Reporting::kSilent : QueryReader::Reporting::kPercent,
                       [&](std::int16_t copies) {
                         record.Write();
                         checkpointNumber = 6;
                         if (options.barCode) file.AppendBarCode(options.barCode->EncodeRecord());
                         file.EndRecord(copies);
                       });
  checkpointNumber = 7;
  session.CloseOutput();
}

}  // namespace zorkanca
