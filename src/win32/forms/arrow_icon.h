// The arrow pictures of buttons, drawn in the colours of the system.
#pragma once

#include <utility>

#include "platform/form_controls.h"
#include "win32/system.h"

namespace zorkanca::win32 {

/// Owns the picture.
class ArrowIcon {
 public:
  ArrowIcon() = default;
  /// @param side  pixels
  ArrowIcon(ButtonImage image, int side);
  ~ArrowIcon();
  ArrowIcon(ArrowIcon&& other) noexcept : icon_(std::exchange(other.icon_, nullptr)) {}
  ArrowIcon& operator=(ArrowIcon&& other) noexcept {
    std::swap(icon_, other.icon_);
    return *this;
  }

  /// Null for a button without a picture.
  HICON handle() const { return icon_; }

 private:
  HICON icon_ = nullptr;
};

}  // namespace zorkanca::win32
