// Small SQLite files for tests, written through SQLite's own interface.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>
#include <string>

#include "runtime/utf8.h"
#include "sqlite/sqlite_database.h"
#include "support/temporary_folder.h"

namespace zorkanca::testing {

/// A file "test.db" in a folder of its own, and the connection that writes it.
class SqliteFile {
 public:
  explicit SqliteFile(const std::string& sql) : path_(folder_.path() + "/test.db") {
    EXPECT_EQ(sqlite3_open(path_.c_str(), &writer_), SQLITE_OK);
    Execute("PRAGMA synchronous = OFF; " + sql);
  }
  ~SqliteFile() { sqlite3_close(writer_); }
  SqliteFile(const SqliteFile&) = delete;
  SqliteFile& operator=(const SqliteFile&) = delete;

  const std::string& path() const { return path_; }
  const TemporaryFolder& folder() const { return folder_; }

  void Execute(const std::string& sql) {
    EXPECT_EQ(sqlite3_exec(writer_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(writer_) << "\n"
        << sql;
  }

 private:
  TemporaryFolder folder_;
  std::string path_;
  sqlite3* writer_ = nullptr;
};

inline std::unique_ptr<Recordset> Open(Database& database, const std::string& sql, std::int16_t options = 0) {
  return database.OpenRecordset(FromUtf8(sql), RecordsetType::kDynaset, options);
}

/// What the exports do before they read: the exact count, then back to the first row.
inline std::int32_t CountAndReturn(Recordset& recordset) {
  recordset.MoveLast();
  const std::int32_t count = recordset.RecordCount();
  recordset.MoveFirst();
  return count;
}

inline std::int32_t RowsFromHere(Recordset& recordset) {
  std::int32_t rows = 0;
  for (; !recordset.Eof(); recordset.MoveNext()) ++rows;
  return rows;
}

}  // namespace zorkanca::testing
