#include "runtime/convert.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "runtime/format.h"
#include "support/case_table.h"
#include "support/text_support.h"
#include "support/value_text.h"

namespace zorkanca::testing {
namespace {

const Locale& EnUs() {
  return *FindLocale(u"en-US");
}

std::string Word(bool truth) {
  return truth ? "True" : "False";
}

std::string Plain(const Value& number) {
  return ToUtf8(ToText(number, EnUs()));
}

// The function that each kind of row is about, and its result as the table writes it.
std::string ResultOf(const CaseRow& row) {
  using Function = std::function<std::string(const Value&, const Locale&)>;
  static const std::map<std::string, Function> functions = {
      {"CStr", [](const Value& value, const Locale& locale) { return ToUtf8(ToText(value, locale)); }},
      {"Str", [](const Value& value, const Locale&) { return ToUtf8(ToStrText(value)); }},
      {"CInt", [](const Value& value, const Locale& locale) { return Plain(ToInteger(value, locale)); }},
      {"CLng", [](const Value& value, const Locale& locale) { return Plain(ToLong(value, locale)); }},
      {"CByte", [](const Value& value, const Locale& locale) { return Plain(ToByte(value, locale)); }},
      {"CDbl", [](const Value& value, const Locale& locale) { return Plain(ToDouble(value, locale)); }},
      {"CCur", [](const Value& value, const Locale& locale) { return Plain(ToCurrency(value, locale)); }},
      {"CBool", [](const Value& value, const Locale& locale) { return Word(ToBoolean(value, locale)); }},
      {"CDate", [](const Value& value, const Locale& locale) { return IsoText(ToDate(value, locale)); }},
      {"IsNumeric", [](const Value& value, const Locale& locale) { return Word(IsNumeric(value, locale)); }},
      {"IsDate", [](const Value& value, const Locale& locale) { return Word(IsDate(value, locale)); }},
      {"Val", [](const Value& value, const Locale&) { return Plain(Val(std::get<Text>(value))); }},
  };
  const Locale* const locale = FindLocale(FromUtf8(row.Cell(1)));
  const auto function = functions.find(row.Cell(0));
  if (locale == nullptr || function == functions.end()) return "no such row";
  return function->second(ValueFromText(row.Cell(2), row.Cell(3)), *locale);
}

TEST(Convert, EachCaseOfTheTable) {
  for (const CaseRow& row : ReadCaseTable("runtime/data/convert.tsv")) {
    std::string result;
    try {
      result = ResultOf(row);
    } catch (const Error& error) {
      result = "!" + std::to_string(error.number());
    }
    EXPECT_EQ(result, row.Cell(5)) << "line " << row.line << ": " << row.Cell(0) << " " << row.Cell(1) << " "
                                   << row.Cell(2) << " '" << row.Cell(3) << "'";
  }
}

}  // namespace
}  // namespace zorkanca::testing
