// Two readers of numbers, each one pass from left to right.
//
// `NumberReader` reads all of a text in the manner of a locale:
//   text  = {blank} ( bits | {affix} digits [exponent] {affix} )
//   affix = blank | "+" | "-" | "(" | ")" | currency symbol      each once; behind the digits a sign only when none
//                                                                came before; "(" asks for ")" and means minus
//   bits  = "&H" hexadecimal digits | "&O" octal digits
// `ValReader` reads as far as there is a number with a decimal point, whatever the locale, and drops blanks everywhere.
// Digits are gathered, not added up: the nearest Double is found once, from all of them.
#include "runtime/parse_number.h"

#include <algorithm>

#include "runtime/convert.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr bool IsExponentMark(char16_t unit) {
  return unit == u'e' || unit == u'E' || unit == u'd' || unit == u'D';
}

// 16 for H, 8 for O, 0 for anything else.
constexpr unsigned BaseOf(char16_t mark) {
  if (mark == u'H' || mark == u'h') return 16;
  return mark == u'O' || mark == u'o' ? 8 : 0;
}

// The digit's value, or the base when the unit is no digit of it.
constexpr unsigned DigitOf(char16_t unit, unsigned base) {
  unsigned value = base;
  if (IsDigit(unit)) value = unit - unsigned{u'0'};
  if (unit >= u'a' && unit <= u'f') value = unit - unsigned{u'a'} + 10;
  if (unit >= u'A' && unit <= u'F') value = unit - unsigned{u'A'} + 10;
  return std::min(value, base);
}

constexpr std::int64_t kBeyondAll = 100000000;  // an exponent that no number reaches
constexpr std::uint64_t kLargestBits = std::numeric_limits<std::int64_t>::max() / 16 * 16;

// An exponent digit by digit; far beyond the range of all numbers it stops growing.
void AddToExponent(std::int64_t& exponent, char16_t digit) {
  if (exponent < kBeyondAll) exponent = exponent * 10 + (digit - u'0');
}

class NumberReader {
 public:
  NumberReader(TextView text, const Locale& locale) : rest_(text), locale_(locale) {
    spaceGroups_ = locale.groupSeparator == u"\u00A0";
  }

  std::optional<SpelledNumber> Read() {
    SkipBlanks();
    if (rest_.starts_with(u'&')) return ReadBits();
    ReadAffixes(true);
    std::int64_t exponent = 0;
    if (!ReadDigits() || !ReadExponent(exponent)) return std::nullopt;
    ReadAffixes(false);
    if (!rest_.empty() || open_) return std::nullopt;
    return SpelledNumber{.digits = digits_.Finish(exponent, minus_ || bracketed_), .bits = {}};
  }

 private:
  bool Take(TextView expected) {
    if (expected.empty() || !rest_.starts_with(expected)) return false;
    rest_.remove_prefix(expected.size());
    return true;
  }

  bool TakeOnce(TextView expected, bool& taken) {
    if (taken || !Take(expected)) return false;
    return taken = true;
  }

  void SkipBlanks() {
    while (!rest_.empty() && IsBlankUnit(rest_[0])) rest_.remove_prefix(1);
  }

  bool TakeBracket(bool leading) {
    const bool taken = leading ? TakeOnce(u"(", bracketed_) : open_ && Take(u")");
    if (taken) open_ = leading;
    return taken;
  }

  // One sign each before the digits; after them one, and only where none came before.
  bool TakeSign(bool leading) {
    if (!leading && (plus_ || minus_)) return false;
    return TakeOnce(u"+", plus_) || TakeOnce(u"-", minus_);
  }

  void ReadAffixes(bool leading) {
    do {
      SkipBlanks();
    } while (TakeBracket(leading) || TakeSign(leading) || TakeOnce(locale_.currencySymbol, currency_));
  }

  // Group separators count only where another digit follows.
  void SkipGroupSeparators() {
    const TextView before = rest_;
    while (Take(locale_.groupSeparator) || (spaceGroups_ && Take(u" "))) {
    }
    if (rest_.empty() || !IsDigit(rest_[0])) rest_ = before;
  }

  bool ReadDigits() {
    bool point = false;
    while (!rest_.empty()) {
      if (IsDigit(rest_[0])) {
        digits_.Add(rest_[0]);
        rest_.remove_prefix(1);
        SkipGroupSeparators();
      } else if (TakeOnce(locale_.decimalSeparator, point)) {
        digits_.AddPoint();
      } else {
        break;
      }
    }
    return digits_.any();
  }

  bool ReadExponent(std::int64_t& exponent) {
    if (rest_.empty() || !IsExponentMark(rest_[0])) return true;
    rest_.remove_prefix(1);
    const bool negative = Take(u"-");
    if (!negative) Take(u"+");
    SkipGroupSeparators();
    bool any = false;
    for (; !rest_.empty() && IsDigit(rest_[0]); any = true) {
      AddToExponent(exponent, rest_[0]);
      rest_.remove_prefix(1);
      SkipGroupSeparators();
    }
    if (negative) exponent = -exponent;
    return any;
  }

  std::optional<SpelledNumber> ReadBits() {
    const unsigned base = rest_.size() > 2 ? BaseOf(rest_[1]) : 0;
    if (base == 0) return std::nullopt;
    rest_.remove_prefix(2);
    const std::size_t length = rest_.size();
    std::uint64_t bits = 0;
    bool fits = true;
    for (; !rest_.empty() && DigitOf(rest_[0], base) < base; rest_.remove_prefix(1)) {
      fits = fits && bits <= kLargestBits / base;
      bits = bits * base + DigitOf(rest_[0], base);
    }
    const bool any = rest_.size() < length;
    SkipBlanks();
    if (!any || !rest_.empty()) return std::nullopt;
    if (fits) return SpelledNumber{.digits = DigitsOf(static_cast<std::int64_t>(bits)), .bits = bits};
    DigitCollector tooLarge;
    tooLarge.Add(u'1');
    return SpelledNumber{.digits = tooLarge.Finish(kBeyondAll, false), .bits = {}};
  }

  TextView rest_;
  const Locale& locale_;
  DigitCollector digits_;
  bool spaceGroups_ = false;  // a plain space stands for the no-break space that people cannot type
  bool plus_ = false;
  bool minus_ = false;
  bool bracketed_ = false;
  bool open_ = false;
  bool currency_ = false;
};

// The text without the blanks that Val drops everywhere.
class ValReader {
 public:
  explicit ValReader(TextView text) : rest_(text) { SkipBlanks(); }

  double Read() {
    if (Current() == u'&') return ReadBits();
    const bool negative = TakeSign();
    DigitCollector digits;
    for (bool point = false; IsDigit(Current()) || (Current() == u'.' && !point); Next()) {
      if (Current() == u'.') {
        point = true;
        digits.AddPoint();
      } else {
        digits.Add(Current());
      }
    }
    const std::int64_t exponent = digits.any() && IsExponentMark(Current()) ? ReadExponent() : 0;
    const double value = NearestDouble(digits.Finish(exponent, negative));
    if (value - value != 0) Raise(RuntimeError::kOverflow);  // infinite
    return value;
  }

 private:
  char16_t Current() const { return rest_.empty() ? u'\0' : rest_[0]; }
  void Next() {
    rest_.remove_prefix(1);
    SkipBlanks();
  }
  void SkipBlanks() {
    while (!rest_.empty() && (rest_[0] == u' ' || rest_[0] == u'\t' || rest_[0] == u'\n')) rest_.remove_prefix(1);
  }

  bool TakeSign() {
    const bool negative = Current() == u'-';
    if (negative || Current() == u'+') Next();
    return negative;
  }

  std::int64_t ReadExponent() {
    Next();
    const bool negative = TakeSign();
    std::int64_t exponent = 0;
    for (; IsDigit(Current()); Next()) AddToExponent(exponent, Current());
    return negative ? -exponent : exponent;
  }

  // Up to 16 bits are an Integer and up to 32 a Long, sign included.
  double ReadBits() {
    Next();
    const unsigned base = BaseOf(Current());
    if (base == 0) return 0;
    Next();
    std::uint64_t bits = 0;
    for (; DigitOf(Current(), base) < base; Next()) {
      if (bits >> 28 != 0) Raise(RuntimeError::kOverflow);
      bits = bits * base + DigitOf(Current(), base);
    }
    if (bits <= 0xFFFF) return static_cast<std::int16_t>(bits);
    return static_cast<std::int32_t>(bits);
  }

  TextView rest_;
};

}  // namespace

std::optional<SpelledNumber> ReadNumber(TextView text, const Locale& locale) {
  return NumberReader(text, locale).Read();
}

std::optional<double> ParseNumber(TextView text, const Locale& locale) {
  const std::optional<SpelledNumber> number = ReadNumber(text, locale);
  if (!number) return std::nullopt;
  return NearestDouble(number->digits);
}

double Val(TextView text) {
  return ValReader(text).Read();
}

}  // namespace zorkanca
