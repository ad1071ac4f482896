#include "runtime/date.h"

#include <gtest/gtest.h>

#include <limits>

#include "runtime/convert.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

// Walks the whole calendar day by day, as one turns the leaves.
TEST(Date, EveryDayOfTheCalendarGoesThereAndBack) {
  std::int32_t year = 100, month = 1, day = 1, dayOfYear = 1, weekday = 6;
  for (std::int32_t serial = -657434; serial <= 2958465; ++serial) {
    const DateParts parts = Disassemble(Date{static_cast<double>(serial)});
    ASSERT_EQ(parts.year, year) << serial;
    ASSERT_EQ(parts.month, month) << serial;
    ASSERT_EQ(parts.day, day) << serial;
    ASSERT_EQ(parts.dayOfYear, dayOfYear) << serial;
    ASSERT_EQ(parts.weekday, weekday) << serial;
    ASSERT_EQ(MakeDate(year, month, day), Date{static_cast<double>(serial)});
    weekday = weekday % 7 + 1;
    ++dayOfYear;
    if (MakeDate(year, month, ++day)) continue;
    ASSERT_GE(day, 29);
    day = 1;
    if (++month <= 12) continue;
    month = dayOfYear = 1;
    ++year;
  }
  EXPECT_EQ(year, 10000);
}

TEST(Date, TimesAreRoundedToSecondsAndStayInTheCalendar) {
  EXPECT_EQ(Disassemble(Date{-1.25}).hour, 6);
  EXPECT_EQ(Disassemble(Date{-1.25}).day, 29);
  EXPECT_EQ(MakeDate(1899, 12, 29, 6), Date{-1.25});
  for (std::int32_t second = 0; second < 86400; second += 7) {
    const Date date = MakeDate(2026, 11, 16, second / 3600, second / 60 % 60, second % 60).value();
    const DateParts parts = Disassemble(date);
    ASSERT_EQ(parts.hour * 3600 + parts.minute * 60 + parts.second, second);
  }
  EXPECT_EQ(MakeDate(2026, 11, 16, 24), std::nullopt);
  EXPECT_EQ(MakeDate(2026, 2, 29), std::nullopt);
  EXPECT_EQ(MakeDate(99, 12, 31), std::nullopt);
  for (const double serial : {2958466.0, -657435.0, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_FALSE(IsDateSerial(serial));
    EXPECT_EQ(ErrorOf([&] { Disassemble(Date{serial}); }).number(), 6);
  }
}

TEST(Date, YearsOfTwoDigitsFollowTheLocalesLimit) {
  Locale locale = *FindLocale(u"cs-CZ");
  EXPECT_EQ(ExpandYear(29, locale), 2029);
  EXPECT_EQ(ExpandYear(30, locale), 1930);
  EXPECT_EQ(ExpandYear(100, locale), 100);
  locale.twoDigitYearMax = 2049;
  EXPECT_EQ(ParseDate(u"31.4.26", locale), MakeDate(2031, 4, 26)) << "no 31 April: the year comes first";
  locale.currentYear = 2026;
  EXPECT_EQ(ParseDate(u"29.2", locale), MakeDate(2029, 2, 1)) << "no such day this year: a month of a year";
}

}  // namespace
}  // namespace zorkanca::testing
