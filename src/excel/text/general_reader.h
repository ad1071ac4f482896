// What a program takes a typed or imported text for: a number, a date, a truth value, an error, or a text.
//
//   number   blanks, one of + - (, digits in plain form or in groups of three, decimals, exponent, % or the currency
//            symbol on one side, ), blanks
//   date     day, month and year in the order of the locale, or year-month-day with four digits of year first;
//            day and month; month and four digits of year; separated by the locale's separator, "/" or "-"
//   time     h:mm or h:mm:ss, with AM or PM or alone beyond 24 hours; also behind a date
//   others   TRUE, FALSE and the locale's words; #N/A, #DIV/0!, #VALUE!, #REF!, #NAME?, #NUM!, #NULL!
//
// What begins with "=" is a text: data never become formulas.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "excel/grid/cell_source.h"
#include "runtime/locale.h"

namespace zorkanca::excel {

class GeneralReader {
 public:
  /// @param decimalSeparator, groupSeparator  used instead of the locale's
  GeneralReader(const Locale& locale, TextView decimalSeparator, TextView groupSeparator);

  /// Reads a text in the locale's code page (plain ASCII reads the same in UTF-8).
  /// @param buffer  takes the value's text, which the result's `text` points to; needs `kLongestValue` bytes
  /// @return        kind, format and text; kText, without a text, for what is none of these
  Content Read(std::string_view bytes, char* buffer) const;
  static constexpr std::size_t kLongestValue = 40;

 private:
  struct Number;
  struct Serial;

  bool ReadNumber(std::string_view bytes, Number& number) const;
  bool ReadInteger(std::string_view& rest, Number& number) const;
  bool TakeCurrency(std::string_view& rest) const;
  std::optional<Serial> ReadDate(std::string_view bytes) const;
  bool IsDateSeparator(char c) const { return c == '/' || c == '-' || (c == '.' && dotSeparatesDates_); }
  Content ReadWord(std::string_view bytes, char* buffer) const;

  const Locale& locale_;
  char decimal_ = '.';
  char group_ = ',';
  bool blankGroups_ = false;  // a plain blank stands for the no-break one
  bool dotSeparatesDates_ = false;
  std::string currency_;
  std::string trueWord_, falseWord_;
};

}  // namespace zorkanca::excel
