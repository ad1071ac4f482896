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
  /// Lines that a text takes where each may be so wide: it is broken at its line feeds, then between words and behind
  /// hyphens, then anywhere. At least 1.
  std::int64_t LinesWithin(std::string_view utf8, double pixels) const;
  /// Pixels of a line with its share of a row's height.
  int LinePixels() const;
  /// Pixels of the widest digit, rounded: what widths of columns are counted in.
  int DigitPixels() const;

 private:
  std::int64_t UnitsOf(std::string_view utf8) const;
  std::int64_t LinesOfParagraph(std::string_view utf8, std::int64_t room) const;

  std::array<std::uint16_t, 128> ascii_{};
  std::size_t face_ = 0;  // column of the tables
  double pixelsPerUnit_ = 0;
  double emPixels_ = 0;
};

/// Pixels of a column's margins. @param digitPixels  of the workbook's standard font
int MarginPixels(int digitPixels);
/// Pixels of a column with its margins. @param width  in digits with margins, as files have it
int PixelsOfWidth(double width, int digitPixels);

/// The width of a column, in digits with margins, that holds so many pixels: at most 255.
/// @param digitPixels  of the workbook's standard font
double ColumnWidthFor(double pixels, int digitPixels);

}  // namespace zorkanca::excel
