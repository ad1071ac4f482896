// Heights of rows.
//
// A row is measured only when one of its cells has a format that wraps, a text with line breaks, or a font that is
// higher than rows usually are; for all others the test costs a look into a table, or none where no cell format does
// any of it. Measured rows are as high as their highest cell: lines by the height of a line in the cell's font, where
// the lines are those that the text breaks into by words at the width of its column (of all its columns, for cells
// merged sideways) and at its line breaks. A height that somebody set stays; one that the program found for other
// contents ("ht" without "customHeight") is found anew.
//
// The widths of letters are those of two fonts, so that this is an estimate; the program finds its own as soon as
// somebody edits the row, because the height is not marked as set. The cost grows with the texts of the measured rows.
#include "excel/display/row_height.h"

#include <algorithm>
#include <cmath>

#include "excel/display/cell_value.h"
#include "excel/grid/xml_scanner.h"
#include "opc/xml_tree.h"

namespace zorkanca::excel {

namespace {

constexpr double kPointsPerPixel = 0.75;
constexpr double kHighest = 409.5;  // points
constexpr std::size_t kRememberedTexts = 256;

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
  for (std::uint32_t style = 0; style < sheet.styles().size() && !someCount_; ++style) {
    someCount_ = FindKind(style) != Kind::kPlain;
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

RowHeights::Kind RowHeights::FindKind(std::uint32_t style) const {
  if (sheet_.styles().LineBreakingOf(style).wraps) return Kind::kWraps;
  constexpr int kRounding = 1;  // heights of the usual fonts are known that closely
  const bool tall = TextWidths(sheet_.styles().FontOf(style)).LinePixels() > defaultPixels_ + kRounding;
  return tall ? Kind::kTall : Kind::kPlain;
}

RowHeights::Kind RowHeights::KindOf(const CellView& cell) {
  if (!someCount_ || cell.kind == CellKind::kBlank) return cell.hasLines ? Kind::kWraps : Kind::kPlain;
  if (cell.style >= kinds_.size()) kinds_.resize(cell.style + 1, Kind::kUnknown);
  Kind& kind = kinds_[cell.style];
  if (kind == Kind::kUnknown) kind = FindKind(cell.style);
  return cell.hasLines ? Kind::kWraps : kind;
}

double RowHeights::Of(const RowView& row) {
  if (allSet_) return 0;
  Kind kind = Kind::kPlain;
  for (const CellView& cell : row.cells) kind = std::max(kind, KindOf(cell));
  if (kind == Kind::kPlain) return 0;
  const bool isKnown = FindAttribute(row.attributes, "ht").has_value();
  if (kind == Kind::kTall && isKnown) return 0;  // found for the same font
  if (IsTrue(AttributeText(row.attributes, "customHeight")) || IsTrue(AttributeText(row.attributes, "hidden")))
    return 0;
  std::int64_t pixels = defaultPixels_;
  for (const CellView& cell : row.cells) {
    if (cell.kind == CellKind::kBlank) continue;
    pixels = std::max(pixels, LinesOf(cell, row.row) * FormatOf(cell.style).linePixels);
  }
  if (pixels == defaultPixels_ && !isKnown) return 0;
  return std::min(static_cast<double>(pixels) * kPointsPerPixel, kHighest);
}

std::int64_t RowHeights::LinesOf(const CellView& cell, std::int32_t row) {
  if (KindOf(cell) != Kind::kWraps || !IsText(cell) || FormatOf(cell.style).breaking.rotated) return 1;
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
