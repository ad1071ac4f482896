#include "runtime/format.h"

#include <gtest/gtest.h>

#include "support/case_table.h"
#include "support/text_support.h"
#include "support/value_text.h"

namespace zorkanca::testing {
namespace {

std::string ResultOf(const CaseRow& row) {
  const Locale* const locale = FindLocale(FromUtf8(row.Cell(1)));
  if (locale == nullptr) return "no such locale";
  try {
    return ToUtf8(Format(ValueFromText(row.Cell(2), row.Cell(3)), FromUtf8(row.Cell(4)), *locale));
  } catch (const Error& error) {
    return "!" + std::to_string(error.number());
  }
}

TEST(Format, EachCaseOfTheTable) {
  for (const CaseRow& row : ReadCaseTable("runtime/data/format.tsv")) {
    EXPECT_EQ(ResultOf(row), row.Cell(5)) << "line " << row.line << ": " << row.Cell(1) << " " << row.Cell(2) << " '"
                                          << row.Cell(3) << "' by '" << row.Cell(4) << "'";
  }
}

TEST(Format, APatternServesManyValues) {
  const Locale& czech = *FindLocale(u"cs-CZ");
  FormatPattern pattern(u"#,##0.00;(#,##0.00)");
  FormatPattern moved = std::move(pattern);
  Text text = u"x";
  for (const double value : {1234.5, -1234.5, 0.0}) {
    moved.Append(text, value, czech);
    text.push_back(u'|');
  }
  EXPECT_EQ(Shown(text), Shown(u"x1\u00A0234,50|(1\u00A0234,50)|0,00|"));
  Text tail = u"before ";
  FormatPattern(u">@@@@").Append(tail, Text(u"ab"), czech);
  EXPECT_EQ(tail, u"before   AB");
}

// Patterns and texts come from outside: whatever their length, the work grows with it and no faster.
TEST(Format, HugePatternsAndTextsAreJustLong) {
  constexpr std::size_t kMany = 1000000;
  const Locale& czech = *FindLocale(u"cs-CZ");
  const auto many = [](TextView head, char16_t unit) { return Text(head).append(kMany, unit); };
  const auto length = [&](const Value& value, const Text& pattern) { return Format(value, pattern, czech).size(); };
  EXPECT_EQ(length(1.0, Text(kMany, u'#')), 1u);
  EXPECT_EQ(length(1.0, Text(kMany, u'0')), kMany);
  EXPECT_EQ(length(1.0, many(u"0.", u'0')), kMany + 2);
  EXPECT_EQ(length(1.0, many(u"0", u',')), 1u);
  EXPECT_EQ(length(1.0, many(u"0", u'%')), 1 + 2 * kMany + kMany);
  EXPECT_EQ(length(1.0, many(u"0E+", u'0')), kMany + 3);
  EXPECT_EQ(length(1.0, Text(kMany, u'"')), 0u);
  EXPECT_EQ(length(1.0, Text(kMany, u'\\')), kMany / 2);
  EXPECT_EQ(length(Text(u"ab"), Text(kMany, u'@')), kMany);
  EXPECT_EQ(length(Text(kMany, u'a'), u"<@"), kMany);
  EXPECT_EQ(length(Date{1}, Text(kMany, u'd')), (kMany / 6) * 17 + 6) << "31. prosince 1899, then neděle";
  EXPECT_EQ(length(Text(kMany, u'9'), u"0"), kMany) << "too large for a number: the text itself";
  EXPECT_EQ(length(many(u"1e", u'9'), u"0"), kMany + 2);
  EXPECT_EQ(length(many(u"", u' ').append(u"x"), u"0"), kMany + 1);
  EXPECT_EQ(length(many(u"1", u'.'), u"d"), kMany + 1);
}

}  // namespace
}  // namespace zorkanca::testing
