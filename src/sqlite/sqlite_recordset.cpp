#include "sqlite/sqlite_recordset.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "sqlite/sqlite_types.h"
#include "sqlite/sqlite_values.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kInvalidOperation = 3219;

}  // namespace

/// A column; remembers its value until another row becomes current.
class SqliteField final : public Field {
 public:
  SqliteField(SqliteRecordset& recordset, int column) : recordset_(recordset), column_(column) {
    SqliteColumn described = DescribeColumn(recordset.query_.statement.get(), column);
    name_ = std::move(described.name);
    isSettled_ = described.type.has_value();
    if (described.type) type_ = *described.type;
  }

  bool isSettled() const { return isSettled_; }
  void Settle(FieldType type) {
    isSettled_ = true;
    type_ = {type, 0};
  }

  const Text& Name() const override { return name_; }
  std::int32_t Size() const override { return type_.size; }

  FieldType Type() const override {
    if (!isSettled_) recordset_.Survey();
    return type_.type;
  }

  const zorkanca::Value& Value() override {
    if (generation_ != recordset_.generation_) {
      sqlite3_stmt* const statement = recordset_.StatementOnRow();
      ReadSqliteValue(value_, statement, column_, Type(), name_);
      generation_ = recordset_.generation_;
    }
    return value_;
  }

 private:
  SqliteRecordset& recordset_;
  int column_;
  Text name_;
  bool isSettled_ = false;
  SqliteColumnType type_;
  zorkanca::Value value_;
  std::uint64_t generation_ = 0;  // of the recordset when the value was read
};

std::size_t SqliteRecordset::NameHash::operator()(TextView name) const {
  // FNV-1a over the folded units: names are short.
  std::uint64_t hash = 0xCBF29CE484222325u;
  for (const char16_t unit : name) hash = (hash ^ LowerCase(unit)) * 0x100000001B3u;
  return static_cast<std::size_t>(hash);
}

SqliteRecordset::SqliteRecordset(std::shared_ptr<SqliteConnection> connection, const std::string& sql, bool forwardOnly,
                                 const SqliteColumnTypes& types)
    : snapshot_(std::make_unique<SqliteSnapshot>(std::move(connection))),
      query_(snapshot_->connection().PrepareQuery(sql)),
      forwardOnly_(forwardOnly) {
  Step();
  MakeFields(types);  // after the first step, which sees changes of the schema that came in between
}

SqliteRecordset::~SqliteRecordset() {
  Close();
}

void SqliteRecordset::MakeFields(const SqliteColumnTypes& types) {
  const int columns = sqlite3_column_count(query_.statement.get());
  for (int column = 0; column < columns; ++column) {
    fields_.push_back(std::make_unique<SqliteField>(*this, column));
    fieldsByName_.emplace(fields_.back()->Name(), fields_.size() - 1);  // the first of equal names stays
  }
  for (const auto& [name, type] : types) {
    for (const std::unique_ptr<SqliteField>& field : fields_) {
      if (EqualsIgnoringCase(field->Name(), name)) field->Settle(type);
    }
  }
}

void SqliteRecordset::Close() {
  query_.statement.reset();
  snapshot_.reset();
  position_ = Position::kAfterRows;
  statementOnRow_ = false;
  ++generation_;
}

void SqliteRecordset::RequireRows() const {
  if (!snapshot_) Raise(RuntimeError::kObjectNotSet);
  if (reached_ == 0) Raise(RuntimeError::kNoCurrentRecord);
}

void SqliteRecordset::RequireBackwards() const {
  if (forwardOnly_) throw Error(kInvalidOperation, u"SQLite", u"Invalid operation.");
}

// After a failure no row is current.
void SqliteRecordset::Step() {
  ++generation_;
  position_ = Position::kAfterRows;
  statementOnRow_ = false;
  if (!snapshot_->connection().Step(query_.statement.get())) return;
  position_ = Position::kOnRow;
  statementOnRow_ = true;
  reached_ = std::max(reached_, ++row_);
}

void SqliteRecordset::Rewind() {
  sqlite3_reset(query_.statement.get());
  row_ = 0;
  Step();
}

void SqliteRecordset::MoveFirst() {
  RequireRows();
  RequireBackwards();
  if (statementOnRow_ && row_ == 1) {
    position_ = Position::kOnRow;
    ++generation_;
  } else {
    Rewind();
  }
}

void SqliteRecordset::MoveNext() {
  RequireRows();
  if (position_ == Position::kAfterRows) Raise(RuntimeError::kNoCurrentRecord);
  if (position_ == Position::kOnRow) return Step();
  position_ = Position::kAfterRows;
  ++generation_;
}

void SqliteRecordset::MoveLast() {
  RequireRows();
  RequireBackwards();
  if (count_ < 0) Survey();
  count_ = surveyed_;
  position_ = Position::kOnLast;
  ++generation_;
}

void SqliteRecordset::Survey() {
  if (surveyed_ >= 0 || !snapshot_) return;
  std::vector<int> columns;
  for (std::size_t index = 0; index < fields_.size(); ++index) {
    if (!fields_[index]->isSettled()) columns.push_back(static_cast<int>(index));
  }
  std::vector<ValueKind> kinds(columns.size(), ValueKind::kNull);
  if (const SqliteStatement survey = snapshot_->connection().PrepareSurvey(query_, columns)) {
    snapshot_->connection().Step(survey.get());
    surveyed_ = sqlite3_column_int64(survey.get(), 0);
    int at = 0;
    for (ValueKind& kind : kinds) kind = static_cast<ValueKind>(sqlite3_column_int(survey.get(), ++at));
  } else {
    WalkThroughRows(columns, kinds);
  }
  for (std::size_t index = 0; index < columns.size(); ++index) {
    fields_[static_cast<std::size_t>(columns[index])]->Settle(TypeOfKind(kinds[index]));
  }
}

// What cannot stand in a FROM clause is run once more, from start to end.
void SqliteRecordset::WalkThroughRows(const std::vector<int>& columns, std::vector<ValueKind>& kinds) {
  const SqliteQuery again = snapshot_->connection().PrepareQuery(query_.text);
  sqlite3_stmt* const statement = again.statement.get();
  std::int64_t rows = 0;
  for (; snapshot_->connection().Step(statement); ++rows) {
    for (std::size_t index = 0; index < columns.size(); ++index) {
      kinds[index] = std::max(kinds[index], KindOf(sqlite3_column_value(statement, columns[index])));
    }
  }
  surveyed_ = rows;
}

std::int32_t SqliteRecordset::RecordCount() const {
  const std::int64_t count = count_ >= 0 ? count_ : reached_;
  if (count > std::numeric_limits<std::int32_t>::max()) Raise(RuntimeError::kOverflow);
  return static_cast<std::int32_t>(count);
}

sqlite3_stmt* SqliteRecordset::StatementOnRow() {
  if (position_ == Position::kOnLast) {
    if (!statementOnRow_ || row_ > count_) Rewind();
    while (statementOnRow_ && row_ < count_) Step();
    if (statementOnRow_) position_ = Position::kOnRow;
  }
  if (position_ != Position::kOnRow) Raise(RuntimeError::kNoCurrentRecord);
  return query_.statement.get();
}

std::int32_t SqliteRecordset::FieldCount() const {
  return static_cast<std::int32_t>(fields_.size());
}

Field& SqliteRecordset::FieldAt(std::int32_t index) {
  if (index < 0 || index >= FieldCount()) Raise(RuntimeError::kItemNotFound);
  return *fields_[static_cast<std::size_t>(index)];
}

Field& SqliteRecordset::FieldNamed(TextView name) {
  const auto found = fieldsByName_.find(name);
  if (found == fieldsByName_.end()) Raise(RuntimeError::kItemNotFound);
  return *fields_[found->second];
}

}  // namespace zorkanca
