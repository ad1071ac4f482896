#include "export/query_reader.h"

#include "export/export_failure.h"
#include "export/progress.h"
#include "foundation/ignore_errors.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace zorkanca {

void WarnOfNameCount(const ExportContext& context, std::size_t names, std::int32_t columns) {
  if (static_cast<std::int64_t>(names) == columns) return;
  Text warning = names == 1 ? u"There is 1 column name for "
                            : u"There are " + DecimalText(static_cast<std::int64_t>(names)) + u" column names for ";
  context.Warn(warning + DecimalText(columns) + (columns == 1 ? u" column." : u" columns."));
}

void QueryReader::Open(Database& database, TextView select, std::int16_t options) {
  const bool found = AccessingData([&] {
    session_.Hold(database.OpenRecordset(select, RecordsetType::kDynaset, options));
    Recordset& recordset = session_.recordset();
    if (recordset.Eof() && recordset.Bof()) return false;
    recordset.MoveLast();
    recordCount_ = recordset.RecordCount();
    recordset.MoveFirst();
    return true;
  });
  if (!found) StopExport(kNoRecords);
  fieldCount_ = session_.recordset().FieldCount();
}

std::vector<QueryColumn> QueryReader::Columns() {
  const Text& multiplier = session_.context().multiplier;
  std::vector<QueryColumn> columns;
  for (std::int32_t index = 0; index < fieldCount_; ++index) {
    Field& field = session_.recordset().FieldAt(index);
    columns.push_back({.field = &field, .isMultiplier = !multiplier.empty() && field.Name() == multiplier});
  }
  return columns;
}

void QueryReader::ValidateMultiplier() {
  Text& multiplier = session_.context().multiplier;
  if (multiplier.empty()) return;
  if (IgnoreErrors([&] { Copies(); })) return;
  session_.context().Warn(u"The multiplier \"" + multiplier +
                          u"\" is no whole number in the first record; each record is written once.");
  multiplier.clear();
}

std::int16_t QueryReader::Copies() {
  const ExportContext& context = session_.context();
  if (context.multiplier.empty()) return 1;
  return ToInteger(session_.recordset().FieldNamed(context.multiplier).Value(), context.platform.locale);
}

// The error of a value does not tell whose it is.
std::int16_t QueryReader::NamedCopies() {
  try {
    return Copies();
  } catch (const Error& error) {
    const Text& multiplier = session_.context().multiplier;
    session_.context().NoteCause(
        Error(error.number(), error.source(), u"The multiplier \"" + multiplier + u"\": " + error.description()));
    throw;
  }
}

// Binary data has no text form; the error does not tell which column holds them.
void QueryReader::NoteBinaryColumn(const Error& failure) {
  constexpr auto kTypeMismatch = RuntimeError::kTypeMismatch;
  if (failure.number() != static_cast<std::int32_t>(kTypeMismatch)) return;
  if (failure.description() != DescriptionOf(kTypeMismatch)) return;  // it names the column itself
  for (std::int32_t index = 0; index < fieldCount_; ++index) {
    Field& field = session_.recordset().FieldAt(index);
    bool isBinary = false;
    IgnoreErrors([&] { isBinary = std::holds_alternative<Binary>(field.Value()); });
    if (!isBinary) continue;
    const Text description =
        Text(u"The column \"")
            .append(field.Name())
            .append(
                u"\" holds binary data (BLOB), which has no text form; leave it out of the SELECT or convert it there");
    return session_.context().NoteCause(Error(failure.number(), Text(), description));
  }
}

void QueryReader::ForEachRecord(Reporting reporting, const std::function<void(std::int16_t copies)>& write) {
  Progress progress(session_.context(), recordCount_);
  Recordset& recordset = session_.recordset();
  std::int64_t written = 0;
  for (; !recordset.Eof(); recordset.MoveNext()) {
    try {
      const std::int16_t copies = NamedCopies();
      write(copies);
      if (copies > 0) ++written;
    } catch (const Error& failure) {
      NoteBinaryColumn(failure);
      throw;
    }
    if (reporting == Reporting::kPercent) progress.RecordDone();
  }
  session_.context().NoteRecords(written);
  if (reporting == Reporting::kPercent) progress.Finish();
}

}  // namespace zorkanca
