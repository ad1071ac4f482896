#include "odbc/odbc_connection.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "odbc/odbc_errors.h"

namespace zorkanca {

namespace {

constexpr std::intptr_t kLoginSeconds = 15;

SQLPOINTER Number(std::intptr_t number) {
  return reinterpret_cast<SQLPOINTER>(number);
}

Text TextOf(const SQLWCHAR* units, std::size_t count) {
  return Text(units, units + count);
}

Text TextOf(const std::vector<SQLWCHAR>& units) {
  return Text(units.begin(), std::find(units.begin(), units.end(), SQLWCHAR{0}));
}

}  // namespace

std::vector<SQLWCHAR> WideText(TextView text) {
  std::vector<SQLWCHAR> units(text.size() + 1);
  std::copy(text.begin(), text.end(), units.begin());
  return units;
}

OdbcConnection::OdbcConnection(ConnectionString string, const std::optional<Text>& password, bool streams)
    : odbc_(OdbcLibrary::Get()), string_(std::move(string)), secret_(password.value_or(Text())) {
  try {
    Connect(password, streams);
  } catch (...) {
    Free();
    throw;
  }
}

OdbcConnection::~OdbcConnection() {
  try {
    if (inTransaction_) End();
  } catch (const Error&) {  // the server rolls back what its client leaves
  }
  Free();
}

void OdbcConnection::Free() {
  if (connected_) odbc_.Disconnect(connection_);
  if (connection_ != SQL_NULL_HDBC) odbc_.FreeHandle(SQL_HANDLE_DBC, connection_);
  if (environment_ != SQL_NULL_HENV) odbc_.FreeHandle(SQL_HANDLE_ENV, environment_);
}

void OdbcConnection::Connect(const std::optional<Text>& password, bool streams) {
  if (!SQL_SUCCEEDED(odbc_.AllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_))) {
    throw Error(kOdbcConnectionFailed, u"ODBC", u"unixODBC cannot be used");
  }
  odbc_.SetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0);
  RequireSuccess(odbc_.AllocHandle(SQL_HANDLE_DBC, environment_, &connection_), SQL_HANDLE_ENV, environment_);
  // Not every driver knows these; what must hold is asked for again in `Begin`.
  odbc_.SetConnectAttr(connection_, SQL_ATTR_LOGIN_TIMEOUT, Number(kLoginSeconds), SQL_IS_UINTEGER);
  odbc_.SetConnectAttr(connection_, SQL_ATTR_ACCESS_MODE, Number(SQL_MODE_READ_ONLY), SQL_IS_UINTEGER);

  driver_ = &DriverOfSource();
  AddOptions(streams);
  ConnectionString full = string_;
  if (password) full.AddIfMissing(u"PWD", *password);
  std::vector<SQLWCHAR> text = WideText(full.AsText());
  const SQLRETURN code =
      odbc_.DriverConnect(connection_, nullptr, text.data(), SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(code)) RaiseNoConnection(password.has_value());
  connected_ = true;

  if (driver_->names.empty()) driver_ = &OdbcDriverNamed(Information(SQL_DRIVER_NAME));
  if (driver_->names.empty()) driver_ = &OdbcDriverNamed(Information(SQL_DBMS_NAME));
  dialect_ = driver_->dialect;
  // A setting of the server. Drivers of others are not asked: some answer nothing and say that they have answered.
  if (dialect_.quotesAreTexts && Information(SQL_IDENTIFIER_QUOTE_CHAR) == u"\"") dialect_.quotesAreTexts = false;
  for (const TextView sql : driver_->setup) Execute(sql);
}

void OdbcConnection::SetRunning(SQLHSTMT statement) {
  const std::lock_guard lock(cancelling_);
  running_ = statement;
  if (cancelled_) Raise(RuntimeError::kUserInterrupt);
}

void OdbcConnection::Cancel() {
  const std::lock_guard lock(cancelling_);
  cancelled_ = true;
  if (running_ != SQL_NULL_HSTMT) odbc_.Cancel(running_);
}

// A data source tells its driver in its description.
const OdbcDriver& OdbcConnection::DriverOfSource() const {
  if (const std::optional<Text> driver = string_.ValueOf(u"DRIVER")) return OdbcDriverNamed(*driver);
  const Text source = string_.ValueOf(u"DSN").value_or(Text());
  SQLUSMALLINT direction = SQL_FETCH_FIRST;
  for (;; direction = SQL_FETCH_NEXT) {
    std::vector<SQLWCHAR> name(256);
    std::vector<SQLWCHAR> description(512);
    SQLSMALLINT ignored = 0;
    const SQLRETURN code =
        odbc_.DataSources(environment_, direction, name.data(), 255, &ignored, description.data(), 511, &ignored);
    if (!SQL_SUCCEEDED(code)) return OdbcDriverNamed(u"");
    if (EqualsIgnoringCase(TextOf(name), source)) return OdbcDriverNamed(TextOf(description));
  }
}

void OdbcConnection::AddOptions(bool streams) {
  for (const auto& [key, value] : driver_->options) {
    const auto& streaming = driver_->streamingOptions;
    const bool isStreaming = std::find(streaming.begin(), streaming.end(), key) != streaming.end();
    if (streams || !isStreaming) string_.AddIfMissing(key, value);
  }
}

Text OdbcConnection::Information(SQLUSMALLINT kind) const {
  std::vector<SQLWCHAR> text(256);
  SQLSMALLINT bytes = 0;
  odbc_.GetInfo(connection_, kind, text.data(), static_cast<SQLSMALLINT>(255 * sizeof(SQLWCHAR)), &bytes);
  return TextOf(text);
}

void OdbcConnection::Execute(TextView sql) const {
  SQLHSTMT statement = SQL_NULL_HSTMT;
  RequireSuccess(odbc_.AllocHandle(SQL_HANDLE_STMT, connection_, &statement), SQL_HANDLE_DBC, connection_);
  std::vector<SQLWCHAR> text = WideText(sql);
  const SQLRETURN code = odbc_.ExecDirect(statement, text.data(), SQL_NTS);
  std::optional<Error> failure;
  try {
    if (code != SQL_NO_DATA) RequireSuccess(code, SQL_HANDLE_STMT, statement);
  } catch (const Error& error) {
    failure = error;
  }
  odbc_.FreeHandle(SQL_HANDLE_STMT, statement);
  if (failure) throw Error(*failure);
}

void OdbcConnection::Begin() {
  if (driver_->begin.empty()) {
    BeginByAttributes();
  } else {
    for (const TextView sql : driver_->begin) Execute(sql);
    readsOneMoment_ = true;
  }
  inTransaction_ = true;
}

void OdbcConnection::BeginByAttributes() {
  SQLUINTEGER offered = 0;
  odbc_.GetInfo(connection_, SQL_TXN_ISOLATION_OPTION, &offered, sizeof offered, nullptr);
  const SQLUINTEGER isolation = (offered & SQL_TXN_REPEATABLE_READ) != 0 ? SQL_TXN_REPEATABLE_READ
                                : (offered & SQL_TXN_SERIALIZABLE) != 0  ? SQL_TXN_SERIALIZABLE
                                                                         : 0;
  const auto set = [&](SQLINTEGER attribute, std::intptr_t value) {
    return SQL_SUCCEEDED(odbc_.SetConnectAttr(connection_, attribute, Number(value), SQL_IS_UINTEGER));
  };
  readsOneMoment_ = isolation != 0 && set(SQL_ATTR_TXN_ISOLATION, static_cast<std::intptr_t>(isolation)) &&
                    set(SQL_ATTR_AUTOCOMMIT, static_cast<std::intptr_t>(SQL_AUTOCOMMIT_OFF));
}

void OdbcConnection::End() {
  inTransaction_ = false;
  if (!driver_->begin.empty()) return Execute(u"ROLLBACK");
  if (!readsOneMoment_) return;
  RequireSuccess(odbc_.EndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK), SQL_HANDLE_DBC, connection_);
}

OdbcConnection::Diagnosis OdbcConnection::Diagnose(SQLSMALLINT type, SQLHANDLE handle) const {
  constexpr SQLSMALLINT kMostRecords = 8;
  constexpr SQLSMALLINT kLongestText = 2000;
  Diagnosis found;
  for (SQLSMALLINT record = 1; record <= kMostRecords; ++record) {
    SQLWCHAR state[6] = {};
    std::vector<SQLWCHAR> text(static_cast<std::size_t>(kLongestText) + 1);
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN code = odbc_.GetDiagRec(type, handle, record, state, &native, text.data(), kLongestText, &length);
    if (!SQL_SUCCEEDED(code) || state[0] == 0) break;
    if (found.state.empty()) found.state = TextOf(state, 5);
    Text line = TextOf(text);
    std::replace_if(
        line.begin(), line.end(), [](char16_t unit) { return unit == u'\n' || unit == u'\r'; }, u' ');
    line = Text(TrimRight(line));
    if (!found.text.empty()) found.text += u"; ";
    found.text += TextOf(state, 5) + u" (" + DecimalText(native) + u") " + line;
  }
  if (found.text.empty()) found.text = u"the driver failed and does not say why";
  if (!secret_.empty()) found.text = Replace(found.text, secret_, u"***");
  return found;
}

void OdbcConnection::RaiseFailure(SQLSMALLINT type, SQLHANDLE handle) const {
  throw Error(kOdbcCallFailed, u"ODBC", Diagnose(type, handle).text);
}

void OdbcConnection::RaiseNoConnection(bool hadPassword) const {
  const Diagnosis found = Diagnose(SQL_HANDLE_DBC, connection_);
  const bool refused = found.state.starts_with(u"28") || LowerCase(found.text).find(u"password") != Text::npos;
  Text text = found.text;
  if (found.state == u"IM002" || found.state == u"01000") {
    text += u" (\"zorkanca doctor\" lists the drivers and data sources)";
  } else if (refused && !hadPassword) {
    text += u" (no password was given: --db-password-file, $ZORKANCA_DB_PASSWORD)";
  }
  if (refused) throw OdbcLoginRefused(kOdbcConnectionFailed, u"ODBC", text);
  throw Error(kOdbcConnectionFailed, u"ODBC", text);
}

}  // namespace zorkanca
