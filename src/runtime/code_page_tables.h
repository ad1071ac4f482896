// The facts behind the ANSI code pages: the characters of the upper 128 bytes and what stands in for other characters.
#pragma once

#include <array>
#include <span>

#include "runtime/text.h"

namespace zorkanca {

/// A character of the page and the characters outside the page that are written as it.
struct Substitute {
  char16_t character;
  TextView standsFor;
};

struct CodePageTable {
  TextView upperHalf;  ///< characters of the bytes 80 to FF; a byte without one has the control character of its code
  /// Substitutes, later lists before earlier ones. A character that the page has needs none, even where it is listed.
  std::array<std::span<const Substitute>, 3> substitutes;
};

/// The tables of page 1250, 1251 or 1252.
/// Errors: 5 for any other number.
CodePageTable CodePageTableOf(int number);

}  // namespace zorkanca
