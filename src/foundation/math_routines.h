// Comparisons of numbers that arrive as values of any type.
#pragma once

#include "runtime/locale.h"
#include "runtime/value.h"

namespace zorkanca {

/// Stateless. Errors of all operations: `ArgumentErrorCode` for an argument that is not numeric (runtime/convert.h).
class MathRoutines {
 public:
  /// The smaller and the larger value, as it was given; the first one when they are equal.
  static Value Min(const Value& value1, const Value& value2, const Locale& locale);
  static Value Max(const Value& value1, const Value& value2, const Locale& locale);

  /// True when the numbers are at most `delta` apart.
  /// Errors: also `ArgumentErrorCode` for a negative delta.
  static bool IsNear(const Value& number, const Value& expectToBeNearNumber, const Value& delta, const Locale& locale);
};

}  // namespace zorkanca
