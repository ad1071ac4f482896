// The embedded database of the host: an SQLite file that is only ever read.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/database.h"
#include "platform/detail_query.h"

namespace zorkanca {

class SqliteConnection;

/// Version of the library, "3.40.1".
Text SqliteVersion();

/// Columns by name and the types that were settled for them.
using SqliteColumnTypes = std::vector<std::pair<Text, FieldType>>;

/// Opens its file at the first `OpenRecordset`, so that a missing or foreign file is a failure of the export that needs
/// it. One thread at a time. The file is never created or changed; see docs/formats/sqlite.md for locks and side files.
class SqliteDatabase final : public Database, public DetailSource {
 public:
  /// @param path         file in the system's own bytes; nothing: no file and no tables
  /// @param interrupted  may be null; when it becomes true, a running query ends with error 18 within a moment
  explicit SqliteDatabase(std::optional<std::string> path, const std::atomic<bool>* interrupted = nullptr);
  ~SqliteDatabase() override;

  /// Runs one statement that returns records. `type` is of no account: every recordset is a snapshot.
  /// @param options  256 (forward only) forbids moving back: `MoveFirst` and `MoveLast` raise 3219; others are ignored
  /// Errors: 3024 when the file cannot be opened, 3343 when it is no database, 3061 when the statement holds
  /// parameters, 3146 for everything else that SQLite says and for more or less than one reading statement; 18.
  std::unique_ptr<Recordset> OpenRecordset(TextView name, RecordsetType type, std::int16_t options) override;

  /// Prepares a query of details. Errors: those of `OpenRecordset`, but parameters ":name" are what it is for.
  std::unique_ptr<DetailQuery> PrepareDetail(TextView sql) override;

  /// What gives the connection tables of its own once it is open. What it raises, the `OpenRecordset` that needed the
  /// connection raises, and the next one begins anew.
  /// @return names of columns whose types were settled in these tables, so that no statement must have them
  using SetUp = std::function<std::vector<Text>(SqliteConnection&)>;
  void BeforeFirstQuery(SetUp setUp) { setUp_ = std::move(setUp); }

  /// Settles the types of columns by their names, case ignored, for all recordsets to come. The next statement must
  /// have them all. Errors of `OpenRecordset` then: also 3265 for a column that it lacks.
  void SettleTypes(SqliteColumnTypes types) {
    types_ = std::move(types);
    checksTypes_ = true;
  }

 private:
  const std::shared_ptr<SqliteConnection>& connection();

  std::optional<std::string> path_;
  const std::atomic<bool>* interrupted_;
  std::shared_ptr<SqliteConnection> connection_;
  SetUp setUp_;
  std::vector<Text> settledBefore_;
  SqliteColumnTypes types_;
  bool checksTypes_ = false;
};

}  // namespace zorkanca
