#include "sqlite/decimal_collation.h"

#include <cstddef>
#include <cstdint>
#include <optional>

#include "runtime/decimal_digits.h"

namespace zorkanca {

namespace {

// "-12.50", also with an exponent, as SQLite writes large reals; nothing for any other text.
std::optional<DecimalDigits> DigitsOfText(std::string_view text) {
  DigitCollector digits;
  const bool isNegative = text.starts_with('-');
  if (isNegative) text.remove_prefix(1);
  bool hasPoint = false;
  for (; !text.empty() && (IsDigit(text[0]) || (text[0] == '.' && !hasPoint)); text.remove_prefix(1)) {
    if (text[0] == '.') {
      hasPoint = true;
      digits.AddPoint();
    } else {
      digits.Add(static_cast<char16_t>(text[0]));
    }
  }
  if (!digits.any()) return std::nullopt;
  std::int64_t exponent = 0;
  if (text.starts_with('e')) {
    text.remove_prefix(1);
    const bool isSmall = text.starts_with('-');
    if (isSmall || text.starts_with('+')) text.remove_prefix(1);
    for (; !text.empty() && IsDigit(text[0]) && exponent < 10000; text.remove_prefix(1)) {
      exponent = exponent * 10 + (text[0] - '0');
    }
    if (isSmall) exponent = -exponent;
  }
  if (!text.empty()) return std::nullopt;
  return digits.Finish(exponent, isNegative);
}

std::strong_ordering CompareMagnitudes(const DecimalDigits& left, const DecimalDigits& right) {
  if (left.IsZero() || right.IsZero()) return right.IsZero() <=> left.IsZero();
  if (left.point != right.point) return left.point <=> right.point;
  const std::string_view leftDigits(left.digits, static_cast<std::size_t>(left.count));
  const std::string_view rightDigits(right.digits, static_cast<std::size_t>(right.count));
  return leftDigits <=> rightDigits;
}

std::strong_ordering Compare(const DecimalDigits& left, const DecimalDigits& right) {
  const bool leftIsBelow = left.negative && !left.IsZero();
  const bool rightIsBelow = right.negative && !right.IsZero();
  if (leftIsBelow != rightIsBelow) return rightIsBelow <=> leftIsBelow;
  return leftIsBelow ? CompareMagnitudes(right, left) : CompareMagnitudes(left, right);
}

int Collate(void*, int leftSize, const void* left, int rightSize, const void* right) {
  const std::strong_ordering order =
      CompareDecimalTexts({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                          {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

}  // namespace

std::strong_ordering CompareDecimalTexts(std::string_view left, std::string_view right) {
  const std::optional<DecimalDigits> leftNumber = DigitsOfText(left);
  const std::optional<DecimalDigits> rightNumber = DigitsOfText(right);
  if (leftNumber && rightNumber) return Compare(*leftNumber, *rightNumber);
  if (leftNumber.has_value() != rightNumber.has_value()) return rightNumber.has_value() <=> leftNumber.has_value();
  return left <=> right;
}

void AddDecimalCollation(sqlite3* connection) {
  sqlite3_create_collation_v2(connection, "DECIMAL", SQLITE_UTF8, nullptr, Collate, nullptr);
}

}  // namespace zorkanca
