#include "word/fields/formula_numbers.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

#include "runtime/ascii.h"

namespace zorkanca::word {

namespace {

constexpr std::size_t kGroup = 3;

bool StandsAt(TextView text, std::size_t at, TextView sign) {
  return !sign.empty() && text.substr(std::min(at, text.size()), sign.size()) == sign;
}

std::size_t DigitsFrom(TextView text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && IsFormulaDigit(text[end])) ++end;
  return end - at;
}

bool IsGroupBlank(char16_t unit) {
  return unit == u' ' || unit == u'\u00A0' || unit == u'\u202F';
}

// Length of a decimal separator between digits, or before some.
std::size_t PointLength(TextView text, std::size_t at, const Locale& locale) {
  const bool dot = locale.groupSeparator != u"." && StandsAt(text, at, u".");
  const std::size_t length = StandsAt(text, at, locale.decimalSeparator) ? locale.decimalSeparator.size() : dot ? 1 : 0;
  return length > 0 && DigitsFrom(text, at + length) > 0 ? length : 0;
}

std::size_t GroupLength(TextView text, std::size_t at, const Locale& locale) {
  const bool own = StandsAt(text, at, locale.groupSeparator);
  const std::size_t length = own ? locale.groupSeparator.size() : at < text.size() && IsGroupBlank(text[at]) ? 1 : 0;
  return length > 0 && DigitsFrom(text, at + length) == kGroup ? length : 0;
}

}  // namespace

bool IsFormulaDigit(char16_t unit) {
  return IsDigit(unit);
}

bool IsFormulaWordUnit(char16_t unit) {
  return unit == u'_' || IsFormulaDigit(unit) || LowerCase(unit) != UpperCase(unit);
}

bool IsFormulaBlank(char16_t unit) {
  return unit <= u' ' || unit == u'\u00A0' || unit == u'\u202F';
}

TextView TrimFormulaBlanks(TextView text) {
  while (!text.empty() && IsFormulaBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsFormulaBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::size_t NumberLength(TextView text, std::size_t at, const Locale& locale) {
  std::size_t end = at + DigitsFrom(text, at);
  if (end > at) {
    while (const std::size_t group = GroupLength(text, end, locale)) end += group + kGroup;
  }
  if (const std::size_t point = PointLength(text, end, locale)) end += point + DigitsFrom(text, end + point);
  return end - at;
}

double NumberAt(TextView text, const Locale& locale) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsFormulaDigit(text[i])) {
      plain += static_cast<char>(text[i]);
    } else if (PointLength(text, i, locale) > 0) {
      plain += '.';
    }
  }
  double number = 0;
  const auto read = std::from_chars(plain.data(), plain.data() + plain.size(), number);
  return read.ec == std::errc() ? number : std::numeric_limits<double>::infinity();
}

std::size_t CurrencyLength(TextView text, const Locale& locale) {
  if (StandsAt(text, 0, locale.currencySymbol)) return locale.currencySymbol.size();
  return StandsAt(text, 0, u"$") || StandsAt(text, 0, u"€") || StandsAt(text, 0, u"£") ? 1 : 0;
}

std::optional<double> NumberInText(TextView text, const Locale& locale) {
  bool negative = false;
  bool behindWord = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const std::size_t length = behindWord ? 0 : NumberLength(text, i, locale);
    if (length > 0) {
      double number = NumberAt(text.substr(i, length), locale);
      TextView behind = TrimFormulaBlanks(text.substr(i + length));
      if (behind.starts_with(u'%')) number /= 100;
      return negative ? -number : number;
    }
    const bool digit = IsFormulaDigit(unit);
    behindWord = (behindWord && digit) || (!digit && LowerCase(unit) != UpperCase(unit)) || unit == u'_';
    if (unit == u'-' || unit == u'\u2212' || unit == u'(') {
      negative = true;
    } else if (!IsFormulaBlank(unit) && CurrencyLength(text.substr(i), locale) == 0) {
      negative = false;
    }
  }
  return std::nullopt;
}

}  // namespace zorkanca::word
