#include "support/value_text.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "runtime/convert.h"
#include "runtime/date.h"
#include "runtime/utf8.h"

namespace zorkanca::testing {

namespace {

Value DateFromText(const std::string& text) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  if (std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d", &year, &month, &day, &hour, &minute, &second) < 3) {
    return Date{std::stod(text)};
  }
  return MakeDate(year, month, day, hour, minute, second).value();
}

}  // namespace

Value ValueFromText(const std::string& type, const std::string& text) {
  if (type == "R8") return std::stod(text);
  if (type == "R4") return std::stof(text);
  if (type == "CY") return ToCurrency(FromUtf8(text), *FindLocale(u"en-US"));
  if (type == "DEC") return ToDecimal(FromUtf8(text));
  if (type == "I8") return std::int64_t{std::stoll(text)};
  if (type == "I4") return static_cast<std::int32_t>(std::stoll(text));
  if (type == "I2") return static_cast<std::int16_t>(std::stoi(text));
  if (type == "UI1") return static_cast<std::uint8_t>(std::stoi(text));
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
