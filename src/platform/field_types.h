// Which DAO field types are texts, numbers and dates.
#pragma once

#include "platform/database.h"

namespace zorkanca {

/// Text, memo, fixed-length text.
constexpr bool IsTextType(FieldType type) {
  return type == FieldType::kText || type == FieldType::kMemo || type == FieldType::kChar;
}

/// Currency and the numbers with decimals.
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

/// Integers and numbers with decimals.
constexpr bool IsNumericType(FieldType type) {
  return type == FieldType::kByte || type == FieldType::kInteger || type == FieldType::kLong ||
         type == FieldType::kBigInteger || IsDecimalType(type);
}

/// Date, time, time stamp.
constexpr bool IsDateType(FieldType type) {
  return type == FieldType::kDate || type == FieldType::kTime || type == FieldType::kTimeStamp;
}

}  // namespace zorkanca
