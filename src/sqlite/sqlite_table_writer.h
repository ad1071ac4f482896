// Tables of a connection's own: what is read from elsewhere, to be queried beside the file. They lie in its temporary
// database and go with the connection.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sqlite/sqlite_connection.h"

namespace zorkanca {

struct SqliteTableColumn {
  std::string name;
  std::string declaration;  ///< SQL; the collation DECIMAL orders texts of plain numbers by their values
};

/// Whether the connection has a table or a view of this name, whatever its case.
bool HasSqliteTable(SqliteConnection& connection, const std::string& name);

/// Errors of all members: those of `SqliteConnection`. A table that was not finished leaves the connection unusable
/// for anything but its end.
class SqliteTableWriter {
 public:
  /// Makes the table.
  SqliteTableWriter(SqliteConnection& connection, const std::string& name,
                    const std::vector<SqliteTableColumn>& columns);

  /// Set the value of a column, from 0, of the row in hand; a column that is not set keeps the value of the row before.
  void SetNull(int column) { sqlite3_bind_null(row_.get(), column + 1); }
  void SetInteger(int column, std::int64_t value) { sqlite3_bind_int64(row_.get(), column + 1, value); }
  void SetReal(int column, double value) { sqlite3_bind_double(row_.get(), column + 1, value); }
  /// @param utf8  must live until the row was added
  void SetText(int column, std::string_view utf8) {
    // An empty view may have no address, which SQLite would take for NULL.
    const char* const bytes = utf8.data() != nullptr ? utf8.data() : "";
    sqlite3_bind_text64(row_.get(), column + 1, bytes, utf8.size(), SQLITE_STATIC, SQLITE_UTF8);
  }

  void AddRow();
  /// All rows were added.
  void Finish();

 private:
  SqliteConnection& connection_;
  SqliteStatement row_;
};

}  // namespace zorkanca
