// A connection to a server by its ODBC driver: how it is opened to read only, the transaction of one moment, and what
// the driver says of a failure as an error of ours. All of it but `Cancel` is called on the connection's worker thread
// alone.
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "odbc/connection_string.h"
#include "odbc/odbc_driver.h"
#include "odbc/odbc_library.h"
#include "runtime/error.h"

namespace zorkanca {

/// A text as the driver manager takes it.
std::vector<SQLWCHAR> WideText(TextView text);

/// The server refused a user without a password, or with a wrong one.
class OdbcLoginRefused : public Error {
 public:
  using Error::Error;
};

class OdbcConnection {
 public:
  /// @param string    without a password
  /// @param password  none: none is sent
  /// @param streams   results are read as they come; else the driver may hold them, so that several are read at a time
  /// Errors: 3151 when there is no connection, as `OdbcLoginRefused` where a password might help.
  OdbcConnection(ConnectionString string, const std::optional<Text>& password, bool streams);
  ~OdbcConnection();
  OdbcConnection(const OdbcConnection&) = delete;
  OdbcConnection& operator=(const OdbcConnection&) = delete;

  const OdbcLibrary& odbc() const { return odbc_; }
  const OdbcDriver& driver() const { return *driver_; }
  const SqlDialect& dialect() const { return dialect_; }
  SQLHDBC handle() const { return connection_; }

  /// Begins the transaction, ends it without any change. Errors: 3146.
  void Begin();
  void End();
  /// In a transaction everything is read as it was at one moment.
  bool ReadsOneMoment() const { return readsOneMoment_; }

  /// Calls the driver for a statement that `Cancel` may end. Errors: 18 once that was called.
  template <typename Call>
  SQLRETURN Run(SQLHSTMT statement, Call call) {
    SetRunning(statement);
    const SQLRETURN code = call();
    SetRunning(SQL_NULL_HSTMT);
    return code;
  }
  /// Asks the statement that runs to end; no other will begin. Called from another thread; waits for the server as long
  /// as the driver does.
  void Cancel();

  /// Raises what the driver says of a handle: "SQLSTATE (native number) text". The password is not in it.
  [[noreturn]] void RaiseFailure(SQLSMALLINT type, SQLHANDLE handle) const;
  void RequireSuccess(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle) const {
    if (!SQL_SUCCEEDED(code)) RaiseFailure(type, handle);
  }

 private:
  struct Diagnosis {
    Text state;  // SQLSTATE of the first record
    Text text;
  };

  void Connect(const std::optional<Text>& password, bool streams);
  void AddOptions(bool streams);
  const OdbcDriver& DriverOfSource() const;
  Text Information(SQLUSMALLINT kind) const;
  void BeginByAttributes();
  void Execute(TextView sql) const;
  Diagnosis Diagnose(SQLSMALLINT type, SQLHANDLE handle) const;
  [[noreturn]] void RaiseNoConnection(bool hadPassword) const;
  void SetRunning(SQLHSTMT statement);
  void Free();

  const OdbcLibrary& odbc_;
  ConnectionString string_;
  Text secret_;
  const OdbcDriver* driver_ = nullptr;
  SqlDialect dialect_;
  SQLHENV environment_ = SQL_NULL_HENV;
  SQLHDBC connection_ = SQL_NULL_HDBC;
  std::mutex cancelling_;  // the statement that runs is not freed while it is cancelled
  SQLHSTMT running_ = SQL_NULL_HSTMT;
  bool cancelled_ = false;
  bool connected_ = false;
  bool inTransaction_ = false;
  bool readsOneMoment_ = false;
};

}  // namespace zorkanca
