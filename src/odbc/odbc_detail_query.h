// A prepared query with parameters over a connection, run again and again.
#pragma once

#include <memory>
#include <vector>

#include "odbc/odbc_rows.h"
#include "platform/detail_query.h"

namespace zorkanca {

class OdbcDetailQuery final : public DetailQuery, public OdbcRecords {
 public:
  /// Errors: 3146, 18.
  OdbcDetailQuery(std::shared_ptr<OdbcSession> session, SqlQuery query, std::vector<std::pair<Text, FieldType>> types);

  const std::vector<Text>& Parameters() const override { return rows_.query().parameters; }
  std::int32_t FieldCount() const override { return static_cast<std::int32_t>(fields_.size()); }
  Field& FieldAt(std::int32_t index) override;
  Field* FindField(TextView name) override;
  void Run(std::span<const Value* const> values) override;
  bool Next() override;

 private:
  const OdbcRows& OnCurrentRow() override;

  OdbcSnapshot snapshot_;  // outlives the rows
  OdbcRows rows_;
  std::vector<std::unique_ptr<OdbcField>> fields_;
};

}  // namespace zorkanca
