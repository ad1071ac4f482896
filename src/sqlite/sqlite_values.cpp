#include "sqlite/sqlite_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>

#include "platform/field_types.h"
#include "runtime/error.h"
#include "runtime/iso_date.h"
#include "runtime/utf8.h"
#include "sqlite/sqlite_conversions.h"

namespace zorkanca {

namespace {

template <typename Type>
bool SetIfSome(Value& value, const std::optional<Type>& converted) {
  if (converted) value = *converted;
  return converted.has_value();
}

template <typename Integer>
bool SetIfFits(Value& value, std::int64_t number) {
  const bool fits = number == static_cast<Integer>(number);
  if (fits) value = static_cast<Integer>(number);
  return fits;
}

void SetLong(Value& value, std::int64_t number) {
  if (!SetIfFits<std::int32_t>(value, number)) value = number;
}

void SetInteger(Value& value, std::int64_t number) {
  if (!SetIfFits<std::int16_t>(value, number)) SetLong(value, number);
}

void ReadInteger(Value& value, std::int64_t number, FieldType type) {
  switch (type) {
    case FieldType::kBoolean:
      value = number != 0;
      return;
    case FieldType::kByte:
      if (!SetIfFits<std::uint8_t>(value, number)) SetInteger(value, number);
      return;
    case FieldType::kInteger:
      return SetInteger(value, number);
    case FieldType::kBigInteger:
      value = number;
      return;
    case FieldType::kSingle:
      value = static_cast<float>(number);
      return;
    case FieldType::kDouble:
      value = static_cast<double>(number);
      return;
    case FieldType::kCurrency:
      if (!SetIfSome(value, CurrencyOf(number))) SetLong(value, number);
      return;
    case FieldType::kNumeric:
    case FieldType::kDecimal:
      value = DecimalOf(number);
      return;
    case FieldType::kDate:
    case FieldType::kTime:
    case FieldType::kTimeStamp:
      if (!SetIfSome(value, DateOfUnixSeconds(number))) SetLong(value, number);
      return;
    default:
      SetLong(value, number);
  }
}

void ReadReal(Value& value, double number, FieldType type) {
  switch (type) {
    case FieldType::kBoolean:
      value = number != 0;
      return;
    case FieldType::kSingle:
      if (std::isfinite(number) && std::fabs(number) > double{std::numeric_limits<float>::max()}) break;
      value = static_cast<float>(number);
      return;
    case FieldType::kCurrency:
      if (SetIfSome(value, CurrencyOf(number))) return;
      break;
    case FieldType::kNumeric:
    case FieldType::kDecimal:
      if (SetIfSome(value, DecimalOf(number))) return;
      break;
    case FieldType::kDate:
    case FieldType::kTime:
    case FieldType::kTimeStamp:
      if (SetIfSome(value, DateOfJulianDay(number))) return;
      break;
    default:
      break;
  }
  value = number;
}

[[noreturn]] void RaiseNoText(const Text& name, TextView reason) {
  Text description(DescriptionOf(RuntimeError::kTypeMismatch));
  description.append(u": the text in the column \"").append(name).append(u"\" ").append(reason);
  Raise(RuntimeError::kTypeMismatch, std::move(description));
}

// A text that is a number as SQLite writes one; blanks round it and a sign do not matter.
std::optional<double> NumberOf(std::string_view bytes) {
  constexpr std::string_view kBlanks = " \t\r\n";
  bytes.remove_prefix(std::min(bytes.find_first_not_of(kBlanks), bytes.size()));
  bytes = bytes.substr(0, bytes.find_last_not_of(kBlanks) + 1);
  if (bytes.starts_with('+')) bytes.remove_prefix(1);
  double number = 0;
  const auto [end, status] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
  const bool isWhole = status == std::errc() && end == bytes.data() + bytes.size();
  return isWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// A column of numbers that SQLite holds as texts: a computed one whose type was settled. What is no number stays text;
// amounts and decimals take exact ones alone.
bool SetIfNumber(Value& value, std::string_view bytes, FieldType type) {
  if (type == FieldType::kCurrency || type == FieldType::kDecimal) return false;
  if (type != FieldType::kBoolean && !IsNumericType(type)) return false;
  const std::optional<double> number = NumberOf(bytes);
  if (!number) return false;
  constexpr double kExactly = 9007199254740992.0;  // 2 to the power 53
  if (*number == std::floor(*number) && std::fabs(*number) < kExactly) {
    ReadInteger(value, static_cast<std::int64_t>(*number), type);
  } else {
    ReadReal(value, *number, type);
  }
  return true;
}

void ReadText(Value& value, std::string_view bytes, FieldType type, const Text& name) {
  if (IsDateType(type) && SetIfSome(value, ParseIsoDate(bytes))) return;
  if (type == FieldType::kDecimal && SetIfSome(value, DecimalOf(bytes))) return;
  if (type == FieldType::kCurrency && SetIfSome(value, CurrencyOf(bytes))) return;
  if (SetIfNumber(value, bytes, type)) return;
  Text* text = std::get_if<Text>(&value);
  if (text == nullptr) text = &value.emplace<Text>();
  text->clear();
  if (!AppendUtf8(*text, bytes)) RaiseNoText(name, u"is not valid UTF-8");
  if (bytes.find('\0') != std::string_view::npos) RaiseNoText(name, u"holds a NUL character");
}

void ReadBinary(Value& value, const void* data, std::size_t size) {
  Binary* binary = std::get_if<Binary>(&value);
  if (binary == nullptr) binary = &value.emplace<Binary>();
  const auto* const bytes = static_cast<const std::byte*>(data);
  binary->assign(bytes, bytes + size);
}

}  // namespace

void ReadSqliteValue(Value& value, sqlite3_stmt* statement, int column, FieldType type, const Text& name) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      return ReadInteger(value, sqlite3_column_int64(statement, column), type);
    case SQLITE_FLOAT:
      return ReadReal(value, sqlite3_column_double(statement, column), type);
    case SQLITE_TEXT: {
      const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
      if (text == nullptr) Raise(RuntimeError::kOutOfMemory);
      return ReadText(value, {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))}, type, name);
    }
    case SQLITE_BLOB: {
      const void* const data = sqlite3_column_blob(statement, column);
      return ReadBinary(value, data, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
    }
    default:
      value = Null();
  }
}

}  // namespace zorkanca
