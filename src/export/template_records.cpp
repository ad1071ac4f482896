#include "export/template_records.h"

#include "export/column_names.h"
#include "export/export_failure.h"
#include "export/multiplier_sum.h"
#include "runtime/convert.h"

namespace zorkanca {

std::int32_t QueryTemplateRecords::Open() {
  TakeCode(rsFieldNames_, session_.context().platform.locale);
  ChooseColumnNames(select_, rsFieldNames_, session_.context().preferences.namesOfRecordset);
  session_.ShowPointer(MousePointer::kHourglass);
  reader_.Open(database_, select_, options_);
  SetCodeRecordset(session_.recordset());
  reader_.ValidateMultiplier();
  return session_.context().multiplier.empty() ? reader_.RecordCount() : MultiplierSum();
}

std::int32_t QueryTemplateRecords::MultiplierSum() {
  const ExportContext& context = session_.context();
  const std::int32_t sum = AccessingData([&] {
    const Text statement = MultiplierSumStatement(select_, context.multiplier);
    const auto recordset = database_.OpenRecordset(statement, RecordsetType::kDynaset, options_);
    if (recordset->Eof() && recordset->Bof()) return std::int32_t{0};
    const Value& value = recordset->FieldAt(0).Value();
    return IsNull(value) ? std::int32_t{0} : ToLong(value, context.platform.locale);
  });
  if (sum < 1) StopExport(kNoRecords);
  return sum;
}

void QueryTemplateRecords::ForEach(const std::function<void(std::int16_t copies)>& write) {
  reader_.ForEachRecord(QueryReader::Reporting::kSilent, write);
}

std::vector<Text> QueryTemplateRecords::ColumnNames() {
  return FieldNames(session_.recordset());
}

Field* QueryTemplateRecords::Column(TextView name) {
  NoteName(name);
  return &session_.recordset().FieldNamed(name);
}

std::int32_t PreparedTemplateRecords::Open() {
  const ExportContext& context = session_.context();
  Text header = ReadPreparedHeader(context, headersFile_);
  TakeCode(header, context.platform.locale);
  session_.ShowPointer(MousePointer::kHourglass);
  data_.emplace(context, dataFile_);
  std::vector<Text> names;
  for (const TextView name : Split(header, kExportSeparator)) names.emplace_back(name);
  const std::size_t columns = names.size();
  records_.emplace(std::move(names), *data_);
  records_->onShortLine = [this, columns](TextView line, std::size_t values) {
    session_.context().NoteCause(ShortLine(*data_, line, dataFile_, values, columns));
  };
  SetCodeRecordset(*records_);
  return records_->RecordCount();
}

void PreparedTemplateRecords::ForEach(const std::function<void(std::int16_t copies)>& write) {
  for (; !records_->Eof(); records_->MoveNext()) write(1);
  session_.context().NoteRecords(records_->RecordCount());
}

std::vector<Text> PreparedTemplateRecords::ColumnNames() {
  return FieldNames(*records_);
}

Field* PreparedTemplateRecords::Column(TextView name) {
  NoteName(name);
  return records_->Find(name);
}

}  // namespace zorkanca
