// A file of records, read from its start to its end as often as wanted.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "runtime/error.h"
#include "runtime/text.h"
#include "tabular/cell.h"

namespace zorkanca {

/// Errors of all members: 3274 for what is no such file, with path, line and field; 57 when it cannot be read.
class TableReader {
 public:
  virtual ~TableReader() = default;

  /// Goes back to the first record.
  virtual void Restart() = 0;
  /// Reads the next record.
  /// @param cells  one for each column that is known by now; their texts live until the next call
  /// @return       false behind the last record
  virtual bool Next(std::vector<Cell>& cells) = 0;
  /// Names of the columns: unlike each other whatever their case, none of them blank. A file that names them in each
  /// record knows them all behind the last one.
  virtual const std::vector<std::string>& ColumnNames() const = 0;
  /// The error that tells of a value of the record that was read last.
  /// @param column  from 0
  /// @param number  of the error
  virtual Error Fault(std::size_t column, std::int32_t number, const Text& reason) const = 0;
};

}  // namespace zorkanca
