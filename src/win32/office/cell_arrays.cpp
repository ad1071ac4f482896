#include "win32/office/cell_arrays.h"

#include <limits>

#include "runtime/error.h"
#include "win32/automation/dispatch_error.h"
#include "win32/automation/safe_array.h"

namespace zorkanca::win32 {

namespace {

// Number of elements in a dimension, from 1, and its lower bound.
struct Dimension {
  LONG first = 0;
  std::int32_t count = 1;
};

Dimension DimensionOf(SAFEARRAY* array, UINT dimension) {
  LONG first = 0;
  LONG last = 0;
  Require(SafeArrayGetLBound(array, dimension, &first));
  Require(SafeArrayGetUBound(array, dimension, &last));
  const std::int64_t count = std::int64_t{last} - first + 1;
  if (count < 0 || count > std::numeric_limits<std::int32_t>::max()) Raise(RuntimeError::kTypeMismatch);
  return {.first = first, .count = static_cast<std::int32_t>(count)};
}

// An array of variants, element after element as they lie.
void ReadVariants(CellGrid& grid, SAFEARRAY* array) {
  const SafeArrayAccess access(array);
  const VARIANT* next = access.As<const VARIANT>();
  for (std::int32_t column = 0; column < grid.columns(); ++column) {
    for (std::int32_t row = 0; row < grid.rows(); ++row) grid.At(row, column) = ToValue(*next++);
  }
}

// An array of any other type, through a variant for each element.
void ReadOthers(CellGrid& grid, SAFEARRAY* array, VARTYPE type, const Dimension& rows, const Dimension& columns) {
  const bool isRow = SafeArrayGetDim(array) == 1;
  for (std::int32_t row = 0; row < grid.rows(); ++row) {
    for (std::int32_t column = 0; column < grid.columns(); ++column) {
      LONG place[] = {rows.first + row, columns.first + column};
      VARIANT element{};
      void* const room = type == VT_DECIMAL ? static_cast<void*>(&element.decVal) : static_cast<void*>(&element.llVal);
      Require(SafeArrayGetElement(array, isRow ? &place[1] : place, room));
      element.vt = type;
      grid.At(row, column) = ToValue(Variant::Owning(element));
    }
  }
}

CellGrid GridOf(SAFEARRAY* array) {
  if (!array) Raise(RuntimeError::kTypeMismatch);
  const UINT dimensions = SafeArrayGetDim(array);
  if (dimensions != 1 && dimensions != 2) Raise(RuntimeError::kTypeMismatch);
  const Dimension rows = dimensions == 2 ? DimensionOf(array, 1) : Dimension{};
  const Dimension columns = DimensionOf(array, dimensions);
  VARTYPE type = VT_EMPTY;
  Require(SafeArrayGetVartype(array, &type));
  CellGrid grid(rows.count, columns.count);
  if (type == VT_VARIANT) {
    ReadVariants(grid, array);
  } else {
    ReadOthers(grid, array, type, rows, columns);
  }
  return grid;
}

}  // namespace

CellGrid ToGrid(const Variant& variant) {
  const VARIANT& held = variant.get();
  if (held.vt == (VT_BYREF | VT_VARIANT)) {
    Variant referred;
    Require(VariantCopyInd(referred.Receive(), const_cast<VARIANT*>(&held)));
    return ToGrid(referred);
  }
  if ((held.vt & VT_ARRAY) != 0) return GridOf((held.vt & VT_BYREF) != 0 ? *held.pparray : held.parray);
  CellGrid grid(1, 1);
  grid.At(0, 0) = ToValue(variant);
  return grid;
}

Variant GridToVariant(const CellGrid& grid) {
  SafeArray array(VT_VARIANT, {{static_cast<ULONG>(grid.rows()), 1}, {static_cast<ULONG>(grid.columns()), 1}});
  {
    const SafeArrayAccess access = array.Access();
    VARIANT* next = access.As<VARIANT>();
    for (std::int32_t column = 0; column < grid.columns(); ++column) {
      for (std::int32_t row = 0; row < grid.rows(); ++row, ++next) {
        const Value& cell = grid.At(row, column);
        if (!IsNull(cell)) *next = ValueToVariant(cell).Detach();
      }
    }
  }
  return array.Detach();
}

}  // namespace zorkanca::win32
