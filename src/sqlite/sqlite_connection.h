// A read-only connection to an SQLite file: how it is opened, how one statement is prepared and stepped, the snapshot
// that a recordset reads, and SQLite's failures as errors of ours.
#pragma once

#include <sqlite3.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "runtime/error.h"

namespace zorkanca {

struct SqliteFinalizer {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using SqliteStatement = std::unique_ptr<sqlite3_stmt, SqliteFinalizer>;

/// A prepared query and its text without the ";" that ended it.
struct SqliteQuery {
  SqliteStatement statement;
  std::string text;
};

/// Errors of all members, source "SQLite" and SQLite's own text: 3024 when the file cannot be opened, 3343 when it is
/// no database or damaged, 3146 for any other failure; 7 out of memory, 18 when the flag asked for an interruption.
class SqliteConnection {
 public:
  /// @param path         file in the system's own bytes, which must exist; nothing: no file and no tables
  /// @param interrupted  when it becomes true, whatever runs ends with error 18; may be null
  SqliteConnection(const std::optional<std::string>& path, const std::atomic<bool>* interrupted);
  SqliteConnection(const SqliteConnection&) = delete;
  SqliteConnection& operator=(const SqliteConnection&) = delete;

  /// Prepares a text of one statement; blanks, ";" and comments may follow it.
  /// Errors: 3146 also for no or several statements, and for one that changes something or returns no columns;
  /// 3061 when it holds parameters.
  SqliteQuery PrepareQuery(const std::string& sql);
  /// The same for a statement that is kept and run again and again, and that may hold parameters ":name".
  /// Errors: 3061 for other parameters.
  SqliteStatement PrepareDetail(const std::string& sql);
  /// Prepares the statement that surveys a query: its one row holds the number of the query's rows and then, for each
  /// of the columns asked for, the widest `ValueKind` that is in it. Null for the few queries that cannot stand in a
  /// FROM clause.
  /// @param columns  positions from 0, ascending
  SqliteStatement PrepareSurvey(const SqliteQuery& query, const std::vector<int>& columns);

  /// Prepares a statement of ours, whatever it does; it is kept and run again and again.
  SqliteStatement Prepare(const std::string& sql);
  /// Runs statements of ours.
  void Execute(const char* sql);

  /// Goes to the next row. @return false after the last one
  bool Step(sqlite3_stmt* statement);

 private:
  friend class SqliteSnapshot;
  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
  };

  void Protect();
  SqliteQuery PrepareReading(const std::string& sql, unsigned flags);
  void RefuseFurtherStatements(const char* rest, const char* end);
  bool IsInterrupted() const { return interrupted_ != nullptr && *interrupted_; }
  [[noreturn]] void RaiseFailure(int code) const;

  std::string path_;
  const std::atomic<bool>* interrupted_;
  std::unique_ptr<sqlite3, Closer> handle_;
  int snapshots_ = 0;
};

/// While it lives, all that its connection reads is the state of one moment. Recordsets of a connection that are open
/// at the same time share that moment.
class SqliteSnapshot {
 public:
  explicit SqliteSnapshot(std::shared_ptr<SqliteConnection> connection);
  ~SqliteSnapshot();
  SqliteSnapshot(const SqliteSnapshot&) = delete;
  SqliteSnapshot& operator=(const SqliteSnapshot&) = delete;

  SqliteConnection& connection() const { return *connection_; }

 private:
  std::shared_ptr<SqliteConnection> connection_;
};

}  // namespace zorkanca
