#include "excel/text/general_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "excel/grid/serial_date.h"
#include "runtime/ascii.h"
#include "runtime/code_page.h"
#include "runtime/convert.h"
#include "runtime/date.h"

namespace zorkanca::excel {

namespace {

constexpr int kDigits = 15;  // more are lost, as in the program

constexpr bool IsBlankByte(char c) {
  return c == ' ' || c == '\xA0';
}

std::string_view WithoutBlanks(std::string_view bytes) {
  while (!bytes.empty() && IsBlankByte(bytes.front())) bytes.remove_prefix(1);
  while (!bytes.empty() && IsBlankByte(bytes.back())) bytes.remove_suffix(1);
  return bytes;
}

bool Take(std::string_view& rest, char c) {
  if (rest.empty() || rest.front() != c) return false;
  rest.remove_prefix(1);
  return true;
}

std::string Encoded(TextView text, const Locale& locale) {
  std::string bytes;
  locale.codePage->AppendEncoded(bytes, text);
  return bytes;
}

std::string_view DoubleText(double value, char* buffer) {
  const auto end = std::to_chars(buffer, buffer + GeneralReader::kLongestValue, value).ptr;
  return {buffer, static_cast<std::size_t>(end - buffer)};
}

}  // namespace

// The number 0.d1d2d3... times 10 to the power `point`.
struct GeneralReader::Number {
  std::array<char, kDigits> digits;
  int count = 0;
  std::int64_t point = 0;
  bool negative = false;
  bool any = false;  ///< a digit was read
  bool afterPoint = false;
  bool grouped = false;
  bool percent = false;
  bool amount = false;
  bool scientific = false;
  int decimals = 0;

  void Add(char digit) {
    any = true;
    if (afterPoint) ++decimals;
    if (count == 0 && digit == '0') {
      if (afterPoint) --point;
      return;
    }
    if (count < kDigits) digits[static_cast<std::size_t>(count++)] = digit;
    if (!afterPoint) ++point;
  }

  ContentFormat Format() const {
    if (percent) return decimals > 0 ? ContentFormat::kPercentDecimals : ContentFormat::kPercent;
    if (amount) return decimals > 0 ? ContentFormat::kAmountDecimals : ContentFormat::kAmount;
    if (scientific) return ContentFormat::kScientific;
    if (grouped) return decimals > 0 ? ContentFormat::kGroupedDecimals : ContentFormat::kGrouped;
    return ContentFormat::kGeneral;
  }

  std::string_view Write(char* buffer) const;
};

std::string_view GeneralReader::Number::Write(char* buffer) const {
  char* out = buffer;
  int used = count;
  while (used > 0 && digits[static_cast<std::size_t>(used - 1)] == '0') --used;
  if (used == 0) {
    *out = '0';
    return {buffer, 1};
  }
  const auto put = [&](int from, int to) { out = std::copy(digits.begin() + from, digits.begin() + to, out); };
  if (negative) *out++ = '-';
  if (point > 20 || point < -4) {
    put(0, 1);
    if (used > 1) *out++ = '.';
    put(1, used);
    *out++ = 'E';
    out = std::to_chars(out, buffer + kLongestValue, point - 1).ptr;
  } else if (point <= 0) {
    *out++ = '0';
    *out++ = '.';
    out = std::fill_n(out, -point, '0');
    put(0, used);
  } else {
    const int whole = static_cast<int>(std::min<std::int64_t>(point, used));
    put(0, whole);
    out = std::fill_n(out, point - whole, '0');
    if (used > whole) *out++ = '.';
    put(whole, used);
  }
  return {buffer, static_cast<std::size_t>(out - buffer)};
}

struct GeneralReader::Serial {
  double value = 0;
  ContentFormat format = ContentFormat::kDate;
};

GeneralReader::GeneralReader(const Locale& locale, TextView decimalSeparator, TextView groupSeparator)
    : locale_(locale),
      dotSeparatesDates_(locale.dateSeparator.starts_with(u'.') && decimalSeparator != u"."),
      currency_(Encoded(locale.currencySymbol, locale)),
      trueWord_(AsciiLower(Encoded(locale.trueWord, locale))),
      falseWord_(AsciiLower(Encoded(locale.falseWord, locale))) {
  const std::string decimal = Encoded(decimalSeparator, locale);
  const std::string group = Encoded(groupSeparator, locale);
  decimal_ = decimal.empty() ? '.' : decimal.front();
  group_ = group.empty() ? '\0' : group.front();
  blankGroups_ = group_ == '\xA0';
}

// Digits of the integer part: plain, or one to three and then groups of three.
bool GeneralReader::ReadInteger(std::string_view& rest, Number& number) const {
  const auto isGroup = [this](char c) { return c == group_ || (blankGroups_ && c == ' '); };
  const auto digitsAhead = [&](std::size_t from) {
    std::size_t length = 0;
    while (from + length < rest.size() && IsDigit(rest[from + length])) ++length;
    return length;
  };
  std::size_t run = digitsAhead(0);
  const bool mayGroup = run >= 1 && run <= 3 && rest.size() > run && isGroup(rest[run]);
  for (;;) {
    for (std::size_t i = 0; i < run; ++i) number.Add(rest[i]);
    rest.remove_prefix(run);
    if (!mayGroup || rest.empty() || !isGroup(rest.front()) || digitsAhead(1) == 0) return true;
    if (digitsAhead(1) != 3) return false;
    rest.remove_prefix(1);
    number.grouped = true;
    run = 3;
  }
}

bool GeneralReader::TakeCurrency(std::string_view& rest) const {
  if (currency_.empty() || !rest.starts_with(currency_)) return false;
  rest.remove_prefix(currency_.size());
  return true;
}

bool GeneralReader::ReadNumber(std::string_view bytes, Number& number) const {
  std::string_view rest = bytes;
  const bool bracket = Take(rest, '(');
  number.negative = bracket || Take(rest, '-');
  if (!number.negative) Take(rest, '+');
  number.amount = TakeCurrency(rest);
  while (number.amount && !rest.empty() && IsBlankByte(rest.front())) rest.remove_prefix(1);
  if (!ReadInteger(rest, number)) return false;
  if (Take(rest, decimal_)) {
    number.afterPoint = true;
    for (; !rest.empty() && IsDigit(rest.front()); rest.remove_prefix(1)) number.Add(rest.front());
  }
  if (!number.any) return false;
  if (rest.size() > 1 && (rest.front() == 'E' || rest.front() == 'e')) {
    const bool plus = rest[1] == '+';
    int exponent = 0;
    const char* const first = rest.data() + (plus ? 2 : 1);
    const auto [end, failure] = std::from_chars(first, rest.data() + rest.size(), exponent);
    if (failure != std::errc() || (plus && *first == '-') || exponent > 400 || exponent < -400) return false;
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    number.point += exponent;
    number.scientific = true;
  }
  if (!rest.empty()) {
    const std::string_view before = rest;
    while (!rest.empty() && IsBlankByte(rest.front())) rest.remove_prefix(1);
    if (Take(rest, '%')) {
      number.percent = true;
      number.point -= 2;
    } else if (!number.amount && TakeCurrency(rest)) {
      number.amount = true;
    } else {
      rest = before;
    }
  }
  if (bracket && !Take(rest, ')')) return false;
  return rest.empty() && number.point <= 308;
}

namespace {

// Numbers between separators, as they stand.
struct DateNumbers {
  std::array<std::int32_t, 3> numbers{};
  std::array<std::size_t, 3> lengths{};
  std::size_t count = 0;
};

std::optional<std::int32_t> TakeShortNumber(std::string_view& rest, std::size_t longest, std::size_t& length) {
  std::int32_t value = 0;
  for (length = 0; length < rest.size() && IsDigit(rest[length]); ++length) {
    if (length == longest) return std::nullopt;
    value = value * 10 + (rest[length] - '0');
  }
  if (length == 0) return std::nullopt;
  rest.remove_prefix(length);
  return value;
}

// "h:mm[:ss]" with an optional AM/PM marker, to the end of the text. Seconds of the day, and whether seconds stood
// there.
struct TimeText {
  std::int32_t seconds = 0;
  bool hasSeconds = false;
};

std::optional<TimeText> ReadTime(std::string_view rest) {
  std::size_t length = 0;
  const std::optional<std::int32_t> hour = TakeShortNumber(rest, 4, length);
  if (!hour || !Take(rest, ':')) return std::nullopt;
  const std::optional<std::int32_t> minute = TakeShortNumber(rest, 2, length);
  if (!minute || *minute > 59) return std::nullopt;
  TimeText time{.seconds = *hour * 3600 + *minute * 60};
  if (Take(rest, ':')) {
    const std::optional<std::int32_t> second = TakeShortNumber(rest, 2, length);
    if (!second || *second > 59) return std::nullopt;
    time.seconds += *second;
    time.hasSeconds = true;
  }
  const std::string half = AsciiLower(WithoutBlanks(rest));
  if (half.empty()) return time;
  if ((half != "am" && half != "pm") || *hour < 1 || *hour > 12) return std::nullopt;
  if (*hour == 12) time.seconds -= 12 * 3600;
  if (half == "pm") time.seconds += 12 * 3600;
  return time;
}

std::optional<double> SerialOfDay(std::int32_t year, std::int32_t month, std::int32_t day) {
  if (year == 1900 && month == 2 && day == 29) return kFalseDay;
  if (year < 1900) return std::nullopt;
  const std::optional<Date> date = MakeDate(year, month, day);
  return date ? std::optional(SerialOf(*date)) : std::nullopt;
}

constexpr double kSecondsOfDay = 86400;

}  // namespace

std::optional<GeneralReader::Serial> GeneralReader::ReadDate(std::string_view bytes) const {
  if (const std::optional<TimeText> time = ReadTime(bytes)) {
    const bool elapsed = time->seconds >= 24 * 3600;
    const ContentFormat format = elapsed            ? ContentFormat::kElapsed
                                 : time->hasSeconds ? ContentFormat::kTimeSeconds
                                                    : ContentFormat::kTime;
    return Serial{time->seconds / kSecondsOfDay, format};
  }
  DateNumbers date;
  std::string_view rest = bytes;
  while (date.count < 3) {
    const std::optional<std::int32_t> number = TakeShortNumber(rest, 4, date.lengths[date.count]);
    if (!number) return std::nullopt;
    date.numbers[date.count++] = *number;
    if (rest.empty() || !IsDateSeparator(rest.front()) || date.count == 3) break;
    const bool dot = rest.front() == '.';
    rest.remove_prefix(1);
    if (dot && rest.empty() && date.count == 2) break;  // "24.12."
    while (dot && !rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
  }
  if (date.count < 2) return std::nullopt;
  std::optional<TimeText> time;
  if (!rest.empty()) {
    if (date.count != 3 || rest.front() != ' ') return std::nullopt;
    time = ReadTime(WithoutBlanks(rest));
    if (!time || time->seconds >= 24 * 3600) return std::nullopt;
  }
  const auto [a, b, c] = date.numbers;
  const bool monthFirst = locale_.dateOrder == DateOrder::kMonthDayYear;
  std::optional<double> serial;
  ContentFormat format = time ? ContentFormat::kDateTime : ContentFormat::kDate;
  if (date.count == 2) {
    const bool hasYear = date.lengths[1] == 4;
    format = hasYear ? ContentFormat::kMonthYear : ContentFormat::kDayMonth;
    serial = hasYear ? SerialOfDay(b, a, 1) : SerialOfDay(locale_.currentYear, monthFirst ? a : b, monthFirst ? b : a);
  } else if (date.lengths[0] == 4) {
    serial = SerialOfDay(a, b, c);
  } else if (date.lengths[2] == 4 || date.lengths[2] <= 2) {
    serial = SerialOfDay(ExpandYear(c, locale_), monthFirst ? a : b, monthFirst ? b : a);
  }
  if (!serial) return std::nullopt;
  return Serial{*serial + (time ? time->seconds / kSecondsOfDay : 0), format};
}

Content GeneralReader::ReadWord(std::string_view bytes, char* buffer) const {
  constexpr std::array<std::string_view, 7> kErrors = {"#N/A",   "#DIV/0!", "#VALUE!", "#REF!",
                                                       "#NAME?", "#NUM!",   "#NULL!"};
  const auto word = [&](CellKind kind, std::string_view text) {
    std::memcpy(buffer, text.data(), text.size());
    return Content{.kind = kind, .text = {buffer, text.size()}};
  };
  if (bytes.empty() || bytes.size() > 12) return {.kind = CellKind::kText};
  if (bytes.front() == '#') {
    for (const std::string_view error : kErrors) {
      if (bytes == error) return word(CellKind::kError, error);
    }
    return {.kind = CellKind::kText};
  }
  const std::string lower = AsciiLower(bytes);
  if (lower == "true" || lower == trueWord_) return word(CellKind::kBoolean, "1");
  if (lower == "false" || lower == falseWord_) return word(CellKind::kBoolean, "0");
  return {.kind = CellKind::kText};
}

Content GeneralReader::Read(std::string_view bytes, char* buffer) const {
  const std::string_view trimmed = WithoutBlanks(bytes);
  if (trimmed.empty()) return {.kind = CellKind::kText};
  const char first = trimmed.front();
  const bool mayBeNumber = IsDigit(first) || first == '-' || first == '+' || first == '(' || first == decimal_ ||
                           (!currency_.empty() && first == currency_.front());
  if (mayBeNumber) {
    Number number;
    if (ReadNumber(trimmed, number)) {
      return {.kind = CellKind::kNumber, .format = number.Format(), .text = number.Write(buffer)};
    }
    if (const std::optional<Serial> serial = ReadDate(trimmed)) {
      return {.kind = CellKind::kNumber, .format = serial->format, .text = DoubleText(serial->value, buffer)};
    }
  }
  return ReadWord(bytes, buffer);
}

}  // namespace zorkanca::excel
