#include "excel/sheet/column_table.h"

#include <charconv>

#include "excel/grid/xml_scanner.h"

namespace zorkanca::excel {

void ColumnTable::Add(std::int32_t first, std::int32_t last, std::uint32_t style, std::string_view attributes) {
  Range range{.last = last, .style = style, .attributes = {}};
  AppendAttributesBut(range.attributes, attributes, {"min", "max", "style"});
  ranges_[first] = std::move(range);
}

const ColumnTable::Range* ColumnTable::RangeOf(std::int32_t column) const {
  auto after = ranges_.upper_bound(column);
  if (after == ranges_.begin()) return nullptr;
  const auto& [first, range] = *--after;
  return column <= range.last ? &range : nullptr;
}

std::uint32_t ColumnTable::StyleOf(std::int32_t column) const {
  const Range* range = RangeOf(column);
  return range ? range->style : 0;
}

std::optional<double> ColumnTable::WidthOf(std::int32_t column) const {
  const Range* range = RangeOf(column);
  const std::string_view text = range ? AttributeText(range->attributes, "width") : std::string_view();
  double width = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), width);
  return failure == std::errc() ? std::optional(width) : std::nullopt;
}

// A range of that column alone, cut out of a wider one.
ColumnTable::Range& ColumnTable::Alone(std::int32_t column) {
  const auto after = ranges_.upper_bound(column);
  if (after != ranges_.begin()) {
    const auto place = std::prev(after);
    const auto [first, range] = *place;
    if (column <= range.last) {
      if (column < range.last) ranges_[column + 1] = range;
      if (first < column) place->second.last = column - 1;
      Range& alone = ranges_[column] = range;
      alone.last = column;
      return alone;
    }
  }
  return ranges_[column] = Range{.last = column, .style = 0, .attributes = {}};
}

void ColumnTable::SetStyle(std::int32_t column, std::uint32_t style) {
  Alone(column).style = style;
}

void ColumnTable::SetFittedWidth(std::int32_t column, double width) {
  Range& range = Alone(column);
  std::string kept;
  AppendAttributesBut(kept, range.attributes, {"width", "customWidth", "bestFit"});
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, width).ptr;
  range.attributes = " width=\"" + std::string(digits, end) + "\" bestFit=\"1\" customWidth=\"1\"" + kept;
}

std::string ColumnTable::ToXml(std::string_view prefix) const {
  std::string xml;
  for (const auto& [first, range] : ranges_) {
    xml.append("<").append(prefix).append("col min=\"");
    AppendNumber(xml, first);
    xml += "\" max=\"";
    AppendNumber(xml, range.last);
    xml += "\"";
    // A column without width would have none at all.
    if (!FindAttribute(range.attributes, "width")) xml += " width=\"9.140625\"";
    if (range.style != 0) {
      xml += " style=\"";
      AppendNumber(xml, range.style);
      xml += "\"";
    }
    xml.append(range.attributes).append("/>");
  }
  return xml;
}

}  // namespace zorkanca::excel
