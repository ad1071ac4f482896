// Any database that has an ODBC driver: only ever read.
#pragma once

#include <atomic>
#include <memory>
#include <utility>
#include <vector>

#include "odbc/odbc_session.h"
#include "platform/database.h"
#include "platform/detail_query.h"

namespace zorkanca {

/// Connects at the first query, so that a server that is away is a failure of the export that needs it. One thread at a
/// time calls it. See docs/formats/odbc.md for types, options of drivers, and what is refused.
class OdbcDatabase final : public Database, public DetailSource {
 public:
  /// @param interrupted  may be null; when it becomes true, whatever runs ends with error 18 within a second, even
  /// where
  ///                     the server has fallen silent
  explicit OdbcDatabase(OdbcLogin login, const std::atomic<bool>* interrupted = nullptr);
  ~OdbcDatabase() override;

  /// Runs one statement that returns records. `type` is of no account.
  /// @param options  256 (forward only) forbids moving back, and then nothing is counted; others are ignored
  /// Errors: 3151 when there is no connection; 3061 when the statement holds parameters; 3265 for a settled type
  /// without its column; 3146 for everything else that the driver says and for more or less than one reading
  /// statement; 18.
  std::unique_ptr<Recordset> OpenRecordset(TextView name, RecordsetType type, std::int16_t options) override;
  std::unique_ptr<DetailQuery> PrepareDetail(TextView sql) override;

  /// Whether the number of records is surely that of the records read; known once a query was opened.
  bool ReadsOneMoment() const { return session_ && session_->connection()->ReadsOneMoment(); }

  /// Settles the types of columns by their names, as `SqliteDatabase::SettleTypes` does.
  void SettleTypes(std::vector<std::pair<Text, FieldType>> types) {
    types_ = std::move(types);
    checksTypes_ = true;
  }

 private:
  /// Of the records, and of their details: the same one where the driver serves several queries at a time.
  const std::shared_ptr<OdbcSession>& RecordSession();
  const std::shared_ptr<OdbcSession>& DetailSession();

  OdbcLogin login_;
  const std::atomic<bool>* interrupted_;
  std::shared_ptr<OdbcSession> session_;
  std::shared_ptr<OdbcSession> details_;
  std::vector<std::pair<Text, FieldType>> types_;
  bool checksTypes_ = false;
};

/// A driver or a data source that this computer has.
struct OdbcSource {
  Text name;
  Text driver;  ///< of a data source; of a driver the file that it is
};

/// What unixODBC knows. Errors: 3151 when there is no unixODBC.
struct OdbcInstallation {
  std::vector<OdbcSource> drivers;
  std::vector<OdbcSource> sources;
};
OdbcInstallation LookAtOdbc();

}  // namespace zorkanca
