// The picture of a number, switch \# :
//
//   picture   section;section;section for positive, negative, zero
//   item      0 digit   # digit or blank   x left of the point: cut off what is left of it; right of it: a digit
//             + sign    - minus or blank   'text' and any other character: itself
//   point     the locale's decimal separator; "." too where it has no other meaning; of both "." and "," the later one
//   grouping  the locale's group separator (a blank where that is a no-break space), or "," or "." before the point
//
// The result shows the locale's separators. Without a digit item left of the point sign and whole part are lost, as in
// Word itself.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::word {

class NumberPicture {
 public:
  NumberPicture(TextView picture, const Locale& locale);

  /// The number in the picture, rounded half up at its last decimal; 14 significant digits count.
  Text Apply(double number, const Locale& locale) const;

 private:
  enum class Kind { kZeroDigit, kBlankDigit, kCut, kPlus, kMinus, kGroup, kPoint, kLiteral };
  struct Item {
    Kind kind;
    char16_t unit;
  };
  struct Section {
    std::vector<Item> items;
    std::int64_t wholeDigits = 0;
    std::int64_t decimals = 0;
    bool grouped = false;
    bool cut = false;
    bool showsSign = false;
  };

  static Section Compile(TextView text, const Locale& locale);
  static Text Show(const Section& section, double number, bool ownSign, const Locale& locale);

  std::vector<Section> sections_;
};

}  // namespace zorkanca::word
