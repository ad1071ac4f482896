#include "sqlite/sqlite_database.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <thread>

#include "sqlite/sqlite_support.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(SqliteDatabase, OpensWhenAsked) {
  const TemporaryFolder folder;
  const std::string missing = folder.path() + "/není.db";
  SqliteDatabase database(missing);
  const Error error = ErrorOf([&] { Open(database, "SELECT 1"); });
  EXPECT_EQ(error.number(), 3024);
  EXPECT_EQ(ToUtf8(error.description()), "unable to open database file: " + missing);
  EXPECT_FALSE(std::filesystem::exists(missing));

  const std::string foreign = folder.path() + "/foreign.db";
  std::ofstream(foreign) << std::string(4096, 'x');
  SqliteDatabase notOurs(foreign);
  const Error noDatabase = ErrorOf([&] { Open(notOurs, "SELECT * FROM t"); });
  EXPECT_EQ(noDatabase.number(), 3343);
  EXPECT_EQ(ToUtf8(noDatabase.description()), "file is not a database: " + foreign);

  for (const std::string name : {"", ":memory:", "file:x?mode=memory"}) {
    SqliteDatabase special(name);
    EXPECT_THROW(Open(special, "SELECT 1"), Error) << name << " is a file's name like any other";
  }

  SqliteFile file("CREATE TABLE t (n)");
  std::filesystem::rename(file.path(), missing);
  EXPECT_TRUE(Open(database, "SELECT n FROM t")->Eof()) << "the same database object, once the file is there";
}

TEST(SqliteDatabase, RunsOneReadingStatement) {
  SqliteFile file("CREATE TABLE t (n); INSERT INTO t VALUES (1)");
  SqliteDatabase database(file.path());
  struct Row {
    std::string sql;
    std::int32_t number;
    std::string description;
  };
  const Row rows[] = {
      {"SELECT n FROM t; SELECT 2", 3146, "more than one statement"},
      {"SELECT n FROM t;; -- c\n /* d */ DELETE FROM t", 3146, "more than one statement"},
      {" ; -- nothing", 3146, "the statement is empty"},
      {"DELETE FROM t RETURNING n", 3146, "the statement would change the database"},
      {"VACUUM INTO 'copy.db'", 3146, "the statement would change the database"},
      {"ATTACH 'other.db' AS other", 3146, "the statement returns no records"},
      {"COMMIT", 3146, "the statement returns no records"},
      {"SELECT n FROM missing", 3146, "no such table: missing"},
      {"SELECT n FROM t WHERE n = ? OR n = :x", 3061, "Too few parameters. Expected 2."},
      {std::string("SELECT 1 \0 FROM t", 17), 3146, "the statement holds a NUL character"},
      {"SELECT abs(-9223372036854775807 - n) FROM t", 3146, "integer overflow"},
      {"SELECT load_extension('x')", 3146, "not authorized"},
  };
  for (const Row& row : rows) {
    const Error error = ErrorOf([&] { Open(database, row.sql); });
    EXPECT_EQ(error.number(), row.number) << row.sql;
    EXPECT_EQ(ToUtf8(error.description()), row.description) << row.sql;
    EXPECT_EQ(ToUtf8(error.source()), "SQLite") << row.sql;
  }
  EXPECT_FALSE(Open(database, "SELECT n FROM t")->Eof()) << "no failure leaves anything behind";
  file.Execute("INSERT INTO t VALUES (2)");
}

// A body that runs until the flag, set a moment after it began, stops it.
void ExpectInterruption(std::atomic<bool>& flag, const std::function<void()>& body) {
  using Clock = std::chrono::steady_clock;
  Clock::time_point asked;
  std::thread asking([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    asked = Clock::now();
    flag = true;
  });
  const Error error = ErrorOf(body);
  const Clock::duration answer = Clock::now() - asked;
  asking.join();
  flag = false;
  EXPECT_EQ(error.number(), 18) << ToUtf8(error.description());
  EXPECT_LT(answer, std::chrono::seconds(1)) << "hundredths as a rule; tests may share a slow machine";
}

TEST(SqliteDatabase, AnInterruptionEndsWhateverRuns) {
  SqliteFile file("CREATE TABLE t (n); INSERT INTO t VALUES (1)");
  std::atomic<bool> flag = false;
  SqliteDatabase database(file.path(), &flag);
  const std::string endless = "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c) SELECT ";

  ExpectInterruption(flag, [&] { Open(database, endless + "max(i) FROM c"); });
  const auto recordset = Open(database, endless + "i FROM c");
  ExpectInterruption(flag, [&] { recordset->MoveLast(); });
  recordset->MoveFirst();
  ExpectInterruption(flag, [&] { RowsFromHere(*recordset); });
  recordset->Close();

  file.Execute("BEGIN EXCLUSIVE");  // waiting for another's lock is no work of SQLite's machine
  ExpectInterruption(flag, [&] { Open(database, "SELECT n FROM t"); });
  file.Execute("COMMIT");
  EXPECT_FALSE(Open(database, "SELECT n FROM t")->Eof()) << "usable afterwards";
}

}  // namespace
}  // namespace zorkanca::testing
