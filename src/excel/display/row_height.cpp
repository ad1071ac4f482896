// Heights of rows.
//
// A row is measured only when one of its cells has a format that wraps or a text with line breaks; for all others the
// test costs a look into a table. Measured rows are as high as their highest cell: lines by the height of a line in the
// cell's font, where the lines are those that the text breaks into by words at the width of its column (of all its
// columns, for cells merged sideways) and at its line breaks. A height that somebody set stays; one that the program
// found for other contents ("ht" without "customHeight") is found anew.
//
// The widths of letters are those of two fonts, so that this is an estimate; the program finds its own as soon as
// somebody edits the row, because the height is not marked as set. The cost grows with the texts of the measured rows.
#include "excel/display/row_height.h"

#include <algorithm>
#include <cmath>

#include "excel/display/cell_value.h"
#include "excel/grid/xml_scanner.h"

namespace zorkanca::excel {

namespace {

constexpr double kPointsPerPixel = 0.75;
constexpr double kHighest = 409.5;  // points
constexpr std::size_t kRememberedTexts = 256;

bool IsTrue(std::string_view value) {
  return value == "1" || value == "true" || value == "on";
}

bool IsText(const CellView& cell) {
  if (cell.kind == CellKind::kText) return true;
  return cell.kind == CellKind::kFile && (cell.type == "s" || cell.type == "inlineStr" || cell.type == "str");
}

}  // namespace

RowHeights::RowHeights(const SheetModel& sheet, const SharedStrings& texts, const ColumnTable& columns,
                       std::vector<CellArea> merges)
    : sheet_(sheet),
      texts_(texts),
      columns_(columns),
      merges_(std::move(merges)),
      digitPixels_(TextWidths(sheet.styles().StandardFont()).DigitPixels()),
      remembered_(kRememberedTexts) {
  std::sort(merges_.begin(), merges_.end(), [](const CellArea& a, const CellArea& b) { return a.top < b.top; });
  ReadDefaults();
  for (std::uint32_t style = 0; style < sheet.styles().size() && !someWrap_; ++style) {
    someWrap_ = sheet.styles().LineBreakingOf(style).wraps;
  }
}

void RowHeights::ReadDefaults() {
  const std::string name = sheet_.part().prefix() + "sheetFormatPr";
  const pugi::xml_node defaults = sheet_.part().frame().document_element().child(name.c_str());
  allSet_ = IsTrue(defaults.attribute("customHeight").value());
  const double height = defaults.attribute("defaultRowHeight").as_double();
  const int standard = TextWidths(sheet_.styles().StandardFont()).LinePixels();
  defaultPixels_ = height > 0 ? static_cast<int>(std::lround(height / kPointsPerPixel)) : standard;
  constexpr int kUsualDigits = 8;
  const int digits = defaults.attribute("baseColWidth").as_int(kUsualDigits);
  defaultWidth_ = defaults.attribute("defaultColWidth").as_double(ColumnWidthFor(digits * digitPixels_, digitPixels_));
}

const RowHeights::Format& RowHeights::FormatOf(std::uint32_t style) {
  if (style >= formats_.size()) formats_.resize(style + 1);
  if (!formats_[style]) {
    const TextWidths widths(sheet_.styles().FontOf(style));
    formats_[style] =
        std::make_unique<Format>(Format{widths, widths.LinePixels(), sheet_.styles().LineBreakingOf(style)});
  }
  return *formats_[style];
}

bool RowHeights::Wraps(const CellView& cell) {
  if (cell.style >= wraps_.size()) wraps_.resize(cell.style + 1, Known::kUnknown);
  Known& wraps = wraps_[cell.style];
  if (wraps == Known::kUnknown) wraps = FormatOf(cell.style).breaking.wraps ? Known::kYes : Known::kNo;
  return wraps == Known::kYes && cell.kind != CellKind::kBlank;
}

double RowHeights::Of(const RowView& row) {
  if (allSet_) return 0;
  bool mayBreak = false;
  for (const CellView& cell : row.cells) mayBreak = mayBreak || MayBreak(cell);
  if (!mayBreak) return 0;
  const std::string_view known = FindAttribute(row.attributes, "ht");
  if (IsTrue(FindAttribute(row.attributes, "customHeight")) || IsTrue(FindAttribute(row.attributes, "hidden")))
    return 0;
  std::int64_t pixels = defaultPixels_;
  for (const CellView& cell : row.cells) {
    if (cell.kind == CellKind::kBlank) continue;
    pixels = std::max(pixels, LinesOf(cell, row.row) * FormatOf(cell.style).linePixels);
  }
  if (pixels == defaultPixels_ && !known.data()) return 0;
  return std::min(static_cast<double>(pixels) * kPointsPerPixel, kHighest);
}

std::int64_t RowHeights::LinesOf(const CellView& cell, std::int32_t row) {
  if (!MayBreak(cell) || !IsText(cell) || FormatOf(cell.style).breaking.rotated) return 1;
  if (cell.kind == CellKind::kText) return LinesIn(cell.content, cell, row);
  Remembered& place = remembered_[(reinterpret_cast<std::uintptr_t>(cell.content.data()) >> 3) % kRememberedTexts];
  if (place.text != cell.content.data() || place.style != cell.style) {
    const CellValue value = ValueOf(cell, texts_, sheet_.part().prefix(), sheet_.is1904());
    const auto* text = std::get_if<std::string>(&value);
    place = {cell.content.data(), cell.style, text ? LinesIn(*text, cell, row) : 1};
  }
  return place.lines;
}

std::int64_t RowHeights::LinesIn(std::string_view utf8, const CellView& cell, std::int32_t row) {
  const Format& format = FormatOf(cell.style);
  const std::optional<double> room = RoomFor(cell, row);
  if (!room) return 1;
  return format.widths.LinesWithin(utf8, format.breaking.wraps ? *room : HUGE_VAL);
}

std::optional<double> RowHeights::RoomFor(const CellView& cell, std::int32_t row) {
  while (passedMerges_ < merges_.size() && merges_[passedMerges_].top < row) ++passedMerges_;
  std::int32_t last = cell.column;
  for (std::size_t i = passedMerges_; i < merges_.size() && merges_[i].top == row; ++i) {
    if (merges_[i].left != cell.column) continue;
    if (merges_[i].bottom > row) return std::nullopt;
    last = merges_[i].right;
  }
  int pixels = 0;
  for (std::int32_t column = cell.column; column <= last; ++column) pixels += PixelsOfColumn(column);
  const int indent = FormatOf(cell.style).breaking.indent * (digitPixels_ + 2);
  // What is as wide as its column was measured for it, and rounded since.
  return std::max(pixels - MarginPixels(digitPixels_) - indent + 1, digitPixels_ + 1);
}

int RowHeights::PixelsOfColumn(std::int32_t column) {
  const auto index = static_cast<std::size_t>(column);
  if (index >= columnPixels_.size()) columnPixels_.resize(index + 1, -1);
  if (columnPixels_[index] < 0) {
    columnPixels_[index] = PixelsOfWidth(columns_.WidthOf(column).value_or(defaultWidth_), digitPixels_);
  }
  return columnPixels_[index];
}

}  // namespace zorkanca::excel
