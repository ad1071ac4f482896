#include "odbc/sql_query.h"

#include <gtest/gtest.h>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr SqlDialect kPostgres = {.dollarTexts = true, .nestedComments = true};
constexpr SqlDialect kMariaDb = {
    .backslashes = true, .quotesAreTexts = true, .hashComments = true, .commentsThatRun = true};
constexpr SqlDialect kAccess = {.bracketNames = true};

TEST(SqlQuery, ParametersStandOutsideOfTextsNamesCommentsAndCasts) {
  struct Row {
    const SqlDialect& dialect;
    std::string sql;
    std::string text;
    std::string parameters;
  };
  const Row rows[] = {
      {kPostgres, "SELECT * FROM p WHERE f=:cislo AND d<:den OR f=:cislo;", "SELECT * FROM p WHERE f=? AND d<? OR f=?",
       "cislo den cislo"},
      {kPostgres, "SELECT ':a', \":b\", a::int, x[1:n], (y):z, '::' || :c::text -- :d",
       "SELECT ':a', \":b\", a::int, "
       "x[1:n], (y):z, '::' || ?::text",
       "c"},
      {kPostgres, "SELECT $$ :a $$, $t$ :b $$ $t$, E'\\' :c', 'it''s :d' /* :e /* */ :f */, :g",
       "SELECT $$ :a $$, $t$ :b $$ $t$, E'\\' :c', 'it''s :d' /* :e /* */ :f */, ?", "g"},
      {kPostgres, "SELECT '\\', :a", "SELECT '\\', ?", "a"},
      {kPostgres, "SELECT f(a := 1), :číslo_1", "SELECT f(a := 1), ?", "číslo_1"},
      {kMariaDb, "SELECT '\\' :a', \":b\", `:c`, :d # :e\n, :f", "SELECT '\\' :a', \":b\", `:c`, ? # :e\n, ?", "d f"},
      {kAccess, "SELECT [:a], :b FROM [t x]", "SELECT [:a], ? FROM [t x]", "b"},
      {kPostgres, ";; SELECT :a ; ; -- the end", " SELECT ?", "a"},
      {kPostgres, "SELECT 'never closed :a", "SELECT 'never closed :a", ""},
  };
  for (const Row& row : rows) {
    const SqlQuery query = ReadSqlQuery(FromUtf8(row.sql), row.dialect, SqlParameters::kNamed);
    EXPECT_EQ(ToUtf8(query.text), row.text) << row.sql;
    std::vector<Text> parameters;
    for (const std::size_t place : query.places) parameters.push_back(query.parameters[place]);
    EXPECT_EQ(ToUtf8(Join(parameters, u" ")), row.parameters) << row.sql;
  }
}

TEST(SqlQuery, QueriesAreTaken) {
  struct Row {
    const SqlDialect& dialect;
    std::string sql;
    bool isSelect;
  };
  const Row rows[] = {
      {kPostgres, "WITH x AS (SELECT 1) SELECT * FROM x", true},
      {kPostgres, "(SELECT 1) UNION (SELECT 2)", true},
      {kPostgres, "values (1), (2)", true},
      {kPostgres, "TABLE t;", true},
      {kPostgres, "SHOW ALL", false},
      {kPostgres, "EXPLAIN SELECT 1", false},
      {kMariaDb, "SHOW CREATE TABLE t", false},
      {kMariaDb, "DESCRIBE t", false},
      {kPostgres, "SELECT replace(a, 'b', 'c'), max(update), count(delete) FROM t", true},
      {kPostgres, "SELECT \"into\", 'INSERT INTO t', t.insert, into_stock FROM t /* INTO */", true},
      {kPostgres, "SELECT substring(a FOR 2), nextval FROM t", true},
      {kPostgres, "SELECT 'a; DELETE FROM t'", true},
      {kPostgres, "SELECT 1 /*! INTO OUTFILE 'x' */", true},
  };
  for (const Row& row : rows) {
    const SqlQuery query = ReadSqlQuery(FromUtf8(row.sql), row.dialect, SqlParameters::kNone);
    EXPECT_EQ(query.isSelect, row.isSelect) << row.sql;
  }
}

TEST(SqlQuery, WhatWritesIsRefused) {
  constexpr const char* kJsonb =
      " ODBC takes every \"?\" for a parameter; the operators of jsonb that have one have functions, too: "
      "jsonb_exists, "
      "jsonb_exists_any, jsonb_exists_all";
  const std::string writes = "the statement would change the database: ";
  struct Row {
    const SqlDialect& dialect;
    std::string sql;
    std::string description;
  };
  const Row rows[] = {
      {kPostgres, "INSERT INTO t VALUES (1)", writes + "INSERT"},
      {kPostgres, "delete from t returning *", writes + "delete"},
      {kPostgres, "SELECT * INTO kopie FROM t", writes + "INTO"},
      {kPostgres, "WITH x AS (DELETE FROM t RETURNING *) SELECT * FROM x", writes + "DELETE"},
      {kPostgres, "WITH x AS (SELECT 1) INSERT INTO t SELECT * FROM x", writes + "INSERT"},
      {kPostgres, "SELECT * FROM t FOR UPDATE", writes + "FOR UPDATE"},
      {kPostgres, "SELECT * FROM t FOR NO KEY UPDATE", writes + "FOR UPDATE"},
      {kPostgres, "SELECT * FROM t FOR SHARE", writes + "FOR SHARE"},
      {kPostgres, "SELECT nextval('s')", writes + "nextval()"},
      {kPostgres, "SELECT pg_catalog.\"lo_export\" (1, '/tmp/x')", writes + "lo_export()"},
      {kPostgres, "SELECT pg_terminate_backend(1)", writes + "pg_terminate_backend()"},
      {kPostgres, "EXPLAIN (ANALYZE) SELECT f()", writes + "ANALYZE"},
      {kMariaDb, "SELECT 1 INTO OUTFILE '/tmp/x'", writes + "INTO"},
      {kMariaDb, "SELECT 1 /*!50000 INTO OUTFILE '/tmp/x' */", writes + "INTO"},
      {kMariaDb, "SELECT 1 /*M! INTO @a */", writes + "INTO"},
      {kMariaDb, "SELECT '\\'' INTO @a", writes + "INTO"},
      {kMariaDb, "SELECT * FROM t LOCK IN SHARE MODE", writes + "LOCK IN SHARE MODE"},
      {kMariaDb, "SELECT NEXT VALUE FOR s", writes + "NEXT VALUE FOR"},
      {kMariaDb, "REPLACE INTO t VALUES (1)", writes + "REPLACE"},
      {kMariaDb, "SET GLOBAL max_connections = 1", "the statement is no query: SET"},
      {kPostgres, "DROP TABLE t", "the statement is no query: DROP"},
      {kPostgres, "COPY t TO PROGRAM 'x'", "the statement is no query: COPY"},
      {kPostgres, "CALL f()", "the statement is no query: CALL"},
      {kPostgres, "SELECT 1; DELETE FROM t", "more than one statement"},
      {kPostgres, "SELECT 1; -- c\n /* d */ ; SELECT 2", "more than one statement"},
      {kMariaDb, "SELECT 'a\\'; DELETE FROM t; --'; SELECT 1", "more than one statement"},
      {kPostgres, " ; -- nothing", "the statement is empty"},
      {kPostgres, std::string("SELECT 1 \0", 10), "the statement holds a NUL character"},
      {kPostgres, "SELECT a FROM t WHERE b = :c", "Too few parameters. Expected 1."},
      {kPostgres, "SELECT j ? 'a' FROM t", std::string("Too few parameters. Expected 1.") + kJsonb},
      {kMariaDb, "SELECT a FROM t WHERE b = ? AND c = ?", "Too few parameters. Expected 2."},
  };
  for (const Row& row : rows) {
    const Error error = ErrorOf([&] { ReadSqlQuery(FromUtf8(row.sql), row.dialect, SqlParameters::kNone); });
    EXPECT_EQ(ToUtf8(error.description()), row.description) << row.sql;
    EXPECT_EQ(error.number(), row.description.starts_with("Too few") ? 3061 : 3146) << row.sql;
  }
  const Error mark = ErrorOf([&] { ReadSqlQuery(u"SELECT ?", kMariaDb, SqlParameters::kNamed); });
  EXPECT_EQ(ToUtf8(mark.description()), "a parameter is written \":column\", not \"?\"");
}

}  // namespace
}  // namespace zorkanca::testing
