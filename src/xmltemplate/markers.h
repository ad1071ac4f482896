// The markers of a spreadsheet-XML template: processing instructions of the target "zrx_xls".
//
//   <?zrx_xls #worksheet_begin# ?>                      a symbol, anywhere between target and "?>"
//   <?zrx_xls #GD-C1-c[***]-R2-r[003]-# ?>              a tagged cell: signs and indices of its column and row grid
//   <?zrx_xls #grid_rows_(2)_begin# ?>                  the border of a grid
//
// Blanks may stand before the target word, its case is ignored. Tagged cells and grids count only when written exactly
// as above, but for the case of letters.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "runtime/text.h"

namespace zorkanca {

/// Published symbol numbers.
enum ZrxXlsSymbolType {
  WorksheetBeginSymbol = 0,
  WorksheetEndSymbol = 1,
  WorksheetNameSymbol = 2,
  WorksheetSectionBeginSymbol = 3,
  WorksheetSectionEndSymbol = 4,
  WorksheetSectionSymbol = 5,
};

/// How every marker begins that the system itself writes.
inline constexpr TextView kMarkerStart = u"<?zrx_xls ";
inline constexpr TextView kMarkerEnd = u" ?>";
/// How the symbols of worksheets begin, and those of sections' beginnings.
inline constexpr TextView kWorksheetSymbolStart = u"#worksheet_";
inline constexpr TextView kSectionBeginStart = u"#worksheet_section_begin(";

/// The symbol's text; nothing for an unknown type.
/// @param sectionNumber  used by the three section symbols
Text SymbolText(ZrxXlsSymbolType type, std::int16_t sectionNumber = 0);

/// A whole marker around a symbol, as the system writes it.
Text MarkerText(TextView symbol);

/// A part of a text, from `start` up to but without `end`.
struct TextRange {
  std::size_t start = 0;
  std::size_t end = 0;
};

/// The first marker that contains the symbol.
std::optional<TextRange> FindInstruction(TextView text, TextView symbol);

/// What the text from a "<?" on is.
enum class MarkerStart {
  kNone,
  kMarker,   ///< the start of a marker
  kPending,  ///< the text ends before that can be told
};
MarkerStart MarkerStartAt(TextView text);

/// Which direction a grid repeats.
enum class GridDirection { kColumns, kRows };

/// Symbols of a grid's borders, for example "#grid_rows_(2)_begin#".
Text GridBeginSymbol(GridDirection direction, std::int16_t sign);
Text GridEndSymbol(GridDirection direction, std::int16_t sign);

/// An index as markers have it: three digits at least.
Text IndexText(std::int16_t index);
/// In place of an index: any.
inline constexpr TextView kAnyIndex = u"***";

/// Makes a text the symbol of a tagged cell with these indices, each a number's text or `kAnyIndex`.
void AssignCellSymbol(Text& text, std::int16_t colSign, std::int16_t rowSign, TextView colIndex, TextView rowIndex);

}  // namespace zorkanca
