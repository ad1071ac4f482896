// One format of a column: a named conversion of the suite's own codes ("skp", "katpoh", "trim", ...) or a number or
// date pattern, with the formats that follow it after ";". Compiled once, applied to any number of values.
//
//   format     = conversion [ "$" ] [ ";" format ]
//   conversion = "skp" | "skp*" | "skp_nazev" | "odpskup" | "typ_odp" | "shoda" | "0->''" | "ltrim" | "rtrim" | "trim"
//              | "intrim" | "evidence" | "a/n" | "katpoh" | "dd.mm.yyyy*test" | "d.m.yyyy*test"
//              | "2" | '"' | '""' | "'" | "''" | "text" | ""          (the value as it is)
//              | a pattern of runtime/format.h
// Case does not matter.
#pragma once

#include <optional>
#include <vector>

#include "runtime/format.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

/// A value as the formats take it.
struct FormattedValue {
  TextView text{};
  std::optional<double> number{};  ///< of a Boolean, whose text tells none: -1 or 0
};

class NamedFormat {
 public:
  /// @param locale  of the values to be formatted
  /// Errors: 5 for more than 100 formats in a row, or for a pattern that cannot be compiled.
  NamedFormat(TextView format, const Locale& locale);

  /// The value, formatted by each format in turn. A format that leaves nothing gives a single space: the line of a
  /// document that holds the value is then not suppressed as blank.
  Text Apply(const FormattedValue& value, const Locale& locale) const;

 private:
  enum class Conversion {
    kUnchanged,
    kBuildingCode,
    kBuildingCodeStar,
    kBuildingCodeName,
    kDepreciationGroup,
    kDepreciationKind,
    kAgreement,
    kZeroToSpace,
    kTrimLeft,
    kTrimRight,
    kTrim,
    kTrimInside,
    kRegister,
    kYesNo,
    kMovementKind,
    kRepairedLongDate,
    kRepairedShortDate,
    kPattern,
  };

  struct Step {
    Conversion conversion = Conversion::kUnchanged;
    bool readsPointNumbers = false;  // the pattern is one for decimals, so that "12.5" is no day of May
    std::optional<FormatPattern> pattern;
  };

  static Step Compile(const Text& format);
  Text Convert(const Step& step, const Text& value, std::optional<double> number, const Locale& locale) const;

  std::vector<Step> steps_;
  char16_t grouping_;  // separator that people type into numbers
};

}  // namespace zorkanca
