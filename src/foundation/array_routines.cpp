#include "foundation/array_routines.h"

#include <cstddef>
#include <optional>
#include <variant>

#include "foundation/argument_error.h"
#include "foundation/invalid_operation_err.h"
#include "foundation/value_array.h"

namespace zorkanca {

namespace {

bool HoldsArrayOf(const Value& value, ArrayElements elements) {
  const ValueArray* array = ArrayOf(value);
  return array && array->elements == elements;
}

struct Shape {
  std::int32_t dimensions;
  std::size_t count;
};

std::optional<Shape> ShapeOf(const Value& value) {
  if (const Binary* bytes = std::get_if<Binary>(&value)) return Shape{1, bytes->size()};
  if (const ValueArray* array = ArrayOf(value)) return Shape{array->dimensions, array->items.size()};
  return std::nullopt;
}

/// Errors: `ArgumentErrorCode` for a value that is no array.
Shape ShapeOfArray(const Value& value, TextView sourceFunctionName) {
  const std::optional<Shape> shape = ShapeOf(value);
  if (!shape) ArgumentError().RaiseArgumentError(u"array", {}, u"[IsArray]", sourceFunctionName);
  return *shape;
}

void CheckIsVector(const Shape& shape) {
  if (shape.dimensions <= 1) return;
  InvalidOperationErr::RaiseError(Text(u"Neplatný počet dimenzí pole values(): ")
                                      .append(DecimalText(shape.dimensions))
                                      .append(u". Podporovány jsou pouze vektory."),
                                  u"checkIsVector", {});
}

}  // namespace

bool ArrayRoutines::IsArray(const Value& value) {
  return ShapeOf(value).has_value();
}

bool ArrayRoutines::IsStringArray(const Value& value) {
  return HoldsArrayOf(value, ArrayElements::kText);
}

bool ArrayRoutines::IsLongArray(const Value& value) {
  return HoldsArrayOf(value, ArrayElements::kLong);
}

bool ArrayRoutines::IsEmpty(const Value& array) {
  return ShapeOfArray(array, u"Convert.IsEmpty").count == 0;
}

std::int32_t ArrayRoutines::CalculateDimesionCount(const Value& array) {
  return ShapeOfArray(array, u"Convert.CalculateDimesionCount").dimensions;
}

Value ArrayRoutines::ExtractLastLevelArrayFromNestedParamarrays(const Value& values) {
  const Value* level = &values;
  for (const ValueArray* array = ArrayOf(*level);
       array && array->dimensions == 1 && array->items.size() == 1 && IsArray(array->items.front());
       array = ArrayOf(*level)) {
    level = &array->items.front();
  }
  return *level;
}

Collection ArrayRoutines::ToCollectionFromSeparatedString(TextView values, TextView separator) {
  Collection pieces;
  if (values.empty()) return pieces;
  std::size_t start = 0;
  if (!separator.empty()) {
    for (std::size_t hit = values.find(separator); hit != TextView::npos; hit = values.find(separator, start)) {
      pieces.emplace_back(Text(values.substr(start, hit - start)));
      start = hit + separator.size();
    }
  }
  pieces.emplace_back(Text(values.substr(start)));
  return pieces;
}

Collection ArrayRoutines::ToCollectionFromValues(const std::vector<Value>& values) {
  if (values.size() != 1 || !IsArray(values.front())) return values;
  return ToCollection(ExtractLastLevelArrayFromNestedParamarrays(values.front()));
}

Collection ArrayRoutines::ToCollectionFromStrings(const std::vector<Text>& values) {
  return Collection(values.begin(), values.end());
}

Collection ArrayRoutines::ToCollection(const Value& array) {
  CheckIsVector(ShapeOfArray(array, u"Convert.ToCollection"));
  Collection elements;
  if (const ValueArray* values = ArrayOf(array)) elements = values->items;
  if (const Binary* bytes = std::get_if<Binary>(&array)) {
    for (const std::byte byte : *bytes) elements.emplace_back(std::to_integer<std::uint8_t>(byte));
  }
  return elements;
}

}  // namespace zorkanca
