// The values of one column on their way into the database.
#pragma once

#include <string>

#include "sqlite/sqlite_table_writer.h"
#include "tabular/cell.h"
#include "tabular/column_type.h"

namespace zorkanca {

class ColumnWriter {
 public:
  /// @param forms   outlives this object
  /// @param column  from 0, in the table
  ColumnWriter(const ValueForms& forms, const ColumnPlan& plan, int column)
      : forms_(&forms), plan_(plan), column_(column) {}

  /// Puts a value into the row in hand. It must live until the row was added.
  /// @return false for one that is not of the plan's type
  bool Write(const Cell& cell, SqliteTableWriter& table);

 private:
  bool WriteNumber(std::string_view text, SqliteTableWriter& table);

  const ValueForms* forms_;
  ColumnPlan plan_;
  int column_;
  std::string room_;
  std::string spelled_;
};

}  // namespace zorkanca
