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

TEST(SqliteTypes, ExpressionsHaveTheTypeOfTheirCurrentValue) {
  SqliteFile file("");
  SqliteDatabase database(file.path());
  const auto recordset =
      Open(database,
           R"(VALUES (NULL), (7), (NULL), (3000000000), (0.5), ('x'), (replace(hex(zeroblob(128)), '00', 'ž') || 'č')
      , (substr(replace(hex(zeroblob(128)), '00', 'žž'), 1, 255)), (x'00'))");
  const FieldType expected[] = {FieldType::kText,       FieldType::kLong,   FieldType::kLong,
                                FieldType::kBigInteger, FieldType::kDouble, FieldType::kText,
                                FieldType::kText,       FieldType::kText,   FieldType::kLongBinary};
  Field& field = recordset->FieldAt(0);
  for (const FieldType type : expected) {
    EXPECT_EQ(static_cast<int>(field.Type()), static_cast<int>(type)) << recordset->RecordCount();
    recordset->MoveNext();
  }
  EXPECT_EQ(field.Type(), FieldType::kLongBinary) << "after the last row the last type stays";

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
