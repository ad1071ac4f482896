#include "odbc/odbc_values.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/text_support.h"
#include "support/value_text.h"

namespace zorkanca::testing {
namespace {

const OdbcDriver& Postgres() {
  return OdbcDriverNamed(u"psqlodbc");
}
const OdbcDriver& MariaDb() {
  return OdbcDriverNamed(u"mariadb");
}
const OdbcDriver& Other() {
  return OdbcDriverNamed(u"");
}

TEST(OdbcTypes, WhatADriverDescribes) {
  struct Row {
    const OdbcDriver& driver;
    OdbcDescription described;
    FieldType type;
    OdbcForm form;
    std::int32_t size;
    bool isBound;
  };
  using F = OdbcForm;
  using T = FieldType;
  const auto described = [](SQLSMALLINT type, std::uint64_t size = 0, SQLSMALLINT digits = 0, bool isUnsigned = false,
                            TextView name = u"") {
    return OdbcDescription{
        .name = u"a", .type = type, .size = size, .digits = digits, .isUnsigned = isUnsigned, .typeName = Text(name)};
  };
  const Row rows[] = {
      {Postgres(), described(SQL_BIT, 1), T::kBoolean, F::kBit, 0, true},
      {MariaDb(), described(SQL_TINYINT, 3), T::kInteger, F::kInteger, 0, true},
      {MariaDb(), described(SQL_TINYINT, 3, 0, true), T::kByte, F::kInteger, 0, true},
      {MariaDb(), described(SQL_SMALLINT, 5, 0, true), T::kLong, F::kInteger, 0, true},
      {MariaDb(), described(SQL_INTEGER, 10), T::kLong, F::kInteger, 0, true},
      {MariaDb(), described(SQL_INTEGER, 10, 0, true), T::kBigInteger, F::kInteger, 0, true},
      {MariaDb(), described(SQL_BIGINT, 20, 0, true), T::kBigInteger, F::kText, 0, true},
      {Postgres(), described(SQL_NUMERIC, 9), T::kLong, F::kText, 0, true},
      {Postgres(), described(SQL_NUMERIC, 18), T::kBigInteger, F::kText, 0, true},
      {Postgres(), described(SQL_NUMERIC, 19, 4), T::kCurrency, F::kText, 0, true},
      {MariaDb(), described(SQL_DECIMAL, 65, 30), T::kDecimal, F::kText, 0, false},
      {MariaDb(), described(SQL_DECIMAL, 10, 2), T::kDecimal, F::kText, 0, true},
      {Postgres(), described(SQL_FLOAT, 10, 0, false, u"money"), T::kCurrency, F::kText, 0, true},
      {MariaDb(), described(SQL_DOUBLE, 15), T::kDouble, F::kReal, 0, true},
      {MariaDb(), described(SQL_REAL, 7), T::kSingle, F::kReal, 0, true},
      {MariaDb(), described(SQL_TYPE_TIMESTAMP, 19), T::kDate, F::kText, 0, true},
      {MariaDb(), described(SQL_TYPE_TIME, 8), T::kTime, F::kText, 0, true},
      {Postgres(), described(SQL_GUID, 37), T::kGuid, F::kText, 0, true},
      {MariaDb(), described(SQL_CHAR, 5), T::kChar, F::kText, 5, true},
      {Postgres(), described(SQL_VARCHAR, 255), T::kText, F::kText, 255, false},  // or without any length
      {MariaDb(), described(SQL_VARCHAR, 255), T::kText, F::kText, 255, true},
      {MariaDb(), described(SQL_VARCHAR, 256), T::kMemo, F::kText, 0, false},
      {Other(), described(SQL_WVARCHAR, 40), T::kText, F::kWide, 40, false},
      {Postgres(), described(SQL_LONGVARCHAR, 8190), T::kMemo, F::kText, 0, false},
      {MariaDb(), described(SQL_VARBINARY, 10), T::kVarBinary, F::kBinary, 0, true},
      {MariaDb(), described(SQL_LONGVARBINARY, 65535), T::kLongBinary, F::kBinary, 0, false},
      {Other(), described(-151, 0), T::kMemo, F::kWide, 0, false},  // a server's own type
  };
  for (const Row& row : rows) {
    const OdbcColumn column = OdbcColumnOf(row.described, row.driver);
    const std::string what = std::to_string(row.described.type) + "(" + std::to_string(row.described.size) + ")";
    EXPECT_EQ(column.type, row.type) << what;
    EXPECT_EQ(column.form, row.form) << what;
    EXPECT_EQ(column.size, row.size) << what;
    EXPECT_EQ(column.width > 0, row.isBound) << what;
  }
}

TEST(OdbcValues, TextsOfEachType) {
  struct Row {
    FieldType type;
    std::string_view text;
    Value expected;
  };
  using T = FieldType;
  const auto decimal = [](std::uint64_t digits, std::uint8_t scale, bool negative = false) {
    return Decimal{.low = digits, .scale = scale, .negative = negative};
  };
  const Row rows[] = {
      {T::kDecimal, "12.50", decimal(125, 1)},
      {T::kDecimal, "-0.07", decimal(7, 2, true)},
      {T::kDecimal, "100", decimal(100, 0)},
      {T::kDecimal, "0.00", decimal(0, 0)},
      {T::kDecimal, ".5", decimal(5, 1)},
      {T::kDecimal, "12345678901234567890.5000", decimal(0, 0)},                         // see below
      {T::kDecimal, "79228162514264337593543950336", u"79228162514264337593543950336"},  // 2 to the power 96
      {T::kDecimal, "0.00000000000000000000000000001", u"0.00000000000000000000000000001"},
      {T::kDecimal, "NaN", u"NaN"},
      {T::kNumeric, "-Infinity", u"-Infinity"},
      {T::kDecimal, "1.2.3", u"1.2.3"},
      {T::kDecimal, "-", u"-"},
      {T::kDecimal, ".", u"."},
      {T::kCurrency, "-1234.56", Currency{-12345600}},
      {T::kCurrency, "922337203685477.5807", Currency{9223372036854775807}},
      {T::kCurrency, "0.00001", decimal(1, 5)},
      {T::kLong, "7", std::int32_t{7}},
      {T::kLong, "2147483648", std::int64_t{2147483648}},
      {T::kBigInteger, "18446744073709551615", decimal(18446744073709551615u, 0)},
      {T::kDouble, "0.1", 0.1},
      {T::kDouble, "1e300", 1e300},
      {T::kDouble, "Infinity", u"Infinity"},
      {T::kDouble, "NaN", u"NaN"},
      {T::kSingle, "0.1", 0.1f},
      {T::kDate, "2026-03-01", Date{46082}},
      {T::kDate, "2026-03-01 18:00:00.999", Date{46082.75}},
      {T::kDate, "infinity", u"infinity"},
      {T::kDate, "0044-03-15 BC", u"0044-03-15 BC"},
      {T::kDate, "12000-01-01", u"12000-01-01"},
      {T::kDate, "0000-00-00", u"0000-00-00"},
      {T::kTime, "06:00:00", Date{0.25}},
      {T::kTime, "24:00:00", u"24:00:00"},
      {T::kTime, "-838:59:59", u"-838:59:59"},
      {T::kGuid, "{A0EEBC99-9C0B-4EF8-BB6D-6BB9BD380A11}", u"a0eebc99-9c0b-4ef8-bb6d-6bb9bd380a11"},
      {T::kBoolean, "t", true},
      {T::kBoolean, "0", false},
      {T::kBoolean, "ano", u"ano"},
      {T::kText, "007", u"007"},
      {T::kChar, "ab   ", u"ab   "},
      {T::kText, "", u""},
  };
  for (const Row& row : rows) {
    Value value = u"before";
    ReadOdbcValue(value, {row.text.data(), row.text.size()}, {.name = u"a", .type = row.type});
    if (row.text == "12345678901234567890.5000") {
      const auto& found = std::get<Decimal>(value);
      EXPECT_EQ(found.high, 6u) << "123456789012345678905 is beyond 64 bits";
      EXPECT_EQ(found.low, 12776324570088369209u);
      EXPECT_EQ(found.scale, 1);
      continue;
    }
    EXPECT_EQ(value.index(), row.expected.index()) << row.text;
    EXPECT_TRUE(value == row.expected) << row.text;
  }
}

TEST(OdbcValues, OtherForms) {
  const auto read = [](const void* data, std::size_t size, OdbcForm form, FieldType type) {
    Value value;
    ReadOdbcValue(value, {static_cast<const char*>(data), size}, {.name = u"a", .type = type, .form = form});
    return value;
  };
  const std::int64_t number = 40000;
  EXPECT_EQ(read(&number, 8, OdbcForm::kInteger, FieldType::kInteger), Value(std::int32_t{40000}));
  EXPECT_EQ(read(&number, 8, OdbcForm::kInteger, FieldType::kBigInteger), Value(std::int64_t{40000}));
  const double real = 0.5;
  EXPECT_EQ(read(&real, 8, OdbcForm::kReal, FieldType::kSingle), Value(0.5f));
  for (const auto& [byte, expected] : {std::pair{"\1", true}, {"1", true}, {"\0", false}, {"0", false}}) {
    EXPECT_EQ(read(byte, 1, OdbcForm::kBit, FieldType::kBoolean), Value(expected)) << byte;
  }
  EXPECT_EQ(read(u"Žluť", 8, OdbcForm::kWide, FieldType::kText), Value(Text(u"Žluť")));
  EXPECT_EQ(read(u"12.5", 8, OdbcForm::kWide, FieldType::kCurrency), Value(Currency{125000}));
  EXPECT_EQ(read("\\x00fF", 6, OdbcForm::kHexText, FieldType::kLongBinary),
            Value(Binary{std::byte{0}, std::byte{255}}));
  EXPECT_EQ(std::get<Binary>(read("\0\xFF", 2, OdbcForm::kBinary, FieldType::kBinary)).size(), 2u);
  EXPECT_TRUE(std::get<Binary>(read("", 0, OdbcForm::kBinary, FieldType::kBinary)).empty());
  EXPECT_TRUE(IsNull(read(nullptr, 0, OdbcForm::kInteger, FieldType::kLong)));

  for (const std::string& bytes : {std::string("\xE8\xED\x73lo"), std::string("a\0b", 3)}) {
    const Error error = ErrorOf([&] { read(bytes.data(), bytes.size(), OdbcForm::kText, FieldType::kText); });
    EXPECT_EQ(error.number(), 13);
    EXPECT_NE(ToUtf8(error.description()).find("the text in the column \"a\""), std::string::npos);
  }
}

}  // namespace
}  // namespace zorkanca::testing
