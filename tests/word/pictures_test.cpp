// Pictures of numbers and dates, comparisons, and the sets of positions against a plain one.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "runtime/date.h"
#include "support/text_support.h"
#include "word/fields/comparison.h"
#include "word/fields/date_picture.h"
#include "word/fields/number_picture.h"
#include "word/fields/number_text.h"
#include "word/merge/copy_lengths.h"
#include "word/text/position_set.h"

namespace zorkanca::testing {
namespace {

using namespace word;

const Locale& Czech() {
  return *FindLocale(u"cs-CZ");
}

TEST(WordPictures, ShowNumbers) {
  struct Row {
    const char* tag;
    double number;
    const char* picture;
    const char* shown;
  };
  const Row rows[] = {
      {"cs-CZ", -5, "0,00", "-5,00"},
      {"cs-CZ", -5, "0,00;(0,00)", "(5,00)"},
      {"cs-CZ", 0, "0;-0;'nic'", "nic"},
      {"cs-CZ", 0, "0", "0"},
      {"cs-CZ", 1234567.891, "# ##0,00", "1\u00A0234\u00A0567,89"},
      {"cs-CZ", 1234567.891, "#,##0.00", "1\u00A0234\u00A0567,89"},
      {"en-US", 1234567.891, "#,##0.00", "1,234,567.89"},
      {"en-US", 12, "$###", "$ 12"},
      {"en-US", 12, "+0;-0", "+12"},
      {"en-US", -12, "-0", "-12"},
      {"en-US", 12, "-0", " 12"},
      {"de-DE", 1234.5, "#.##0,00", "1.234,50"},
      {"cs-CZ", 2.675, "0,00", "2,68"},  // as written, not as the nearest binary number
      {"cs-CZ", 999.995, "0,00", "1000,00"},
      {"cs-CZ", 0.0004, "0,00#", "0,00 "},
      {"cs-CZ", 95.4, ",00", ",40"},
      {"cs-CZ", -95.4, ",00", ",40"},
      {"cs-CZ", 111492, "x##", "492"},
      {"cs-CZ", 0.125, "0,00x", "0,125"},
      {"cs-CZ", 12, "0 '0;x' %", "12 0;x %"},
  };
  for (const Row& row : rows) {
    const Locale& locale = *FindLocale(FromUtf8(row.tag));
    EXPECT_EQ(Shown(NumberPicture(FromUtf8(row.picture), locale).Apply(row.number, locale)), row.shown)
        << row.number << " " << row.picture;
  }
  EXPECT_EQ(NumberOf(u"1 234\u00A0567,50", Czech()), 1234567.5);
  EXPECT_EQ(NumberOf(u"12 Kč/ks", Czech()), std::nullopt);
}

TEST(WordPictures, ShowDates) {
  const Date date = *MakeDate(2024, 5, 3, 15, 4, 9);
  const std::pair<const char*, const char*> rows[] = {
      {"d.M.yy", "3.5.24"},
      {"DD/MM/YYYY", "03/05/2024"},
      {"H:mm:ss", "15:04:09"},
      {"h:m am/pm", "3:4 odp."},
      {"dddd d. MMMM", "pátek 3. května"},
      {"MMMM yyyy", "květen 2024"},
      {"'den' d 'měsíc' M", "den 3 měsíc 5"},
  };
  for (const auto& [picture, shown] : rows) {
    EXPECT_EQ(Shown(DatePicture(FromUtf8(picture)).Apply(date, Czech())), shown) << picture;
  }
}

TEST(WordPictures, CompareAsIfDoes) {
  struct Row {
    TextView left;
    TextView comparison;
    TextView right;
    bool holds;
  };
  const Text longText(129, u'x');
  const Row rows[] = {{u"10", u">", u"9", true},     {u"10a", u">", u"9a", false}, {u"1 000", u"=", u"1000,0", true},
                      {u"abc", u"=", u"a?c", true},  {u"abc", u"=", u"a*", true},  {u"abc", u"<>", u"*b*", false},
                      {u"a*", u"=", u"abc", false},  {u"abc", u"<", u"a*", false}, {u"", u"=", u"*", true},
                      {longText, u"=", u"*", false}, {u"a", u"<=", u"b", true},    {u"aXbXc", u"=", u"*X*X?", true}};
  for (const Row& row : rows) {
    EXPECT_EQ(Compare(row.left, *ComparisonOf(row.comparison), row.right, Czech()), row.holds)
        << Shown(row.left) << Shown(row.comparison) << Shown(row.right);
  }
  EXPECT_EQ(ComparisonOf(u"=="), std::nullopt);
}

TEST(WordPictures, KeepPositionsAsAPlainSetWould) {
  std::mt19937 random(7);
  const auto some = [&](Position limit) { return static_cast<Position>(random() % static_cast<unsigned>(limit)); };
  for (int round = 0; round < 300; ++round) {
    PositionSet set;
    std::set<Position> plain;
    for (int i = 0; i < 6; ++i) {
      const Position start = some(40);
      const Position end = start + some(8);
      if (i % 3 == 2) {
        set.Remove({start, end});
        plain.erase(start);
        plain.erase(end);
      } else {
        set.Add({start, end});
        for (Position position = start; position < end; ++position) plain.insert(position);
      }
    }
    Text text;
    Text left;
    for (Position position = 0; position < 50; ++position) {
      ASSERT_EQ(set.Contains(position), plain.count(position) == 1) << position;
      text += static_cast<char16_t>(u'A' + position);
      if (plain.count(position) == 0) left += text.back();
    }
    ASSERT_EQ(set.Without(text), left);
    ASSERT_EQ(set.Count(), static_cast<Position>(plain.size()));
    for (std::size_t i = 0; i < left.size(); ++i) {
      ASSERT_EQ(text[static_cast<std::size_t>(set.ToWhole(static_cast<Position>(i)))], left[i]);
    }
    const PositionSet within = set.Within({10, 30});
    for (Position position = 0; position < 20; ++position) {
      ASSERT_EQ(within.Contains(position), plain.count(position + 10) == 1);
    }
  }
}

TEST(WordPictures, SumLengthsAsTheyShrink) {
  std::vector<std::uint32_t> plain;
  for (std::uint32_t i = 0; i < 37; ++i) plain.push_back(i * 7 % 5);
  CopyLengths lengths(plain);
  plain[12] -= 4;
  lengths.Shorten(12, 4);
  Position start = 0;
  for (std::size_t copy = 0; copy < plain.size(); ++copy) {
    EXPECT_EQ(lengths.StartOf(copy), start);
    for (Position position = start; position < start + plain[copy]; ++position)
      EXPECT_EQ(lengths.CopyAt(position), copy);
    start += plain[copy];
  }
  EXPECT_EQ(lengths.Total(), start);
}

}  // namespace
}  // namespace zorkanca::testing
