#include "support/value_text.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstdio>

#include "runtime/convert.h"
#include "runtime/date.h"
#include "runtime/utf8.h"

namespace zorkanca::testing {

namespace {

template <typename T>
T NumberFromText(const std::string& text) {
  T number{};
  const char* const end = text.data() + text.size();
  const std::from_chars_result result = std::from_chars(text.data(), end, number);
  EXPECT_TRUE(result.ec == std::errc() && result.ptr == end) << "no such number: " << text;
  return number;
}

Value DateFromText(const std::string& text) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  if (std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d", &year, &month, &day, &hour, &minute, &second) < 3) {
    return Date{NumberFromText<double>(text)};
  }
  return MakeDate(year, month, day, hour, minute, second).value();
}

}  // namespace

Value ValueFromText(const std::string& type, const std::string& text) {
  if (type == "R8") return NumberFromText<double>(text);
  if (type == "R4") return NumberFromText<float>(text);
  if (type == "CY") return ToCurrency(FromUtf8(text), *FindLocale(u"en-US"));
  if (type == "DEC") return ToDecimal(FromUtf8(text));
  if (type == "I8") return NumberFromText<std::int64_t>(text);
  if (type == "I4") return NumberFromText<std::int32_t>(text);
  if (type == "I2") return NumberFromText<std::int16_t>(text);
  if (type == "UI1") return NumberFromText<std::uint8_t>(text);
  if (type == "BOOL") return text == "True";
  if (type == "DATE") return DateFromText(text);
  if (type == "BSTR") return FromUtf8(text);
  if (type == "EMPTY") return Empty();
  if (type == "NULL") return Null();
  if (type == "BINARY") return Binary(3);
  if (type == "OBJECT") return ObjectReference();
  ADD_FAILURE() << "no such type: " << type;
  return Empty();
}

std::string IsoText(Date date) {
  const DateParts parts = Disassemble(date);
  char text[80];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", parts.year, parts.month, parts.day, parts.hour,
                parts.minute, parts.second);
  return text;
}

}  // namespace zorkanca::testing
