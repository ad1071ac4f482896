// A Single on its way to where numbers are Doubles.
#pragma once

#include <charconv>

namespace zorkanca {

/// The Double of the shortest digits that are this very Single: of 0.1f it is 0.1, not 0.100000001490116.
inline double ShortestDouble(float number) {
  char digits[32];
  const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, number);
  double result = number;
  std::from_chars(digits, end.ptr, result);
  return result;
}

}  // namespace zorkanca
