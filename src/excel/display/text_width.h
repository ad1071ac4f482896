// How wide texts are, without any font at hand: the advance widths of the two usual fonts, as two fonts of the same
// measures (Carlito for Calibri, Liberation Sans for Arial) give them. Other fonts count as Arial.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "excel/tables/style_book.h"

namespace zorkanca::excel {

class TextWidths {
 public:
  explicit TextWidths(const CellFont& font);

  /// Pixels of a line at 96 dots per inch, not rounded. @param utf8  one line
  double PixelsOf(std::string_view utf8) const;
  /// The same for the longest of several lines.
  double PixelsOfLines(std::string_view utf8) const;
  /// Pixels of the widest digit, rounded: what widths of columns are counted in.
  int DigitPixels() const;

 private:
  std::int64_t UnitsOf(std::string_view utf8) const;

  std::array<std::uint16_t, 128> ascii_{};
  std::size_t face_ = 0;  // column of the tables
  double pixelsPerUnit_ = 0;
};

/// The width of a column, in digits with margins, that holds so many pixels: at most 255.
/// @param digitPixels  of the workbook's standard font
double ColumnWidthFor(double pixels, int digitPixels);

}  // namespace zorkanca::excel
