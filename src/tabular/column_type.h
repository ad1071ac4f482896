// What a column of a file becomes in the database.
#pragma once

#include <cstdint>

#include "tabular/value_forms.h"

namespace zorkanca {

enum class ColumnType : std::uint8_t {
  kText,
  kLongText,     ///< some text has more than 255 characters
  kInteger,      ///< 32 bits
  kBigInteger,   ///< 64 bits
  kDecimal,      ///< 15 digits at the most: the nearest real is the number
  kLongDecimal,  ///< 28 digits at the most, kept as texts
  kDouble,
  kCurrency,
  kLongCurrency,  ///< more than 15 digits, kept as texts
  kDate,
  kYesNo,
};

/// A type and how the column's texts spell its values.
struct ColumnPlan {
  ColumnType type = ColumnType::kText;
  NumberForm form = NumberForm::kPoint;
  bool isSettled = false;  ///< by the user, so that all spellings are taken
};

/// The type as the database declares it, for the table of docs/formats/sqlite.md.
const char* DeclarationOf(ColumnType type);
/// The type in a word for users.
const char* WordOf(ColumnType type);

}  // namespace zorkanca
