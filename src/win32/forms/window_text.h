// The text of a window.
#pragma once

#include "runtime/text.h"
#include "win32/system.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

inline Text TextOf(HWND window) {
  Text text;
  const int room = GetWindowTextLengthW(window) + 1;
  const int length = GetWindowTextW(window, WideRoom(text, static_cast<std::size_t>(room)), room);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

/// A text that is there already is left alone: setting it would flicker, and an edited one would lose its cursor.
inline void ShowText(HWND window, const Text& text) {
  if (TextOf(window) != text) SetWindowTextW(window, Wide(text));
}

}  // namespace zorkanca::win32
