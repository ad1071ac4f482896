// From the twips of the dialogs to the pixels of this desktop: dialogs grow with its font.
#pragma once

#include <QRect>

#include "platform/form_controls.h"

namespace zorkanca {

/// Dialogs are designed for a font whose lines are 13 and whose letters are on average 6 pixels of 15 twips; a larger
/// font of the desktop enlarges all lengths alike.
/// @return pixels in a twip
float PixelsPerTwip();

/// Both ways, whole pixels; edges are rounded, so that neighbours stay neighbours.
QRect ToPixels(const Bounds& twips);
Bounds ToTwips(const QRect& pixels);

}  // namespace zorkanca
