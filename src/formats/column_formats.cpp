#include "formats/column_formats.h"

#include <algorithm>

namespace zorkanca {

ColumnFormats::ColumnFormats(std::span<const Text> formats, std::int32_t columnCount, const Locale& locale) {
  const std::size_t count = std::min(formats.size(), static_cast<std::size_t>(columnCount));
  formats_.resize(count);
  for (std::size_t column = 0; column < count; ++column) {
    if (!IsBlank(formats[column])) formats_[column].emplace(locale).format(Trim(formats[column]));
  }
}

const cFormat* ColumnFormats::Of(std::int32_t column) const {
  const auto index = static_cast<std::size_t>(column);
  return index < formats_.size() && formats_[index] ? &*formats_[index] : nullptr;
}

}  // namespace zorkanca
