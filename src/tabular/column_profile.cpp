#include "tabular/column_profile.h"

#include <algorithm>

#include "runtime/utf8_check.h"

namespace zorkanca {

namespace {

constexpr std::size_t kLongestText = 255;  // DAO's limit; longer texts are memos
constexpr int kExactDigits = 15;           // of which any number is found again in the nearest real
constexpr int kMostDigits = 28;            // of a Decimal, before and behind its point
constexpr int kDoubleDigits = 17;          // that tell one Double from all others

}  // namespace

bool ColumnProfile::Add(const Cell& cell) {
  if (cell.kind == CellKind::kNull) return true;
  hasValues_ = true;
  kinds_ |= static_cast<std::uint8_t>(1 << static_cast<int>(cell.kind));
  if (cell.text.size() > kLongestText) hasLongText_ = hasLongText_ || Utf16Length(cell.text) > kLongestText;
  if (settled_) return AddSettled(cell);
  if (candidates_ != 0) candidates_ &= FittingOf(cell);
  return true;
}

// The candidates that a value fits. More kinds than one in a column fit nothing.
std::uint8_t ColumnProfile::FittingOf(const Cell& cell) {
  switch (cell.kind) {
    case CellKind::kUntyped: {
      const std::string_view text = TrimmedBlanks(cell.text);
      if (candidates_ & kNumbers) {
        if (const std::uint8_t fitting = FittingNumber(text, /*withExponent=*/false)) return fitting;
      }
      if ((candidates_ & kDate) && forms_->Date(text, room_)) return kDate;
      return (candidates_ & kYesNo) && forms_->YesNo(text) ? kYesNo : 0;
    }
    case CellKind::kText:
      return ValueForms::IsoDate(cell.text, room_) ? kDate : 0;
    case CellKind::kNumber:
      return FittingNumber(cell.text, /*withExponent=*/true);
    case CellKind::kBoolean:
      return kYesNo;
    default:
      return 0;
  }
}

std::uint8_t ColumnProfile::FittingNumber(std::string_view text, bool withExponent) {
  const std::optional<PlainNumber> number = ReadPlainNumber(text, withExponent);
  if (!number) return 0;
  if (!number->hasExponent && (number->digits > kMostDigits || number->decimals > kMostDigits)) return 0;
  if (number->hasExponent && !DoubleOf(*number, text)) return 0;
  NoteNumber({.number = *number, .text = text});
  std::uint8_t fitting = 0;
  if (number->separator == 0 || number->separator == '.') fitting |= kPoint;
  if (number->separator == 0 || number->separator == forms_->decimalSeparator()) fitting |= kLocale;
  return fitting;
}

void ColumnProfile::NoteNumber(const NumberText& read) {
  const PlainNumber& number = read.number;
  hasDecimals_ = hasDecimals_ || number.separator != 0;
  hasExponents_ = hasExponents_ || number.hasExponent;
  digits_ = std::max(digits_, number.digits);
  constexpr int kDigitsOfAnyLong = 9;
  if (number.digits <= kDigitsOfAnyLong || isBeyondBigInteger_) return;
  const std::optional<std::int64_t> integer = IntegerOf(number, read.text);
  isBeyondBigInteger_ = !integer;
  isBeyondLong_ = isBeyondLong_ || !integer || *integer != static_cast<std::int32_t>(*integer);
}

ColumnType ColumnProfile::NumberType() const {
  if (hasExponents_) return digits_ <= kDoubleDigits ? ColumnType::kDouble : ColumnType::kText;
  if (hasDecimals_) return digits_ <= kExactDigits ? ColumnType::kDecimal : ColumnType::kLongDecimal;
  if (isBeyondBigInteger_) return ColumnType::kLongDecimal;
  return isBeyondLong_ ? ColumnType::kBigInteger : ColumnType::kInteger;
}

NumberForm ColumnProfile::Form() const {
  if (candidates_ & kLocale) return NumberForm::kLocale;
  return candidates_ & kPoint ? NumberForm::kPoint : NumberForm::kSpelt;
}

ColumnPlan ColumnProfile::Plan() const {
  if (settled_) return SettledPlan();
  ColumnPlan plan{.type = hasLongText_ ? ColumnType::kLongText : ColumnType::kText, .form = Form()};
  const bool isOneKind = (kinds_ & (kinds_ - 1)) == 0;
  if (!hasValues_ || !isOneKind) return plan;
  if (candidates_ & kNumbers) {
    plan.type = NumberType();
  } else if (candidates_ & kDate) {
    plan.type = ColumnType::kDate;
  } else if (candidates_ & kYesNo) {
    plan.type = ColumnType::kYesNo;
  }
  return plan;
}

bool ColumnProfile::AddSettled(const Cell& cell) {
  const std::string_view text = TrimmedBlanks(cell.text);
  switch (*settled_) {
    case FieldType::kBoolean:
      return text == "0" || text == "1" || text == "-1" || forms_->YesNo(text).has_value();
    case FieldType::kDate:
      return forms_->AnyDate(text, room_);
    case FieldType::kText:
      return true;
    default:
      return AddSettledNumber(text);
  }
}

// One form for all numbers of the column, as where types are found.
bool ColumnProfile::AddSettledNumber(std::string_view text) {
  constexpr std::pair<Candidate, NumberForm> kForms[] = {
      {kPoint, NumberForm::kPoint}, {kLocale, NumberForm::kLocale}, {kSpelt, NumberForm::kSpelt}};
  for (const auto& [candidate, form] : kForms) {
    if (!(candidates_ & candidate)) continue;
    const std::optional<NumberText> number = forms_->Number(text, form, /*withExponent=*/true, room_);
    if (number && FitsSettledNumber(*number)) {
      NoteNumber(*number);
    } else {
      candidates_ &= static_cast<std::uint8_t>(~candidate);
    }
  }
  return (candidates_ & kNumbers) != 0;
}

bool ColumnProfile::FitsSettledNumber(const NumberText& read) const {
  if (settled_ == FieldType::kLong) return IntegerOf(read.number, read.text).has_value();
  if (settled_ == FieldType::kCurrency) return TenThousandthsOf(read.number).has_value();
  return DoubleOf(read.number, read.text).has_value();
}

ColumnPlan ColumnProfile::SettledPlan() const {
  ColumnPlan plan{.form = Form(), .isSettled = true};
  switch (*settled_) {
    case FieldType::kBoolean:
      plan.type = ColumnType::kYesNo;
      break;
    case FieldType::kDate:
      plan.type = ColumnType::kDate;
      break;
    case FieldType::kLong:
      plan.type = isBeyondLong_ ? ColumnType::kBigInteger : ColumnType::kInteger;
      break;
    case FieldType::kCurrency:
      plan.type = digits_ <= kExactDigits ? ColumnType::kCurrency : ColumnType::kLongCurrency;
      break;
    case FieldType::kDouble:
      plan.type = ColumnType::kDouble;
      break;
    default:
      plan.type = hasLongText_ ? ColumnType::kLongText : ColumnType::kText;
  }
  return plan;
}

}  // namespace zorkanca
