#include "runtime/format.h"

#include <cmath>
#include <optional>

#include "runtime/convert.h"
#include "runtime/date.h"
#include "runtime/error.h"
#include "runtime/format_pattern.h"

namespace zorkanca {

namespace {

std::optional<DecimalDigits> FiniteDigits(double number, int limit = kDoubleDigits) {
  if (!std::isfinite(number)) return std::nullopt;
  return DigitsOf(number, limit);
}

// A text as number or, failing that, as the serial of a date.
std::optional<double> NumberOfText(TextView text, const Locale& locale) {
  if (const std::optional<double> number = ParseNumber(text, locale)) return number;
  if (const std::optional<Date> date = ParseDate(text, locale)) return date->serial;
  return std::nullopt;
}

// The number that a value is to a number pattern; nothing when it is none.
struct DigitsOfValue {
  const Locale& locale;

  using Result = std::optional<DecimalDigits>;

  Result operator()(Empty) const { return std::nullopt; }
  Result operator()(Null) const { return std::nullopt; }
  Result operator()(bool truth) const { return DigitsOf(std::int64_t{truth ? -1 : 0}); }
  Result operator()(std::uint8_t number) const { return DigitsOf(std::int64_t{number}); }
  Result operator()(std::int16_t number) const { return DigitsOf(std::int64_t{number}); }
  Result operator()(std::int32_t number) const { return DigitsOf(std::int64_t{number}); }
  Result operator()(std::int64_t number) const { return DigitsOf(number); }
  Result operator()(float number) const { return FiniteDigits(static_cast<double>(number), kSingleDigits); }
  Result operator()(double number) const { return FiniteDigits(number); }
  Result operator()(Currency number) const { return DigitsOf(number); }
  Result operator()(const Decimal& number) const { return DigitsOf(number); }
  Result operator()(Date date) const { return FiniteDigits(date.serial); }
  Result operator()(const Text& text) const {
    const std::optional<double> number = NumberOfText(text, locale);
    return number ? FiniteDigits(*number) : std::nullopt;
  }
  Result operator()(const Binary&) const { Raise(RuntimeError::kTypeMismatch); }
  Result operator()(const ObjectReference&) const { Raise(RuntimeError::kTypeMismatch); }
};

// The date that a value is to a date pattern; nothing when it is none.
std::optional<DateParts> PartsOfValue(const Value& value, const Locale& locale) {
  double serial = 0;
  if (const auto* date = std::get_if<Date>(&value)) {
    serial = date->serial;
  } else if (const auto* text = std::get_if<Text>(&value)) {
    const std::optional<double> number = NumberOfText(*text, locale);
    if (!number) return std::nullopt;
    serial = *number;
  } else if (IsEmptyValue(value)) {
    return std::nullopt;
  } else {
    serial = ToDouble(value, locale);
  }
  if (!IsDateSerial(serial)) return std::nullopt;
  return Disassemble(Date{serial});
}

// Appends a value by each kind of format; a value that the kind cannot read is appended as its text.
struct Applier {
  Text& text;
  const Value& value;
  const Locale& locale;

  void operator()(const GeneralFormat&) const { AppendText(text, value, locale); }

  void operator()(const NumberFormat& format) const {
    if (std::optional<DecimalDigits> digits = Digits()) {
      AppendNumber(text, *digits, format, locale);
    } else {
      AppendText(text, value, locale);
    }
  }

  void operator()(const CurrencyFormat& format) const {
    if (std::optional<DecimalDigits> digits = Digits()) {
      AppendAmount(text, *digits, format, locale);
    } else {
      AppendText(text, value, locale);
    }
  }

  void operator()(const TruthFormat& format) const {
    if (const std::optional<DecimalDigits> digits = Digits()) {
      text.append(locale.*(digits->IsZero() ? format.falseWord : format.trueWord));
    } else {
      AppendText(text, value, locale);
    }
  }

  void operator()(const DateFormat& format) const {
    if (const std::optional<DateParts> parts = PartsOfValue(value, locale)) {
      AppendDate(text, *parts, DatePattern(format.pattern, format.twelveHours), locale);
    } else {
      AppendText(text, value, locale);
    }
  }

  void operator()(const PlaceholderFormat& format) const {
    const std::size_t start = text.size();
    AppendText(text, value, locale);
    FormatTail(text, start, format);
  }

  void operator()(const LiteralFormat& format) const {
    if (std::holds_alternative<Text>(value)) {
      (*this)(format.forTexts);
    } else {
      (*this)(format.forNumbers);
    }
  }

  std::optional<DecimalDigits> Digits() const { return std::visit(DigitsOfValue{locale}, value); }
};

}  // namespace

void FormatPattern::Append(Text& text, const Value& value, const Locale& locale) const {
  if (IsNull(value)) return;
  std::visit(Applier{text, value, locale}, compiled_->format);
}

Text FormatPattern::Apply(const Value& value, const Locale& locale) const {
  Text text;
  Append(text, value, locale);
  return text;
}

Text Format(const Value& value, TextView pattern, const Locale& locale) {
  return FormatPattern(pattern).Apply(value, locale);
}

}  // namespace zorkanca
