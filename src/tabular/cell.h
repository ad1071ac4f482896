// One value of a record as its file spells it.
#pragma once

#include <cstdint>
#include <string_view>

namespace zorkanca {

/// What the file itself says of a value.
enum class CellKind : std::uint8_t {
  kNull,
  kUntyped,  ///< letters of a CSV field: they may spell anything
  kText,     ///< a JSON string
  kNumber,   ///< a JSON number, as written
  kBoolean,  ///< "true" or "false"
  kJson,     ///< an array or an object, as JSON text without blanks between its parts
};

struct Cell {
  CellKind kind = CellKind::kNull;
  std::string_view text;  ///< UTF-8
};

}  // namespace zorkanca
