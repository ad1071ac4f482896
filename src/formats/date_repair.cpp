#include "formats/date_repair.h"

#include <algorithm>
#include <optional>

#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/date.h"
#include "runtime/format.h"

namespace zorkanca {

namespace {

int TwoDigits(TextView text) {
  return (text[0] - u'0') * 10 + (text[1] - u'0');
}

// DDMMYYYY gets its dots.
void SeparateDigits(Text& date) {
  if (date.size() != 8 || date.find(u'.') != Text::npos) return;
  if (!std::all_of(date.begin(), date.begin() + 4, [](char16_t unit) { return IsDigit(unit); })) return;
  const int day = TwoDigits(date);
  const int month = TwoDigits(TextView(date).substr(2));
  if (day < 1 || day > 31 || month < 1 || month > 12) return;
  date.insert(4, u".").insert(2, u".");
}

// A two-digit year gets its century, as the system reads the first of January of that year.
void ExpandYear(Text& date, const Locale& locale) {
  if (date.size() < 3 || date[date.size() - 3] != u'.') return;
  const std::size_t year = date.size() - 2;
  const std::optional<Date> newYear = ParseDate(u"1.1." + date.substr(year), locale);
  if (newYear) date.replace(year, 2, DecimalText(Disassemble(*newYear).year));
}

// The text with another day in the place of its first two digits, when that makes it a date.
std::optional<Date> WithDay(const Text& date, TextView day, const Locale& locale) {
  return ParseDate(Text(day) + date.substr(2), locale);
}

// A day that the month does not have becomes the month's last one.
std::optional<Date> LastDayOfMonth(const Text& date, const Locale& locale) {
  const auto begins = [&](TextView start) { return date.starts_with(start); };
  if (begins(u"29.2.") || begins(u"29.02.")) return WithDay(date, u"28", locale);
  if (begins(u"30.2.") || begins(u"30.02.") || begins(u"31.2.") || begins(u"31.02.")) {
    const std::optional<Date> leapDay = WithDay(date, u"29", locale);
    return leapDay ? leapDay : WithDay(date, u"28", locale);
  }
  return begins(u"31.") ? WithDay(date, u"30", locale) : std::nullopt;
}

}  // namespace

Text RepairedDateText(TextView typed, TextView pattern, const Locale& locale) {
  Text date(Trim(typed));
  if (date.empty()) return Text();
  for (char16_t& unit : date) {
    if (unit == u',' || unit == u'/' || unit == u'-') unit = u'.';
  }
  SeparateDigits(date);
  ExpandYear(date, locale);
  std::optional<Date> repaired = ParseDate(date, locale);
  if (!repaired) repaired = LastDayOfMonth(date, locale);
  return repaired ? Format(*repaired, pattern, locale) : Text();
}

}  // namespace zorkanca
