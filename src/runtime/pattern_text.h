// What all format patterns share: literals in quotes and behind a backslash, letters of any case.
#pragma once

#include <cstddef>

#include "runtime/ascii.h"
#include "runtime/text.h"

namespace zorkanca {

/// Takes a quoted literal ("...", an open one reaching to the end) or an escaped character (\x) from the front.
/// @param literal  the literal without its marks, possibly empty
/// @return         false when the pattern begins with neither; nothing is taken then
inline bool TakeLiteral(TextView& pattern, TextView& literal) {
  if (pattern.starts_with(u'\\')) {
    literal = pattern.substr(1, 1);
    pattern.remove_prefix(1 + literal.size());
    return true;
  }
  if (!pattern.starts_with(u'"')) return false;
  pattern.remove_prefix(1);
  literal = pattern.substr(0, pattern.find(u'"'));
  pattern.remove_prefix(literal.size());
  if (!pattern.empty()) pattern.remove_prefix(1);
  return true;
}

/// How often the first unit repeats at the front, case ignored, at most `limit`.
inline std::size_t RunLength(TextView pattern, std::size_t limit) {
  const char16_t first = AsciiLower(pattern.front());
  std::size_t length = 1;
  while (length < limit && length < pattern.size() && AsciiLower(pattern[length]) == first) ++length;
  return length;
}

}  // namespace zorkanca
