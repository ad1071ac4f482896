#include "cli/query_database.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>
#include <utility>

#include "export/column_names.h"
#include "runtime/error.h"
#include "runtime/nearest_name.h"
#include "runtime/utf8.h"
#include "sqlite/sqlite_database.h"

namespace zorkanca::cli {

namespace {

std::int64_t ReadCount(std::string_view text) {
  std::int32_t number = 0;
  const auto [rest, status] = std::from_chars(text.data(), text.data() + text.size(), number);
  return status == std::errc() && rest == text.data() + text.size() ? number : 0;
}

}  // namespace

Share ShareOf(const std::string& text) {
  if (text.empty()) return {};
  const std::size_t slash = std::min(text.find('/'), text.size());
  const Share share{.k = ReadCount(std::string_view(text).substr(0, slash)),
                    .n = ReadCount(std::string_view(text).substr(std::min(slash + 1, text.size())))};
  if (share.k < 1 || share.k > share.n) throw UsageError("--part takes K/N, the K-th of N shares, not " + text);
  return share;
}

// The records from `first` to `last` of another recordset, as if there were no others.
class QueryDatabase::CountedRecordset final : public Recordset {
 public:
  CountedRecordset(std::unique_ptr<Recordset> records, const Share& share, std::shared_ptr<State> state)
      : records_(std::move(records)), state_(std::move(state)) {
    if (share.IsAll() || records_->Eof()) return;
    records_->MoveLast();
    const std::int64_t count = records_->RecordCount();
    first_ = share.First(count);
    last_ = share.Last(count);
    state_->before = first_ - 1;
    MoveFirst();
  }

  bool Bof() const override { return IsEmpty() || records_->Bof(); }
  bool Eof() const override { return IsEmpty() || position_ > last_ || records_->Eof(); }

  void MoveFirst() override {
    records_->MoveFirst();
    for (position_ = 1; position_ < first_;) Step();
  }
  void MoveNext() override { Step(); }
  void MoveLast() override {
    if (!IsPart()) return records_->MoveLast();
    while (position_ < last_) Step();
  }

  std::int32_t RecordCount() const override {
    return IsPart() ? static_cast<std::int32_t>(last_ - first_ + 1) : records_->RecordCount();
  }
  std::int32_t FieldCount() const override { return records_->FieldCount(); }
  Field& FieldAt(std::int32_t index) override { return records_->FieldAt(index); }
  Field& FieldNamed(TextView name) override { return records_->FieldNamed(name); }
  void Close() override { records_->Close(); }

 private:
  static constexpr std::int64_t kNoEnd = std::numeric_limits<std::int64_t>::max();

  void Step() {
    records_->MoveNext();
    ++position_;
  }
  bool IsPart() const { return last_ != kNoEnd; }
  bool IsEmpty() const { return last_ < first_; }

  std::unique_ptr<Recordset> records_;
  std::shared_ptr<State> state_;
  std::int64_t first_ = 1;
  std::int64_t last_ = kNoEnd;
  std::int64_t position_ = 1;
};

QueryDatabase::QueryDatabase(const CommandContext& context, const QueryOptions& options)
    : sources_(SourcesOf(options)), share_(ShareOf(options.part)) {
  auto database = std::make_unique<SqliteDatabase>(sources_.sqliteFile, &context.interrupted);
  const SqliteColumnTypes types = TypesOf(options);
  database->SettleTypes(types);
  if (!sources_.files.empty()) {
    const FileReading reading{.locale = &context.platform.locale,
                              .withoutMark = EncodingOf(options),
                              .types = types,
                              .interrupted = &context.interrupted};
    database->BeforeFirstQuery([this, reading](SqliteConnection& connection) { return Load(connection, reading); });
  }
  details_ = database.get();
  database_ = std::move(database);
  if (!options.multiplier.empty()) Require("--multiplier", {FromUtf8(options.multiplier)});
}

QueryDatabase::~QueryDatabase() = default;

// @return all names of the columns of files: what --type says of them is done
std::vector<Text> QueryDatabase::Load(SqliteConnection& connection, const FileReading& reading) {
  loaded_ = LoadFileTables(sources_.files, reading, connection);
  std::vector<Text> names;
  for (const LoadedTable& table : loaded_) {
    for (const LoadedTable::Column& column : table.columns) names.push_back(FromUtf8(column.name));
  }
  return names;
}

std::unique_ptr<Recordset> QueryDatabase::OpenRecordset(TextView name, RecordsetType type, std::int16_t options) {
  auto recordset = database_->OpenRecordset(name, type, options);
  CheckColumns(*recordset);
  return std::make_unique<CountedRecordset>(std::move(recordset), share_, state_);
}

void QueryDatabase::Require(const std::string& option, const std::vector<Text>& columns) {
  for (const Text& column : columns) required_.push_back({FromUtf8(option), column});
}

void QueryDatabase::RequireCount(const std::string& option, std::size_t columns) {
  counts_.emplace_back(FromUtf8(option), columns);
}

// The first statement is the query, a further one asks for a sum over it.
void QueryDatabase::CheckColumns(Recordset& recordset) {
  const std::vector<Text> columns = FieldNames(recordset);
  for (const auto& [option, count] : std::exchange(counts_, {})) {
    if (count <= columns.size()) continue;
    Raise(RuntimeError::kSubscriptOutOfRange, option + u" asks for column " +
                                                  DecimalText(static_cast<std::int64_t>(count)) + u"; the query has " +
                                                  DecimalText(static_cast<std::int64_t>(columns.size())));
  }
  for (const auto& [option, name] : std::exchange(required_, {})) {
    const auto isThis = [&wanted = name](const Text& column) { return EqualsIgnoringCase(column, wanted); };
    if (std::any_of(columns.begin(), columns.end(), isThis)) continue;
    Raise(RuntimeError::kItemNotFound, option + u": " + NoColumn(name, columns));
  }
}

std::unique_ptr<DetailQuery> QueryDatabase::PrepareDetail(TextView sql) {
  return details_->PrepareDetail(sql);
}

}  // namespace zorkanca::cli
