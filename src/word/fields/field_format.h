// The formatting switches that any field may carry: \# picture of a number, \@ picture of a date, \* case.
#pragma once

#include <optional>
#include <vector>

#include "word/fields/date_picture.h"
#include "word/fields/number_picture.h"

namespace zorkanca::word {

enum class CaseFormat { kUpper, kLower, kFirstCap, kCaps };

/// Which formatting the runs of a result take.
enum class ResultRuns {
  kOfOldResult,  ///< of the old result, else of the code: no switch, or \* MERGEFORMAT
  kOfCode,       ///< of the field type's first letter: \* CHARFORMAT
};

struct FieldFormat {
  std::optional<NumberPicture> number;
  std::optional<DatePicture> date;
  std::vector<CaseFormat> cases;
  const Locale* language = nullptr;  ///< of the names in dates; null: the system's
  ResultRuns runs = ResultRuns::kOfOldResult;
  bool argumentMissing = false;  ///< a picture switch without picture

  bool ChangesText() const { return number || date || !cases.empty() || argumentMissing; }
  /// The picture first, then the case. A text that is no number or no date is left alone by their pictures.
  Text Apply(TextView value, const Locale& locale) const;
  /// The same for what is a number already, of which two decimals are shown where there is no picture.
  Text Apply(double value, const Locale& locale) const;

 private:
  Text InCases(Text text) const;
};

/// Adds what a \* switch says. @return false for a switch that is not known
bool AddGeneralSwitch(FieldFormat& format, TextView word);

}  // namespace zorkanca::word
