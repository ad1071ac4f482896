#include "excel/display/number_format.h"

#include <algorithm>
#include <cmath>

#include "excel/display/number_format_reader.h"
#include "excel/grid/serial_date.h"
#include "runtime/date.h"
#include "runtime/decimal_digits.h"
#include "runtime/digit_writer.h"
#include "runtime/utf8.h"

namespace zorkanca::excel {

namespace {

constexpr std::int32_t kShortDate = 14;
constexpr std::int32_t kShortDateAndTime = 22;
constexpr double kSecondsOfDay = 86400;

Text PatternOf(const NumberFormatCode& code, const Locale& locale) {
  if (code.id == kShortDate) return locale.shortDate;
  if (code.id == kShortDateAndTime) return locale.shortDate + u" h:mm";
  return code.pattern.empty() ? Text(u"General") : FromUtf8(code.pattern);
}

// Moves the point so that one to `places` digits stand before it. @return the exponent taken out, of which `places` is
// a divisor: "##0.0E+0" counts in thousands
std::int64_t TakeExponent(DecimalDigits& number, std::int64_t places) {
  if (number.IsZero()) return 0;
  const std::int64_t above = number.point - 1;
  const std::int64_t exponent = (above >= 0 ? above / places : (above + 1) / places - 1) * places;
  number.point -= exponent;
  return exponent;
}

}  // namespace

NumberFormat::NumberFormat(const NumberFormatCode& code, const Locale& locale, bool is1904)
    : locale_(locale), is1904_(is1904), sections_(NumberFormatReader(PatternOf(code, locale), locale).Read()) {}

bool NumberFormat::Condition::Holds(double value) const {
  if (sign == u"<") return value < number;
  if (sign == u"<=") return value <= number;
  if (sign == u">") return value > number;
  if (sign == u">=") return value >= number;
  if (sign == u"<>") return value != number;
  return value == number;
}

// Without conditions: positive; negative, which shows no sign of its own; zero.
const NumberFormat::Section* NumberFormat::SectionFor(double value, bool& showsSign) const {
  const std::size_t count = std::min<std::size_t>(sections_.size(), 3);
  const bool conditional =
      std::any_of(sections_.begin(), sections_.end(), [](const Section& one) { return one.condition.has_value(); });
  showsSign = true;
  if (conditional) {
    for (std::size_t i = 0; i < count; ++i) {
      const std::optional<Condition>& condition = sections_[i].condition;
      if (!condition || condition->Holds(value)) return &sections_[i];
    }
    return nullptr;
  }
  if (value < 0 && count >= 2) {
    showsSign = false;
    return &sections_[1];
  }
  return value == 0 && count == 3 ? &sections_[2] : &sections_[0];
}

Text NumberFormat::Show(const CellValue& value) const {
  if (const auto* text = std::get_if<std::string>(&value)) return ShowText(FromUtf8(*text));
  if (const auto* truth = std::get_if<bool>(&value)) return UpperCase(*truth ? locale_.trueWord : locale_.falseWord);
  if (const auto* error = std::get_if<ErrorValue>(&value)) return FromUtf8(error->text);
  const auto* number = std::get_if<double>(&value);
  if (!number) return {};
  bool showsSign = true;
  const Section* section = SectionFor(*number, showsSign);
  if (!section) return u"#";
  Text text;
  if (section->isDate) {
    ShowDate(text, *number, *section);
  } else if (section->isFraction) {
    text = GeneralText(showsSign ? *number : std::fabs(*number), locale_);
  } else {
    const double shown = showsSign ? *number : std::fabs(*number);
    ShowNumber(text, shown, *section);
  }
  return text;
}

Text NumberFormat::ShowText(const Text& value) const {
  const bool own = sections_.size() == 4 || (sections_.size() == 1 && sections_[0].hasText);
  if (!own) return value;
  Text text;
  for (const Step& step : sections_.back().steps) {
    if (step.kind == StepKind::kValueText || step.kind == StepKind::kGeneral) text += value;
    if (step.kind == StepKind::kLiteral) text += step.text;
  }
  return text;
}

Text GeneralText(double value, const Locale& locale) {
  DecimalDigits digits = DigitsOf(value);
  constexpr std::int64_t kRoom = 11;
  if (digits.IsZero()) return u"0";
  const auto fits = [](const DecimalDigits& number) { return number.point <= kRoom && number.point >= -8; };
  Text text;
  if (fits(digits)) {
    DecimalDigits rounded = digits;
    RoundToDecimals(rounded, std::max<std::int64_t>(0, kRoom - 1 - std::max<std::int64_t>(1, digits.point)),
                    RoundingMode::kHalfAwayFromZero);
    if (fits(rounded)) {
      AppendDigits(text, rounded, locale.decimalSeparator);
      return text;
    }
  }
  RoundToDecimals(digits, 6 - digits.point, RoundingMode::kHalfAwayFromZero);
  AppendDigits(text, digits, locale.decimalSeparator, 0);
  return text;
}

namespace {

// The digits of a number as a section's placeholders take them.
class Placeholders {
 public:
  Placeholders(TextSink& sink, const DecimalDigits& number, TextView groupSeparator)
      : sink_(sink), number_(number), digits_(sink, number, groupSeparator) {}

  // One placeholder left of the point; the first takes all digits for which there is none.
  void Integer(char16_t placeholder, std::int64_t place, bool isFirst) {
    if (isFirst) digits_.PutInteger(number_.point - 1, place + 1);
    if (place < number_.point || placeholder == u'0') {
      digits_.PutInteger(place, place);
    } else if (placeholder == u'?') {
      sink_.Put(u' ');
    }
  }

  // All digits of the integer part, where it has no placeholder.
  void Integers() { digits_.PutInteger(number_.point - 1, 0); }

  void Fraction(char16_t placeholder, std::int64_t decimal, std::int64_t lastNeeded) {
    if (decimal < digits_.Decimals() || placeholder == u'0' || decimal <= lastNeeded) {
      digits_.PutFraction(decimal, decimal + 1);
    } else if (placeholder == u'?') {
      sink_.Put(u' ');
    }
  }

 private:
  TextSink& sink_;
  const DecimalDigits& number_;
  DigitWriter digits_;
};

}  // namespace

void NumberFormat::ShowNumber(Text& text, double value, const Section& section) const {
  std::int64_t integers = 0;
  std::int64_t fractions = 0;
  std::int64_t lastZero = -1;
  bool behindPoint = false;
  bool scientific = false;
  for (const Step& step : section.steps) {
    if (step.kind == StepKind::kPoint) behindPoint = true;
    if (step.kind == StepKind::kExponent) scientific = true;
    if (step.kind != StepKind::kDigit || scientific) continue;
    if (behindPoint && step.text == u"0") lastZero = fractions;
    ++(behindPoint ? fractions : integers);
  }
  DecimalDigits number = DigitsOf(value);
  std::int64_t exponent = 0;
  if (!number.IsZero()) {
    number.point += 2 * section.percents - 3 * section.thousands;
    if (scientific) exponent = TakeExponent(number, std::max<std::int64_t>(integers, 1));
    RoundToDecimals(number, fractions, RoundingMode::kHalfAwayFromZero);
    // Rounding may have carried into a digit that has no place: 9.996 is 1.00E+01.
    if (scientific) exponent += TakeExponent(number, std::max<std::int64_t>(integers, 1));
  }
  TextSink sink(text);
  if (number.negative && section.isNumber) sink.Put(u'-');
  Placeholders writer(sink, number, section.grouped ? TextView(locale_.groupSeparator) : TextView());
  std::int64_t place = integers;
  std::int64_t decimal = 0;
  behindPoint = false;
  for (const Step& step : section.steps) {
    switch (step.kind) {
      case StepKind::kDigit:
        if (behindPoint) {
          writer.Fraction(step.text[0], decimal++, lastZero);
        } else {
          --place;
          writer.Integer(step.text[0], place, place == integers - 1);
        }
        break;
      case StepKind::kPoint:
        if (integers == 0) writer.Integers();
        behindPoint = true;
        sink.Put(locale_.decimalSeparator);
        break;
      case StepKind::kExponent:
        sink.Put(exponent < 0 ? u"E-" : step.plus ? u"E+" : u"E");
        sink.Flush();
        AppendPadded(text, exponent < 0 ? -exponent : exponent, step.width);
        break;
      case StepKind::kGeneral:
      case StepKind::kValueText:
        sink.Put(GeneralText(value, locale_));
        break;
      default:
        sink.Put(step.text);
    }
  }
  sink.Flush();
}

void NumberFormat::ShowDate(Text& text, double value, const Section& section) const {
  const double ownSerial = value + (is1904_ ? kDaysTo1904 : 0);
  const bool falseDay = IsFalseDay(ownSerial);
  double serial = DateOfSerial(ownSerial).serial;
  if (value < 0 || !IsDateSerial(serial)) {
    text += u"#";
    return;
  }
  const bool hasFraction = std::any_of(section.steps.begin(), section.steps.end(),
                                       [](const Step& step) { return step.kind == StepKind::kSecondFraction; });
  if (hasFraction) serial = std::floor(serial * kSecondsOfDay + 1e-6) / kSecondsOfDay;
  DateParts parts = Disassemble(Date{serial});
  if (falseDay) parts.month = 2, parts.day = 29;
  const Locale& names = section.names ? *section.names : locale_;
  const auto name = [&](const Text& full, const Text& abbreviation, std::size_t width) {
    text += width == 3 ? abbreviation : width == 5 ? full.substr(0, 1) : full;
  };
  for (const Step& step : section.steps) {
    switch (step.kind) {
      case StepKind::kYear:
        AppendPadded(text, step.width <= 2 ? parts.year % 100 : parts.year, step.width <= 2 ? 2 : 4);
        break;
      case StepKind::kMonth: {
        const auto month = static_cast<std::size_t>(parts.month - 1);
        if (step.width <= 2) {
          AppendPadded(text, parts.month, step.width);
        } else {
          name((section.hasDay ? names.monthNamesGenitive : names.monthNames)[month], names.monthAbbreviations[month],
               step.width);
        }
        break;
      }
      case StepKind::kDay: {
        const auto weekday = static_cast<std::size_t>(parts.weekday - 1);
        if (step.width <= 2) {
          AppendPadded(text, parts.day, step.width);
        } else {
          name(names.dayNames[weekday], names.dayAbbreviations[weekday], step.width);
        }
        break;
      }
      case StepKind::kHour:
        AppendPadded(text, section.twelveHours ? (parts.hour + 11) % 12 + 1 : parts.hour,
                     std::min<std::size_t>(step.width, 2));
        break;
      case StepKind::kMinute:
        AppendPadded(text, parts.minute, step.width);
        break;
      case StepKind::kSecond:
        AppendPadded(text, parts.second, std::min<std::size_t>(step.width, 2));
        break;
      case StepKind::kSecondFraction: {
        const double seconds = value * kSecondsOfDay;
        const double scale = std::pow(10.0, static_cast<double>(step.width));
        text += locale_.decimalSeparator;
        AppendPadded(text, static_cast<std::int64_t>((seconds - std::floor(seconds + 1e-6)) * scale + 1e-3),
                     step.width);
        break;
      }
      case StepKind::kAmPm:
        text += step.width == 3 ? (parts.hour < 12 ? u"A" : u"P") : (parts.hour < 12 ? u"AM" : u"PM");
        break;
      case StepKind::kElapsed: {
        const double unit = step.text == u"h" ? 3600 : step.text == u"m" ? 60 : 1;
        AppendPadded(text, static_cast<std::int64_t>(std::floor(std::round(value * kSecondsOfDay) / unit)), step.width);
        break;
      }
      default:
        text += step.text;
    }
  }
}

}  // namespace zorkanca::excel
