#include "runtime/locale.h"

#include <gtest/gtest.h>

#include "runtime/code_page.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(Locale, IsFoundByItsTag) {
  EXPECT_EQ(KnownLocaleTags(), (std::vector<Text>{u"cs-CZ", u"sk-SK", u"en-US", u"de-DE"}));
  for (const Text& tag : KnownLocaleTags()) {
    const Locale* locale = FindLocale(LowerCase(tag));
    ASSERT_NE(locale, nullptr) << Shown(tag);
    EXPECT_EQ(locale->tag, tag);
  }
  EXPECT_EQ(FindLocale(u"cs"), nullptr);
  EXPECT_EQ(FindLocale(u""), nullptr);
}

// Readers match any of these at a place in a text: an empty one would match everywhere.
TEST(Locale, IsComplete) {
  for (const Text& tag : KnownLocaleTags()) {
    const Locale& locale = *FindLocale(tag);
    std::vector<Text> texts = {locale.decimalSeparator,
                               locale.groupSeparator,
                               locale.listSeparator,
                               locale.currencySymbol,
                               locale.dateSeparator,
                               locale.timeSeparator,
                               locale.shortDate,
                               locale.longDate,
                               locale.longTime,
                               locale.morning,
                               locale.afternoon,
                               locale.yes,
                               locale.no,
                               locale.trueWord,
                               locale.falseWord,
                               locale.on,
                               locale.off};
    const auto add = [&texts](const auto& names) { texts.insert(texts.end(), names.begin(), names.end()); };
    add(locale.dayNames);
    add(locale.dayAbbreviations);
    add(locale.monthNames);
    add(locale.monthNamesGenitive);
    add(locale.monthAbbreviations);
    for (const Text& text : texts) EXPECT_FALSE(text.empty()) << Shown(tag);
    ASSERT_NE(locale.codePage, nullptr);
    std::string bytes;
    for (const Text& text : texts) {
      bytes.clear();
      locale.codePage->AppendEncoded(bytes, text);
      Text back;
      locale.codePage->AppendDecoded(back, bytes);
      EXPECT_EQ(Shown(back), Shown(text)) << "not writable in the locale's own code page";
    }
  }
}

TEST(Locale, CzechIsTheCzechOfOurUsers) {
  const Locale& czech = *FindLocale(u"cs-CZ");
  EXPECT_EQ(czech.groupSeparator, u"\u00A0");
  EXPECT_EQ(czech.shortDate, u"d.m.yyyy");
  EXPECT_EQ(czech.twoDigitYearMax, 2029);
  EXPECT_EQ(czech.codePage->number(), 1250);
  EXPECT_EQ(FindLocale(u"de-DE")->codePage->number(), 1252);
}

}  // namespace
}  // namespace zorkanca::testing
