#include "sqlite/sqlite_recordset.h"

#include <gtest/gtest.h>

#include "sqlite/sqlite_support.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr char kTenNumbers[] =
    "CREATE TABLE t (n INTEGER, s TEXT);"
    "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 10)"
    " INSERT INTO t SELECT i, 'text ' || i FROM c";

class SqliteRecordsetTest : public ::testing::Test {
 protected:
  SqliteFile file_{kTenNumbers};
  SqliteDatabase database_{file_.path()};
};

TEST_F(SqliteRecordsetTest, CountsExactlyWhateverTheStatementLooksLike) {
  struct Row {
    std::string sql;
    std::int32_t rows;
  };
  const Row rows[] = {
      {"SELECT n, n, s AS n FROM t ORDER BY s DESC", 10},
      {"SELECT n FROM t ORDER BY n LIMIT 3 OFFSET 8", 2},
      {"SELECT n % 4, count(*) FROM t GROUP BY 1 HAVING count(*) > 2", 2},
      {"WITH x AS (SELECT n FROM t WHERE n > 5) SELECT * FROM x AS a JOIN x AS b", 25},
      {"SELECT n FROM t UNION ALL SELECT n FROM t ORDER BY 1", 20},
      {"SELECT n FROM t -- all; of them", 10},
      {"SELECT n FROM t /* all */ ; -- done;", 10},
      {"SELECT n FROM t /* never closed", 10},
      {"; SELECT n FROM t", 10},
      {"PRAGMA table_info(t)", 2},
  };
  for (const Row& row : rows) {
    const auto recordset = Open(database_, row.sql);
    EXPECT_EQ(CountAndReturn(*recordset), row.rows) << row.sql;
    EXPECT_EQ(RowsFromHere(*recordset), row.rows) << row.sql;
    recordset->MoveFirst();
    EXPECT_EQ(RowsFromHere(*recordset), row.rows) << row.sql << " again";
  }
}

TEST_F(SqliteRecordsetTest, MovesAsDao) {
  const auto recordset = Open(database_, "SELECT n, s FROM t ORDER BY n");
  Field& number = recordset->FieldAt(0);
  const auto current = [&] { return std::get<std::int32_t>(number.Value()); };
  EXPECT_FALSE(recordset->Bof());
  EXPECT_FALSE(recordset->Eof());
  EXPECT_EQ(current(), 1);
  recordset->MoveNext();
  EXPECT_EQ(current(), 2);
  EXPECT_EQ(recordset->RecordCount(), 2) << "reached so far";
  recordset->MoveLast();
  EXPECT_EQ(recordset->RecordCount(), 10);
  EXPECT_EQ(current(), 10) << "the last row has its own values";
  recordset->MoveFirst();
  EXPECT_EQ(current(), 1);
  recordset->MoveLast();
  recordset->MoveNext();
  EXPECT_TRUE(recordset->Eof());
  EXPECT_FALSE(recordset->Bof());
  EXPECT_EQ(ErrorOf([&] { number.Value(); }).number(), 3021);
  EXPECT_EQ(ErrorOf([&] { recordset->MoveNext(); }).number(), 3021);
  recordset->MoveFirst();
  EXPECT_EQ(RowsFromHere(*recordset), 10);
  recordset->Close();
  EXPECT_EQ(ErrorOf([&] { recordset->MoveFirst(); }).number(), 91);
  EXPECT_EQ(ErrorOf([&] { number.Value(); }).number(), 3021);
  EXPECT_EQ(ToUtf8(number.Name()), "n");

  const auto pragma = Open(database_, "PRAGMA table_info(t)");  // counted by stepping
  pragma->MoveLast();
  EXPECT_EQ(Shown(std::get<Text>(pragma->FieldNamed(u"name").Value())), "s");
}

TEST_F(SqliteRecordsetTest, EmptyAndForwardOnly) {
  const auto empty = Open(database_, "SELECT n AS Číslo, s FROM t WHERE n > 10");
  EXPECT_TRUE(empty->Bof() && empty->Eof());
  EXPECT_EQ(empty->RecordCount(), 0);
  EXPECT_EQ(empty->FieldCount(), 2);
  EXPECT_EQ(Shown(empty->FieldAt(0).Name()), "Číslo");
  EXPECT_EQ(ErrorOf([&] { empty->MoveLast(); }).number(), 3021);
  EXPECT_EQ(ErrorOf([&] { empty->FieldAt(0).Value(); }).number(), 3021);

  const auto forward = Open(database_, "SELECT n FROM t", 256 + 4);
  EXPECT_EQ(ErrorOf([&] { forward->MoveLast(); }).number(), 3219);
  EXPECT_EQ(ErrorOf([&] { forward->MoveFirst(); }).number(), 3219);
  EXPECT_EQ(RowsFromHere(*forward), 10);
}

TEST_F(SqliteRecordsetTest, FieldsByName) {
  const auto recordset = Open(database_, "SELECT n AS Žluť, s AS žLUŤ, 1 AS [s p] FROM t");
  EXPECT_EQ(&recordset->FieldNamed(u"ŽLUŤ"), &recordset->FieldAt(0)) << "the first of equal names";
  EXPECT_EQ(&recordset->FieldNamed(u"S P"), &recordset->FieldAt(2));
  EXPECT_EQ(ErrorOf([&] { recordset->FieldNamed(u"žlut"); }).number(), 3265);
  EXPECT_EQ(ErrorOf([&] { recordset->FieldAt(3); }).number(), 3265);
  EXPECT_EQ(ErrorOf([&] { recordset->FieldAt(-1); }).number(), 3265);
}

TEST_F(SqliteRecordsetTest, AWriterDoesNotDisturbTheRowsThatWereCounted) {
  file_.Execute("PRAGMA journal_mode = WAL");
  const auto recordset = Open(database_, "SELECT n FROM t");
  file_.Execute("INSERT INTO t VALUES (11, 'new')");
  EXPECT_EQ(CountAndReturn(*recordset), 10);
  file_.Execute("DELETE FROM t WHERE n < 5");
  recordset->MoveNext();
  recordset->MoveFirst();
  const auto second = Open(database_, "SELECT n FROM t");
  EXPECT_EQ(RowsFromHere(*recordset), 10);
  recordset->Close();
  EXPECT_EQ(CountAndReturn(*second), 10) << "opened while the first was open: of the same moment";
  second->Close();
  EXPECT_EQ(CountAndReturn(*Open(database_, "SELECT n FROM t")), 7);
}

}  // namespace
}  // namespace zorkanca::testing
