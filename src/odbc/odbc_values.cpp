#include "odbc/odbc_values.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>

#include "platform/field_types.h"
#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/iso_date.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

template <typename Number>
Number NumberIn(const OdbcCell& cell) {
  Number number{};
  std::memcpy(&number, cell.data, sizeof number);
  return number;
}

template <typename Integer>
bool SetIfFits(Value& value, std::int64_t number) {
  const bool fits = number == static_cast<Integer>(number);
  if (fits) value = static_cast<Integer>(number);
  return fits;
}

void SetInteger(Value& value, std::int64_t number, FieldType type) {
  if (type == FieldType::kByte && SetIfFits<std::uint8_t>(value, number)) return;
  const bool isShort = type == FieldType::kByte || type == FieldType::kInteger;
  if (isShort && SetIfFits<std::int16_t>(value, number)) return;
  if (type != FieldType::kBigInteger && SetIfFits<std::int32_t>(value, number)) return;
  value = number;
}

void SetReal(Value& value, double number, FieldType type) {
  if (type == FieldType::kSingle) {
    value = static_cast<float>(number);
  } else {
    value = number;
  }
}

// All of a text as a number; nothing for any other text.
template <typename Number>
std::optional<Number> NumberOf(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const std::from_chars_result read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

// "-12.50" is 125 tenths. @return false for anything else, and for more digits than 64 bits hold
bool ReadShortDecimal(std::string_view text, std::int64_t& digits, std::uint8_t& scale) {
  constexpr std::size_t kMostDigits = 18;
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  if (text.empty() || text.size() > kMostDigits + 1) return false;
  digits = 0;
  scale = 0;
  bool afterPoint = false;
  for (const char byte : text) {
    if (byte == '.' && !afterPoint) {
      afterPoint = true;
      continue;
    }
    if (!IsDigit(byte)) return false;
    digits = digits * 10 + (byte - '0');
    scale = static_cast<std::uint8_t>(scale + afterPoint);
  }
  if (text.size() - afterPoint > kMostDigits || text.size() == std::size_t{afterPoint}) return false;
  for (; scale > 0 && digits % 10 == 0; --scale) digits /= 10;
  if (negative) digits = -digits;
  return true;
}

// A decimal of up to 28 digits; longer ones are no decimals of ours.
std::optional<Decimal> LongDecimalOf(std::string_view text) {
  constexpr int kMostDigits = 28;
  int digits = 0;
  for (const char byte : text) {
    if (IsDigit(byte)) ++digits;
    if (!IsDigit(byte) && byte != '.' && byte != '-') return std::nullopt;
  }
  if (digits > kMostDigits) return std::nullopt;
  while (text.find('.') != std::string_view::npos && (text.back() == '0' || text.back() == '.')) {
    const bool isPoint = text.back() == '.';
    text.remove_suffix(1);
    if (isPoint) break;
  }
  try {
    return ToDecimal(FromUtf8(text));
  } catch (const Error&) {
    return std::nullopt;
  }
}

bool SetCurrency(Value& value, std::int64_t digits, std::uint8_t scale) {
  constexpr std::uint8_t kDecimals = 4;
  constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max() / 10;
  if (scale > kDecimals) return false;
  for (; scale < kDecimals; ++scale) {
    if (digits > kLargest || digits < -kLargest) return false;
    digits *= 10;
  }
  value = Currency{digits};
  return true;
}

bool SetDecimal(Value& value, std::string_view text, FieldType type) {
  std::int64_t digits = 0;
  std::uint8_t scale = 0;
  if (ReadShortDecimal(text, digits, scale)) {
    if (type == FieldType::kCurrency && SetCurrency(value, digits, scale)) return true;
    const std::uint64_t magnitude =
        digits < 0 ? 0 - static_cast<std::uint64_t>(digits) : static_cast<std::uint64_t>(digits);
    value = Decimal{.low = magnitude, .scale = scale, .negative = digits < 0};
    return true;
  }
  const std::optional<Decimal> decimal = LongDecimalOf(text);
  if (!decimal) return false;
  constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (type == FieldType::kCurrency && decimal->high == 0 && decimal->low <= kLargest) {
    digits = static_cast<std::int64_t>(decimal->low);
    if (SetCurrency(value, decimal->negative ? -digits : digits, decimal->scale)) return true;
  }
  value = *decimal;
  return true;
}

bool SetBoolean(Value& value, std::string_view text) {
  const std::string lower = AsciiLower(text);
  const bool isTrue = lower == "1" || lower == "t" || lower == "true" || lower == "-1";
  if (!isTrue && lower != "0" && lower != "f" && lower != "false") return false;
  value = isTrue;
  return true;
}

template <typename Type>
bool SetIfSome(Value& value, const std::optional<Type>& converted) {
  if (converted) value = *converted;
  return converted.has_value();
}

bool SetSingle(Value& value, std::string_view text) {
  const std::optional<float> number = NumberOf<float>(text);
  if (number && std::isfinite(*number)) value = *number;
  return number && std::isfinite(*number);
}

bool SetDouble(Value& value, std::string_view text) {
  const std::optional<double> number = NumberOf<double>(text);
  if (number && std::isfinite(*number)) value = *number;
  return number && std::isfinite(*number);
}

// "{A0EEBC99-…}" as servers write it: small letters, no braces.
void SetGuid(Value& value, std::string_view text) {
  if (text.starts_with('{') && text.ends_with('}')) text = text.substr(1, text.size() - 2);
  value = FromUtf8(AsciiLower(text));
}

// @return false when the text is none of the type
bool SetConverted(Value& value, std::string_view text, FieldType type) {
  switch (type) {
    case FieldType::kBoolean:
      return SetBoolean(value, text);
    case FieldType::kByte:
    case FieldType::kInteger:
    case FieldType::kLong:
    case FieldType::kBigInteger: {
      const std::optional<std::int64_t> number = NumberOf<std::int64_t>(text);
      if (number) SetInteger(value, *number, type);
      return number || SetDecimal(value, text, FieldType::kDecimal);
    }
    case FieldType::kCurrency:
    case FieldType::kNumeric:
    case FieldType::kDecimal:
      return SetDecimal(value, text, type);
    case FieldType::kSingle:
      return SetSingle(value, text);
    case FieldType::kDouble:
    case FieldType::kFloat:
      return SetDouble(value, text);
    case FieldType::kDate:
    case FieldType::kTime:
    case FieldType::kTimeStamp:
      return SetIfSome(value, ParseIsoDate(text));
    case FieldType::kGuid:
      SetGuid(value, text);
      return true;
    default:
      return false;
  }
}

[[noreturn]] void RaiseNoText(const Text& name, TextView reason) {
  Text description(DescriptionOf(RuntimeError::kTypeMismatch));
  description.append(u": the text in the column \"").append(name).append(u"\" ").append(reason);
  Raise(RuntimeError::kTypeMismatch, std::move(description));
}

Text& TextIn(Value& value) {
  Text* text = std::get_if<Text>(&value);
  if (text == nullptr) text = &value.emplace<Text>();
  text->clear();
  return *text;
}

void ReadText(Value& value, std::string_view bytes, const OdbcColumn& column) {
  if (SetConverted(value, bytes, column.type)) return;
  if (!AppendUtf8(TextIn(value), bytes)) RaiseNoText(column.name, u"is not valid UTF-8");
  if (bytes.find('\0') != std::string_view::npos) RaiseNoText(column.name, u"holds a NUL character");
}

void ReadWide(Value& value, const OdbcCell& cell, const OdbcColumn& column) {
  Text& text = TextIn(value);
  text.resize(cell.size / sizeof(char16_t));
  std::memcpy(text.data(), cell.data, text.size() * sizeof(char16_t));
  if (text.find(u'\0') != Text::npos) RaiseNoText(column.name, u"holds a NUL character");
  if (IsTextType(column.type)) return;
  const std::string bytes = ToUtf8(text);
  Value converted;
  if (SetConverted(converted, bytes, column.type)) value = std::move(converted);
}

void ReadBinary(Value& value, const OdbcCell& cell) {
  Binary* binary = std::get_if<Binary>(&value);
  if (binary == nullptr) binary = &value.emplace<Binary>();
  const auto* const bytes = reinterpret_cast<const std::byte*>(cell.data);
  binary->assign(bytes, bytes + cell.size);
}

// "\\x00ff", two letters for a byte; anything else stays text.
void ReadHexText(Value& value, std::string_view text, const OdbcColumn& column) {
  if (!text.starts_with("\\x")) return ReadText(value, text, column);
  Binary* binary = std::get_if<Binary>(&value);
  if (binary == nullptr) binary = &value.emplace<Binary>();
  binary->clear();
  const auto digit = [&](std::size_t at) {
    return static_cast<unsigned>(IsDigit(text[at]) ? text[at] - '0' : AsciiLower(text[at]) - 'a' + 10);
  };
  for (std::size_t at = 2; at + 1 < text.size(); at += 2) {
    binary->push_back(static_cast<std::byte>(digit(at) << 4 | digit(at + 1)));
  }
}

}  // namespace

void ReadOdbcValue(Value& value, const OdbcCell& cell, const OdbcColumn& column) {
  if (cell.IsNull()) {
    value = Null();
    return;
  }
  switch (column.form) {
    case OdbcForm::kInteger:
      return SetInteger(value, NumberIn<std::int64_t>(cell), column.type);
    case OdbcForm::kReal:
      return SetReal(value, NumberIn<double>(cell), column.type);
    case OdbcForm::kBit:
      value = *cell.data != 0 && *cell.data != '0';  // MariaDB's driver gives the digit
      return;
    case OdbcForm::kText:
      return ReadText(value, {cell.data, cell.size}, column);
    case OdbcForm::kWide:
      return ReadWide(value, cell, column);
    case OdbcForm::kBinary:
      return ReadBinary(value, cell);
    case OdbcForm::kHexText:
      return ReadHexText(value, {cell.data, cell.size}, column);
  }
}

}  // namespace zorkanca
