// Numbers written by compiled number sections.
#include <algorithm>
#include <utility>

#include "runtime/digit_writer.h"
#include "runtime/format_pattern.h"
#include "runtime/text_sink.h"

namespace zorkanca {

namespace {

// Writes one number, rounded for its section before, step by step.
class NumberWriter {
 public:
  NumberWriter(TextSink& sink, const DecimalDigits& number, std::int64_t exponent, const NumberSection& section,
               const Locale& locale)
      : sink_(sink),
        digits_(sink, number, section.grouped ? TextView(locale.groupSeparator) : TextView()),
        section_(section),
        locale_(locale),
        exponent_(exponent) {
    highest_ = std::max({number.point, section.leastInteger, std::int64_t{0}}) - 1;
    fraction_ = std::max(digits_.Decimals(), section.leastFraction);
  }

  void Write() {
    for (const NumberStep& step : section_.steps) {
      const auto size = static_cast<std::int64_t>(step.size);
      switch (step.kind) {
        case NumberStep::Kind::kInteger:
          WriteIntegerPlaces(size);
          break;
        case NumberStep::Kind::kPoint:
          if (section_.integerPlaces == 0) digits_.PutInteger(highest_, 0);
          sink_.Put(locale_.decimalSeparator);
          break;
        case NumberStep::Kind::kFraction:
          WriteFractionPlaces(size);
          break;
        case NumberStep::Kind::kExponent:
          WriteExponent(step);
          break;
        case NumberStep::Kind::kLiteral:
          sink_.Put(TextView(section_.literals).substr(literal_, step.size));
          literal_ += step.size;
          break;
      }
    }
  }

 private:
  // The first placeholder also takes the digits for which there is none.
  void WriteIntegerPlaces(std::int64_t size) {
    const std::int64_t left = section_.integerPlaces - integerWritten_ - 1;  // place of the step's first placeholder
    const std::int64_t first = integerWritten_ == 0 ? highest_ : std::min(highest_, left);
    integerWritten_ += size;
    digits_.PutInteger(first, section_.integerPlaces - integerWritten_);
  }

  void WriteFractionPlaces(std::int64_t size) {
    digits_.PutFraction(fractionWritten_, std::min(fractionWritten_ + size, fraction_));
    fractionWritten_ += size;
  }

  void WriteExponent(const NumberStep& step) {
    sink_.Put(step.exponentMark);
    if (exponent_ < 0) {
      sink_.Put(u'-');
    } else if (step.plusSign) {
      sink_.Put(u'+');
    }
    const DecimalDigits digits = DigitsOf(exponent_ < 0 ? -exponent_ : exponent_);
    const auto length = std::max<std::int64_t>(digits.point, 1);
    for (auto padding = static_cast<std::int64_t>(step.size); padding > length; --padding) sink_.Put(u'0');
    for (std::int64_t index = 0; index < length; ++index)
      sink_.Put(index < digits.count ? static_cast<char16_t>(digits.digits[index]) : u'0');
  }

  TextSink& sink_;
  DigitWriter digits_;
  const NumberSection& section_;
  const Locale& locale_;
  std::int64_t exponent_;
  std::int64_t highest_;   // place of the first integer digit that shows, -1 when none does
  std::int64_t fraction_;  // decimals that show
  std::int64_t integerWritten_ = 0;
  std::int64_t fractionWritten_ = 0;
  std::size_t literal_ = 0;
};

// Scales the number, and rounds it to what the section shows; returns the exponent that the mantissa leaves.
std::int64_t Fit(DecimalDigits& number, const NumberSection& section) {
  if (number.IsZero()) return 0;
  number.point += section.shift;
  if (!section.scientific) {
    RoundToDecimals(number, section.fractionPlaces, RoundingMode::kHalfAwayFromZero);
    return 0;
  }
  std::int64_t exponent = number.point - section.integerPlaces;
  number.point = section.integerPlaces;
  RoundToDecimals(number, section.fractionPlaces, RoundingMode::kHalfAwayFromZero);
  if (number.point > section.integerPlaces) {  // 9.99 became 10.0
    number.point = section.integerPlaces;
    ++exponent;
  }
  return exponent;
}

const NumberSection* Given(const NumberFormat& format, std::size_t index) {
  return index < format.sections.size() && format.sections[index].given ? &format.sections[index] : nullptr;
}

}  // namespace

void AppendNumber(Text& text, DecimalDigits& number, const NumberFormat& format, const Locale& locale) {
  const NumberSection& first = format.sections.front();
  const NumberSection* section = number.negative ? Given(format, 1) : nullptr;
  bool sign = number.negative && format.signs && section == nullptr;
  if (section == nullptr) section = &first;
  // A section of literals alone says nothing about precision: the first section does, if it can.
  const NumberSection& precision = section->HasPlaces() ? *section : first;
  const std::int64_t exponent = precision.HasPlaces() ? Fit(number, precision) : 0;
  if (number.IsZero()) {
    const NumberSection* const zero = Given(format, 2);
    section = zero != nullptr ? zero : &first;
    sign = false;
  }
  if (sign) text.push_back(u'-');
  TextSink sink(text);
  NumberWriter(sink, number, exponent, *section, locale).Write();
  sink.Flush();
}

void AppendAmount(Text& text, DecimalDigits& number, const CurrencyFormat& format, const Locale& locale) {
  constexpr TextView kNoBreakSpace = u"\u00A0";
  const TextView space = locale.currencySpaced ? kNoBreakSpace : TextView();
  RoundToDecimals(number, format.amount.sections.front().fractionPlaces, RoundingMode::kHalfAwayFromZero);
  const bool negative = std::exchange(number.negative, false);
  if (negative) text.push_back(locale.negativeCurrencyInBrackets ? u'(' : u'-');
  if (!locale.currencyAfterNumber) text.append(locale.currencySymbol).append(space);
  AppendNumber(text, number, format.amount, locale);
  if (locale.currencyAfterNumber) text.append(space).append(locale.currencySymbol);
  if (negative && locale.negativeCurrencyInBrackets) text.push_back(u')');
}

}  // namespace zorkanca
