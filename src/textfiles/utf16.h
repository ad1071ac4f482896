// UTF-16 little-endian as bytes of a file.
#pragma once

#include <bit>
#include <string>
#include <string_view>

#include "runtime/text.h"

namespace zorkanca {

/// What a file in UTF-16 little-endian begins with.
inline constexpr std::string_view kByteOrderMark = "\xFF\xFE";

/// Appends the units of a text.
inline void AppendUtf16(std::string& bytes, TextView text) {
  static_assert(std::endian::native == std::endian::little, "the units in memory are the bytes of the file");
  bytes.append(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
}

}  // namespace zorkanca
