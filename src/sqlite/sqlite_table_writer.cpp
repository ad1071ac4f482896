#include "sqlite/sqlite_table_writer.h"

namespace zorkanca {

namespace {

std::string QuotedName(const std::string& name) {
  std::string quoted = "\"";
  for (const char byte : name) quoted.append(byte == '"' ? 2 : 1, byte);
  return quoted + "\"";
}

// Files may be large and several: memory for that many bytes, the disk beyond.
constexpr const char* kMemory = "PRAGMA temp.cache_size = -65536";

}  // namespace

bool HasSqliteTable(SqliteConnection& connection, const std::string& name) {
  const SqliteStatement found = connection.Prepare(
      "SELECT 1 FROM (SELECT name FROM main.sqlite_schema WHERE type IN ('table', 'view') UNION ALL "
      "SELECT name FROM temp.sqlite_schema) WHERE name = ?1 COLLATE NOCASE");
  sqlite3_bind_text64(found.get(), 1, name.data(), name.size(), SQLITE_STATIC, SQLITE_UTF8);
  return connection.Step(found.get());
}

SqliteTableWriter::SqliteTableWriter(SqliteConnection& connection, const std::string& name,
                                     const std::vector<SqliteTableColumn>& columns)
    : connection_(connection) {
  const std::string table = "temp." + QuotedName(name);
  std::string declarations;
  std::string values;
  for (const SqliteTableColumn& column : columns) {
    const char* const comma = declarations.empty() ? "" : ", ";
    declarations += comma + QuotedName(column.name) + " " + column.declaration;
    values += comma;
    values += "?";
  }
  connection_.Execute(kMemory);
  connection_.Execute("BEGIN");
  connection_.Execute(("CREATE TABLE " + table + " (" + declarations + ")").c_str());
  row_ = connection_.Prepare("INSERT INTO " + table + " VALUES (" + values + ")");
}

void SqliteTableWriter::AddRow() {
  connection_.Step(row_.get());
  sqlite3_reset(row_.get());
}

void SqliteTableWriter::Finish() {
  row_.reset();
  connection_.Execute("COMMIT");
}

}  // namespace zorkanca
