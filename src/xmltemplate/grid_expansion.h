// Repeats the grids of one sign in a text.
//
//   before <?zrx_xls #grid_rows_(1)_begin# ?> body <?zrx_xls #grid_rows_(1)_end# ?> behind
//
// becomes, without blank lines around the borders: before, line end, and for each copy the indented body and a line
// end, then what was behind. The first copy is the body where it stands: of grids within grids nothing is read twice.
#pragma once

#include <cstddef>
#include <cstdint>

#include "runtime/text.h"
#include "xmltemplate/marked_text.h"
#include "xmltemplate/markers.h"

namespace zorkanca {

class GridExpansion {
 public:
  /// @param maximumSize  characters that the text may grow to
  GridExpansion(MarkedText& text, GridDirection direction, std::int16_t sign, std::int16_t count,
                std::size_t maximumSize);

  /// Errors: 7, see `TaggedText::ExpandGrid`.
  void Run();

 private:
  void Expand(TextPiece* begin, TextPiece* end);
  Text OtherCopies(TextView body) const;
  bool NumberFirstCopy(TextPlace firstCopy, TextPiece* end);
  void CheckSize(std::size_t bodySize) const;

  MarkedText& text_;
  std::int16_t count_;
  std::size_t maximumSize_;
  Text beginSymbol_;
  Text endSymbol_;
  Text indent_;
  Text prototype_;         // the text whose open index is replaced by a copy's number
  std::size_t openIndex_;  // offset of that index in it
  TextPlace searched_;     // from the first grid up to here no prototype is left
};

}  // namespace zorkanca
