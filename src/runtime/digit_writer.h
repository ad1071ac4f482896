// The digits of a number at the places of a pattern. Three pattern languages write numbers (runtime/format.h, the
// pictures of fields, the number formats of cells); which places show, and what stands in the others, is for each of
// them to say.
#pragma once

#include <cstdint>

#include "runtime/decimal_digits.h"
#include "runtime/text_sink.h"

namespace zorkanca {

class DigitWriter {
 public:
  /// @param number          rounded to what the pattern shows; lives as long as the writer
  /// @param groupSeparator  stands behind each third place of the integer part but the last; "" for none
  DigitWriter(TextSink& sink, const DecimalDigits& number, TextView groupSeparator)
      : sink_(sink), number_(number), groupSeparator_(groupSeparator) {}

  /// The integer part from place `first` down to place `last`, counted from 0 at the units; places for which the number
  /// has no digit show zeros.
  void PutInteger(std::int64_t first, std::int64_t last) {
    for (std::int64_t place = first; place >= last; --place) {
      sink_.Put(Digit(number_.point - 1 - place));
      if (place % kGroup == 0 && place > 0 && !groupSeparator_.empty()) sink_.Put(groupSeparator_);
    }
  }

  /// The decimals from `first` to before `end`, counted from 0 behind the point.
  void PutFraction(std::int64_t first, std::int64_t end) {
    for (std::int64_t decimal = first; decimal < end; ++decimal) sink_.Put(Digit(number_.point + decimal));
  }

  /// How many decimals there are up to the last that is not zero; not above zero for a whole number.
  std::int64_t Decimals() const { return number_.count - number_.point; }

 private:
  static constexpr std::int64_t kGroup = 3;

  char16_t Digit(std::int64_t index) const {
    return index >= 0 && index < number_.count ? static_cast<char16_t>(number_.digits[index]) : u'0';
  }

  TextSink& sink_;
  const DecimalDigits& number_;
  TextView groupSeparator_;
};

}  // namespace zorkanca
