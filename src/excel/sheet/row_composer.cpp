// A row is what the last repeat that covers it left there, or else what the file has; then the later layers are applied
// to it, in their order. Layers before that repeat cannot be seen any more, so that the search for it goes backwards
// and the composition forwards.
//
// Invariants: the cells of a row are in the order of their columns, no column twice. A content takes its format from
// the cell underneath, else from its row, else from its column as the layers so far left it; only an import with
// formats brings its own. A formula knows its cell only when it is written.
//
// The next row is the nearest that the file or any layer has. A row costs its cells and the layers that cover it;
// nothing is kept from one row to the next but the formats that a layer has already changed, and the place that a
// source was read up to. Walking down a sheet is therefore linear in what is read, and holds one row.
#include "excel/sheet/row_composer.h"

#include <algorithm>
#include <charconv>

#include "excel/grid/serial_date.h"

namespace zorkanca::excel {

namespace {

constexpr std::int32_t kNoRow = kLastRow + 1;

// The next row of a range of rows.
std::int32_t NextWithin(std::int32_t first, std::int32_t last, std::int32_t after) {
  const std::int32_t next = std::max(first, after + 1);
  return next <= last ? next : kNoRow;
}

CellArea AreaOf(const Layer& layer) {
  if (const auto* rows = std::get_if<RowsLayer>(&layer)) return rows->Area();
  if (const auto* contents = std::get_if<ContentsLayer>(&layer)) return contents->area;
  if (const auto* format = std::get_if<CellFormatLayer>(&layer)) return format->area;
  const auto& edits = std::get<EditsLayer>(layer).rows;
  if (edits.empty()) return {};
  return {edits.begin()->first, 1, edits.rbegin()->first, kLastColumn};
}

bool IsDate(ContentFormat format) {
  return format == ContentFormat::kDate || format == ContentFormat::kDayMonth || format == ContentFormat::kMonthYear ||
         format == ContentFormat::kDateTime;
}

CellFormatChange ChangeOf(ContentFormat format, const CellSource& source) {
  const auto builtIn = [](std::int32_t id) { return CellFormatChange{.numberFormat = NumberFormatCode{.id = id}}; };
  const auto amount = [&](bool decimals) {
    return CellFormatChange{.numberFormat = NumberFormatCode{.pattern = source.AmountPattern(decimals)}};
  };
  switch (format) {
    case ContentFormat::kGeneral:
      return {};
    case ContentFormat::kText:
      return builtIn(49);
    case ContentFormat::kGeneralLines:
      return {.wrap = true};
    case ContentFormat::kTextLines:
      return {.wrap = true, .numberFormat = NumberFormatCode{.id = 49}};
    case ContentFormat::kGrouped:
      return builtIn(3);
    case ContentFormat::kGroupedDecimals:
      return builtIn(4);
    case ContentFormat::kPercent:
      return builtIn(9);
    case ContentFormat::kPercentDecimals:
      return builtIn(10);
    case ContentFormat::kScientific:
      return builtIn(11);
    case ContentFormat::kAmount:
      return amount(false);
    case ContentFormat::kAmountDecimals:
      return amount(true);
    case ContentFormat::kDate:
      return builtIn(14);
    case ContentFormat::kDayMonth:
      return builtIn(16);
    case ContentFormat::kMonthYear:
      return builtIn(17);
    case ContentFormat::kDateTime:
      return builtIn(22);
    case ContentFormat::kTime:
      return builtIn(20);
    case ContentFormat::kTimeSeconds:
      return builtIn(21);
    case ContentFormat::kElapsed:
      return builtIn(46);
  }
  return {};
}

}  // namespace

RowComposer::RowComposer(const SheetModel& model)
    : model_(model), states_(model.layers().size()), contentStyles_(kContentFormats, -1) {}

std::int32_t RowComposer::NextOf(const Layer& layer, std::int32_t after) const {
  if (const auto* edits = std::get_if<EditsLayer>(&layer)) {
    const auto next = edits->rows.upper_bound(after);
    return next == edits->rows.end() ? kNoRow : next->first;
  }
  const CellArea area = AreaOf(layer);
  if (std::holds_alternative<CellFormatLayer>(layer) && area.IsWholeColumns()) return kNoRow;
  return NextWithin(area.top, area.bottom, after);
}

bool RowComposer::Next() {
  const auto& rows = model_.part().rows();
  const auto next =
      std::upper_bound(rows.begin(), rows.end(), row_,
                       [](std::int32_t row, const SheetPart::RowEntry& entry) { return row < entry.row; });
  std::int32_t nearest = next == rows.end() ? kNoRow : next->row;
  for (const Layer& layer : model_.layers()) nearest = std::min(nearest, NextOf(layer, row_));
  row_ = nearest;
  return row_ < kNoRow;
}

const SheetPart::RowEntry* RowComposer::FileRow(std::int32_t row) const {
  const auto& rows = model_.part().rows();
  const auto found =
      std::lower_bound(rows.begin(), rows.end(), row,
                       [](const SheetPart::RowEntry& entry, std::int32_t number) { return entry.row < number; });
  return found != rows.end() && found->row == row ? &*found : nullptr;
}

std::optional<std::string_view> RowComposer::Untouched() const {
  for (const Layer& layer : model_.layers()) {
    if (AreaOf(layer).HasRow(row_)) return std::nullopt;
  }
  const SheetPart::RowEntry* entry = FileRow(row_);
  if (!entry || entry->hasFormula) return std::nullopt;
  return model_.part().XmlOf(*entry);
}

const RowView& RowComposer::Compose() {
  const std::vector<Layer>& layers = model_.layers();
  view_.Clear(row_);
  texts_.clear();
  std::size_t start = layers.size();
  const RowsLayer* copied = nullptr;
  while (start > 0 && !copied) {
    const auto* rows = std::get_if<RowsLayer>(&layers[start - 1]);
    if (rows && rows->Area().HasRow(row_)) {
      copied = rows;
    } else {
      --start;
    }
  }
  if (copied) {
    const std::int32_t index = (row_ - copied->first) % copied->block->RowCount();
    const std::optional<StoredRow>& row = copied->block->rows[static_cast<std::size_t>(index)];
    if (row) row->Show(view_, row_);
  } else if (const SheetPart::RowEntry* entry = FileRow(row_)) {
    model_.part().Read(*entry, view_);
  }
  for (std::size_t i = start; i < layers.size(); ++i) {
    if (!AreaOf(layers[i]).HasRow(row_)) continue;
    layer_ = i;
    if (const auto* contents = std::get_if<ContentsLayer>(&layers[i])) Apply(*contents, states_[i]);
    if (const auto* format = std::get_if<CellFormatLayer>(&layers[i])) Apply(*format, states_[i]);
    if (const auto* edits = std::get_if<EditsLayer>(&layers[i])) Apply(*edits);
  }
  return view_;
}

std::uint32_t RowComposer::Changed(const SheetModel& model, const CellFormatLayer& layer, LayerState& state,
                                   std::uint32_t style) {
  for (const auto& [from, to] : state.styles) {
    if (from == style) return to;
  }
  state.styles.emplace_back(style, model.styles().Changed(style, layer.change));
  return state.styles.back().second;
}

// The format of a place without a cell, as the layers so far left it.
std::uint32_t RowComposer::StyleBelow(std::int32_t column) {
  if (view_.styled) return view_.style;
  std::uint32_t style = model_.fileColumns().StyleOf(column);
  for (std::size_t i = 0; i < layer_; ++i) {
    const auto* format = std::get_if<CellFormatLayer>(&model_.layers()[i]);
    if (format && format->area.IsWholeColumns() && format->area.HasColumn(column)) {
      style = Changed(model_, *format, states_[i], style);
    }
  }
  return style;
}

std::uint32_t RowComposer::StyleOfContent(ContentFormat format, const CellSource& source) {
  std::int64_t& style = contentStyles_[static_cast<std::size_t>(format)];
  if (style < 0) style = format == ContentFormat::kGeneral ? 0 : model_.styles().Changed(0, ChangeOf(format, source));
  return static_cast<std::uint32_t>(style);
}

std::uint32_t RowComposer::Quoted(std::uint32_t style) {
  for (const auto& [from, to] : quoted_) {
    if (from == style) return to;
  }
  quoted_.emplace_back(style, model_.styles().Changed(style, {.quotePrefix = true}));
  return quoted_.back().second;
}

// Imported dates count from 1900.
std::string_view RowComposer::DateText(const Content& content) {
  double serial = 0;
  std::from_chars(content.text.data(), content.text.data() + content.text.size(), serial);
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, serial - kDaysTo1904).ptr;
  texts_.push_back(std::make_unique<std::string>(digits, end));
  return *texts_.back();
}

void RowComposer::Put(const Content& content, const ContentsLayer& layer, std::int32_t column, const CellView* below) {
  if (content.missing) {
    if (below) merged_.push_back(*below);
    return;
  }
  if (content.kind == CellKind::kBlank) {
    if (layer.withFormats || !below) return;
    merged_.push_back({.column = column, .style = below->style});
    return;
  }
  CellView& cell = merged_.emplace_back();
  cell.column = column;
  cell.kind = content.kind;
  cell.content = content.text;
  cell.hasLines = content.hasLines;
  cell.formula = content.formula;
  if (layer.withFormats) cell.shown = content.shown;
  cell.style = layer.withFormats ? StyleOfContent(content.format, *layer.source)
               : below           ? below->style
                                 : StyleBelow(column);
  if (content.quotePrefix) cell.style = Quoted(cell.style);
  if (model_.is1904() && content.kind == CellKind::kNumber && IsDate(content.format)) cell.content = DateText(content);
}

void RowComposer::Apply(const ContentsLayer& layer, LayerState& state) {
  if (!state.cursor) state.cursor = layer.source->Open();
  const std::vector<Content>& contents = state.cursor->Row(layer.sourceRow + row_ - layer.area.top);
  merged_.clear();
  auto below = view_.cells.begin();
  for (; below != view_.cells.end() && below->column < layer.area.left; ++below) merged_.push_back(*below);
  const auto count = static_cast<std::int32_t>(contents.size()) - layer.sourceColumn;
  const std::int32_t end = std::min(layer.area.right, layer.area.left + count - 1);
  for (std::int32_t column = layer.area.left; column <= end; ++column) {
    while (below != view_.cells.end() && below->column < column) ++below;
    const bool covered = below != view_.cells.end() && below->column == column;
    Put(contents[static_cast<std::size_t>(layer.sourceColumn + column - layer.area.left)], layer, column,
        covered ? &*below : nullptr);
  }
  while (below != view_.cells.end() && below->column <= end) ++below;
  merged_.insert(merged_.end(), below, view_.cells.end());  // also what stands where the block has no field
  view_.cells.swap(merged_);
}

void RowComposer::Apply(const CellFormatLayer& layer, LayerState& state) {
  const auto changed = [&](std::uint32_t style) { return Changed(model_, layer, state, style); };
  if (layer.area.IsWholeRows()) {
    view_.style = changed(view_.styled ? view_.style : 0);
    view_.styled = true;
  }
  const auto first = std::lower_bound(view_.cells.begin(), view_.cells.end(), layer.area.left,
                                      [](const CellView& cell, std::int32_t column) { return cell.column < column; });
  for (auto cell = first; cell != view_.cells.end() && cell->column <= layer.area.right; ++cell) {
    cell->style = changed(cell->style);
  }
}

void RowComposer::Apply(const EditsLayer& layer) {
  const auto row = layer.rows.find(row_);
  if (row == layer.rows.end()) return;
  for (const auto& [column, edit] : row->second) {
    const auto place = std::lower_bound(view_.cells.begin(), view_.cells.end(), column,
                                        [](const CellView& cell, std::int32_t number) { return cell.column < number; });
    CellView cell = edit.View();
    if (place != view_.cells.end() && place->column == column) {
      cell.style = place->style;
      *place = cell;
    } else if (edit.kind != CellKind::kBlank) {
      cell.style = StyleBelow(column);
      view_.cells.insert(place, cell);
    } else {
      continue;
    }
    if (edit.quotePrefix) {
      const auto put = std::lower_bound(view_.cells.begin(), view_.cells.end(), column,
                                        [](const CellView& each, std::int32_t number) { return each.column < number; });
      put->style = Quoted(put->style);
    }
  }
}

}  // namespace zorkanca::excel
