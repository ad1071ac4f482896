#include "excel/sheet/row_writer.h"

#include <charconv>

#include "excel/grid/xml_scanner.h"
#include "excel/tables/string_item.h"

namespace zorkanca::excel {

RowWriter::RowWriter(XmlBuffer& xml, std::string prefix, TextTable& texts, const TableRenames& renames)
    : xml_(xml), prefix_(std::move(prefix)), texts_(texts), renames_(renames) {
  cellStart_ = "<" + prefix_ + "c r=\"";
  cellEnd_ = "</" + prefix_ + "c>";
  valueStart_ = "<" + prefix_ + "v>";
  valueCellEnd_ = "</" + prefix_ + "v></" + prefix_ + "c>";
}

void RowWriter::PutAttributesBut(std::string_view attributes, std::initializer_list<std::string_view> names) {
  scratch_.clear();
  AppendAttributesBut(scratch_, attributes, names);
  xml_.Put(scratch_);
}

void RowWriter::Write(const RowView& row, double height) {
  row_ = row.row;
  rowNumber_.clear();
  AppendNumber(rowNumber_, row_);
  xml_.Put("<");
  xml_.Put(prefix_);
  xml_.Put("row r=\"");
  xml_.Put(rowNumber_);
  xml_.Put('"');
  if (row.styled) {
    xml_.Put(" s=\"");
    xml_.PutNumber(row.style);
    xml_.Put("\" customFormat=\"1\"");
  }
  if (height > 0) {
    xml_.Put(" ht=\"");
    char digits[32];
    xml_.Put(std::string_view(digits, std::to_chars(digits, digits + sizeof digits, height).ptr));
    xml_.Put('"');
  }
  if (!row.attributes.empty()) {
    if (height > 0) {
      PutAttributesBut(row.attributes, {"r", "s", "customFormat", "spans", "ht"});
    } else {
      PutAttributesBut(row.attributes, {"r", "s", "customFormat", "spans"});
    }
  }
  if (row.cells.empty()) return xml_.Put("/>");
  xml_.Put('>');
  for (const CellView& cell : row.cells) WriteCell(cell);
  xml_.Put("</");
  xml_.Put(prefix_);
  xml_.Put("row>");
}

void RowWriter::WriteCell(const CellView& cell) {
  const auto index = static_cast<std::size_t>(cell.column);
  while (columns_.size() <= index) {
    columns_.emplace_back();
    AppendColumn(columns_.back(), static_cast<std::int32_t>(columns_.size()) - 1);
  }
  xml_.Put(cellStart_);
  xml_.Put(columns_[index]);
  xml_.Put(rowNumber_);
  xml_.Put('"');
  if (cell.style != 0) {
    xml_.Put(" s=\"");
    xml_.PutNumber(cell.style);
    xml_.Put('"');
  }
  if (!cell.extra.empty()) PutAttributesBut(cell.extra, {"r", "s", "t"});
  switch (cell.kind) {
    case CellKind::kBlank:
      return xml_.Put("/>");
    case CellKind::kNumber:
      xml_.Put('>');
      break;
    case CellKind::kBoolean:
      xml_.Put(" t=\"b\">");
      break;
    case CellKind::kError:
      xml_.Put(" t=\"e\">");
      break;
    case CellKind::kText:
      return WriteText(cell);
    case CellKind::kFormula:
    case CellKind::kFileFormula:
      return WriteFormula(cell);
    case CellKind::kFile:
      if (!cell.type.empty()) {
        xml_.Put(" t=\"");
        xml_.Put(cell.type);
        xml_.Put('"');
        if (cell.type == "s") ++stringReferences_;
      }
      xml_.Put('>');
      xml_.Put(cell.content);
      return xml_.Put(cellEnd_);
  }
  xml_.Put(valueStart_);
  xml_.PutText(cell.content);
  xml_.Put(valueCellEnd_);
}

void RowWriter::WriteText(const CellView& cell) {
  const std::optional<std::uint32_t> shared = texts_.Share(cell.column, cell.content);
  if (shared) {
    ++stringReferences_;
    xml_.Put(" t=\"s\">");
    xml_.Put(valueStart_);
    xml_.PutNumber(*shared);
    return xml_.Put(valueCellEnd_);
  }
  const auto put = [this](std::string_view piece) { xml_.Put(piece); };
  put(" t=\"inlineStr\"><");
  put(prefix_);
  put("is>");
  PutStringItem(cell.content, prefix_, put);
  put("</");
  put(prefix_);
  put("is>");
  put(cellEnd_);
}

void RowWriter::WriteFormula(const CellView& cell) {
  xml_.Put('>');
  if (cell.kind == CellKind::kFileFormula) {
    if (renames_.empty()) {
      xml_.Put(cell.content);
    } else {
      xml_.Put(renames_.RenamedElement(cell.content));
    }
    return xml_.Put(cellEnd_);
  }
  xml_.Put("<");
  xml_.Put(prefix_);
  xml_.Put("f");
  if (cell.array) {
    scratch_ = " t=\"array\" ref=\"";
    AppendArea(scratch_, {row_, cell.column, row_ + cell.array->rows - 1, cell.column + cell.array->columns - 1});
    scratch_ += "\"";
    xml_.Put(scratch_);
  }
  xml_.Put('>');
  scratch_.clear();
  cell.formula->AppendA1(scratch_, {row_, cell.column});
  if (!renames_.empty()) scratch_ = renames_.Renamed(scratch_);
  xml_.PutText(scratch_);
  xml_.Put("</");
  xml_.Put(prefix_);
  xml_.Put("f>");
  xml_.Put(cellEnd_);
}

}  // namespace zorkanca::excel
