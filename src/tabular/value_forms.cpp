#include "tabular/value_forms.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/date.h"
#include "runtime/decimal_digits.h"
#include "runtime/iso_date.h"
#include "runtime/parse_number.h"
#include "runtime/utf8.h"
#include "runtime/utf8_check.h"

namespace zorkanca {

namespace {

constexpr std::size_t kLengthOfDay = 10;  // "YYYY-MM-DD"

void AppendTwoDigits(std::string& text, std::int32_t number) {
  text.push_back(static_cast<char>('0' + number / 10));
  text.push_back(static_cast<char>('0' + number % 10));
}

void AppendTime(std::string& text, const DateParts& parts) {
  AppendTwoDigits(text += ' ', parts.hour);
  AppendTwoDigits(text += ':', parts.minute);
  AppendTwoDigits(text += ':', parts.second);
}

void SpellDate(std::string& iso, const DateParts& parts, bool hasTime) {
  iso.clear();
  AppendTwoDigits(iso, parts.year / 100);
  AppendTwoDigits(iso, parts.year % 100);
  AppendTwoDigits(iso += '-', parts.month);
  AppendTwoDigits(iso += '-', parts.day);
  if (hasTime) AppendTime(iso, parts);
}

// Day, month and year of the locale with a time or without.
class LocaleDateReader {
 public:
  LocaleDateReader(std::string_view text, char separator, DateOrder order)
      : text_(text), separator_(separator), order_(order) {}

  // @return false for any other text; days of the calendar are not looked at
  bool Read() {
    for (std::size_t index = 0; index < numbers_.size(); ++index) {
      if (index > 0 && !TakeSeparator()) return false;
      const bool isYear = index == (order_ == DateOrder::kYearMonthDay ? 0 : 2);
      if (!TakeNumber(isYear ? 4 : 1, isYear ? 4 : 2, numbers_[index])) return false;
    }
    if (text_.empty()) return true;
    hasTime_ = TakeBlanks() && TakeTime();
    return hasTime_ && text_.empty();
  }

  bool hasTime() const { return hasTime_; }

  DateParts parts() const {
    const auto [first, second, third] = numbers_;
    DateParts parts{.hour = hour_, .minute = minute_, .second = second_};
    parts.year = order_ == DateOrder::kYearMonthDay ? first : third;
    parts.month = order_ == DateOrder::kMonthDayYear ? first : second;
    parts.day = order_ == DateOrder::kDayMonthYear ? first : order_ == DateOrder::kMonthDayYear ? second : third;
    return parts;
  }

 private:
  bool Take(char byte) {
    if (!text_.starts_with(byte)) return false;
    text_.remove_prefix(1);
    return true;
  }

  bool TakeBlanks() {
    const bool any = text_.starts_with(' ');
    while (Take(' ')) {
    }
    return any;
  }

  bool TakeSeparator() {
    if (!Take(separator_)) return false;
    Take(' ');
    return true;
  }

  bool TakeNumber(std::size_t least, std::size_t most, std::int32_t& number) {
    std::size_t digits = 0;
    number = 0;
    for (; digits < most && !text_.empty() && IsDigit(text_[0]); ++digits) {
      number = number * 10 + (text_[0] - '0');
      text_.remove_prefix(1);
    }
    return digits >= least && (text_.empty() || !IsDigit(text_[0]));
  }

  bool TakeTime() {
    if (!TakeNumber(1, 2, hour_) || !Take(':') || !TakeNumber(2, 2, minute_)) return false;
    if (Take(':') && !TakeNumber(2, 2, second_)) return false;
    TakeBlanks();
    const bool isMorning = AsciiLower(text_) == "am";
    if (!isMorning && AsciiLower(text_) != "pm") return true;
    text_ = {};
    if (hour_ < 1 || hour_ > 12) return false;
    hour_ = hour_ % 12 + (isMorning ? 0 : 12);
    return true;
  }

  std::string_view text_;
  char separator_;
  DateOrder order_;
  std::array<std::int32_t, 3> numbers_{};
  std::int32_t hour_ = 0;
  std::int32_t minute_ = 0;
  std::int32_t second_ = 0;
  bool hasTime_ = false;
};

}  // namespace

std::string_view TrimmedBlanks(std::string_view text) {
  const auto isBlank = [](char byte) { return byte == ' ' || byte == '\t'; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

ValueForms::ValueForms(const Locale& locale)
    : locale_(locale),
      decimalSeparator_(static_cast<char>(locale.decimalSeparator.front())),
      dateSeparator_(static_cast<char>(locale.dateSeparator.front())) {
  for (const Text& yes : {locale.yes, locale.trueWord, Text(u"true")}) words_.emplace_back(LowerCase(yes), true);
  for (const Text& no : {locale.no, locale.falseWord, Text(u"false")}) words_.emplace_back(LowerCase(no), false);
  for (const auto& [word, meaning] : words_) longestWord_ = std::max(longestWord_, ToUtf8(word).size());
}

std::optional<NumberText> ValueForms::Number(std::string_view text, NumberForm form, bool withExponent,
                                             std::string& room) const {
  constexpr std::int64_t kFarthestPoint = 400;  // beyond all Doubles
  if (form != NumberForm::kSpelt) {
    const std::optional<PlainNumber> number = ReadPlainNumber(text, withExponent);
    const char separator = form == NumberForm::kPoint ? '.' : decimalSeparator_;
    if (!number || (number->separator != 0 && number->separator != separator)) return std::nullopt;
    return NumberText{.number = *number, .text = text};
  }
  const std::optional<SpelledNumber> spelled = ReadNumber(FromUtf8(text), locale_);
  if (!spelled || spelled->digits.point > kFarthestPoint || spelled->digits.point < -kFarthestPoint) {
    return std::nullopt;
  }
  Text plain;
  AppendDigits(plain, spelled->digits, u".");
  room = ToUtf8(plain);
  const std::optional<PlainNumber> number = ReadPlainNumber(room, /*withExponent=*/false);
  if (!number) return std::nullopt;
  return NumberText{.number = *number, .text = room};
}

bool ValueForms::IsoDate(std::string_view text, std::string& iso) {
  if (text.size() < kLengthOfDay || text[4] != '-' || !ParseIsoDate(text)) return false;
  iso = text;
  if (text.size() == kLengthOfDay) return true;
  if (iso.ends_with('Z')) iso.pop_back();
  iso[kLengthOfDay] = ' ';
  constexpr std::size_t kWithoutSeconds = kLengthOfDay + 6;
  if (iso.size() == kWithoutSeconds) iso += ":00";
  return true;
}

bool ValueForms::LocaleDate(std::string_view text, std::string& iso) const {
  LocaleDateReader reader(text, dateSeparator_, locale_.dateOrder);
  if (!reader.Read()) return false;
  const DateParts parts = reader.parts();
  if (!MakeDate(parts.year, parts.month, parts.day, parts.hour, parts.minute, parts.second)) return false;
  SpellDate(iso, parts, reader.hasTime());
  return true;
}

bool ValueForms::Date(std::string_view text, std::string& iso) const {
  if (text.empty() || !IsDigit(text[0])) return false;
  return IsoDate(text, iso) || LocaleDate(text, iso);
}

bool ValueForms::AnyDate(std::string_view text, std::string& iso) const {
  if (Date(text, iso)) return true;
  const std::optional<zorkanca::Date> date = ParseDate(FromUtf8(text), locale_);
  if (!date) return false;
  const DateParts parts = Disassemble(*date);
  SpellDate(iso, parts, parts.hour != 0 || parts.minute != 0 || parts.second != 0);
  return true;
}

std::optional<bool> ValueForms::YesNo(std::string_view text) const {
  if (text.empty() || text.size() > longestWord_ + 2) return std::nullopt;  // upper case may take more bytes
  std::array<char16_t, 16> lower{};
  std::size_t length = 0;
  if (IsAscii(text) && text.size() <= lower.size()) {
    for (const char byte : text) lower[length++] = static_cast<char16_t>(AsciiLower(byte));
    for (const auto& [word, meaning] : words_) {
      if (TextView(lower.data(), length) == word) return meaning;
    }
    return std::nullopt;
  }
  const Text wide = LowerCase(FromUtf8(text));
  for (const auto& [word, meaning] : words_) {
    if (wide == word) return meaning;
  }
  return std::nullopt;
}

}  // namespace zorkanca
