// Searches in plain texts: what is found first and what last.
#include "word/text/text_pattern.h"

#include <gtest/gtest.h>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using namespace word;

std::string Place(const std::optional<Interval>& found) {
  return found ? std::to_string(found->start) + "-" + std::to_string(found->end) : "";
}

TEST(WordTextPattern, FindsTheFirstAndTheLast) {
  struct Row {
    const char16_t* pattern;
    bool wildcards;
    const char16_t* text;
    const char* first;
    const char* last;
  };
  const Row rows[] = {
      {u"b", false, u"abcabc", "1-2", "4-5"},
      {u"B", false, u"abcabc", "1-2", "4-5"},
      {u"ČÁ", false, u"xčáč", "1-3", "1-3"},
      {u"aa", false, u"aaa", "0-2", "1-3"},
      {u"x", false, u"abc", "", ""},
      {u"*", false, u"a*b", "1-2", "1-2"},  // without wildcards itself
      {u"?", false, u"a?b", "1-2", "1-2"},
      {u"b*d", true, u"abcd abd", "1-4", "6-8"},
      {u"b*d", true, u"aBcd", "", ""},  // case counts
      {u"b*d", true, u"ab\rcd", "", ""},
      {u"b*d", true,
       u"ab\x07"
       u"cd bd",
       "6-8", "6-8"},
      {u"b*d", true, u"abbd", "1-4", "2-4"},
      {u"a?c", true, u"abc a\rc adc", "0-3", "8-11"},  // "?" is no end of a paragraph
      {u"a?", true, u"a\r", "", ""},
      {u"a?", true, u"a\x06 a\x07 a\x05", "", ""},  // nor one of a row, a cell or a section
      {u"a?", true, u"a\x0B", "0-2", "0-2"},        // a line break is a character
      {u"?", true, u"\r\rx", "2-3", "2-3"},
      {u"a*", true, u"xaab", "1-2", "2-3"},  // the shortest
      {u"*b", true, u"aab", "0-3", "2-3"},
      {u"a*b*c", true, u"a1b2c3c", "0-5", "0-5"},
      {u"a??d", true, u"abcd", "0-4", "0-4"},
  };
  for (const Row& row : rows) {
    const TextPattern pattern({.FindText = row.pattern, .MatchWildcards = row.wildcards});
    EXPECT_EQ(Place(pattern.First(row.text)), row.first) << Shown(row.pattern) << " in " << Shown(row.text);
    EXPECT_EQ(Place(pattern.Last(row.text)), row.last) << Shown(row.pattern) << " in " << Shown(row.text);
  }
  const TextPattern exact({.FindText = u"B", .MatchCase = true});
  EXPECT_EQ(Place(exact.First(u"abB")), "2-3");
}

}  // namespace
}  // namespace zorkanca::testing
