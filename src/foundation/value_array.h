// An automation array as the content of a value. Byte arrays are `Binary`; all others travel as this object.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "runtime/value.h"

namespace zorkanca {

/// What the elements of an array were declared as.
enum class ArrayElements { kVariant, kText, kLong };

/// The elements of all dimensions in a row. An array that was declared but never given bounds has no dimension.
class ValueArray : public Object {
 public:
  /// A vector, that is an array of one dimension.
  ValueArray(ArrayElements declaredElements, std::vector<Value> values)
      : ValueArray(declaredElements, std::move(values), 1) {}
  ValueArray(ArrayElements declaredElements, std::vector<Value> values, std::int32_t dimensionCount)
      : elements(declaredElements), dimensions(dimensionCount), items(std::move(values)) {}

  ArrayElements elements;
  std::int32_t dimensions;
  std::vector<Value> items;
};

/// The array that the value refers to; null when it is anything else.
inline const ValueArray* ArrayOf(const Value& value) {
  const ObjectReference* object = std::get_if<ObjectReference>(&value);
  return object ? dynamic_cast<const ValueArray*>(object->get()) : nullptr;
}

}  // namespace zorkanca
