#include "sqlite/sqlite_types.h"

#include <gtest/gtest.h>

#include "sqlite/sqlite_support.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(SqliteTypes, DeclaredTypes) {
  struct Row {
    std::string_view declaration;
    FieldType type;
    std::int32_t size = 0;
  };
  const Row rows[] = {
      {"SMALLINT(5)", FieldType::kInteger},
      {"counter", FieldType::kLong},
      {" unsigned  big\tint ", FieldType::kBigInteger},
      {"MONEY", FieldType::kCurrency},
      {"double  precision", FieldType::kDouble},
      {"DECIMAL ( 10 , 2 )", FieldType::kDecimal},
      {"decimal  text", FieldType::kDecimal},
      {"DECIMAL REAL", FieldType::kDecimal},
      {"CURRENCY TEXT", FieldType::kCurrency},
      {"CURRENCY REAL", FieldType::kCurrency},
      {"TIMESTAMP", FieldType::kTimeStamp},
      {"CHAR(8)", FieldType::kChar, 8},
      {"native character (70)", FieldType::kChar, 70},
      {"VARCHAR(40)", FieldType::kText, 40},
      {"varying character(255)", FieldType::kText, 255},
      {"NVARCHAR(256)", FieldType::kMemo},
      {"VARCHAR(99999999999)", FieldType::kMemo},
      {"TEXT", FieldType::kText},
      {"CLOB(20)", FieldType::kMemo},
      {"BINARY(16)", FieldType::kBinary},
      {"INT UNSIGNED", FieldType::kLong},
      {"MEDIUMTEXT(300)", FieldType::kMemo},
      {"CHARINT", FieldType::kLong},
      {"FROBNICATE", FieldType::kNumeric},
  };
  for (const Row& row : rows) {
    const SqliteColumnType found = DeclaredType(row.declaration);
    EXPECT_EQ(static_cast<int>(found.type), static_cast<int>(row.type)) << row.declaration;
    EXPECT_EQ(found.size, row.size) << row.declaration;
  }
}

TEST(SqliteTypes, ColumnsKeepTheirTypeThroughViewsAndSubqueries) {
  SqliteFile file(
      "CREATE TABLE t (cena MONEY, kod CHAR(6)); CREATE VIEW v AS SELECT kod AS k, cena FROM t;"
      "INSERT INTO t VALUES (1.5, 'x')");
  SqliteDatabase database(file.path());
  const auto recordset = Open(database, "SELECT q.*, t.rowid FROM (SELECT * FROM v) AS q JOIN t");
  EXPECT_EQ(recordset->FieldAt(0).Type(), FieldType::kChar);
  EXPECT_EQ(recordset->FieldAt(0).Size(), 6);
  EXPECT_EQ(recordset->FieldAt(1).Type(), FieldType::kCurrency);
  EXPECT_EQ(recordset->FieldAt(2).Type(), FieldType::kLong);
}

TEST(SqliteTypes, ExpressionsHaveTheTypeOfTheWidestValueOfTheirColumn) {
  struct Row {
    const char* values;
    FieldType type;
  };
  constexpr Row kRows[] = {
      {"(NULL), (NULL)", FieldType::kText},
      {"(NULL), (7)", FieldType::kLong},
      {"(7), (3000000000), (8)", FieldType::kBigInteger},
      {"(6909), (10486.5), (NULL)", FieldType::kDouble},
      {"(10486.5), (3000000000)", FieldType::kDouble},
      {"(1), ('x'), (0.5)", FieldType::kText},
      {"('x'), (replace(hex(zeroblob(128)), '00', 'ž') || 'č')", FieldType::kText},
      {"(1), (printf('%.*c', 256, 'x'))", FieldType::kMemo},
      {"(1), (x'00'), ('x')", FieldType::kLongBinary},
  };
  SqliteFile file("");
  SqliteDatabase database(file.path());
  for (const Row& row : kRows) {
    for (const bool counted : {true, false}) {
      const auto recordset = Open(database, std::string("VALUES ") + row.values);
      if (counted) CountAndReturn(*recordset);
      for (; !recordset->Eof(); recordset->MoveNext()) {
        EXPECT_EQ(static_cast<int>(recordset->FieldAt(0).Type()), static_cast<int>(row.type)) << row.values;
      }
      EXPECT_EQ(recordset->FieldAt(0).Type(), row.type) << "after the last row, too";
    }
  }
  const auto mixed = Open(database, "SELECT column1 AS x, column1 AS x, 'a' || column1 FROM (VALUES (2), (0.5))");
  EXPECT_EQ(mixed->FieldAt(1).Value(), Value(2.0)) << "an integer of a column with reals";
  // What cannot stand in a FROM clause is run once more.
  const auto pragma = Open(database, "PRAGMA table_info(sqlite_schema)");
  pragma->MoveNext();
  EXPECT_EQ(pragma->FieldAt(0).Type(), FieldType::kLong);
  EXPECT_EQ(pragma->FieldAt(1).Value(), Value(Text(u"name")));
}

TEST(SqliteTypes, TypesThatTheCallerSettles) {
  SqliteFile file("CREATE TABLE t (castka, den TEXT, n INTEGER); INSERT INTO t VALUES (19.99, '2026-03-01', 1)");
  SqliteDatabase database(file.path());
  database.SettleTypes({{u"CENA", FieldType::kCurrency}, {u"den", FieldType::kDate}, {u"n", FieldType::kBoolean}});
  const auto recordset = Open(database, "SELECT castka * 2 AS cena, den, n FROM t");
  EXPECT_EQ(recordset->FieldAt(0).Value(), Value(Currency{399800}));
  EXPECT_EQ(recordset->FieldAt(1).Type(), FieldType::kDate);
  EXPECT_EQ(recordset->FieldAt(2).Value(), Value(true));
  EXPECT_NO_THROW(Open(database, "SELECT sum(n) FROM t")) << "a further statement need not have them";
  database.SettleTypes({{u"cana", FieldType::kCurrency}});
  EXPECT_EQ(ErrorOf([&] { Open(database, "SELECT castka AS cena, den FROM t"); }).what(),
            std::string("3265 - The query has no column \"cana\"; did you mean cena? Its columns are cena, den"));
}

TEST(SqliteTypes, NumbersThatAreHeldAsTexts) {
  SqliteFile file("");
  SqliteDatabase database(file.path());
  const struct {
    const char* text;
    FieldType type;
    Value value;
  } kRows[] = {
      {"12", FieldType::kLong, std::int32_t{12}},
      {" +0012 ", FieldType::kLong, std::int32_t{12}},
      {"-12.5", FieldType::kLong, -12.5},
      {"3000000000", FieldType::kLong, std::int64_t{3000000000}},
      {"12", FieldType::kDouble, 12.0},
      {"1e3", FieldType::kDouble, 1000.0},
      {"12.34", FieldType::kCurrency, Currency{123400}},
      {"0", FieldType::kBoolean, false},
      {"-1", FieldType::kBoolean, true},
      {"12,5", FieldType::kDouble, Text(u"12,5")},
      {"12 ks", FieldType::kLong, Text(u"12 ks")},
      {"", FieldType::kLong, Text()},
      {"+", FieldType::kLong, Text(u"+")},
      {"inf", FieldType::kDouble, Text(u"inf")},
      {"0x1F", FieldType::kLong, Text(u"0x1F")},
      {"12", FieldType::kText, Text(u"12")},
  };
  for (const auto& row : kRows) {
    database.SettleTypes({{u"a", row.type}});
    const auto recordset = Open(database, std::string("SELECT '") + row.text + "' AS a");
    EXPECT_EQ(recordset->FieldAt(0).Value(), row.value) << row.text << " as " << static_cast<int>(row.type);
  }
}

TEST(SqliteTypes, LengthsOfTexts) {
  SqliteFile file("");
  SqliteDatabase database(file.path());
  // 256 characters are a memo, 255 of two bytes each are not; a character outside the first plane counts twice.
  const auto lengths =
      Open(database,
           "SELECT printf('%.*c', 255, 'x'), printf('%.*c', 256, 'x'), printf('%.*c', 255, 'x') || 'ž',"
           " printf('%.*c', 254, 'x') || 'ž', printf('%.*c', 254, 'x') || char(128512)");
  const FieldType byLength[] = {FieldType::kText, FieldType::kMemo, FieldType::kMemo, FieldType::kText,
                                FieldType::kMemo};
  for (std::int32_t index = 0; index < 5; ++index) {
    EXPECT_EQ(static_cast<int>(lengths->FieldAt(index).Type()), static_cast<int>(byLength[index])) << index;
  }
}

}  // namespace
}  // namespace zorkanca::testing
