// The locale as the system tells it: its pictures of dates, our own data beside it, and the system's own formatting.
#include "win32/system/user_locale.h"

#include <gtest/gtest.h>

#include "runtime/code_page.h"
#include "runtime/format.h"
#include "support/text_support.h"
#include "win32/automation/variant.h"
#include "win32/system/system_clock.h"
#include "win32/wide_text.h"

namespace zorkanca::testing {
namespace {

using win32::DatePatternOf;
using win32::FromWide;
using win32::ReadLocale;
using win32::TimePatternOf;
using win32::Wide;

class UserLocale : public ::testing::Test {
 protected:
  win32::SystemClock clock_;
};

TEST_F(UserLocale, PicturesBecomePatterns) {
  const std::pair<TextView, const char*> dates[] = {
      {u"d.M.yyyy", "d.m.yyyy"},
      {u"dddd, MMMM dd, yyyy", "dddd, mmmm dd, yyyy"},
      {u"d. M. yyyyy", "d. m. yyyy"},
      {u"d MMM yy gg", "d mmm yy "},
      {u"d' de 'MMMM", "d\\ \\d\\e\\ mmmm"},
      {u"''yy 'o''c'", "\\'yy \\o\\'\\c"},
      {u"yyyy年M月", "yyyy\\年m\\月"},
      {u"d'", "d"},
  };
  for (const auto& [picture, pattern] : dates) EXPECT_EQ(Shown(DatePatternOf(picture)), pattern);
  const std::pair<TextView, const char*> times[] = {
      {u"H:mm:ss", "h:nn:ss"}, {u"hh:mm:ss tt", "hh:nn:ss AM/PM"}, {u"h.mm t", "h.nn A/P"}, {u"HH'h'mm", "hh\\hnn"}};
  for (const auto& [picture, pattern] : times) EXPECT_EQ(Shown(TimePatternOf(picture, true)), pattern);
  EXPECT_EQ(TimePatternOf(u"h:mm tt", false), u"h:nn AMPM");
}

// The system's data are those of our users' screens, but for what its versions tell differently.
TEST_F(UserLocale, KnownLocalesAreOurOwnData) {
  for (const TextView tag : {u"cs-CZ", u"sk-SK", u"en-US", u"de-DE"}) {
    const Locale read = ReadLocale(tag, clock_);
    const Locale& own = *FindLocale(tag);
    const std::string which = ToUtf8(tag);
    EXPECT_EQ(read.tag, own.tag);
    EXPECT_EQ(Shown(read.decimalSeparator), Shown(own.decimalSeparator)) << which;
    EXPECT_EQ(Shown(read.groupSeparator), Shown(own.groupSeparator)) << which;
    EXPECT_EQ(Shown(read.listSeparator), Shown(own.listSeparator)) << which;
    EXPECT_EQ(Shown(read.currencySymbol), Shown(own.currencySymbol)) << which;
    EXPECT_EQ(read.currencyAfterNumber, own.currencyAfterNumber) << which;
    EXPECT_EQ(read.currencySpaced, own.currencySpaced) << which;
    EXPECT_EQ(read.dateOrder, own.dateOrder) << which;
    EXPECT_EQ(read.dotSeparatesTimes, own.dotSeparatesTimes) << which;
    EXPECT_EQ(read.dayNames, own.dayNames) << which;
    EXPECT_EQ(read.monthNames, own.monthNames) << which;
    EXPECT_EQ(read.monthNamesGenitive, own.monthNamesGenitive) << which;
    EXPECT_EQ(read.yes, own.yes) << which;
    EXPECT_EQ(read.codePage, own.codePage) << which;
    EXPECT_GE(read.currentYear, 2026) << which;
  }
  EXPECT_EQ(Shown(ReadLocale(u"cs-CZ", clock_).shortDate).substr(0, 1), "d");
  EXPECT_EQ(ReadLocale(u"fr-FR", clock_).yes, u"Yes") << "words that the system does not tell";
  EXPECT_EQ(ReadLocale(u"ru-RU", clock_).codePage->number(), 1251);
  EXPECT_EQ(ReadLocale(u"ja-JP", clock_).codePage->number(), 1252) << "no table for its own page";
  EXPECT_EQ(ErrorOf([&] { ReadLocale(u"xx-nowhere-at-all", clock_); }).number(), 5);
}

TEST_F(UserLocale, UsersOwnSettingsCount) {
  wchar_t before[16] = {};
  ASSERT_GT(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before, 16), 0);
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L"*");
  const Locale changed = ReadLocale(u"", clock_);
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before);
  EXPECT_EQ(changed.decimalSeparator, u"*");
  EXPECT_EQ(ReadLocale(u"", clock_).decimalSeparator, FromWide(before));
}

// What the system itself makes of a value by a pattern.
std::string BySystem(const Value& value, const Text& pattern) {
  const win32::Variant variant = win32::ToVariant(value);
  BSTR formatted = nullptr;
  const HRESULT result = VarFormat(const_cast<VARIANT*>(&variant.get()), const_cast<wchar_t*>(Wide(pattern)),
                                   /*iFirstDay=*/1, /*iFirstWeek=*/1, 0, &formatted);
  EXPECT_EQ(result, S_OK) << Shown(pattern);
  const std::string shown = Shown(FromWide(formatted, SysStringLen(formatted)));
  SysFreeString(formatted);
  return shown;
}

TEST_F(UserLocale, FormatsAsTheSystemDoes) {
  const Locale locale = ReadLocale(u"", clock_);
  const Date date{46342.604861};  // a Monday afternoon
  const std::pair<Value, TextView> rows[] = {
      {1234567.891, u"#,##0.00"}, {-0.5, u"0.0"},      {0.25, u"0%"},         {1234.5, u"Fixed"},
      {1234.5, u"Standard"},      {date, u"d.m.yyyy"}, {date, u"dd/mm/yy"},   {date, u"dddd"},
      {date, u"ddd mmm"},         {date, u"h:nn:ss"},  {date, u"Short Date"}, {Text(u"ab"), u">@@@"},
  };
  for (const auto& [value, pattern] : rows) {
    EXPECT_EQ(Shown(Format(value, pattern, locale)), BySystem(value, Text(pattern))) << ToUtf8(pattern);
  }
}

}  // namespace
}  // namespace zorkanca::testing
