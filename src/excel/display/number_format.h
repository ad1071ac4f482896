// Number formats of cells, as files hold them: how a value is shown. They look like the patterns of runtime/format.h
// and are another language: placeholders "?", fill and width characters, colours, conditions, elapsed times.
//
//   section   up to four, by ";": positive;negative;zero;text, or each with a condition "[<100]"
//   number    0 # ? digits, "." "," (grouping, or thousands when it ends the digits) "%" "E+"
//   date      y m d h s, [h] [m] [s] elapsed, AM/PM, fractions of a second ".00"
//   others    "text" \x literals, _x a blank as wide as x, *x nothing, [Red] [$-405] nothing, [$Kč] its symbol,
//             General, @ the text
//
// Fractions ("# ?/?") are shown as decimal numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "excel/display/cell_value.h"
#include "excel/tables/style_book.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::excel {

class NumberFormat {
 public:
  /// @param locale  of separators and names; outlives the format
  NumberFormat(const NumberFormatCode& code, const Locale& locale, bool is1904);

  /// The value as its cell shows it, however narrow the column; "" for no value.
  Text Show(const CellValue& value) const;

 private:
  enum class StepKind {
    kLiteral,
    kDigit,  ///< `text` is one of 0 # ?
    kPoint,
    kExponent,  ///< `width` digits; `plus` shows the sign always
    kGeneral,
    kValueText,  ///< @
    kYear,
    kMonth,
    kDay,
    kHour,
    kMinute,
    kSecond,
    kSecondFraction,
    kAmPm,
    kElapsed,  ///< `text` is h, m or s
  };
  struct Step {
    StepKind kind = StepKind::kLiteral;
    Text text = {};
    std::size_t width = 0;
    bool plus = false;
  };
  struct Condition {
    Text sign;
    double number = 0;
    bool Holds(double value) const;
  };
  struct Section {
    std::vector<Step> steps;
    std::optional<Condition> condition;
    bool isDate = false;
    bool isNumber = false;
    bool isGeneral = false;
    bool isFraction = false;  ///< a "/" behind digits
    bool hasText = false;
    bool hasDay = false;
    bool twelveHours = false;
    bool grouped = false;
    const Locale* names = nullptr;  ///< of days and months, when the format says which
    int percents = 0;
    int thousands = 0;
  };
  friend class NumberFormatReader;

  const Section* SectionFor(double value, bool& showsSign) const;
  void ShowNumber(Text& text, double value, const Section& section) const;
  void ShowDate(Text& text, double value, const Section& section) const;
  Text ShowText(const Text& value) const;

  const Locale& locale_;
  bool is1904_;
  std::vector<Section> sections_;
};

/// A number as the format "General" shows it where there is room: eleven characters at most.
Text GeneralText(double value, const Locale& locale);

}  // namespace zorkanca::excel
