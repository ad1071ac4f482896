// The text functions of the language runtime by one table: case, Trim, Like and both comparisons.
#include "runtime/collation.h"

#include <gtest/gtest.h>
#include "runtime/like.h"
#include "support/case_table.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

std::string ResultOf(const CaseRow& row) {
  const std::string& kind = row.Cell(0);
  const Text input = FromUtf8(row.Cell(3));
  const Text pattern = FromUtf8(row.Cell(4));
  if (kind == "LCase") return ToUtf8(LowerCase(input));
  if (kind == "UCase") return ToUtf8(UpperCase(input));
  if (kind == "Trim") return ToUtf8(Trim(input));
  if (kind == "Like") return Like(input, pattern) ? "True" : "False";
  const auto compare = kind == "StrCompText" ? CompareTexts : CompareBinary;
  const int result = compare(input, pattern);
  EXPECT_EQ(compare(pattern, input), -result) << "the other way round, line " << row.line;
  return std::to_string(result);
}

TEST(TextRules, EachCaseOfTheTable) {
  for (const CaseRow& row : ReadCaseTable("runtime/data/text.tsv")) {
    std::string result;
    try {
      result = ResultOf(row);
    } catch (const Error& error) {
      result = "!" + std::to_string(error.number());
    }
    EXPECT_EQ(result, row.Cell(5)) << "line " << row.line << ": " << row.Cell(0) << " " << row.Cell(3) << " "
                                   << row.Cell(4);
  }
}

TEST(TextRules, CaseMappingLeadsBack) {
  for (unsigned code = 0; code < 0x10000; ++code) {
    const auto unit = static_cast<char16_t>(code);
    ASSERT_TRUE(LowerCase(unit) == unit || UpperCase(LowerCase(unit)) == unit) << code;
    ASSERT_TRUE(UpperCase(unit) == unit || LowerCase(UpperCase(unit)) == unit) << code;
  }
  EXPECT_TRUE(EqualsIgnoringCase(u"Žluťoučký KŮŇ", u"žLUŤOUČKÝ kůň"));
  EXPECT_FALSE(EqualsIgnoringCase(u"kun", u"kůň"));
  EXPECT_FALSE(EqualsIgnoringCase(u"kůň", u"kůňe"));
}

TEST(TextRules, LikeDoesNotExplodeOnManyRuns) {
  const Text text(20000, u'a');
  Text pattern;
  for (int run = 0; run < 30; ++run) pattern += u"*a";
  EXPECT_TRUE(Like(text, pattern));
  EXPECT_FALSE(Like(text, pattern + u"b"));
}

}  // namespace
}  // namespace zorkanca::testing
