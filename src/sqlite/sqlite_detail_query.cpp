#include "sqlite/sqlite_detail_query.h"

#include <utility>

#include "runtime/error.h"
#include "runtime/utf8.h"
#include "sqlite/sqlite_binding.h"
#include "sqlite/sqlite_types.h"
#include "sqlite/sqlite_values.h"

namespace zorkanca {

/// A column; remembers its value until another record becomes current.
class SqliteDetailField final : public Field {
 public:
  SqliteDetailField(SqliteDetailQuery& query, int column, SqliteColumn described)
      : query_(query), column_(column), name_(std::move(described.name)), type_(described.type) {}

  void Settle(FieldType type) { type_ = {type, 0}; }

  const Text& Name() const override { return name_; }
  std::int32_t Size() const override { return type_ ? type_->size : 0; }

  FieldType Type() const override {
    if (type_) return type_->type;
    if (!query_.onRow_) return FieldType::kText;
    return TypeOfKind(KindOf(sqlite3_column_value(query_.statement_.get(), column_)));
  }

  const zorkanca::Value& Value() override {
    if (generation_ != query_.generation_) {
      if (!query_.onRow_) Raise(RuntimeError::kNoCurrentRecord);
      ReadSqliteValue(value_, query_.statement_.get(), column_, Type(), name_);
      generation_ = query_.generation_;
    }
    return value_;
  }

 private:
  SqliteDetailQuery& query_;
  int column_;
  Text name_;
  std::optional<SqliteColumnType> type_;
  zorkanca::Value value_;
  std::uint64_t generation_ = 0;  // of the query when the value was read
};

SqliteDetailQuery::SqliteDetailQuery(std::shared_ptr<SqliteConnection> connection, const std::string& sql,
                                     const SqliteColumnTypes& types)
    : snapshot_(std::move(connection)), statement_(snapshot_.connection().PrepareDetail(sql)) {
  sqlite3_stmt* const statement = statement_.get();
  for (int parameter = 1; parameter <= sqlite3_bind_parameter_count(statement); ++parameter) {
    parameters_.push_back(FromUtf8(sqlite3_bind_parameter_name(statement, parameter) + 1));
  }
  for (int column = 0; column < sqlite3_column_count(statement); ++column) {
    fields_.push_back(std::make_unique<SqliteDetailField>(*this, column, DescribeColumn(statement, column)));
    for (const auto& [name, type] : types) {
      if (EqualsIgnoringCase(fields_.back()->Name(), name)) fields_.back()->Settle(type);
    }
  }
}

SqliteDetailQuery::~SqliteDetailQuery() = default;

std::int32_t SqliteDetailQuery::FieldCount() const {
  return static_cast<std::int32_t>(fields_.size());
}

Field& SqliteDetailQuery::FieldAt(std::int32_t index) {
  if (index < 0 || index >= FieldCount()) Raise(RuntimeError::kItemNotFound);
  return *fields_[static_cast<std::size_t>(index)];
}

Field* SqliteDetailQuery::FindField(TextView name) {
  for (const std::unique_ptr<SqliteDetailField>& field : fields_) {
    if (EqualsIgnoringCase(field->Name(), name)) return field.get();
  }
  return nullptr;
}

void SqliteDetailQuery::Run(std::span<const Value* const> values) {
  if (values.size() != parameters_.size()) Raise(RuntimeError::kInvalidCall);
  ++generation_;
  onRow_ = false;
  sqlite3_reset(statement_.get());
  int parameter = 0;
  for (const Value* const value : values) BindSqliteValue(statement_.get(), ++parameter, *value);
  running_ = true;
}

bool SqliteDetailQuery::Next() {
  if (!running_) return false;
  ++generation_;
  onRow_ = false;
  running_ = false;  // after a failure, too
  onRow_ = running_ = snapshot_.connection().Step(statement_.get());
  return onRow_;
}

}  // namespace zorkanca
