// Formulas with their references taken out, so that they can be written for any cell: relative references are kept as
// distances, absolute ones as places. Everything else of a formula is text that nobody looks at.
//
//   =B3*2+$B$1+'Jan 1'!C3     of row 3, in row 4:   =B4*2+$B$1+'Jan 1'!C4
//   the same in R1C1 notation, which is the same in every cell:   =RC[-1]*2+R1C2+'Jan 1'!RC
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "excel/grid/cell_address.h"

namespace zorkanca::excel {

class Formula {
 public:
  /// @param text  UTF-8 without the "=" in front, names of functions in English, as files have it
  /// @param at    the cell that it stands in
  static Formula FromA1(std::string_view text, CellAddress at);
  static Formula FromR1C1(std::string_view text);

  /// Appends the formula as it reads in a cell. A relative reference that leaves the sheet there becomes #REF!.
  void AppendA1(std::string& text, CellAddress at) const;
  void AppendR1C1(std::string& text) const;

 private:
  /// One coordinate: a place in the sheet, or a distance from the cell.
  struct Coordinate {
    std::int32_t number = 0;
    bool absolute = false;

    friend bool operator==(const Coordinate&, const Coordinate&) = default;
    std::int32_t From(std::int32_t base) const { return absolute ? number : base + number; }
  };
  struct Corner {
    Coordinate row, column;
    friend bool operator==(const Corner&, const Corner&) = default;
  };
  enum class Shape { kText, kCell, kArea, kRows, kColumns };
  struct Piece {
    Shape shape = Shape::kText;
    std::size_t length = 0;  ///< of the text, in texts_
    Corner first, last;
  };

  void AddText(std::string_view text);
  void AddReference(Shape shape, const Corner& first, const Corner& last);

  class A1Reader;
  class R1C1Reader;

  std::string texts_;  // of all pieces, one behind the other
  std::vector<Piece> pieces_;
};

}  // namespace zorkanca::excel
