#include "odbc/odbc_recordset.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kInvalidOperation = 3219;

}  // namespace

OdbcRecordset::OdbcRecordset(std::shared_ptr<OdbcSession> session, SqlQuery query,
                             std::vector<std::pair<Text, FieldType>> types, bool forwardOnly)
    : snapshot_(std::make_unique<OdbcSnapshot>(session)),
      rows_(std::make_unique<OdbcRows>(std::move(session), std::move(query), std::move(types), OdbcFetching::kAhead)),
      forwardOnly_(forwardOnly),
      columns_(rows_->columns()) {
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    fields_.push_back(std::make_unique<OdbcField>(*this, columns_[index], index));
  }
  if (!forwardOnly_) counted_ = rows_->Count();
  rows_->Run({});
  Step();
}

OdbcRecordset::~OdbcRecordset() {
  Close();
}

void OdbcRecordset::Close() {
  rows_.reset();
  snapshot_.reset();
  position_ = Position::kAfterRows;
  ++generation_;
}

void OdbcRecordset::RequireRows() const {
  if (!rows_) Raise(RuntimeError::kObjectNotSet);
  if (reached_ == 0) Raise(RuntimeError::kNoCurrentRecord);
}

void OdbcRecordset::RequireBackwards() const {
  if (forwardOnly_) throw Error(kInvalidOperation, u"ODBC", u"Invalid operation.");
}

// After a failure no row is current.
void OdbcRecordset::Step() {
  ++generation_;
  position_ = Position::kAfterRows;
  if (!rows_->Next()) return;
  position_ = Position::kOnRow;
  reached_ = std::max(reached_, ++row_);
}

void OdbcRecordset::Rewind() {
  row_ = 0;
  rows_->Run({});
  Step();
}

void OdbcRecordset::MoveFirst() {
  RequireRows();
  RequireBackwards();
  if (!rows_->isOnRow() || row_ != 1) return Rewind();
  position_ = Position::kOnRow;
  ++generation_;
}

void OdbcRecordset::MoveNext() {
  RequireRows();
  if (position_ == Position::kAfterRows) Raise(RuntimeError::kNoCurrentRecord);
  if (position_ == Position::kOnRow) return Step();
  position_ = Position::kAfterRows;
  ++generation_;
}

void OdbcRecordset::MoveLast() {
  RequireRows();
  RequireBackwards();
  count_ = counted_;
  position_ = Position::kOnLast;
  ++generation_;
}

const OdbcRows& OdbcRecordset::OnCurrentRow() {
  if (position_ == Position::kOnLast) {
    if (!rows_->isOnRow() || row_ > count_) Rewind();
    while (position_ != Position::kAfterRows && row_ < count_) Step();
  }
  if (position_ == Position::kAfterRows || !rows_) Raise(RuntimeError::kNoCurrentRecord);
  return *rows_;
}

std::int32_t OdbcRecordset::RecordCount() const {
  const std::int64_t count = count_ >= 0 ? count_ : reached_;
  if (count > std::numeric_limits<std::int32_t>::max()) Raise(RuntimeError::kOverflow);
  return static_cast<std::int32_t>(count);
}

std::int32_t OdbcRecordset::FieldCount() const {
  return static_cast<std::int32_t>(fields_.size());
}

Field& OdbcRecordset::FieldAt(std::int32_t index) {
  if (index < 0 || index >= FieldCount()) Raise(RuntimeError::kItemNotFound);
  return *fields_[static_cast<std::size_t>(index)];
}

Field& OdbcRecordset::FieldNamed(TextView name) {
  for (const std::unique_ptr<OdbcField>& field : fields_) {
    if (EqualsIgnoringCase(field->Name(), name)) return *field;
  }
  Raise(RuntimeError::kItemNotFound);
}

}  // namespace zorkanca
