#include "win32/system/user_locale.h"

#include <algorithm>
#include <array>
#include <optional>

#include "runtime/code_page.h"
#include "runtime/convert.h"
#include "runtime/date.h"
#include "runtime/error.h"
#include "win32/system.h"
#include "win32/wide_text.h"

// The system describes dates by pictures: letters d M y h H m s t, everything else itself, texts between apostrophes.
// Ours have the same letters in lower case, n for minutes, and other marks for texts: see runtime/format.h.
namespace zorkanca::win32 {

namespace {

constexpr TextView kFallbackTag = u"en-US";
constexpr int kFallbackCodePage = 1252;

// Asks for one locale's data.
class Source {
 public:
  explicit Source(TextView tag) : tag_(tag) {}

  Text Get(LCTYPE type) const {
    wchar_t room[256];
    const int length = GetLocaleInfoEx(name(), type, room, std::size(room));
    if (length == 0) Raise(RuntimeError::kInvalidCall, Text(u"The system does not know the locale ").append(tag_));
    return Text(FromWide(room));
  }
  std::int32_t Number(LCTYPE type) const {
    DWORD number = 0;
    constexpr int kUnits = sizeof number / sizeof(wchar_t);
    if (GetLocaleInfoEx(name(), type | LOCALE_RETURN_NUMBER, reinterpret_cast<wchar_t*>(&number), kUnits) == 0)
      return 0;
    return static_cast<std::int32_t>(number);
  }
  std::optional<std::int32_t> TwoDigitYearMax() const {
    DWORD year = 0;
    if (GetCalendarInfoEx(name(), CAL_GREGORIAN, nullptr, CAL_ITWODIGITYEARMAX | CAL_RETURN_NUMBER, nullptr, 0,
                          &year) == 0) {
      return std::nullopt;
    }
    return static_cast<std::int32_t>(year);
  }
  // Consecutive kinds of information, one for each name.
  template <std::size_t count>
  void GetAll(std::array<Text, count>& names, LCTYPE first, LCTYPE flags = 0) const {
    for (std::size_t index = 0; index < count; ++index)
      names[index] = Get((first + static_cast<LCTYPE>(index)) | flags);
  }

 private:
  const wchar_t* name() const { return tag_.empty() ? nullptr : Wide(tag_); }

  Text tag_;
};

// The system's week begins on Monday, ours on Sunday.
std::array<Text, 7> FromSunday(const Source& source, LCTYPE monday) {
  std::array<Text, 7> names;
  source.GetAll(names, monday);
  std::rotate(names.begin(), names.begin() + 6, names.end());
  return names;
}

// A character that would mean something in our patterns is marked as a literal.
void AppendLiteral(Text& pattern, char16_t unit) {
  constexpr TextView kHarmless = u" .,-/:";
  if (kHarmless.find(unit) == TextView::npos) pattern.push_back(u'\\');
  pattern.push_back(unit);
}

// Moves what stands between apostrophes from the picture to the pattern; two apostrophes are one.
void TakeQuoted(TextView& picture, Text& pattern) {
  picture.remove_prefix(1);
  if (picture.starts_with(u'\'')) {
    AppendLiteral(pattern, u'\'');
    picture.remove_prefix(1);
    return;
  }
  while (!picture.empty()) {
    const char16_t unit = picture.front();
    picture.remove_prefix(1);
    if (unit == u'\'') {
      if (!picture.starts_with(u'\'')) return;
      picture.remove_prefix(1);
    }
    pattern.push_back(u'\\');
    pattern.push_back(unit);
  }
}

// The pattern of a picture. @param translate  appends what a run of one letter becomes; false when it means itself
template <typename Translate>
Text PatternOf(TextView picture, Translate translate) {
  Text pattern;
  while (!picture.empty()) {
    const char16_t unit = picture.front();
    if (unit == u'\'') {
      TakeQuoted(picture, pattern);
      continue;
    }
    const std::size_t run = std::min(picture.find_first_not_of(unit), picture.size());
    if (!translate(pattern, unit, run)) {
      for (std::size_t count = 0; count < run; ++count) AppendLiteral(pattern, unit);
    }
    picture.remove_prefix(run);
  }
  return pattern;
}

DateOrder OrderOf(TextView shortDate) {
  const std::size_t day = shortDate.find(u'd');
  const std::size_t month = shortDate.find(u'm');
  const std::size_t year = shortDate.find(u'y');
  if (year < day && year < month) return DateOrder::kYearMonthDay;
  return month < day ? DateOrder::kMonthDayYear : DateOrder::kDayMonthYear;
}

const CodePage* PageOf(int number) {
  const bool known = number >= 1250 && number <= 1252;
  return known ? &CodePage::Get(number) : nullptr;
}

const CodePage& PageOfUser(const Source& source, bool ofUser) {
  if (const CodePage* page = ofUser ? PageOf(static_cast<int>(GetACP())) : nullptr) return *page;
  if (const CodePage* page = PageOf(source.Number(LOCALE_IDEFAULTANSICODEPAGE))) return *page;
  return CodePage::Get(kFallbackCodePage);
}

void ReadCurrency(Locale& locale, const Source& source) {
  enum Form { kBefore = 0, kAfter = 1, kBeforeSpaced = 2, kAfterSpaced = 3 };
  locale.currencySymbol = source.Get(LOCALE_SCURRENCY);
  const std::int32_t form = source.Number(LOCALE_ICURRENCY);
  locale.currencyAfterNumber = form == kAfter || form == kAfterSpaced;
  locale.currencySpaced = form == kBeforeSpaced || form == kAfterSpaced;
  const std::int32_t negative = source.Number(LOCALE_INEGCURR);
  locale.negativeCurrencyInBrackets = negative == 0 || negative == 4 || negative == 14 || negative == 15;
}

void ReadDates(Locale& locale, const Source& source) {
  locale.dateSeparator = source.Get(LOCALE_SDATE);
  locale.timeSeparator = source.Get(LOCALE_STIME);
  locale.morning = source.Get(LOCALE_S1159);
  locale.afternoon = source.Get(LOCALE_S2359);
  locale.shortDate = DatePatternOf(source.Get(LOCALE_SSHORTDATE));
  locale.longDate = DatePatternOf(source.Get(LOCALE_SLONGDATE));
  locale.longTime = TimePatternOf(source.Get(LOCALE_STIMEFORMAT), locale.morning == u"AM" && locale.afternoon == u"PM");
  locale.dateOrder = OrderOf(locale.shortDate);
  locale.dotSeparatesTimes = !locale.dateSeparator.starts_with(u'.');
  if (const auto year = source.TwoDigitYearMax()) locale.twoDigitYearMax = *year;

  locale.dayNames = FromSunday(source, LOCALE_SDAYNAME1);
  locale.dayAbbreviations = FromSunday(source, LOCALE_SABBREVDAYNAME1);
  source.GetAll(locale.monthNames, LOCALE_SMONTHNAME1);
  source.GetAll(locale.monthNamesGenitive, LOCALE_SMONTHNAME1, LOCALE_RETURN_GENITIVE_NAMES);
  source.GetAll(locale.monthAbbreviations, LOCALE_SABBREVMONTHNAME1);
}

}  // namespace

Text DatePatternOf(TextView picture) {
  return PatternOf(picture, [](Text& pattern, char16_t unit, std::size_t run) {
    switch (unit) {
      case u'd':
      case u'y':
        pattern.append(std::min<std::size_t>(run, 4), unit);
        return true;
      case u'M':
        pattern.append(std::min<std::size_t>(run, 4), u'm');
        return true;
      case u'g':  // the era
        return true;
      default:
        return false;
    }
  });
}

Text TimePatternOf(TextView picture, bool designatorsAreEnglish) {
  return PatternOf(picture, [&](Text& pattern, char16_t unit, std::size_t run) {
    switch (unit) {
      case u'h':
      case u'H':
        pattern.append(std::min<std::size_t>(run, 2), u'h');
        return true;
      case u'm':
        pattern.append(std::min<std::size_t>(run, 2), u'n');
        return true;
      case u's':
        pattern.append(std::min<std::size_t>(run, 2), u's');
        return true;
      case u't':
        pattern.append(!designatorsAreEnglish ? u"AMPM" : run == 1 ? u"A/P" : u"AM/PM");
        return true;
      default:
        return false;
    }
  });
}

Locale ReadLocale(TextView tag, Clock& clock) {
  const Source source(tag);
  const Text name = source.Get(LOCALE_SNAME);
  const Locale* const words = FindLocale(name);
  Locale locale = words ? *words : *FindLocale(kFallbackTag);
  locale.tag = name;
  locale.decimalSeparator = source.Get(LOCALE_SDECIMAL);
  locale.groupSeparator = source.Get(LOCALE_STHOUSAND);
  locale.listSeparator = source.Get(LOCALE_SLIST);
  ReadCurrency(locale, source);
  ReadDates(locale, source);
  locale.currentYear = Disassemble(clock.Now()).year;
  locale.codePage = &PageOfUser(source, tag.empty());
  return locale;
}

}  // namespace zorkanca::win32
