#include "excel/sheet/sheet_model.h"

#include "excel/grid/excel_errors.h"
#include "excel/grid/xml_scanner.h"
#include "excel/sheet/row_composer.h"
#include "opc/xml_names.h"

namespace zorkanca::excel {

namespace {

std::string RawAttributes(pugi::xml_node node) {
  const std::string xml = XmlBytes(node);
  XmlScanner scanner(xml);
  scanner.Next();
  return std::string(scanner.attributes());
}

}  // namespace

SheetModel::SheetModel(SheetPart part, StyleBook& styles, bool is1904)
    : part_(std::move(part)), styles_(styles), is1904_(is1904) {
  ReadColumns();
  fileColumns_ = columns_;
}

void SheetModel::ReadColumns() {
  const std::string cols = part_.prefix() + "cols";
  for (const pugi::xml_node column : part_.frame().document_element().child(cols.c_str()).children()) {
    if (column.type() != pugi::node_element) continue;
    const std::int32_t first = column.attribute("min").as_int();
    const std::int32_t last = std::min(column.attribute("max").as_int(), kLastColumn);
    const std::uint32_t style = column.attribute("style").as_uint();
    if (first < 1 || first > last) continue;
    columns_.Add(first, last, style < styles_.size() ? style : 0, RawAttributes(column));
  }
}

std::shared_ptr<const RowBlock> SheetModel::CopyRows(std::int32_t top, std::int32_t bottom) const {
  const auto block = std::make_shared<RowBlock>();
  block->top = top;
  block->rows.resize(static_cast<std::size_t>(bottom - top) + 1);
  RowComposer composer(*this);
  composer.Seek(top - 1);
  while (composer.Next() && composer.number() <= bottom) {
    block->rows[static_cast<std::size_t>(composer.number() - top)].emplace(composer.Compose());
  }
  return block;
}

void SheetModel::PasteRows(std::shared_ptr<const RowBlock> block, std::int32_t first, std::int32_t copies) {
  const CellArea target{first, 1, first + copies * block->RowCount() - 1, kLastColumn};
  for (const CellArea& array : part_.arrays()) {
    if (!Common(array, target) || target.Holds(array)) continue;
    RaiseExcelError(u"A part of an array formula cannot be replaced.");
  }
  auto* last = layers_.empty() ? nullptr : std::get_if<RowsLayer>(&layers_.back());
  if (last && last->block == block && last->Area().bottom + 1 == first) {
    last->copies += copies;
  } else {
    layers_.push_back(RowsLayer{.block = std::move(block), .first = first, .copies = copies});
  }
}

void SheetModel::Lay(ContentsLayer layer) {
  layers_.push_back(std::move(layer));
}

void SheetModel::Assign(const CellArea& area, const CellGrid& contents) {
  auto* last = layers_.empty() ? nullptr : std::get_if<ContentsLayer>(&layers_.back());
  const bool continues = last && last->packed && last->area.bottom + 1 == area.top && last->area.left == area.left &&
                         last->area.right == area.right;
  if (continues) {
    last->packed->Add(contents);
    last->area.bottom = area.bottom;
    return;
  }
  const auto packed = std::make_shared<PackedContents>(area.ColumnCount());
  packed->Add(contents);
  layers_.push_back(ContentsLayer{.area = area, .source = packed, .packed = packed});
}

void SheetModel::Edit(std::int32_t row, StoredCell cell) {
  if (layers_.empty() || !std::holds_alternative<EditsLayer>(layers_.back())) layers_.push_back(EditsLayer());
  const std::int32_t column = cell.column;
  std::get<EditsLayer>(layers_.back()).rows[row].insert_or_assign(column, std::move(cell));
}

void SheetModel::ChangeFormat(const CellArea& area, const CellFormatChange& change) {
  if (area.IsWholeColumns()) {
    for (std::int32_t column = area.left; column <= area.right; ++column) {
      columns_.SetStyle(column, styles_.Changed(columns_.StyleOf(column), change));
    }
  }
  layers_.push_back(CellFormatLayer{.area = area, .change = change});
}

bool SheetModel::contentsChanged() const {
  return std::any_of(layers_.begin(), layers_.end(),
                     [](const Layer& layer) { return !std::holds_alternative<CellFormatLayer>(layer); });
}

CellArea SheetModel::Extent() const {
  std::optional<CellArea> extent = part_.used();
  const auto cover = [&](std::int32_t top, std::int32_t left, std::int32_t bottom, std::int32_t right) {
    if (!extent) extent = CellArea{top, left, bottom, right};
    extent = CellArea{std::min(extent->top, top), std::min(extent->left, left), std::max(extent->bottom, bottom),
                      std::max(extent->right, right)};
  };
  for (const Layer& layer : layers_) {
    if (const auto* rows = std::get_if<RowsLayer>(&layer)) {
      for (const std::optional<StoredRow>& row : rows->block->rows) {
        if (!row || row->cells.empty()) continue;
        cover(rows->first, row->cells.front().column, rows->Area().bottom, row->cells.back().column);
      }
    } else if (const auto* contents = std::get_if<ContentsLayer>(&layer)) {
      cover(contents->area.top, contents->area.left, contents->area.bottom, contents->area.right);
    } else if (const auto* edits = std::get_if<EditsLayer>(&layer)) {
      for (const auto& [row, cells] : edits->rows) cover(row, cells.begin()->first, row, cells.rbegin()->first);
    }
  }
  return extent.value_or(CellArea());
}

}  // namespace zorkanca::excel
