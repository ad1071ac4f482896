#include "sqlite/sqlite_table_writer.h"

#include <gtest/gtest.h>

#include "sqlite/decimal_collation.h"
#include "sqlite/sqlite_support.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(SqliteTableWriter, TablesStandBesideThoseOfTheFile) {
  SqliteFile file("CREATE TABLE own (n); INSERT INTO own VALUES (1); CREATE VIEW seen AS SELECT n FROM own");
  SqliteDatabase database(file.path());
  database.BeforeFirstQuery([](SqliteConnection& connection) {
    for (const std::string name : {"own", "OWN", "Seen"}) EXPECT_TRUE(HasSqliteTable(connection, name)) << name;
    EXPECT_FALSE(HasSqliteTable(connection, "a \"b\""));
    SqliteTableWriter table(connection, "a \"b\"", {{"x \"y\"", "TEXT"}, {"n", "INTEGER"}, {"r", "DOUBLE"}});
    table.SetText(0, {});
    table.SetInteger(1, 5);
    table.SetReal(2, 0.5);
    table.AddRow();
    table.SetText(0, "ž");
    table.SetNull(2);
    table.AddRow();
    table.Finish();
    EXPECT_TRUE(HasSqliteTable(connection, "A \"B\""));
    return std::vector<Text>{u"n"};
  });
  database.SettleTypes({{u"N", FieldType::kLong}});
  const auto records =
      Open(database, "SELECT \"x \"\"y\"\"\", n + 1, r, (SELECT n FROM seen) FROM \"A \"\"b\"\"\" ORDER BY 1");
  EXPECT_EQ(CountAndReturn(*records), 2);
  EXPECT_EQ(records->FieldAt(0).Value(), Value(Text()));
  EXPECT_EQ(records->FieldAt(1).Value(), Value(std::int32_t{6}));
  EXPECT_EQ(records->FieldAt(2).Value(), Value(0.5));
  records->MoveNext();
  EXPECT_EQ(records->FieldAt(0).Value(), Value(Text(u"ž")));
  EXPECT_TRUE(IsNull(records->FieldAt(2).Value()));
  EXPECT_EQ(records->FieldAt(3).Value(), Value(std::int32_t{1}));

  for (const std::string sql : {"INSERT INTO \"a \"\"b\"\"\" VALUES (1, 2, 3)", "DROP TABLE \"a \"\"b\"\"\""}) {
    EXPECT_THROW(Open(database, sql), Error) << sql;
  }
  database.SettleTypes({{u"r", FieldType::kLong}});
  EXPECT_EQ(ErrorOf([&] { Open(database, "SELECT 1"); }).number(), 3265) << "settled neither before nor by the query";
}

TEST(SqliteTableWriter, WhatFailsBeforeTheFirstQueryBeginsAnew) {
  SqliteDatabase database{std::nullopt};
  int attempts = 0;
  database.BeforeFirstQuery([&](SqliteConnection& connection) {
    SqliteTableWriter table(connection, "t", {{"n", "INTEGER"}});
    if (++attempts == 1) Raise(RuntimeError::kDeviceIo);
    table.Finish();
    return std::vector<Text>();
  });
  EXPECT_EQ(ErrorOf([&] { Open(database, "SELECT * FROM t"); }).number(), 57);
  EXPECT_TRUE(Open(database, "SELECT * FROM t")->Eof());
  EXPECT_FALSE(Open(database, "SELECT 1 AS a")->Eof());
  EXPECT_EQ(attempts, 2);
}

TEST(DecimalCollation, OrdersNumbersByTheirValues) {
  // Each is below the next one; those of one row are equal.
  const std::vector<std::vector<std::string>> ascending = {{"-12345678901234567890.5"},
                                                           {"-10", "-10.0", "-1e1"},
                                                           {"-9.5"},
                                                           {"-0.001"},
                                                           {"0", "0.0", "-0", "00"},
                                                           {"0.001", "1e-3"},
                                                           {"0.5", ".5"},
                                                           {"5", "5.0", "05"},
                                                           {"10"},
                                                           {"1.0e+15", "1000000000000000.0"},
                                                           {""},
                                                           {"-"},
                                                           {"1.2.3"},
                                                           {"e5"},
                                                           {"x"}};
  for (std::size_t left = 0; left < ascending.size(); ++left) {
    for (std::size_t right = 0; right < ascending.size(); ++right) {
      for (const std::string& one : ascending[left]) {
        for (const std::string& other : ascending[right]) {
          EXPECT_EQ(CompareDecimalTexts(one, other) < 0, left < right) << one << " " << other;
          EXPECT_EQ(CompareDecimalTexts(one, other) == 0, left == right) << one << " " << other;
        }
      }
    }
  }
}

}  // namespace
}  // namespace zorkanca::testing
