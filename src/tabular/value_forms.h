// How the texts of a file spell values: strictly, where types are found, so that no code or name is taken for a number;
// and in all the ways of the locale, where the user has told the type.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/locale.h"
#include "tabular/plain_number.h"

namespace zorkanca {

/// What stands between the whole and the decimals of the numbers of a column.
enum class NumberForm : unsigned char {
  kPoint,
  kLocale,  ///< the locale's separator
  kSpelt,   ///< also the locale's groups of digits, its currency, brackets, 0 before the digits
};

/// A number and its plain text, in which a point or a comma separates the decimals.
struct NumberText {
  PlainNumber number;
  std::string_view text;
};

class ValueForms {
 public:
  /// @param locale  outlives this object
  explicit ValueForms(const Locale& locale);

  char decimalSeparator() const { return decimalSeparator_; }

  /// The number of a text without blanks round it.
  /// @param room  holds the text of a number in the form `kSpelt`
  std::optional<NumberText> Number(std::string_view text, NumberForm form, bool withExponent, std::string& room) const;

  /// Writes a date as "YYYY-MM-DD", with a time as "YYYY-MM-DD HH:MM:SS" and the fraction of the second that it has.
  /// Taken are ISO dates without a time zone and those of the locale: day, month and a year of four digits in its order
  /// with its separator, a blank behind it or none, then a time or none.
  /// @return false for any other text
  bool Date(std::string_view text, std::string& iso) const;
  /// ISO dates alone.
  static bool IsoDate(std::string_view text, std::string& iso);
  /// Also all other dates that texts of the locale can be.
  bool AnyDate(std::string_view text, std::string& iso) const;

  /// Yes or no by a word of the locale or by "true" and "false", whatever their case.
  std::optional<bool> YesNo(std::string_view text) const;

 private:
  bool LocaleDate(std::string_view text, std::string& iso) const;

  const Locale& locale_;
  char decimalSeparator_;
  char dateSeparator_;
  std::vector<std::pair<Text, bool>> words_;  // in lower case
  std::size_t longestWord_ = 0;               // bytes
};

/// The text without spaces and tabs round it.
std::string_view TrimmedBlanks(std::string_view text);

}  // namespace zorkanca
