#include "odbc/odbc_database.h"

#include <algorithm>

#include "odbc/odbc_detail_query.h"
#include "odbc/odbc_errors.h"
#include "odbc/odbc_recordset.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::int16_t kForwardOnly = 256;

void RequireColumns(Recordset& recordset, const std::vector<std::pair<Text, FieldType>>& types) {
  std::vector<Text> names;
  for (std::int32_t index = 0; index < recordset.FieldCount(); ++index)
    names.push_back(recordset.FieldAt(index).Name());
  for (const auto& [name, type] : types) {
    const auto isThis = [&wanted = name](const Text& each) { return EqualsIgnoringCase(each, wanted); };
    if (std::any_of(names.begin(), names.end(), isThis)) continue;
    Raise(RuntimeError::kItemNotFound,
          u"The query has no column \"" + name + u"\"; its columns are " + Join(names, u", "));
  }
}

}  // namespace

OdbcDatabase::OdbcDatabase(OdbcLogin login, const std::atomic<bool>* interrupted)
    : login_(std::move(login)), interrupted_(interrupted) {}

OdbcDatabase::~OdbcDatabase() = default;

const std::shared_ptr<OdbcSession>& OdbcDatabase::RecordSession() {
  if (!session_) session_ = std::make_shared<OdbcSession>(login_, /*streams=*/true, interrupted_);
  return session_;
}

const std::shared_ptr<OdbcSession>& OdbcDatabase::DetailSession() {
  if (RecordSession()->connection()->driver().streamingOptions.empty()) return session_;
  if (!details_) details_ = std::make_shared<OdbcSession>(login_, /*streams=*/false, interrupted_);
  return details_;
}

std::unique_ptr<Recordset> OdbcDatabase::OpenRecordset(TextView name, RecordsetType /*type*/, std::int16_t options) {
  const bool isTaken = session_ && session_->isReading() && !session_->connection()->driver().streamingOptions.empty();
  const std::shared_ptr<OdbcSession>& session = isTaken ? DetailSession() : RecordSession();
  SqlQuery query = ReadSqlQuery(name, session->connection()->dialect(), SqlParameters::kNone);
  const bool forwardOnly = (options & kForwardOnly) != 0;
  auto recordset = std::make_unique<OdbcRecordset>(session, std::move(query), types_, forwardOnly);
  if (std::exchange(checksTypes_, false)) RequireColumns(*recordset, types_);
  return recordset;
}

std::unique_ptr<DetailQuery> OdbcDatabase::PrepareDetail(TextView sql) {
  const std::shared_ptr<OdbcSession>& session = DetailSession();
  SqlQuery query = ReadSqlQuery(sql, session->connection()->dialect(), SqlParameters::kNamed);
  return std::make_unique<OdbcDetailQuery>(session, std::move(query), types_);
}

namespace {

template <typename Function>
std::vector<OdbcSource> Listed(Function function, SQLHENV environment) {
  std::vector<OdbcSource> found;
  for (SQLUSMALLINT direction = SQL_FETCH_FIRST;; direction = SQL_FETCH_NEXT) {
    std::vector<SQLWCHAR> name(512);
    std::vector<SQLWCHAR> more(4096);
    SQLSMALLINT length = 0;
    const SQLRETURN code = function(environment, direction, name.data(), 511, &length, more.data(), 4094, &length);
    if (!SQL_SUCCEEDED(code)) return found;
    const auto textOf = [](const std::vector<SQLWCHAR>& units) {
      return Text(units.begin(), std::find(units.begin(), units.end(), SQLWCHAR{0}));
    };
    found.push_back({textOf(name), textOf(more)});
  }
}

}  // namespace

OdbcInstallation LookAtOdbc() {
  const OdbcLibrary& odbc = OdbcLibrary::Get();
  SQLHENV environment = SQL_NULL_HENV;
  if (!SQL_SUCCEEDED(odbc.AllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment))) {
    throw Error(kOdbcConnectionFailed, u"ODBC", u"unixODBC cannot be used");
  }
  // NOLINTNEXTLINE: ODBC passes numbers as pointers
  odbc.SetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  OdbcInstallation found{.drivers = Listed(odbc.Drivers, environment),
                         .sources = Listed(odbc.DataSources, environment)};
  odbc.FreeHandle(SQL_HANDLE_ENV, environment);
  return found;
}

}  // namespace zorkanca
