// What the exports need to know of a field beyond its value: which types are texts, and which are numbers that people
// read with grouping and decimals.
#pragma once

#include "platform/database.h"
#include "runtime/format.h"

namespace zorkanca {

/// Text, memo, fixed-length text.
constexpr bool IsTextType(FieldType type) {
  return type == FieldType::kText || type == FieldType::kMemo || type == FieldType::kChar;
}

/// Currency and the numbers with decimals; they are written by `NumberFormatOf`.
constexpr bool IsDecimalType(FieldType type) {
  switch (type) {
    case FieldType::kCurrency:
    case FieldType::kSingle:
    case FieldType::kDouble:
    case FieldType::kNumeric:
    case FieldType::kDecimal:
    case FieldType::kFloat:
      return true;
    default:
      return false;
  }
}

/// The format of a decimal field's values: grouped with two to six decimals; a field named exactly "ico" holds the
/// identification number of a company and shows bare digits.
const FormatPattern& NumberFormatOf(TextView fieldName);

}  // namespace zorkanca
