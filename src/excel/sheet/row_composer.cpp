#include "excel/sheet/row_composer.h"

#include <algorithm>
#include <charconv>

namespace zorkanca::excel {

namespace {

constexpr std::int32_t kNoRow = kLastRow + 1;
constexpr double kDaysTo1904 = 1462;

// The next row of a range of rows.
std::int32_t NextWithin(std::int32_t first, std::int32_t last, std::int32_t after) {
  const std::int32_t next = std::max(first, after + 1);
  return next <= last ? next : kNoRow;
}

CellArea AreaOf(const Layer& layer) {
  if (const auto* rows = std::get_if<RowsLayer>(&layer)) return rows->Area();
  if (const auto* contents = std::get_if<ContentsLayer>(&layer)) return contents->area;
  if (const auto* look = std::get_if<LookLayer>(&layer)) return look->area;
  const auto& edits = std::get<EditsLayer>(layer).rows;
  if (edits.empty()) return {};
  return {edits.begin()->first, 1, edits.rbegin()->first, kLastColumn};
}

bool IsDate(ContentLook look) {
  return look == ContentLook::kDate || look == ContentLook::kDayMonth || look == ContentLook::kMonthYear ||
         look == ContentLook::kDateTime;
}

LookChange ChangeOf(ContentLook look, const CellSource& source) {
  const auto format = [](std::int32_t id) { return LookChange{.numberFormat = NumberFormatCode{.id = id}}; };
  const auto amount = [&](bool decimals) {
    return LookChange{.numberFormat = NumberFormatCode{.pattern = source.AmountPattern(decimals)}};
  };
  switch (look) {
    case ContentLook::kGeneral:
      return {};
    case ContentLook::kText:
      return format(49);
    case ContentLook::kGeneralLines:
      return {.wrap = true};
    case ContentLook::kTextLines:
      return {.wrap = true, .numberFormat = NumberFormatCode{.id = 49}};
    case ContentLook::kGrouped:
      return format(3);
    case ContentLook::kGroupedDecimals:
      return format(4);
    case ContentLook::kPercent:
      return format(9);
    case ContentLook::kPercentDecimals:
      return format(10);
    case ContentLook::kScientific:
      return format(11);
    case ContentLook::kAmount:
      return amount(false);
    case ContentLook::kAmountDecimals:
      return amount(true);
    case ContentLook::kDate:
      return format(14);
    case ContentLook::kDayMonth:
      return format(16);
    case ContentLook::kMonthYear:
      return format(17);
    case ContentLook::kDateTime:
      return format(22);
    case ContentLook::kTime:
      return format(20);
    case ContentLook::kTimeSeconds:
      return format(21);
    case ContentLook::kElapsed:
      return format(46);
  }
  return {};
}

}  // namespace

RowComposer::RowComposer(const SheetModel& model)
    : model_(model), states_(model.layers().size()), lookStyles_(kContentLooks, -1) {}

std::int32_t RowComposer::NextOf(const Layer& layer, std::int32_t after) const {
  if (const auto* edits = std::get_if<EditsLayer>(&layer)) {
    const auto next = edits->rows.upper_bound(after);
    return next == edits->rows.end() ? kNoRow : next->first;
  }
  const CellArea area = AreaOf(layer);
  if (std::holds_alternative<LookLayer>(layer) && area.IsWholeColumns()) return kNoRow;
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

std::string_view RowComposer::Untouched() const {
  for (const Layer& layer : model_.layers()) {
    if (AreaOf(layer).HasRow(row_)) return {};
  }
  const SheetPart::RowEntry* entry = FileRow(row_);
  return entry && !entry->hasFormula ? model_.part().XmlOf(*entry) : std::string_view();
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
    if (const auto* look = std::get_if<LookLayer>(&layers[i])) Apply(*look, states_[i]);
    if (const auto* edits = std::get_if<EditsLayer>(&layers[i])) Apply(*edits);
  }
  return view_;
}

std::uint32_t RowComposer::Changed(const SheetModel& model, const LookLayer& layer, LayerState& state,
                                   std::uint32_t style) {
  for (const auto& [from, to] : state.styles) {
    if (from == style) return to;
  }
  state.styles.emplace_back(style, model.styles().Changed(style, layer.change));
  return state.styles.back().second;
}

// The look of a place without a cell, as the layers so far left it.
std::uint32_t RowComposer::StyleBelow(std::int32_t column) {
  if (view_.styled) return view_.style;
  std::uint32_t style = model_.fileColumns().StyleOf(column);
  for (std::size_t i = 0; i < layer_; ++i) {
    const auto* look = std::get_if<LookLayer>(&model_.layers()[i]);
    if (look && look->area.IsWholeColumns() && look->area.HasColumn(column)) {
      style = Changed(model_, *look, states_[i], style);
    }
  }
  return style;
}

std::uint32_t RowComposer::StyleOfLook(ContentLook look, const CellSource& source) {
  std::int64_t& style = lookStyles_[static_cast<std::size_t>(look)];
  if (style < 0) style = look == ContentLook::kGeneral ? 0 : model_.styles().Changed(0, ChangeOf(look, source));
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
    if (layer.withLooks || !below) return;
    merged_.push_back({.column = column, .style = below->style});
    return;
  }
  CellView& cell = merged_.emplace_back();
  cell.column = column;
  cell.kind = content.kind;
  cell.content = content.text;
  cell.formula = content.formula;
  if (layer.withLooks) cell.shown = content.shown;
  cell.style = layer.withLooks ? StyleOfLook(content.look, *layer.source) : below ? below->style : StyleBelow(column);
  if (content.quotePrefix) cell.style = Quoted(cell.style);
  if (model_.is1904() && content.kind == CellKind::kNumber && IsDate(content.look)) cell.content = DateText(content);
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

void RowComposer::Apply(const LookLayer& layer, LayerState& state) {
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
