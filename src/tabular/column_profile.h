// The type of a column, found from all of its values: each value strikes out the types that it does not fit.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/database.h"
#include "tabular/cell.h"
#include "tabular/column_type.h"
#include "tabular/value_forms.h"

namespace zorkanca {

class ColumnProfile {
 public:
  /// @param forms    outlives the profile
  /// @param settled  the type that the user has told: one of Boolean, Long, Currency, Double, Date, Text
  ColumnProfile(const ValueForms& forms, std::optional<FieldType> settled) : forms_(&forms), settled_(settled) {}

  /// Takes a value in. @return false when the type that the user has told has no such value, or not beside the values
  /// before it
  bool Add(const Cell& cell);

  /// The type that all values have, the narrowest of several: whole numbers, decimals, dates, yes or no, texts. Values
  /// of different kinds, and no values at all, make a text.
  ColumnPlan Plan() const;

 private:
  enum Candidate : std::uint8_t {
    kPoint = 1,
    kLocale = 2,
    kSpelt = 4,
    kDate = 8,
    kYesNo = 16,
    kNumbers = kPoint | kLocale | kSpelt,
  };

  std::uint8_t FittingOf(const Cell& cell);
  std::uint8_t FittingNumber(std::string_view text, bool withExponent);
  void NoteNumber(const NumberText& number);
  bool AddSettled(const Cell& cell);
  bool AddSettledNumber(std::string_view text);
  bool FitsSettledNumber(const NumberText& number) const;
  ColumnPlan SettledPlan() const;
  ColumnType NumberType() const;
  NumberForm Form() const;

  const ValueForms* forms_;
  std::optional<FieldType> settled_;
  std::uint8_t candidates_ = kNumbers | kDate | kYesNo;
  bool hasValues_ = false;
  std::uint8_t kinds_ = 0;  // a bit for each `CellKind` that was seen
  bool hasLongText_ = false;

  // of the numbers
  bool hasDecimals_ = false;
  bool hasExponents_ = false;
  bool isBeyondLong_ = false;
  bool isBeyondBigInteger_ = false;
  int digits_ = 0;  // the most

  std::string room_;
};

}  // namespace zorkanca
