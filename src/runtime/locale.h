// What a user's locale settles: separators, date and time forms, names, the ANSI code page. A plain struct with our own
// data, so that results depend on the chosen locale and never on the machine.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

class CodePage;

/// Order of day, month and year in the short date.
enum class DateOrder { kDayMonthYear, kMonthDayYear, kYearMonthDay };

struct Locale {
  Text tag;  ///< for example "cs-CZ"

  Text decimalSeparator;
  Text groupSeparator;  ///< between groups of three digits; U+00A0 in cs-CZ
  Text listSeparator;
  Text currencySymbol;
  bool currencyAfterNumber = true;
  bool currencySpaced = true;               ///< a no-break space between number and symbol
  bool negativeCurrencyInBrackets = false;  ///< "($5.00)" instead of "-$5.00"

  Text dateSeparator;
  Text timeSeparator;
  Text shortDate;  ///< pattern in the letters of runtime/format.h, for example "d.m.yyyy"
  Text longDate;
  Text longTime;   ///< for example "h:nn:ss" (no leading zero, 24 hours) or "h:nn:ss AM/PM"
  Text morning;    ///< "dop."
  Text afternoon;  ///< "odp."
  DateOrder dateOrder = DateOrder::kDayMonthYear;
  bool dotSeparatesTimes = false;  ///< "12.30" is a time, not a day and a month

  std::array<Text, 7> dayNames;  ///< from Sunday
  std::array<Text, 7> dayAbbreviations;
  std::array<Text, 12> monthNames;
  std::array<Text, 12> monthNamesGenitive;
  std::array<Text, 12> monthAbbreviations;

  Text yes, no, trueWord, falseWord, on, off;  ///< words of the named formats Yes/No, True/False, On/Off

  std::int32_t twoDigitYearMax = 2029;  ///< last year that a two-digit year can mean
  std::int32_t currentYear = 2000;      ///< year of a date written without one; the host sets it from its clock

  const CodePage* codePage = nullptr;  ///< the ANSI code page, never null in a locale from `FindLocale`
};

/// Our data for a tag (case ignored): cs-CZ, sk-SK, en-US, de-DE.
/// @return null for any other tag
const Locale* FindLocale(TextView tag);

/// The tags that `FindLocale` knows, in the order of the documentation.
std::vector<Text> KnownLocaleTags();

}  // namespace zorkanca
