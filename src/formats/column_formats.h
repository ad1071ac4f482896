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
  /// Columns beyond the formats, and those with a blank one, keep their values as they are.
  ColumnFormats(std::span<const Text> formats, std::int32_t columnCount, const Locale& locale);

  /// The format of a column (from 0); null when its values stay as they are. It is parsed when it is first asked for,
  /// so that a malformed one of a column without values hurts nobody. Errors: those of `cFormat::format`.
  const cFormat* Of(std::int32_t column);

 private:
  struct Column {
    Text text;
    std::optional<cFormat> format{};  // once it was parsed
  };

  const Locale& locale_;
  std::vector<Column> columns_;
};

}  // namespace zorkanca
