// Bars for those who have no bar-code font: a content becomes the widths of bars and spaces, and these a picture.
// What is drawn is always a whole symbol that a reader decodes back to the content, also where a font text leaves out
// the start, the check character or the stop.
#pragma once

#include <cstdint>
#include <vector>

#include "barcode/symbology.h"
#include "runtime/code_page.h"
#include "runtime/text.h"

namespace zorkanca {

/// The light margin on either side of the bars, in modules.
inline constexpr std::size_t kBarCodeQuietZone = 10;

struct BarCodeDrawing {
  Text content;                      ///< for people; a reader of the bars gets it, in Code 39 with the check character
  std::vector<std::uint8_t> widths;  ///< of bar, space, bar, ... bar in modules, the width of the narrowest bar
};

/// Draws a content as `cBarCode` gives it (`RecordContent`, `ValueContent`).
/// Code 39 after ISO/IEC 16388: wide is 3 modules, gaps between characters are 1. Code 128 after ISO/IEC 15417: 11
/// modules a symbol, 13 the stop; its check symbol is drawn whether or not the font text has one.
/// @param checkCharacter  Code 39 only: draw the check character too
/// Errors: 5 for an empty content, for an unknown symbology, and for a content that the symbology cannot carry.
BarCodeDrawing DrawBarCode(BarCodeSymbology symbology, TextView content, bool checkCharacter, const CodePage& codePage);

/// The drawing as an SVG document of ASCII characters: black on white, quiet zones included, two pixels a module (any
/// other size can be set on it), as high as 15 % of its width but 40 modules at least. The content is its title.
Text BarCodeSvg(const BarCodeDrawing& drawing);

}  // namespace zorkanca
