// Conversions between values, texts, numbers and dates, as the automation runtime does them.
// Decisions where the runtime's behaviour is in doubt stand in docs/semantics.md.
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/locale.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

/// The value as text (CStr): locale decimal separator, never grouped, 15 significant digits for Double and 7 for
/// Single, short date and long time, "True"/"False" in English. Empty gives "". Errors: 94 for Null, 13 for binary
/// values and objects.
Text ToText(const Value& value, const Locale& locale);
/// Appends what `ToText` gives; allocates nothing of its own but the room in `text`.
void AppendText(Text& text, const Value& value, const Locale& locale);

/// Str: as `ToText` of a number, but always with ".", no zero before it, and a leading blank where there is no minus
/// sign. Errors: 94 for Null, 13 for texts, binary values and objects.
Text ToStrText(const Value& value);

/// The value as Integer (CInt), Long (CLng), Byte (CByte): halves are rounded to even.
/// Errors: 6 out of range, 13 for a text that is no number of the locale, 94 for Null.
std::int16_t ToInteger(const Value& value, const Locale& locale);
std::int32_t ToLong(const Value& value, const Locale& locale);
std::uint8_t ToByte(const Value& value, const Locale& locale);
/// The value as Double (CDbl), Currency (CCur), Boolean (CBool). Errors: as above.
double ToDouble(const Value& value, const Locale& locale);
Currency ToCurrency(const Value& value, const Locale& locale);
bool ToBoolean(const Value& value, const Locale& locale);
/// The value as Date (CDate): dates, texts of dates, numbers and texts of numbers as serials.
/// Errors: 13 for any other text, 6 for a number outside the range of dates, 94 for Null.
Date ToDate(const Value& value, const Locale& locale);

/// IsNumeric: numbers, Boolean, Empty, and texts that are numbers of the locale.
bool IsNumeric(const Value& value, const Locale& locale);
/// IsDate: Date values and texts of dates.
bool IsDate(const Value& value, const Locale& locale);

/// The number that a whole text spells in the locale, infinite when no Double holds it; nothing when it is none.
std::optional<double> ParseNumber(TextView text, const Locale& locale);
/// The date, the time or both that a whole text spells in the locale; nothing when it spells none.
std::optional<Date> ParseDate(TextView text, const Locale& locale);
/// The full year of a year written with one or two digits, by the locale's limit; other years unchanged.
std::int32_t ExpandYear(std::int32_t year, const Locale& locale);

/// Val: the leading number of a text, independent of the locale; 0 when there is none. Errors: 6 when it is too large.
double Val(TextView text);

/// A Decimal of a plain decimal text ("-12.50", "." as decimal point), with the decimals as written. Decimals beyond
/// the 28th, and those for which 96 bits leave no room, are rounded, halves to even. Errors: 13 for other text, 6 when
/// it does not fit.
Decimal ToDecimal(TextView plainText);

}  // namespace zorkanca
