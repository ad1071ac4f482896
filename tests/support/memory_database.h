// A database of one prepared result, for tests of the product's logic.
#pragma once

#include <functional>
#include <vector>

#include "platform/database.h"

namespace zorkanca::testing {

struct MemoryColumn {
  Text name;
  FieldType type = FieldType::kText;
  std::int32_t size = 0;
};

/// Answers every query with the same rows and remembers the last call.
class MemoryDatabase final : public Database {
 public:
  std::vector<MemoryColumn> columns;
  std::vector<std::vector<Value>> rows;

  /// The rows of every query for a sum ("SELECT SUM(...").
  std::vector<std::vector<Value>> sums;

  Text lastSelect;
  std::int16_t lastOptions = 0;
  int openRecordsets = 0;  ///< recordsets that were not closed

  /// Opening raises error 3078, as for an unknown table.
  bool failsToOpen = false;
  /// Called when a recordset is opened; may throw anything.
  std::function<void()> onOpen;
  /// Going back to the first record raises error 3219, as for a forward-only recordset.
  bool forwardOnly = false;

  std::unique_ptr<Recordset> OpenRecordset(TextView name, RecordsetType type, std::int16_t options) override;
};

}  // namespace zorkanca::testing
