// Types of columns from their values, a row for each column.
#include "tabular/column_profile.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tabular/tabular_support.h"

namespace zorkanca::testing {
namespace {

struct Row {
  std::vector<std::string> values;
  std::string shown;  ///< the type, and the values as the database gives them
  const char16_t* locale = u"cs-CZ";
};

std::string ColumnOf(const Row& row, const std::string& type = "") {
  std::string text = "c\n";
  for (const std::string& value : row.values) text += value + "\n";
  LoadedFile file("t.csv", text);
  file.table().separator = '\t';
  file.reading().locale = FindLocale(row.locale);
  static const std::pair<const char*, FieldType> kTypes[] = {
      {"boolean", FieldType::kBoolean}, {"integer", FieldType::kLong}, {"currency", FieldType::kCurrency},
      {"double", FieldType::kDouble},   {"date", FieldType::kDate},    {"text", FieldType::kText}};
  for (const auto& [word, settled] : kTypes) {
    if (type == word) file.reading().types = {{u"C", settled}};
  }
  try {
    std::string shown = file.Shown().substr(2);
    std::replace(shown.begin(), shown.end(), '\n', ' ');
    return shown;
  } catch (const Error& error) {
    const std::string description = ToUtf8(error.description());
    EXPECT_EQ(error.number(), 13) << description;
    return description.substr(description.find(", line") + 2);
  }
}

TEST(ColumnProfile, FindsTypes) {
  const Row rows[] = {
      {{"1", "-20", "0"}, "integer 1 -20 0"},
      {{"2147483647", "-2147483648"}, "integer 2147483647 -2147483648"},
      {{"2147483648"}, "integer 2147483648"},
      {{"9223372036854775807", "-9223372036854775808"}, "integer 9223372036854775807 -9223372036854775808"},
      {{"9223372036854775808", "1"}, "decimal 9223372036854775808 1"},
      {{"1234567890123456789012345678", "-5"}, "decimal 1234567890123456789012345678 -5"},
      {{"12345678901234567890123456789"}, "text 12345678901234567890123456789"},
      {{" 1", "2 "}, "integer 1 2"},
      {{"\"1\"", "\"2\""}, "integer 1 2"},
      {{"", "1", ""}, "integer - 1 -"},
      {{"1", "\"\""}, "text 1 ''"},
      {{"", ""}, "text - -"},
      // zeros before the digits, signs and marks that numbers do not have
      {{"007", "1"}, "text 007 1"},
      {{"-007"}, "text -007"},
      {{"0", "00"}, "text 0 00"},
      {{"00,5"}, "text 00,5"},
      {{"+420123456789"}, "text +420123456789"},
      {{"1e5"}, "text 1e5"},
      {{"1.", "2"}, "text 1. 2"},
      {{"1 000"}, "text 1 000"},
      {{"-"}, "text -"},
      {{"0x10"}, "text 0x10"},
      {{"NaN"}, "text NaN"},
      // decimals, one separator throughout
      {{"1,5", "2"}, "decimal 1,5 2"},
      {{"1.5", "2"}, "decimal 1,5 2"},
      {{"1,5", "2.5"}, "text 1,5 2.5"},
      {{",5", "-,25"}, "decimal 0,5 -0,25"},
      {{"0.10", "-0.0"}, "decimal 0,1 0"},
      {{"1.5", "2,5"}, "text 1.5 2,5", u"en-US"},
      {{"1,5"}, "text 1,5", u"en-US"},
      {{"1.5"}, "decimal 1.5", u"en-US"},
      {{"0.1234567890123456789012345678", "12345678901234567.8901"},
       "decimal 0,1234567890123456789012345678 12345678901234567,8901"},
      {{"0.12345678901234567890123456789"}, "text 0.12345678901234567890123456789"},
      {{"999999999999999.9", "123456789012345.67"}, "decimal 999999999999999,9 123456789012345,67"},
      // dates
      {{"2026-03-01", "1999-12-31"}, "date 1.3.2026 31.12.1999"},
      {{"2026-03-01T18:05", "2026-03-01 18:05:06.75Z"}, "date 1.3.2026 18:05:00 1.3.2026 18:05:06"},
      {{"1.3.2026", "31. 12. 1999", "01.03.2026 8:05", "2026-03-01"},
       "date 1.3.2026 31.12.1999 1.3.2026 8:05:00 1.3.2026"},
      {{"31.2.2026"}, "text 31.2.2026"},
      {{"2026-02-30"}, "text 2026-02-30"},
      {{"1.3.26"}, "text 1.3.26"},
      {{"1.3."}, "text 1.3."},
      {{"3/1/2026"}, "text 3/1/2026"},
      {{"3/1/2026", "12/31/1999 6:05 PM"}, "date 3/1/2026 12/31/1999 6:05:00 PM", u"en-US"},
      {{"31/12/1999"}, "text 31/12/1999", u"en-US"},
      {{"2026-03-01T18:05:00+01:00"}, "text 2026-03-01T18:05:00+01:00"},
      {{"18:05"}, "text 18:05"},
      {{"1.3.2026", "1,5"}, "text 1.3.2026 1,5"},
      {{"1.3.2026 25:00"}, "text 1.3.2026 25:00"},
      {{"1.3.2026 x"}, "text 1.3.2026 x"},
      // yes and no
      {{"Ano", "ne", "ANO"}, "boolean True False True"},
      {{"true", "False", "Pravda", "NEPRAVDA"}, "boolean True False True False"},
      {{"ÁNO", "nie"}, "boolean True False", u"sk-SK"},
      {{"Ano"}, "text Ano", u"en-US"},
      {{"yes", "no"}, "boolean True False", u"en-US"},
      {{"0", "1"}, "integer 0 1"},
      {{"Ano", "1"}, "text Ano 1"},
      {{"Ano", "možná"}, "text Ano možná"},
  };
  for (const Row& row : rows) EXPECT_EQ(ColumnOf(row), row.shown) << row.values[0];
}

TEST(ColumnProfile, TakesTheTypeThatWasTold) {
  struct Told {
    std::string type;
    Row row;
  };
  const Told rows[] = {
      {"text", {{"1", "2,50", "Ano"}, "text 1 2,50 Ano"}},
      {"integer", {{"007", "1"}, "integer 7 1"}},
      {"integer", {{"1 000", "-5"}, "integer 1000 -5"}},
      {"integer", {{"2147483648"}, "integer 2147483648"}},
      {"integer", {{"1", "1,5"}, "line 3, field 1: \"1,5\" is no value of --type c=integer"}},
      {"integer",
       {{"9223372036854775808"}, "line 2, field 1: \"9223372036854775808\" is no value of --type c=integer"}},
      {"integer", {{"1", "\"\""}, "line 3, field 1: \"\" is no value of --type c=integer"}},
      {"currency", {{"1 234,50 Kč", "5"}, "currency 1234,5 5"}},
      {"currency", {{"1.5", "2"}, "currency 1,5 2"}},
      {"currency", {{"123456789012.3456", "922337203685477.5"}, "currency 123456789012,3456 922337203685477,5"}},
      {"currency", {{"1,23456"}, "line 2, field 1: \"1,23456\" is no value of --type c=currency"}},
      {"currency", {{"922337203685478"}, "line 2, field 1: \"922337203685478\" is no value of --type c=currency"}},
      {"double", {{"1e5", "2,5"}, "double 100000 2,5"}},
      {"double", {{"1.5", "1,5"}, "line 3, field 1: \"1,5\" is no value of --type c=double"}},
      {"double", {{"1e999"}, "line 2, field 1: \"1e999\" is no value of --type c=double"}},
      {"double", {{"1.234", "1.234,5"}, "double 1234 1234,5", u"de-DE"}},
      {"date", {{"1.3.2026", "1. března 2026"}, "line 3, field 1: \"1. března 2026\" is no value of --type c=date"}},
      {"date", {{"1.3.2026", "1.3.26 8:00"}, "date 1.3.2026 1.3.2026 8:00:00"}},
      {"boolean", {{"Ano", "0", "-1", "1"}, "boolean True False True True"}},
      {"boolean", {{"2"}, "line 2, field 1: \"2\" is no value of --type c=boolean"}},
  };
  for (const Told& told : rows)
    EXPECT_EQ(ColumnOf(told.row, told.type), told.row.shown) << told.type << told.row.values[0];
}

}  // namespace
}  // namespace zorkanca::testing
