// The formats that a caller gives the columns of a Word export, one text per column by position.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "formats/format.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

class ColumnFormats {
 public:
  /// Parses each format once. Columns beyond the formats, and those with a blank one, keep their values as they are.
  /// Errors: those of `cFormat::format`.
  ColumnFormats(std::span<const Text> formats, std::int32_t columnCount, const Locale& locale);

  /// The format of a column (from 0); null when its values stay as they are.
  const cFormat* Of(std::int32_t column) const;

 private:
  std::vector<std::optional<cFormat>> formats_;
};

}  // namespace zorkanca
