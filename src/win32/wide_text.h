// Texts as the system takes and gives them: the same units under another type.
#pragma once

#include "runtime/text.h"

namespace zorkanca::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "the system's units are those of our texts");

/// The units of a text, ended by a zero unit; they live as long as the text.
inline const wchar_t* Wide(const Text& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}
/// Room of that many units for the system to write to.
inline wchar_t* WideRoom(Text& text, std::size_t units) {
  text.resize(units);
  return reinterpret_cast<wchar_t*>(text.data());
}
inline TextView FromWide(const wchar_t* units, std::size_t count) {
  return {reinterpret_cast<const char16_t*>(units), count};
}
/// Up to the zero unit; a null pointer is the empty text.
inline TextView FromWide(const wchar_t* units) {
  return units ? TextView(reinterpret_cast<const char16_t*>(units)) : TextView();
}

}  // namespace zorkanca::win32
