// What both notations of formulas share: which stretches of a formula cannot hold references.
#pragma once

#include <string_view>

#include "runtime/ascii.h"

namespace zorkanca::excel {

/// True for what names of functions, sheets and ranges are made of, "$" too.
constexpr bool IsNameCharacter(char c) {
  const bool alphanumeric = IsAlphanumeric(c);
  return alphanumeric || c == '_' || c == '.' || c == '$' || c == '\\' || c == '?' ||
         static_cast<unsigned char>(c) > 127;
}

/// Length of the text, sheet name, bracketed part or error value that a formula begins with; 0 when it begins with
/// something else.
std::size_t OpaqueLength(std::string_view formula);
/// Length of the number that a formula begins with: "1", "1.5E-3".
std::size_t NumberLength(std::string_view formula);
/// Length of the name that a formula begins with.
std::size_t NameLength(std::string_view formula);

}  // namespace zorkanca::excel
