#include "formats/column_formats.h"

#include <algorithm>
#include <utility>

namespace zorkanca {

ColumnFormats::ColumnFormats(std::span<const Text> formats, std::int32_t columnCount, const Locale& locale)
    : locale_(locale) {
  for (const Text& format : formats.first(std::min(formats.size(), static_cast<std::size_t>(columnCount)))) {
    columns_.push_back({.text = Text(Trim(format))});
  }
}

const cFormat* ColumnFormats::Of(std::int32_t column) {
  const auto index = static_cast<std::size_t>(column);
  if (index >= columns_.size() || columns_[index].text.empty()) return nullptr;
  std::optional<cFormat>& format = columns_[index].format;
  if (!format) {
    cFormat parsed(locale_);
    parsed.format(columns_[index].text);
    format.emplace(std::move(parsed));
  }
  return &*format;
}

}  // namespace zorkanca
