// The text of a window, in the system's units, which are those of ours.
#pragma once

#include "runtime/text.h"
#include "win32/system.h"

namespace zorkanca::win32 {

inline const wchar_t* AsWide(const Text& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

inline Text TextOf(HWND window) {
  Text text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
  const int length = GetWindowTextW(window, reinterpret_cast<wchar_t*>(text.data()), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

/// A text that is there already is left alone: setting it would flicker, and an edited one would lose its cursor.
inline void ShowText(HWND window, const Text& text) {
  if (TextOf(window) != text) SetWindowTextW(window, AsWide(text));
}

}  // namespace zorkanca::win32
