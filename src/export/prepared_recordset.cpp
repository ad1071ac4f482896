#include "export/prepared_recordset.h"

#include <utility>

#include "export/column_names.h"
#include "runtime/error.h"

namespace zorkanca {

class PreparedRecordset::Column final : public Field {
 public:
  Column(PreparedRecordset& records, std::size_t index) : records_(records), index_(index) {}

  const Text& Name() const override { return records_.names_[index_]; }
  FieldType Type() const override { return FieldType::kText; }
  std::int32_t Size() const override { return 0; }
  const zorkanca::Value& Value() override {
    value_ = records_.ValueAt(index_);
    return value_;
  }

 private:
  PreparedRecordset& records_;
  std::size_t index_;
  zorkanca::Value value_;
};

PreparedRecordset::PreparedRecordset(std::vector<Text> names, const PreparedData& data)
    : names_(std::move(names)), data_(data) {
  for (std::size_t index = 0; index < names_.size(); ++index) fields_.push_back(std::make_unique<Column>(*this, index));
}

Field* PreparedRecordset::Find(TextView name) {
  const std::int16_t index = IndexOfName(name, names_);
  return index < 0 ? nullptr : fields_[static_cast<std::size_t>(index)].get();
}

Field& PreparedRecordset::FieldAt(std::int32_t index) {
  if (index < 0 || index >= FieldCount()) Raise(RuntimeError::kItemNotFound);
  return *fields_[static_cast<std::size_t>(index)];
}

Field& PreparedRecordset::FieldNamed(TextView name) {
  Field* field = Find(name);
  if (!field) Raise(RuntimeError::kItemNotFound);
  return *field;
}

void PreparedRecordset::MoveTo(std::size_t line) {
  line_ = line;
  isSplit_ = false;
}

const Text& PreparedRecordset::ValueAt(std::size_t column) {
  if (!isSplit_) SplitColumnsFromDataRow(data_.lines().at(line_), values_);
  isSplit_ = true;
  if (column >= values_.size()) {
    if (onShortLine) onShortLine(data_.lines()[line_], values_.size());
    Raise(RuntimeError::kSubscriptOutOfRange);
  }
  return values_[column];
}

}  // namespace zorkanca
