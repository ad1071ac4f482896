#include "support/memory_database.h"

#include "runtime/error.h"

namespace zorkanca::testing {

namespace {

class MemoryRecordset;

class MemoryField final : public Field {
 public:
  MemoryField(const MemoryColumn& column, const MemoryRecordset& recordset, std::size_t index)
      : column_(column), recordset_(recordset), index_(index) {}

  const Text& Name() const override { return column_.name; }
  FieldType Type() const override { return column_.type; }
  std::int32_t Size() const override { return column_.size; }
  const zorkanca::Value& Value() override;

 private:
  const MemoryColumn& column_;
  const MemoryRecordset& recordset_;
  std::size_t index_;
};

class MemoryRecordset final : public Recordset {
 public:
  MemoryRecordset(MemoryDatabase& database, const std::vector<std::vector<Value>>& rows)
      : database_(database), rows_(rows) {
    ++database_.openRecordsets;
    for (std::size_t index = 0; index < database.columns.size(); ++index) {
      fields_.emplace_back(database.columns[index], *this, index);
    }
  }
  ~MemoryRecordset() override { MemoryRecordset::Close(); }

  bool Bof() const override { return rows_.empty(); }
  bool Eof() const override { return row_ >= rows_.size(); }
  void MoveFirst() override {
    if (database_.forwardOnly) throw Error(3219, Text(), u"Invalid operation.");
    row_ = 0;
  }
  void MoveNext() override { ++row_; }
  void MoveLast() override {
    row_ = rows_.size() - 1;
    counted_ = true;
  }
  std::int32_t RecordCount() const override {
    return counted_ ? static_cast<std::int32_t>(rows_.size()) : 1;  // not known before the move to the end
  }
  std::int32_t FieldCount() const override { return static_cast<std::int32_t>(fields_.size()); }
  Field& FieldAt(std::int32_t index) override { return fields_.at(static_cast<std::size_t>(index)); }
  Field& FieldNamed(TextView name) override {
    for (MemoryField& field : fields_) {
      if (EqualsIgnoringCase(field.Name(), name)) return field;
    }
    Raise(RuntimeError::kItemNotFound);
  }
  void Close() override {
    if (!open_) return;
    open_ = false;
    --database_.openRecordsets;
  }

  const Value& At(std::size_t column) const { return rows_.at(row_).at(column); }

 private:
  MemoryDatabase& database_;
  const std::vector<std::vector<Value>>& rows_;
  std::vector<MemoryField> fields_;
  std::size_t row_ = 0;
  bool counted_ = false;
  bool open_ = true;
};

const zorkanca::Value& MemoryField::Value() {
  return recordset_.At(index_);
}

}  // namespace

std::unique_ptr<Recordset> MemoryDatabase::OpenRecordset(TextView name, RecordsetType, std::int16_t options) {
  if (failsToOpen) throw Error(3078, Text(), u"The input table or query was not found.");
  if (onOpen) onOpen();
  lastSelect = name;
  lastOptions = options;
  return std::make_unique<MemoryRecordset>(*this, name.starts_with(u"SELECT SUM(") ? sums : rows);
}

}  // namespace zorkanca::testing
