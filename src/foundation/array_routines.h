// Tests on arrays inside values, and collections made of arrays and lists. In error sources the class goes under
// "Convert".
#pragma once

#include <cstdint>
#include <vector>

#include "foundation/collection_routines.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

/// Stateless. An array is a `ValueArray` or a `Binary`; see foundation/value_array.h.
class ArrayRoutines {
 public:
  static bool IsArray(const Value& value);
  /// True for arrays that were declared to hold texts, or 32-bit numbers.
  static bool IsStringArray(const Value& value);
  static bool IsLongArray(const Value& value);

  /// Errors of the three: `ArgumentErrorCode` for a value that is no array.
  static bool IsEmpty(const Value& array);
  static bool IsNotEmpty(const Value& array) { return !IsEmpty(array); }
  /// 0 for an array that was never given bounds.
  static std::int32_t CalculateDimesionCount(const Value& array);

  /// The arguments that a caller meant: a parameter list that was handed on through several operations is an array in
  /// an array of one element in an array of one element. Gives the innermost of them; any other value as it is.
  static Value ExtractLastLevelArrayFromNestedParamarrays(const Value& values);

  /// The pieces between separators, as texts; nothing of an empty text, the whole text for an empty separator.
  static Collection ToCollectionFromSeparatedString(TextView values, TextView separator);
  /// The values; when they are one array, its elements.
  /// Errors: as `ToCollection`.
  static Collection ToCollectionFromValues(const std::vector<Value>& values);
  static Collection ToCollectionFromStrings(const std::vector<Text>& values);
  /// The elements of an array of one dimension (of a `Binary`, its bytes).
  /// Errors: `ArgumentErrorCode` for a value that is no array, `InvalidOperationErrorCode` for more dimensions.
  static Collection ToCollection(const Value& array);
};

}  // namespace zorkanca
