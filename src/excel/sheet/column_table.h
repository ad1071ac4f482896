// The element cols: widths and formats of whole columns.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "excel/grid/cell_address.h"

namespace zorkanca::excel {

class ColumnTable {
 public:
  /// Adds a range as the file has it. @param attributes  raw; min, max and style of them do not count
  void Add(std::int32_t first, std::int32_t last, std::uint32_t style, std::string_view attributes);

  /// The format of what has no cell, 0 by default.
  std::uint32_t StyleOf(std::int32_t column) const;
  /// In digits with margins; nothing for a column of the usual width.
  std::optional<double> WidthOf(std::int32_t column) const;
  void SetStyle(std::int32_t column, std::uint32_t style);
  /// A width found for the longest content, in characters with margins.
  void SetFittedWidth(std::int32_t column, double width);

  bool empty() const { return ranges_.empty(); }
  /// The elements col. @param prefix  of element names
  std::string ToXml(std::string_view prefix) const;

 private:
  struct Range {
    std::int32_t last = 0;
    std::uint32_t style = 0;
    std::string attributes;
  };

  const Range* RangeOf(std::int32_t column) const;
  Range& Alone(std::int32_t column);

  std::map<std::int32_t, Range> ranges_;  // by their first column
};

}  // namespace zorkanca::excel
