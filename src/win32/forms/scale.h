// From the twips of the dialogs to the pixels of this screen: dialogs grow with the system's dialog font.
#pragma once

#include "platform/form_controls.h"
#include "win32/system.h"

namespace zorkanca::win32 {

/// The font of dialogs, and the lengths that go with it. Dialogs are designed for a font whose lines are 13 and whose
/// letters are on average 6 pixels of 15 twips; a larger one, as a finer screen has it, enlarges all lengths alike.
class Scale {
 public:
  Scale();
  ~Scale();
  Scale(const Scale&) = delete;
  Scale& operator=(const Scale&) = delete;

  HFONT font() const { return font_; }
  int lineHeight() const { return lineHeight_; }  ///< pixels
  float twipsPerPixel() const { return twipsPerPixel_; }

  /// Both ways, whole pixels; edges are rounded, so that neighbours stay neighbours.
  RECT ToPixels(const Bounds& twips) const;
  Bounds ToTwips(const RECT& pixels) const;

 private:
  HFONT font_;
  int lineHeight_;
  float twipsPerPixel_;
};

}  // namespace zorkanca::win32
