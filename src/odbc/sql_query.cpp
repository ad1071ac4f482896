// The look through a statement goes by words, not by grammar, and so it must not take a column for a keyword: each rule
// below holds where nothing else than the keyword can stand.
#include "odbc/sql_query.h"

#include <algorithm>
#include <iterator>

#include "odbc/odbc_errors.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

using Kind = SqlToken::Kind;

// What begins a query, and those of them that can stand in a FROM clause.
constexpr TextView kSelects[] = {u"SELECT", u"WITH", u"VALUES", u"TABLE"};
constexpr TextView kShows[] = {u"SHOW", u"EXPLAIN", u"DESCRIBE", u"DESC"};

// Statements that write, where one begins: behind "(" ("WITH x AS (DELETE ...") or behind the list of a WITH.
constexpr TextView kWrites[] = {u"INSERT", u"UPDATE", u"DELETE", u"MERGE", u"REPLACE"};

// Functions that change something in spite of a read-only transaction, or that reach another server without one.
constexpr TextView kWritingFunctions[] = {
    u"nextval", u"setval", u"set_config",
    // large objects and files of the server
    u"lo_creat", u"lo_create", u"lo_export", u"lo_from_bytea", u"lo_import", u"lo_open", u"lo_put", u"lo_truncate",
    u"lo_truncate64", u"lo_unlink", u"lowrite", u"pg_file_rename", u"pg_file_sync", u"pg_file_unlink", u"pg_file_write",
    // other servers and sessions
    u"dblink", u"dblink_exec", u"dblink_open", u"dblink_send_query", u"pg_cancel_backend", u"pg_terminate_backend",
    // the server itself
    u"pg_backup_start", u"pg_backup_stop", u"pg_create_logical_replication_slot",
    u"pg_create_physical_replication_slot", u"pg_create_restore_point", u"pg_drop_replication_slot",
    u"pg_import_system_collations", u"pg_log_backend_memory_contexts", u"pg_logical_emit_message",
    u"pg_logical_slot_get_binary_changes", u"pg_logical_slot_get_changes", u"pg_notify", u"pg_promote",
    u"pg_reload_conf", u"pg_replication_slot_advance", u"pg_rotate_logfile", u"pg_stat_reset", u"pg_stat_reset_shared",
    u"pg_stat_reset_single_table_counters", u"pg_switch_wal", u"pg_wal_replay_pause", u"pg_wal_replay_resume",
    u"sys_eval", u"sys_exec", u"xp_cmdshell"};

bool IsOneOf(TextView word, auto& words) {
  return std::any_of(std::begin(words), std::end(words), [&](TextView each) { return EqualsIgnoringCase(word, each); });
}

[[noreturn]] void Refuse(Text description) {
  throw Error(kOdbcCallFailed, u"ODBC", std::move(description));
}

[[noreturn]] void RefuseWriting(TextView word) {
  Refuse(Text(u"the statement would change the database: ").append(word));
}

class QueryReader {
 public:
  QueryReader(TextView sql, const SqlDialect& dialect, SqlParameters parameters)
      : sql_(sql), dialect_(dialect), reader_(sql, dialect), allowed_(parameters) {}

  SqlQuery Read() {
    if (sql_.find(u'\0') != TextView::npos) Refuse(u"the statement holds a NUL character");
    SqlToken token = reader_.Next();
    for (; Is(token, u"(") || Is(token, u";"); token = reader_.Next()) {
      if (Is(token, u";")) copied_ = token.end;
    }
    if (token.kind == Kind::kEnd) Refuse(u"the statement is empty");
    LookAtFirstWord(token);
    for (; token.kind != Kind::kEnd; token = reader_.Next()) {
      if (Is(token, u";")) {
        RequireNothingMore();
        break;
      }
      Look(token);
      beforeLast_ = last_;
      last_ = token;
    }
    query_.text.append(sql_.substr(copied_, last_.end - copied_));
    RequireParametersAllowed();
    return std::move(query_);
  }

 private:
  TextView TextOf(const SqlToken& token) const { return sql_.substr(token.begin, token.end - token.begin); }
  bool Is(const SqlToken& token, TextView text) const {
    const bool canBe = token.kind == Kind::kWord || token.kind == Kind::kMark;
    return canBe && EqualsIgnoringCase(TextOf(token), text);
  }

  void LookAtFirstWord(const SqlToken& token) {
    query_.isSelect = token.kind == Kind::kWord && IsOneOf(TextOf(token), kSelects);
    isExplain_ = !query_.isSelect && token.kind == Kind::kWord && IsOneOf(TextOf(token), kShows);
    if (query_.isSelect || isExplain_) return;
    if (IsOneOf(TextOf(token), kWrites)) RefuseWriting(TextOf(token));
    Refuse(Text(u"the statement is no query: ").append(TextOf(token)));
  }

  void Look(const SqlToken& token) {
    switch (token.kind) {
      case Kind::kWord:
        return LookAtWord(token);
      case Kind::kMark:
        if (Is(token, u"(")) LookAtCall();
        if (Is(token, u"?")) ++questionMarks_;
        return;
      case Kind::kParameter:
        return TakeParameter(token);
      default:
        return;
    }
  }

  void LookAtWord(const SqlToken& token) {
    const TextView word = TextOf(token);
    const bool beginsStatement = Is(last_, u"(") || Is(last_, u")") || isExplain_;
    if (beginsStatement && IsOneOf(word, kWrites) && IsNameNext(token)) RefuseWriting(word);
    if (Is(token, u"INTO") || (isExplain_ && (Is(token, u"ANALYZE") || Is(token, u"ANALYSE")))) RefuseWriting(word);
    // SELECT ... FOR UPDATE, FOR NO KEY UPDATE, FOR SHARE, LOCK IN SHARE MODE; NEXT VALUE FOR
    const bool locks = Is(token, u"UPDATE") || Is(token, u"SHARE");
    if (locks && (Is(last_, u"FOR") || Is(last_, u"KEY"))) RefuseWriting(u"FOR " + UpperCase(word));
    if (Is(token, u"MODE") && Is(last_, u"SHARE")) RefuseWriting(u"LOCK IN SHARE MODE");
    if (Is(token, u"FOR") && Is(last_, u"VALUE") && Is(beforeLast_, u"NEXT")) RefuseWriting(u"NEXT VALUE FOR");
  }

  // REPLACE is a function, too, and a column may have any of these names.
  bool IsNameNext(const SqlToken& token) {
    SqlReader ahead = reader_;
    const SqlToken next = ahead.Next();
    return next.begin > token.end && (next.kind == Kind::kWord || next.kind == Kind::kName);
  }

  void LookAtCall() {
    if (last_.kind != Kind::kWord && last_.kind != Kind::kName) return;
    TextView name = TextOf(last_);
    if (last_.kind == Kind::kName && name.size() >= 2) name = name.substr(1, name.size() - 2);
    if (IsOneOf(name, kWritingFunctions)) RefuseWriting(Text(name) + u"()");
  }

  void TakeParameter(const SqlToken& token) {
    const Text name(TextOf(token).substr(1));
    const auto known = std::find(query_.parameters.begin(), query_.parameters.end(), name);
    query_.places.push_back(static_cast<std::size_t>(known - query_.parameters.begin()));
    if (known == query_.parameters.end()) query_.parameters.push_back(name);
    query_.text.append(sql_.substr(copied_, token.begin - copied_)).push_back(u'?');
    copied_ = token.end;
  }

  void RequireNothingMore() {
    SqlToken token = reader_.Next();
    while (Is(token, u";")) token = reader_.Next();
    if (token.kind != Kind::kEnd) Refuse(u"more than one statement");
  }

  void RequireParametersAllowed() const {
    const bool named = allowed_ == SqlParameters::kNamed;
    const std::size_t unwelcome = questionMarks_ + (named ? 0 : query_.places.size());
    if (unwelcome == 0) return;
    Text description =
        named ? Text(u"a parameter is written \":column\", not \"?\"")
              : u"Too few parameters. Expected " + DecimalText(static_cast<std::int64_t>(unwelcome)) + u".";
    if (questionMarks_ > 0 && dialect_.dollarTexts) {
      description +=
          u" ODBC takes every \"?\" for a parameter; the operators of jsonb that have one have functions, too: "
          u"jsonb_exists, jsonb_exists_any, jsonb_exists_all";
    }
    throw Error(kOdbcTooFewParameters, u"ODBC", std::move(description));
  }

  TextView sql_;
  const SqlDialect& dialect_;
  SqlReader reader_;
  SqlParameters allowed_;
  SqlQuery query_;
  SqlToken last_;
  SqlToken beforeLast_;
  bool isExplain_ = false;
  std::size_t copied_ = 0;  // the statement up to here is in the query's text
  std::size_t questionMarks_ = 0;
};

}  // namespace

SqlQuery ReadSqlQuery(TextView sql, const SqlDialect& dialect, SqlParameters parameters) {
  return QueryReader(sql, dialect, parameters).Read();
}

}  // namespace zorkanca
