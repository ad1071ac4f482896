// One walk over the rows keeps the widest content of each column in pixels. What an import knows to be shown is
// measured as it is; the rest is shown by its number format first. A font's widths are looked up once for each cell
// format.
#include "excel/display/auto_fit.h"

#include <algorithm>
#include <memory>

#include "excel/display/cell_text.h"
#include "excel/display/text_width.h"
#include "excel/sheet/row_composer.h"
#include "runtime/utf8.h"

namespace zorkanca::excel {

namespace {

class Fitter {
 public:
  Fitter(const SheetModel& sheet, const SharedStrings& texts, const Locale& locale)
      : sheet_(sheet), texts_(sheet, texts, locale) {}

  void Measure(const CellView& cell) {
    if (!HasContent(cell)) return;
    const auto column = static_cast<std::size_t>(cell.column);
    if (column >= pixels_.size()) pixels_.resize(column + 1);
    pixels_[column] = std::max(pixels_[column], PixelsOf(cell));
  }

  std::map<std::int32_t, double> Widths() const {
    const int digit = TextWidths(sheet_.styles().StandardFont()).DigitPixels();
    std::map<std::int32_t, double> widths;
    for (std::size_t column = 0; column < pixels_.size(); ++column) {
      if (pixels_[column] > 0) widths[static_cast<std::int32_t>(column)] = ColumnWidthFor(pixels_[column], digit);
    }
    return widths;
  }

 private:
  // Most texts and numbers of an import are measured as they came; millions of them need no formatting.
  double PixelsOf(const CellView& cell) {
    const TextWidths& widths = WidthsOf(cell.style);
    if (!cell.shown.empty()) return widths.PixelsOfLines(cell.shown);
    if (cell.kind == CellKind::kText) return widths.PixelsOfLines(cell.content);
    return widths.PixelsOfLines(ToUtf8(texts_.Show(cell)));
  }

  const TextWidths& WidthsOf(std::uint32_t style) {
    if (style >= widths_.size()) widths_.resize(style + 1);
    if (!widths_[style]) widths_[style] = std::make_unique<TextWidths>(sheet_.styles().FontOf(style));
    return *widths_[style];
  }

  const SheetModel& sheet_;
  CellTexts texts_;
  std::vector<std::unique_ptr<TextWidths>> widths_;  // by cell format
  std::vector<double> pixels_;                       // by column
};

}  // namespace

std::map<std::int32_t, double> FittedWidths(const SheetModel& sheet, const CellArea& area, const SharedStrings& texts,
                                            const Locale& locale, const ExcelWatch& watch) {
  Fitter fitter(sheet, texts, locale);
  RowComposer composer(sheet);
  composer.Seek(area.top - 1);
  WatchedWork work(watch, ExcelWork::kFitting, static_cast<std::uint64_t>(sheet.Extent().bottom));
  while (composer.Next() && composer.number() <= area.bottom) {
    work.Reach(static_cast<std::uint64_t>(composer.number()));
    for (const CellView& cell : composer.Compose().cells) {
      if (area.HasColumn(cell.column)) fitter.Measure(cell);
    }
  }
  return fitter.Widths();
}

}  // namespace zorkanca::excel
