#include "tabular/json_extent.h"

namespace zorkanca {

std::optional<std::size_t> JsonExtent::Find(std::string_view text) {
  while (looked_ < text.size()) {
    const char byte = text[looked_];
    if (byte == '\\' && inText_) {
      if (looked_ + 1 == text.size()) return std::nullopt;  // what is escaped must be known
      looked_ += 2;
      continue;
    }
    ++looked_;
    if (byte == '"') {
      inText_ = !inText_;
    } else if (!inText_ && (byte == '{' || byte == '[')) {
      ++depth_;
    } else if (!inText_ && (byte == '}' || byte == ']') && --depth_ == 0) {
      return looked_;
    }
  }
  return std::nullopt;
}

}  // namespace zorkanca
