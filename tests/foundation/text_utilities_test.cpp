#include "foundation/error_codes.h"

#include <gtest/gtest.h>
#include "foundation/string_collection.h"
#include "foundation/string_routines.h"
#include "foundation/text_builder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(StringRoutines, TestsAndEnclosing) {
  EXPECT_TRUE(StringRoutines::EndsWith(u"abc", u"bc") && StringRoutines::EndsWith(u"", u""));
  EXPECT_FALSE(StringRoutines::EndsWith(u"abc", u"BC") || StringRoutines::StartsWith(u"a", u"ab"));
  EXPECT_TRUE(StringRoutines::EqualsCaseInsensitive(u"Žluť", u"žLUŤ"));
  EXPECT_FALSE(StringRoutines::EqualsCaseInsensitive(u"a", u"á"));
  EXPECT_EQ(StringRoutines::EncloseWithQuotes(u"a\"b"), u"\"a\"b\"");
  EXPECT_EQ(StringRoutines::EncloseWithApostrophes(u"a"), u"'a'");
  EXPECT_EQ(StringRoutines::EncloseWithParentheses(u""), u"()");
  EXPECT_EQ(StringRoutines::EncloseWithOneSpace(u"  a  "), u" a ");
  EXPECT_EQ(Shown(StringRoutines::FormatName(u"žOFIE")), "Žofie");
  EXPECT_EQ(StringRoutines::FormatName(u""), u"");
}

TEST(StringRoutines, RemovesWhatMarkersEnclose) {
  struct Case {
    const char16_t *text, *opening, *closing, *expected;
  };
  const Case cases[] = {
      {u"a(b)c(d)e", u"(", u")", u"ace"},
      {u"a(b(c)d)", u"(", u")", u"ad)"},        // the first closing marker ends the first opening one
      {u"1) a (b) c", u"(", u")", u"1) a  c"},  // a closing marker without partner stays
      {u"a(b", u"(", u")", u"a(b"},
      {u"<<x>>a<<y", u"<<", u">>", u"a<<y"},
      {u"a<<=b>>=c>>d", u"<=", u">>", u"ad"},  // the rest of one marker meets the rest of another
      {u"a|b|c|d", u"|", u"|", u"ac|d"},
      {u"a(b)", u"", u")", u"a(b)"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Shown(StringRoutines::RemoveEnclosedText(c.text, c.opening, c.closing)), Shown(c.expected))
        << Shown(c.text);
  }
  EXPECT_EQ(StringRoutines::RemoveBracketedText(u"a[b(]c)d]{e}f"), u"af");
  EXPECT_EQ(StringRoutines::RemoveSubstring(u"aXbXX", u"X"), u"ab");
}

TEST(StringRoutines, TrimmingPaddingAndRepeating) {
  EXPECT_EQ(StringRoutines::TrimStart(u"ababac", u"ab"), u"ac");
  EXPECT_EQ(StringRoutines::TrimEnd(u"cabab", u"ab"), u"c");
  EXPECT_EQ(StringRoutines::TrimStart(u"abab", u"ab"), u"");
  EXPECT_EQ(StringRoutines::TrimEnd(u"abc", u""), u"abc");
  EXPECT_EQ(StringRoutines::PadRight(u"ab", 4), u"ab  ");
  EXPECT_EQ(StringRoutines::PadRight(u"abc", 2), u"abc");
  const Error negative = ErrorOf([] { StringRoutines::PadRight(u"ab", -1); });
  EXPECT_EQ(negative.number(), -2147220987);
  EXPECT_EQ(Shown(negative.source()), "StringRoutines.PadRight");
  EXPECT_EQ(Shown(negative.description()), "Hodnota \"totalLength\" nesmí být záporné číslo [-1].");
  EXPECT_EQ(StringRoutines::StrDup(3, u"ab"), u"ababab");
  EXPECT_EQ(StringRoutines::StrDup(0, u"ab"), u"");
  EXPECT_EQ(ErrorOf([] { StringRoutines::StrDup(-1, u"ab"); }).number(), ArgumentErrorCode);
}

TEST(TextBuilder, LinesAndParagraphs) {
  TextBuilder builder;
  builder.AppendIfMeContainsText(u"; ");
  builder.AppendIfNotBlank(u"  ");
  EXPECT_TRUE(builder.IsEmpty());
  builder.AppendLine(u"a");
  builder.AppendLine(u"b", 1);
  EXPECT_EQ(Shown(builder.ToString()), "a\\r\\n\\tb");
  builder.AppendParagraph(u"c\r\nd", 1);
  builder.AppendIfMeContainsText(u"!");
  builder.AppendSpace();
  builder.AppendUpperCased(u"š");
  EXPECT_EQ(Shown(builder.ToString()), "a\\r\\n\\tb\\r\\n\\tc\\r\\n\\td! Š");
  builder.IncreaseIndentation(2);
  EXPECT_EQ(Shown(builder.ToString()), "\\t\\ta\\r\\n\\t\\t\\tb\\r\\n\\t\\t\\tc\\r\\n\\t\\t\\td! Š");

  TextBuilder outer;
  outer.AppendTextBuilder(nullptr, 1);
  EXPECT_TRUE(outer.IsEmpty());
  outer.AppendOptionalPartsDelimited(u" ", u": ", u"second", 1);
  outer.AppendOptionalPartsDelimited(u"first", u": ", u"second");
  outer.AppendOptionalPartsDelimited(u"first", u": ", u"");
  EXPECT_EQ(Shown(outer.ToString()), "\\tsecond\\r\\nfirst: second\\r\\nfirst");
  outer.AppendTextBuilder(&outer, 1);
  EXPECT_EQ(Shown(outer.ToString()),
            "\\tsecond\\r\\nfirst: second\\r\\nfirst\\r\\n\\t\\tsecond\\r\\n\\tfirst: second\\r\\n\\tfirst");
}

TEST(TextBuilder, NegativeIndentationFailsThroughTheWholeChain) {
  TextBuilder builder;
  const Error error = ErrorOf([&] { builder.AppendLine(u"a", -1); });
  EXPECT_EQ(error.number(), UnexpectedErrorCode);
  EXPECT_EQ(Shown(error.source()),
            "[zorKancA].TextBuilder.AppendLine->\\r\\n[zorKancA].TextBuilder.Append->\\r\\n\\r\\n"
            "[Detaily: text = \"a\"; indent = -1]\\r\\n[Detaily: text = \"a\"; indent = -1]");
  EXPECT_TRUE(builder.IsEmpty());
}

TEST(StringCollection, KeepsTextsInOrder) {
  StringCollection texts;
  texts.Add(u"b");
  texts.AddBefore(u"a", 1);
  texts.AddIfNotBlank(u"  ");
  texts.AddNameValue(u"n", u"v");
  texts.AddValues({u"", u"b"});
  EXPECT_EQ(texts.ToString(u"|"), u"a|b|n = v||b");
  EXPECT_TRUE(texts.Contains(u"n = v"));
  EXPECT_FALSE(texts.Contains(u"B"));
  texts.Remove(5);
  texts.ReplaceForEach(u"b", u"bb");
  EXPECT_EQ(texts.Item(2), u"bb");
  EXPECT_EQ(StringCollection().ToString(u"|"), u"");
  for (const std::int32_t index : {0, 5, -1}) {
    const Error error = ErrorOf([&] { texts.Remove(index); });
    EXPECT_EQ(Shown(error.description()),
              "Neočekávaná chyba -> 9 - Subscript out of range -> \"[zorKancA].StringCollection.Remove\".");
  }
  EXPECT_EQ(texts.Count(), 4);
}

}  // namespace
}  // namespace zorkanca::testing
