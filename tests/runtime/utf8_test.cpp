#include "runtime/utf8.h"

#include <gtest/gtest.h>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(Utf8, ValidTextGoesThereAndBack) {
  for (const std::string text : {"", "abc", "Žluťoučký kůň", "€", "\U0001F600", "\xED\x9F\xBF", "\xEF\xBF\xBF"}) {
    Text units;
    EXPECT_TRUE(AppendUtf8(units, text)) << text;
    EXPECT_EQ(ToUtf8(units), text);
  }
  EXPECT_EQ(FromUtf8("\U0001F600"), u"\xD83D\xDE00");
}

TEST(Utf8, InvalidBytesAreReportedAndSurvive) {
  // A stray continuation byte, a cut sequence, overlong forms, a surrogate, a value above the last character.
  for (const std::string bytes :
       {"a\x80z", "\xC4", "\xE2\x82", "\xC0\x80", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"}) {
    Text units;
    EXPECT_FALSE(AppendUtf8(units, bytes));
    EXPECT_EQ(ToUtf8(units), bytes);
  }
  EXPECT_EQ(ToUtf8(u"x\xD800y"), "x\uFFFDy") << "a lone surrogate that stands for no byte";
}

// The reader works in blocks of plain bytes; a sequence may begin, end or break anywhere in one.
TEST(Utf8, SequencesAnywhereAmongPlainBytes) {
  const struct {
    std::string bytes;
    Text units;
    bool valid;
  } pieces[] = {{"ž", u"ž", true},   {"€", u"€", true},          {"\U0001F600", u"\U0001F600", true},
                {"žč", u"žč", true}, {"\xFF", u"\xDCFF", false}, {"\xE2\x82", u"\xDCE2\xDC82", false}};
  for (std::size_t before = 0; before <= 17; ++before) {
    for (std::size_t after = 0; after <= 17; ++after) {
      for (const auto& piece : pieces) {
        std::string bytes(before, 'a');
        bytes.append(piece.bytes).append(after, 'z');
        Text expected(before, u'a');
        expected.append(piece.units).append(after, u'z');
        Text units;
        EXPECT_EQ(AppendUtf8(units, bytes), piece.valid);
        EXPECT_TRUE(units == expected) << before << " " << after << " " << ToUtf8(units);
      }
    }
  }
}

}  // namespace
}  // namespace zorkanca::testing
