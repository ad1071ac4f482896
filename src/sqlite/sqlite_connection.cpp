#include "sqlite/sqlite_connection.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

#include "runtime/utf8.h"
#include "sqlite/decimal_collation.h"
#include "sqlite/sqlite_types.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kFileNotOpened = 3024;
constexpr std::int32_t kNoDatabase = 3343;
constexpr std::int32_t kTooFewParameters = 3061;
constexpr std::int32_t kCallFailed = 3146;

// A look at the flag costs a few nanoseconds, a thousand steps of SQLite's machine some ten microseconds.
constexpr int kStepsBetweenLooks = 1000;

constexpr std::chrono::milliseconds kBusyPause{10};
constexpr int kBusyAttempts = 500;  // 5 seconds of pauses

// The schema of the file is as untrusted as its data; the statement is the client's own.
constexpr int kLongestValue = 256 * 1024 * 1024;
constexpr int kLongestStatement = 1024 * 1024;

// Both look at the flag, for a lock of another process is waited for outside SQLite's machine.
int StopWhenInterrupted(void* flag) {
  return *static_cast<const std::atomic<bool>*>(flag) ? 1 : 0;
}

int WaitUnlessInterrupted(void* flag, int attempts) {
  if (attempts >= kBusyAttempts) return 0;
  if (flag != nullptr && StopWhenInterrupted(flag) != 0) return 0;
  std::this_thread::sleep_for(kBusyPause);
  return 1;
}

constexpr const char* kWidestKind = "zorkanca_widest_kind";

// The aggregate function over the values of a column: the widest kind.
void StepWidestKind(sqlite3_context* context, int, sqlite3_value** arguments) {
  auto* const widest = static_cast<int*>(sqlite3_aggregate_context(context, sizeof(int)));  // zero at first
  if (widest != nullptr) *widest = std::max(*widest, static_cast<int>(KindOf(arguments[0])));
}

void FinishWidestKind(sqlite3_context* context) {
  const auto* const widest = static_cast<const int*>(sqlite3_aggregate_context(context, 0));
  sqlite3_result_int(context, widest != nullptr ? *widest : 0);
}

[[noreturn]] void RaiseSqlite(std::int32_t number, Text description) {
  throw Error(number, u"SQLite", std::move(description));
}

constexpr const char* kNoFile = ":memory:";

// SQLite knows names with a meaning of their own ("", ":memory:"); behind a folder they are plain files.
std::string PlainFile(const std::string& path) {
  return path.starts_with('/') ? path : "./" + path;
}

}  // namespace

SqliteConnection::SqliteConnection(const std::optional<std::string>& path, const std::atomic<bool>* interrupted)
    : path_(path.value_or(kNoFile)), interrupted_(interrupted) {
  sqlite3* handle = nullptr;
  // One thread at a time uses a connection, so that its own locking would only cost.
  constexpr int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
  const int code = sqlite3_open_v2(path ? PlainFile(*path).c_str() : kNoFile, &handle, flags, nullptr);
  handle_.reset(handle);
  if (code != SQLITE_OK) RaiseFailure(code);
  Protect();
}

void SqliteConnection::Protect() {
  sqlite3* const handle = handle_.get();
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
  sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLongestValue);
  sqlite3_limit(handle, SQLITE_LIMIT_SQL_LENGTH, kLongestStatement);
  sqlite3_limit(handle, SQLITE_LIMIT_ATTACHED, 0);
  sqlite3_create_function_v2(handle, kWidestKind, 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr,
                             nullptr, StepWidestKind, FinishWidestKind, nullptr);
  AddDecimalCollation(handle);
  // SQLite's callbacks take a plain pointer; it is only ever read from.
  auto* const flag = const_cast<std::atomic<bool>*>(interrupted_);
  sqlite3_busy_handler(handle, WaitUnlessInterrupted, flag);
  if (flag != nullptr) sqlite3_progress_handler(handle, kStepsBetweenLooks, StopWhenInterrupted, flag);
}

SqliteQuery SqliteConnection::PrepareReading(const std::string& sql, unsigned flags) {
  if (sql.find('\0') != std::string::npos) RaiseSqlite(kCallFailed, u"the statement holds a NUL character");
  const char* const begin = sql.data();
  const char* const end = begin + sql.size();
  const char* rest = begin;
  sqlite3_stmt* prepared = nullptr;
  const int code = sqlite3_prepare_v3(handle_.get(), begin, static_cast<int>(sql.size() + 1), flags, &prepared, &rest);
  SqliteQuery query{SqliteStatement(prepared), std::string(begin, rest)};
  if (code != SQLITE_OK) RaiseFailure(code);
  if (prepared == nullptr) RaiseSqlite(kCallFailed, u"the statement is empty");
  RefuseFurtherStatements(rest, end);
  if (sqlite3_stmt_readonly(prepared) == 0) RaiseSqlite(kCallFailed, u"the statement would change the database");
  if (sqlite3_column_count(prepared) == 0) RaiseSqlite(kCallFailed, u"the statement returns no records");
  return query;
}

SqliteQuery SqliteConnection::PrepareQuery(const std::string& sql) {
  SqliteQuery query = PrepareReading(sql, 0);
  if (const int parameters = sqlite3_bind_parameter_count(query.statement.get()); parameters > 0) {
    RaiseSqlite(kTooFewParameters, u"Too few parameters. Expected " + DecimalText(parameters) + u".");
  }
  if (query.text.ends_with(';')) query.text.pop_back();
  return query;
}

SqliteStatement SqliteConnection::PrepareDetail(const std::string& sql) {
  SqliteStatement statement = std::move(PrepareReading(sql, SQLITE_PREPARE_PERSISTENT).statement);
  for (int parameter = 1; parameter <= sqlite3_bind_parameter_count(statement.get()); ++parameter) {
    const char* const name = sqlite3_bind_parameter_name(statement.get(), parameter);
    if (name != nullptr && *name == ':') continue;
    RaiseSqlite(kTooFewParameters, u"a parameter is written \":column\", not \"" + FromUtf8(name ? name : "?") + u"\"");
  }
  return statement;
}

void SqliteConnection::RefuseFurtherStatements(const char* rest, const char* end) {
  while (rest < end) {
    const char* const begin = rest;
    sqlite3_stmt* further = nullptr;
    const int code = sqlite3_prepare_v2(handle_.get(), begin, static_cast<int>(end - begin + 1), &further, &rest);
    const SqliteStatement owner(further);
    if (code != SQLITE_OK || further != nullptr) RaiseSqlite(kCallFailed, u"more than one statement");
    if (rest == begin) return;
  }
}

SqliteStatement SqliteConnection::PrepareSurvey(const SqliteQuery& query, const std::vector<int>& columns) {
  // The line end closes a comment that the query may end with. Columns of equal or odd names get names of their own,
  // but only where some are asked for: without them SQLite leaves out whatever the number of rows does not need.
  std::string sql = "SELECT count(*) FROM (" + query.text + "\n)";
  if (!columns.empty()) {
    std::string names;
    std::string kinds;
    const int count = sqlite3_column_count(query.statement.get());
    for (int column = 0; column < count; ++column) names += (column > 0 ? ",c" : "c") + std::to_string(column);
    for (const int column : columns) kinds += ", " + std::string(kWidestKind) + "(c" + std::to_string(column) + ")";
    sql =
        "WITH zorkanca_query(" + names + ") AS (" + query.text + "\n) SELECT count(*)" + kinds + " FROM zorkanca_query";
  }
  sqlite3_stmt* prepared = nullptr;
  sqlite3_prepare_v2(handle_.get(), sql.data(), static_cast<int>(sql.size() + 1), &prepared, nullptr);
  return SqliteStatement(prepared);
}

SqliteStatement SqliteConnection::Prepare(const std::string& sql) {
  sqlite3_stmt* prepared = nullptr;
  const int code = sqlite3_prepare_v3(handle_.get(), sql.data(), static_cast<int>(sql.size() + 1),
                                      SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
  if (code != SQLITE_OK) RaiseFailure(code);
  return SqliteStatement(prepared);
}

bool SqliteConnection::Step(sqlite3_stmt* statement) {
  const int code = IsInterrupted() ? SQLITE_INTERRUPT : sqlite3_step(statement);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  RaiseFailure(code);
}

void SqliteConnection::Execute(const char* sql) {
  const int code = sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) RaiseFailure(code);
}

void SqliteConnection::RaiseFailure(int code) const {
  // An interruption while a lock was waited for looks like "busy".
  if (IsInterrupted()) Raise(RuntimeError::kUserInterrupt);
  switch (code & 0xFF) {
    case SQLITE_INTERRUPT:
      Raise(RuntimeError::kUserInterrupt);
    case SQLITE_NOMEM:
      Raise(RuntimeError::kOutOfMemory);
    default:
      break;
  }
  const Text text = FromUtf8(handle_ ? sqlite3_errmsg(handle_.get()) : sqlite3_errstr(code));
  switch (code & 0xFF) {
    case SQLITE_CANTOPEN:
    case SQLITE_READONLY:  // a reader, too, must write beside a WAL database or one with a journal left by a crash
      RaiseSqlite(kFileNotOpened, text + u": " + FromUtf8(path_));
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      RaiseSqlite(kNoDatabase, text + u": " + FromUtf8(path_));
    case SQLITE_IOERR:  // among others a folder in the place of a file
      RaiseSqlite(kCallFailed, text + u": " + FromUtf8(path_));
    default:
      RaiseSqlite(kCallFailed, text);
  }
}

SqliteSnapshot::SqliteSnapshot(std::shared_ptr<SqliteConnection> connection) : connection_(std::move(connection)) {
  if (connection_->snapshots_ == 0) connection_->Execute("BEGIN");
  ++connection_->snapshots_;
}

SqliteSnapshot::~SqliteSnapshot() {
  if (--connection_->snapshots_ > 0) return;
  // Nothing was written, so that there is nothing to lose when this fails.
  sqlite3_exec(connection_->handle_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

}  // namespace zorkanca
