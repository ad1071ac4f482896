#include "sqlite/sqlite_values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "sqlite/sqlite_conversions.h"
#include "sqlite/sqlite_support.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

Currency Money(std::int64_t tenThousandths) {
  return Currency{tenThousandths};
}

Decimal Number(std::uint64_t digits, std::uint8_t scale, bool negative = false) {
  return {.high = 0, .low = digits, .scale = scale, .negative = negative};
}

// A value is compared by kind and content, shown by the position of its kind.
void ExpectValue(const Value& found, const Value& expected, const std::string& what) {
  EXPECT_EQ(found.index(), expected.index()) << what;
  EXPECT_TRUE(found == expected) << what;
}

TEST(SqliteValues, EachDeclaredTypeReadsEachStorageClass) {
  struct Row {
    std::string type;
    std::string literal;
    Value expected;
  };
  const Row rows[] = {
      {"BOOLEAN", "0", false},
      {"BOOLEAN", "0.5", true},
      {"BOOLEAN", "'ano'", u"ano"},
      {"TINYINT", "255", std::uint8_t{255}},
      {"TINYINT", "256", std::int16_t{256}},
      {"TINYINT", "-1", std::int16_t{-1}},
      {"SMALLINT", "-32768", std::int16_t{-32768}},
      {"SMALLINT", "32768", std::int32_t{32768}},
      {"INTEGER", "2147483648", std::int64_t{2147483648}},
      {"INTEGER", "1.5", 1.5},
      {"BIGINT", "7", std::int64_t{7}},
      {"CURRENCY", "12", Money(120000)},
      {"CURRENCY", "-922337203685477", Money(-9223372036854770000)},
      {"CURRENCY", "922337203685478", std::int64_t{922337203685478}},
      {"CURRENCY", "19.99", Money(199900)},
      {"CURRENCY", "0.03125", Money(312)},  // half to even
      {"CURRENCY", "0.09375", Money(938)},
      {"CURRENCY", "1e300", 1e300},
      {"CURRENCY", "'12.50'", Money(125000)},  // SQLite stores the text as a number
      {"SINGLE", "0.1", 0.1f},
      {"SINGLE", "3", 3.0f},
      {"SINGLE", "1e300", 1e300},
      {"DOUBLE", "3", 3.0},
      {"DECIMAL(10,2)", "5", Number(5, 0)},
      {"DECIMAL TEXT", "'12345678901234567.89'", Number(1234567890123456789, 2)},
      {"DECIMAL TEXT", "'-5.0'", Number(5, 0, true)},
      {"DECIMAL TEXT", "'0.0000000000000000000000000001'", Number(1, 28)},
      {"DECIMAL TEXT", "'0.00000000000000000000000000001'", u"0.00000000000000000000000000001"},
      {"DECIMAL TEXT", "'12345678901234567890123456789'", u"12345678901234567890123456789"},
      {"DECIMAL TEXT", "'1.2.3'", u"1.2.3"},
      {"DECIMAL TEXT", "'-'", u"-"},
      {"CURRENCY TEXT", "'922337203685477.5807'", Money(9223372036854775807)},
      {"CURRENCY TEXT", "'922337203685477.5808'", u"922337203685477.5808"},
      {"CURRENCY TEXT", "'1.23456'", u"1.23456"},
      {"DECIMAL(10,2)", "-9223372036854775807 - 1", Number(9223372036854775808u, 0, true)},
      {"DECIMAL(10,2)", "0.1 + 0.2", Number(3, 1)},
      {"NUMERIC", "9e999", std::numeric_limits<double>::infinity()},
      {"DATE", "'2026-03-01'", Date{46082}},
      {"DATETIME", "'2026-03-01T18:00'", Date{46082.75}},
      {"TIME", "'06:00:00.999Z'", Date{0.25}},
      {"TIMESTAMP", "1772388000", Date{46082.75}},
      {"DATE", "2461101.25", Date{46082.75}},
      {"DATE", "-62135596800", std::int64_t{-62135596800}},  // the year 1
      {"DATE", "'1. 3. 2026'", u"1. 3. 2026"},
      {"STRING", "'0012'", std::int32_t{12}},
      {"TEXT", "''", u""},
      {"BLOB", "x'00FF'", Binary{std::byte{0}, std::byte{255}}},
      {"TEXT", "x'41'", Binary{std::byte{0x41}}},
      {"INTEGER", "NULL", Null()},
  };
  SqliteFile file("");
  SqliteDatabase database(file.path());
  for (const Row& row : rows) {
    file.Execute("CREATE TABLE t (c " + row.type + "); INSERT INTO t VALUES (" + row.literal + ")");
    ExpectValue(Open(database, "SELECT c FROM t")->FieldAt(0).Value(), row.expected, row.type + " " + row.literal);
    file.Execute("DROP TABLE t");
  }
}

TEST(SqliteValues, JulianDaysAreRoundedToTheSecond) {
  // julianday('2026-03-01 09:00:01') and its neighbours in the last place
  const double written = 2461100.8750115740;
  for (const double near : {written, std::nextafter(written, 0), std::nextafter(written, 1e9)}) {
    EXPECT_EQ(DateOfJulianDay(near), Date{46082 + 32401.0 / 86400});
  }
  EXPECT_EQ(DateOfJulianDay(1e17), std::nullopt);
  EXPECT_EQ(DateOfUnixSeconds(-1), (Date{25568 + 86399.0 / 86400}));
  EXPECT_EQ(DateOfUnixSeconds(std::numeric_limits<std::int64_t>::min()), std::nullopt);
}

TEST(SqliteValues, DecimalsOfReals) {
  struct Row {
    double number;
    std::optional<Decimal> expected;
  };
  const Row rows[] = {
      {0.0, Number(0, 0)},
      {-0.0, Number(0, 0)},
      {1234567.89, Number(123456789, 2)},
      {0.1234567, Number(1234567, 7)},
      {1.0 / 3, Number(333333333333333, 15)},
      {123456789012345.6, Number(123456789012346, 0)},
      {6e-29, Number(1, 28)},
      {1e20, Decimal{.high = 5, .low = 7766279631452241920u, .scale = 0, .negative = false}},
      {-7e28, Decimal{.high = 3794707603, .low = 12899172069043863552u, .scale = 0, .negative = true}},
      {8e28, std::nullopt},
  };
  for (const Row& row : rows) EXPECT_TRUE(DecimalOf(row.number) == row.expected) << row.number;
}

TEST(SqliteValues, TextThatIsNoneNamesItsColumn) {
  SqliteFile file(
      "CREATE TABLE t (dobrý TEXT, [špatný] TEXT); INSERT INTO t VALUES ('č', CAST(x'61FF62' AS TEXT)), "
      "('ž', 'a' || char(0) || 'b')");
  SqliteDatabase database(file.path());
  const auto recordset = Open(database, "SELECT * FROM t");
  ExpectValue(recordset->FieldAt(0).Value(), u"č", "the good column beside the bad one");
  Field& bad = recordset->FieldAt(1);
  const Error invalid = ErrorOf([&] { bad.Value(); });
  EXPECT_EQ(invalid.number(), 13);
  EXPECT_EQ(ToUtf8(invalid.description()), "Type mismatch: the text in the column \"špatný\" is not valid UTF-8");
  recordset->MoveNext();
  const Error nul = ErrorOf([&] { bad.Value(); });
  EXPECT_EQ(ToUtf8(nul.description()), "Type mismatch: the text in the column \"špatný\" holds a NUL character");
  EXPECT_EQ(ErrorOf([&] { bad.Value(); }).number(), 13) << "not a remembered half of it";
}

TEST(SqliteValues, Utf16Databases) {
  SqliteFile file("PRAGMA encoding = 'UTF-16le'; CREATE TABLE t (jméno TEXT); INSERT INTO t VALUES ('Žofie 😀')");
  SqliteDatabase database(file.path());
  ExpectValue(Open(database, "SELECT * FROM t")->FieldNamed(u"JMÉNO").Value(), u"Žofie 😀", "UTF-16");
}

}  // namespace
}  // namespace zorkanca::testing
