// Names in packages are compared ignoring the case of A to Z and of nothing else.
#pragma once

#include <string>
#include <string_view>

namespace zorkanca {

/// The name with A to Z in lower case.
inline std::string AsciiLower(std::string_view name) {
  std::string lower(name);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  }
  return lower;
}

}  // namespace zorkanca
