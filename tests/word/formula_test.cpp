// Formulas and their results, in a table of three rows.
#include "word/fields/formula.h"

#include <gtest/gtest.h>

#include <map>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using word::FormulaContext;
using word::FormulaTable;

// A1 to C3; the formula stands in C3. The second row has no C2.
const std::vector<std::vector<Text>> kCells = {
    {u"Cena 2024", u"1\u00A0234,50 Kč\r", u"x"}, {u"10", u"(5)"}, {u"\r", u"21 %", u""}};
const std::vector<std::size_t> kWidths = {3, 2, 3};
const FormulaTable kTable{kWidths, [](std::size_t row, std::size_t column) { return kCells[row][column]; }};
const std::vector<std::size_t> kOtherWidths = {1};
const FormulaTable kOther{kOtherWidths, [](std::size_t, std::size_t) { return Text(u"7"); }};

FormulaContext ContextOf(const FormulaTable* table) {
  static const std::map<Text, Text> names = {
      {u"SAZBA", u"21 %"}, {u"ŘÁDEK_1", u"3"}, {u"PRÁZDNÝ", u" \r"}, {u"SLOVO", u"slovo"}, {u"JINÁ", u"7"}};
  FormulaContext context{.table = table, .row = 2, .column = 2, .textOfName = {}, .tableOfName = {}};
  context.textOfName = [](TextView name) -> std::optional<Text> {
    const auto found = names.find(UpperCase(name));
    return found == names.end() ? std::nullopt : std::optional(found->second);
  };
  context.tableOfName = [](TextView name) { return UpperCase(name) == u"JINÁ" ? &kOther : nullptr; };
  return context;
}

std::string Shown(TextView formula, const FormulaTable* table, const char16_t* locale) {
  const word::FormulaResult result = word::EvaluateFormula(formula, ContextOf(table), *FindLocale(locale));
  return ToUtf8(result.error.empty() ? word::FormulaNumberText(result.number, *FindLocale(locale)) : result.error);
}

TEST(Formula, GivesItsResult) {
  const std::pair<TextView, const char*> rows[] = {
      {u"1+2*3", "7"},
      {u"(1+2)*3", "9"},
      {u"2^3^2", "64"},
      {u"-2^2", "4"},
      {u"10-4-3", "3"},
      {u"100/10/4", "2,5"},
      {u"+--5 %", "0,05"},
      {u"2 * -3", "-6"},
      {u"1/3", "0,33"},
      {u"2/3", "0,67"},
      {u"1,005", "1,01"},
      {u"1 234,50 Kč * 2", "2469"},
      {u"1\u00A0234\u00A0567 + 1.5", "1234568,5"},
      {u"$5 + €5", "10"},
      {u",5 + .25", "0,75"},
      {u"1 = 1", "1"},
      {u"2 <> 2", "0"},
      {u"1+1 >= 2", "1"},
      {u"3 < 2", "0"},
      {u"ABS(-3) + abs (2)", "5"},
      {u"AND(1;2>1;TRUE)", "1"},
      {u"OR(0;FALSE)", "0"},
      {u"NOT(0)", "1"},
      {u"IF(1>2;1/0;5)", "5"},
      {u"IF(A2=10;A2*2;0)", "20"},
      {u"INT(-5,67)", "-5"},
      {u"MOD(7;3) + MOD(-7;3)", "0"},
      {u"ROUND(2,345;2)*100", "235"},
      {u"ROUND(1250;-2)", "1300"},
      {u"SIGN(-3)", "-1"},
      {u"MAX(1;5;3) - MIN(1;5;3)", "4"},
      {u"PRODUCT(2;3;4)", "24"},
      {u"AVERAGE(1;2)", "1,5"},
      {u"COUNT(1;2;3)", "3"},
      {u"SUM(1,5;2, 3)", "6,5"},
      {u"DEFINED(1+1)", "1"},
      {u"DEFINED(nic) + DEFINED(1/0) + DEFINED(1+)", "0"},
      {u"sazba * 100", "21"},
      {u"Řádek_1+prázdný", "3"},
      {u"B1 + b2", "1229,5"},
      {u"C1", "0"},
      {u"R2C1", "10"},
      {u"SUM(A1:B2)", "3263,5"},
      {u"SUM(b : b)", "1229,71"},
      {u"SUM(2:2)", "5"},
      {u"SUM(R1C2:R2C2;A2)", "1239,5"},
      {u"COUNT(A1:C3)", "5"},
      {u"SUM(A1:Z99)", "3263,71"},
      {u"SUM(LEFT)", "0,21"},
      {u"SUM(ABOVE)", "0"},
      {u"COUNT(RIGHT)", "0"},
      {u"Jiná A1 + SUM(jiná A1:A9)", "14"},
      {u"", "!Syntax Error"},
      {u"1 +", "!Syntax Error"},
      {u"1 * / 2", "!Syntax Error, /"},
      {u"1 2", "!Syntax Error, 2"},
      {u"(1", "!Syntax Error, )"},
      {u"1)", "!Syntax Error, )"},
      {u"SUM()", "!Syntax Error"},
      {u"IF(1;2)", "!Syntax Error, )"},
      {u"SQRT(4)", "!Syntax Error, SQRT"},
      {u"5 Kčs", "!Syntax Error, s"},
      {u"slovo", "!Syntax Error, SLOVO"},
      {u"nic + 1", "!Undefined Bookmark, NIC"},
      {u"C2", "!Undefined Bookmark, C2"},
      {u"1/0", "!Zero Divide"},
      {u"MOD(1;0)", "!Zero Divide"},
      {u"10^400", "!Syntax Error"},
  };
  for (const auto& [formula, result] : rows) {
    EXPECT_EQ(Shown(formula, &kTable, u"cs-CZ"), result) << ToUtf8(formula);
  }
}

TEST(Formula, DependsOnItsPlaceAndTheLocale) {
  EXPECT_EQ(Shown(u"SUM(ABOVE)", nullptr, u"cs-CZ"), "!The Formula Not In Table");
  EXPECT_EQ(Shown(u"A2", nullptr, u"cs-CZ"), "!Undefined Bookmark, A2");
  EXPECT_EQ(Shown(u"1,234.5 + SUM(1,2,3)", &kTable, u"en-US"), "1240.5");
  EXPECT_EQ(Shown(u"1.234,5 + 1", &kTable, u"de-DE"), "1235,5");
}

// Only the nearest cell may be blank; the next one without a number ends the side.
TEST(Formula, SumsUpToTheFirstGap) {
  const std::pair<std::vector<Text>, const char*> columns[] = {{{u"1", u"2", u"3"}, "6"},
                                                               {{u"1", u"", u"3"}, "3"},
                                                               {{u"1", u"2", u""}, "3"},
                                                               {{u"1", u"", u""}, "0"},
                                                               {{u"Cena", u"2", u"A4"}, "0"}};
  const std::vector<std::size_t> widths = {1, 1, 1, 1};
  for (const auto& [cells, sum] : columns) {
    const FormulaTable table{widths, [&cells = cells](std::size_t row, std::size_t) { return cells[row]; }};
    FormulaContext context = ContextOf(&table);
    context.row = 3;
    context.column = 0;
    const word::FormulaResult result = word::EvaluateFormula(u"SUM(above)", context, *FindLocale(u"cs-CZ"));
    EXPECT_EQ(ToUtf8(word::FormulaNumberText(result.number, *FindLocale(u"cs-CZ"))), sum);
  }
}

TEST(Formula, BoundsItsDepthAndItsWork) {
  const Text deep = Text(5000, u'(') + u"1" + Text(5000, u')');
  EXPECT_EQ(Shown(deep, nullptr, u"cs-CZ"), "!Syntax Error");
  EXPECT_EQ(Shown(Text(100'000, u'-') + u"1", nullptr, u"cs-CZ"), "1");
  Text list = u"SUM(A:C";
  for (int i = 0; i < 9000; ++i) list += u";A:C";
  const std::vector<std::size_t> widths(1000, 3);
  const FormulaTable large{widths, [](std::size_t, std::size_t) { return Text(u"1"); }};
  EXPECT_EQ(Shown(list + u")", &large, u"cs-CZ"), "!Syntax Error");
}

}  // namespace
}  // namespace zorkanca::testing
