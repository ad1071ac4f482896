#include "odbc/odbc_detail_query.h"

#include <utility>

#include "runtime/error.h"

namespace zorkanca {

OdbcDetailQuery::OdbcDetailQuery(std::shared_ptr<OdbcSession> session, SqlQuery query,
                                 std::vector<std::pair<Text, FieldType>> types)
    : snapshot_(session), rows_(std::move(session), std::move(query), std::move(types), OdbcFetching::kOnDemand) {
  for (std::size_t index = 0; index < rows_.columns().size(); ++index) {
    fields_.push_back(std::make_unique<OdbcField>(*this, rows_.columns()[index], index));
  }
}

Field& OdbcDetailQuery::FieldAt(std::int32_t index) {
  if (index < 0 || index >= FieldCount()) Raise(RuntimeError::kItemNotFound);
  return *fields_[static_cast<std::size_t>(index)];
}

Field* OdbcDetailQuery::FindField(TextView name) {
  for (const std::unique_ptr<OdbcField>& field : fields_) {
    if (EqualsIgnoringCase(field->Name(), name)) return field.get();
  }
  return nullptr;
}

void OdbcDetailQuery::Run(std::span<const Value* const> values) {
  if (values.size() != Parameters().size()) Raise(RuntimeError::kInvalidCall);
  for (const Value* const value : values) {
    if (std::holds_alternative<ObjectReference>(*value)) Raise(RuntimeError::kTypeMismatch);
  }
  ++generation_;
  rows_.Run(values);
}

bool OdbcDetailQuery::Next() {
  ++generation_;
  return rows_.Next();
}

const OdbcRows& OdbcDetailQuery::OnCurrentRow() {
  if (!rows_.isOnRow()) Raise(RuntimeError::kNoCurrentRecord);
  return rows_;
}

}  // namespace zorkanca
