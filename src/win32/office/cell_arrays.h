// Arrays of cells on their way to and from Excel.
#pragma once

#include "platform/excel/cell_grid.h"
#include "win32/automation/variant.h"

namespace zorkanca::win32 {

/// The cells of an array of one dimension, which is a row, or two, whatever its lower bounds; a single value is one
/// cell. Errors: 13 for arrays of other shapes.
CellGrid ToGrid(const Variant& variant);

/// An array of variants with two dimensions, counted from 1. Null becomes Empty.
Variant GridToVariant(const CellGrid& grid);

}  // namespace zorkanca::win32
