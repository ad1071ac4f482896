#include "odbc/odbc_types.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kLongestText = 255;     // DAO's limit; longer texts are memos
constexpr std::uint64_t kLongestBound = 1024;  // bytes of a value that a block has room for
constexpr std::size_t kNumberWidth = 64;       // digits of a decimal, sign, point; of dates and times

OdbcColumn Number(FieldType type, OdbcForm form) {
  // The values of a bound column that are no texts lie as densely as they can.
  const std::size_t width = form == OdbcForm::kText ? kNumberWidth : form == OdbcForm::kBit ? 1 : sizeof(std::int64_t);
  return {.name = {}, .type = type, .size = 0, .form = form, .width = width};
}

// Whole numbers that fit are integers; four decimals are an amount of money; others are decimals.
OdbcColumn Decimal(const OdbcDescription& column) {
  constexpr std::uint64_t kLongDigits = 9;
  constexpr std::uint64_t kBigDigits = 18;
  constexpr std::uint64_t kMoneyDigits = 19;
  constexpr SQLSMALLINT kMoneyDecimals = 4;
  if (column.digits == 0 && column.size > 0 && column.size <= kBigDigits) {
    return Number(column.size <= kLongDigits ? FieldType::kLong : FieldType::kBigInteger, OdbcForm::kText);
  }
  const bool isMoney = column.digits == kMoneyDecimals && column.size <= kMoneyDigits;
  OdbcColumn decimal = Number(isMoney                      ? FieldType::kCurrency
                              : column.type == SQL_NUMERIC ? FieldType::kNumeric
                                                           : FieldType::kDecimal,
                              OdbcForm::kText);
  if (column.size + 3 > kNumberWidth) decimal.width = 0;
  return decimal;
}

// The kind of text: text, or fixed-length text; long ones are memos.
OdbcColumn Characters(const OdbcDescription& column, FieldType type, const OdbcDriver& driver) {
  constexpr std::size_t kBytesOfCharacter = 4;
  OdbcColumn text{.name = {}, .type = type, .size = 0, .form = driver.givesUtf8 ? OdbcForm::kText : OdbcForm::kWide};
  const bool isShort = column.size > 0 && column.size <= static_cast<std::uint64_t>(kLongestText);
  if (isShort && type != FieldType::kMemo) {
    text.size = static_cast<std::int32_t>(column.size);
  } else {
    text.type = FieldType::kMemo;
  }
  if (driver.lengthsHold && isShort && type != FieldType::kMemo) text.width = (column.size + 1) * kBytesOfCharacter;
  return text;
}

OdbcColumn Bytes(const OdbcDescription& column, FieldType type, const OdbcDriver& driver) {
  const bool isBound =
      driver.lengthsHold && type != FieldType::kLongBinary && column.size > 0 && column.size < kLongestBound;
  return {.name = {}, .type = type, .size = 0, .form = OdbcForm::kBinary, .width = isBound ? column.size + 1 : 0};
}

OdbcColumn Moment(FieldType type, TextView cast, const OdbcDriver& driver) {
  OdbcColumn moment = Number(type, OdbcForm::kText);
  if (driver.rowsAsTexts) moment.cast = cast;
  return moment;
}

OdbcColumn ColumnOfType(const OdbcDescription& column, const OdbcDriver& driver) {
  const bool isUnsigned = column.isUnsigned;
  if (column.typeName == u"money") return Moment(FieldType::kCurrency, u"::numeric", driver);
  switch (column.type) {
    case SQL_BIT:
      return Number(FieldType::kBoolean, OdbcForm::kBit);
    case SQL_TINYINT:
      return Number(isUnsigned ? FieldType::kByte : FieldType::kInteger, OdbcForm::kInteger);
    case SQL_SMALLINT:
      return Number(isUnsigned ? FieldType::kLong : FieldType::kInteger, OdbcForm::kInteger);
    case SQL_INTEGER:
      return Number(isUnsigned ? FieldType::kBigInteger : FieldType::kLong, OdbcForm::kInteger);
    case SQL_BIGINT:
      return Number(FieldType::kBigInteger, isUnsigned ? OdbcForm::kText : OdbcForm::kInteger);
    case SQL_REAL:
      return Number(FieldType::kSingle, OdbcForm::kReal);
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return Number(FieldType::kDouble, OdbcForm::kReal);
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return Decimal(column);
    case SQL_TYPE_DATE:
    case SQL_DATE:
      return Moment(FieldType::kDate, u"", driver);
    case SQL_TYPE_TIME:
    case SQL_TIME:
      return Moment(FieldType::kTime, u"", driver);
    case SQL_TYPE_TIMESTAMP:
    case SQL_TIMESTAMP:
      return Moment(FieldType::kDate, u"::timestamp", driver);
    case SQL_GUID:
      return Number(FieldType::kGuid, OdbcForm::kText);
    case SQL_BINARY:
      return Bytes(column, FieldType::kBinary, driver);
    case SQL_VARBINARY:
      return Bytes(column, FieldType::kVarBinary, driver);
    case SQL_LONGVARBINARY:
      return Bytes(column, FieldType::kLongBinary, driver);
    case SQL_CHAR:
    case SQL_WCHAR:
      return Characters(column, FieldType::kChar, driver);
    case SQL_VARCHAR:
    case SQL_WVARCHAR:
      return Characters(column, FieldType::kText, driver);
    default:
      return Characters(column, FieldType::kMemo, driver);
  }
}

}  // namespace

OdbcColumn OdbcColumnOf(const OdbcDescription& description, const OdbcDriver& driver) {
  OdbcColumn column = ColumnOfType(description, driver);
  column.name = description.name;
  if (driver.givesTextsOnly) {
    ReadAsText(column);
    column.width = 0;
  }
  return column;
}

void SettleOdbcColumn(OdbcColumn& column, FieldType type) {
  column.type = type;
  column.size = 0;
  if (column.form == OdbcForm::kText || column.form == OdbcForm::kWide) return;
  if (column.form == OdbcForm::kBinary || column.form == OdbcForm::kHexText) return;  // stays what it is
  column.form = OdbcForm::kText;
  column.width = kNumberWidth;
}

void ReadAsText(OdbcColumn& column) {
  column.form = column.form == OdbcForm::kBinary ? OdbcForm::kHexText : OdbcForm::kText;
}

SQLSMALLINT CTypeOf(OdbcForm form) {
  switch (form) {
    case OdbcForm::kInteger:
      return SQL_C_SBIGINT;
    case OdbcForm::kReal:
      return SQL_C_DOUBLE;
    case OdbcForm::kBit:
      return SQL_C_BIT;
    case OdbcForm::kWide:
      return SQL_C_WCHAR;
    case OdbcForm::kBinary:
      return SQL_C_BINARY;
    default:
      return SQL_C_CHAR;
  }
}

}  // namespace zorkanca
