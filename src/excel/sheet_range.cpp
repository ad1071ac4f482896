#include "excel/sheet_range.h"

#include <charconv>

#include "excel/display/cell_text.h"
#include "excel/grid/excel_errors.h"
#include "excel/pasting.h"
#include "excel/sheet/current_region.h"
#include "excel/sheet/row_composer.h"
#include "runtime/utf8.h"

namespace zorkanca::excel {

namespace {

// A whole import is connected even where a record has no text; the sheet may have been formatted since.
std::optional<CellArea> ConnectedImport(const SheetModel& sheet, const CellArea& area) {
  const auto* layer = sheet.layers().empty() ? nullptr : std::get_if<ContentsLayer>(&sheet.layers().front());
  if (!layer || !sheet.part().rows().empty() || area.top != 1 || area.left != 1) return std::nullopt;
  if (layer->area.top != 1 || layer->area.left != 1) return std::nullopt;
  const auto* import = dynamic_cast<const ImportedText*>(layer->source.get());
  const auto isFormat = [](const Layer& each) { return std::holds_alternative<CellFormatLayer>(each); };
  if (!import || !std::all_of(sheet.layers().begin() + 1, sheet.layers().end(), isFormat)) return std::nullopt;
  const bool whole = layer->area.RowCount() == import->rows() && layer->area.ColumnCount() == import->columns();
  return whole && (sheet.isImport || import->isConnected()) ? std::optional(layer->area) : std::nullopt;
}

Value ToValue(const CellValue& value) {
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* truth = std::get_if<bool>(&value)) return *truth;
  if (const auto* text = std::get_if<std::string>(&value)) return FromUtf8(*text);
  if (const auto* error = std::get_if<ErrorValue>(&value)) {
    return ObjectReference(std::make_shared<CellError>(ErrorNumberOf(error->text)));
  }
  return Empty();
}

// A constant as the English program writes it.
Text ToFormulaText(const CellValue& value) {
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? u"TRUE" : u"FALSE";
  if (const auto* text = std::get_if<std::string>(&value)) return FromUtf8(*text);
  if (const auto* error = std::get_if<ErrorValue>(&value)) return FromUtf8(error->text);
  const auto* number = std::get_if<double>(&value);
  if (!number) return {};
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, *number).ptr;
  return FromUtf8({digits, static_cast<std::size_t>(end - digits)});
}

}  // namespace

std::int32_t SheetRange::RowCount() const {
  workbook_->Opened();
  return area_.RowCount();
}

std::int32_t SheetRange::ColumnCount() const {
  workbook_->Opened();
  return area_.ColumnCount();
}

std::unique_ptr<ExcelRange> SheetRange::RangeOf(const CellArea& area) const {
  if (!IsInSheet(area)) RaiseExcelError(u"The range reaches beyond the sheet.");
  return std::make_unique<SheetRange>(workbook_, sheet_, area);
}

std::unique_ptr<ExcelRange> SheetRange::CurrentRegion() {
  if (const std::optional<CellArea> import = ConnectedImport(Model(), area_)) return RangeOf(*import);
  return RangeOf(CurrentRegionOf(Model(), {area_.top, area_.left}, workbook_->holder().watch));
}

std::unique_ptr<ExcelRange> SheetRange::Offset(std::int32_t rows, std::int32_t columns) {
  workbook_->Opened();
  return RangeOf(area_.Moved(rows, columns));
}

std::unique_ptr<ExcelRange> SheetRange::Resize(std::int32_t rows, std::int32_t columns) {
  workbook_->Opened();
  if (rows < 1 || columns < 1 || rows > kLastRow || columns > kLastColumn) {
    RaiseExcelError(u"The range reaches beyond the sheet.");
  }
  return RangeOf({area_.top, area_.left, area_.top + rows - 1, area_.left + columns - 1});
}

template <typename Use>
void SheetRange::ForEachCell(Use use) const {
  RowComposer composer(Model());
  composer.Seek(area_.top - 1);
  WatchedWork work(workbook_->holder().watch, ExcelWork::kImporting, 0);
  while (composer.Next() && composer.number() <= area_.bottom) {
    work.Reach(0);
    for (const CellView& cell : composer.Compose().cells) {
      if (area_.HasColumn(cell.column)) use(cell, CellAddress{composer.number(), cell.column});
    }
  }
}

Text SheetRange::Text() {
  const SheetModel& sheet = Model();
  CellTexts texts(sheet, workbook_->Opened().texts(), workbook_->holder().locale);
  RowComposer composer(sheet);
  for (const CellView& cell : composer.Compose(area_.top).cells) {
    if (cell.column == area_.left) return texts.Show(cell);
  }
  return {};
}

void SheetRange::Formula(TextView formula) {
  SheetModel& sheet = Model();
  if (formula.empty()) {
    std::vector<CellAddress> filled;
    ForEachCell([&](const CellView& cell, CellAddress at) {
      if (HasContent(cell)) filled.push_back(at);
    });
    for (const CellAddress& at : filled) {
      StoredCell empty;
      empty.column = at.column;
      sheet.Edit(at.row, std::move(empty));
    }
    return;
  }
  if (area_.IsWholeRows() || area_.IsWholeColumns()) RaiseUnsupportedExcelMember(u"Range.Formula of whole rows");
  const Entry entry = ReadEntry(formula);
  for (std::int32_t row = area_.top; row <= area_.bottom; ++row) {
    for (std::int32_t column = area_.left; column <= area_.right; ++column) {
      StoredCell cell;
      cell.column = column;
      cell.kind = entry.kind;
      cell.quotePrefix = entry.quotePrefix;
      cell.content = entry.content;
      if (entry.kind == CellKind::kFormula) {
        cell.formula =
            std::make_shared<const excel::Formula>(excel::Formula::FromA1(entry.content, {area_.top, area_.left}));
      }
      sheet.Edit(row, std::move(cell));
    }
  }
}

CellGrid SheetRange::EmptyGrid() const {
  constexpr std::int64_t kMostCells = 20'000'000;  // an array holds each as a value of some 40 bytes
  if (std::int64_t{area_.RowCount()} * area_.ColumnCount() > kMostCells) {
    RaiseExcelError(u"The range is too large to be read at once.");
  }
  return CellGrid(area_.RowCount(), area_.ColumnCount());
}

CellGrid SheetRange::FormulaR1C1() {
  CellGrid grid = EmptyGrid();
  for (std::int32_t row = 0; row < grid.rows(); ++row) {
    for (std::int32_t column = 0; column < grid.columns(); ++column) grid.At(row, column) = zorkanca::Text();
  }
  const SheetModel& sheet = Model();
  const SharedStrings& texts = workbook_->Opened().texts();
  ForEachCell([&](const CellView& cell, CellAddress at) {
    Value& place = grid.At(at.row - area_.top, at.column - area_.left);
    if (cell.kind == CellKind::kFormula || cell.kind == CellKind::kFileFormula) {
      const StoredCell stored(cell, at);
      if (stored.formula) {
        std::string formula = "=";
        stored.formula->AppendR1C1(formula);
        place = FromUtf8(formula);
        return;
      }
    }
    place = ToFormulaText(ValueOf(cell, texts, sheet.part().prefix(), sheet.is1904()));
  });
  return grid;
}

void SheetRange::FormulaR1C1(const CellGrid& contents) {
  SheetModel& sheet = Model();
  if (contents.rows() != area_.RowCount() || contents.columns() != area_.ColumnCount()) {
    RaiseExcelError(u"The array has another size than the range.");
  }
  sheet.Assign(area_, contents);
}

CellGrid SheetRange::Value2() {
  CellGrid grid = EmptyGrid();
  const SheetModel& sheet = Model();
  const SharedStrings& texts = workbook_->Opened().texts();
  ForEachCell([&](const CellView& cell, CellAddress at) {
    grid.At(at.row - area_.top, at.column - area_.left) =
        ToValue(ValueOf(cell, texts, sheet.part().prefix(), sheet.is1904()));
  });
  if (sheet.isImport) MarkMissingFields(grid);
  return grid;
}

// What a record of an import has no field for is no empty cell; see docs/formats/excel.md.
void SheetRange::MarkMissingFields(CellGrid& grid) const {
  const auto& layer = std::get<ContentsLayer>(Model().layers().front());
  const std::unique_ptr<CellSource::Cursor> cursor = layer.source->Open();
  const std::int32_t last = std::min(area_.bottom, layer.area.bottom);
  for (std::int32_t row = area_.top; row <= last; ++row) {
    const auto fields = static_cast<std::int32_t>(cursor->Row(row - 1).size());
    for (std::int32_t column = std::max(area_.left, fields + 1); column <= area_.right; ++column) {
      grid.At(row - area_.top, column - area_.left) = Null();
    }
  }
}

void SheetRange::Copy() {
  *workbook_->holder().clipboard = CopiedFrom(workbook_, sheet_, area_);
}

void SheetRange::Copy(ExcelRange& Destination) {
  const Clipboard copied = CopiedFrom(workbook_, sheet_, area_);
  const auto* target = dynamic_cast<const SheetRange*>(&Destination);
  if (!target) RaiseUnsupportedExcelMember(u"Range.Copy to a range of another application");
  PasteAt(copied, *target->workbook_, target->sheet_, {target->area_.top, target->area_.left}, 1, true);
}

void SheetRange::PasteSpecial(const PasteSpecialArguments& arguments) {
  if (arguments.SkipBlanks) RaiseUnsupportedExcelMember(u"Range.PasteSpecial with SkipBlanks");
  if (arguments.Transpose) RaiseUnsupportedExcelMember(u"Range.PasteSpecial with Transpose");
  if (arguments.Operation != ExcelPasteOperation::kNone)
    RaiseUnsupportedExcelMember(u"Range.PasteSpecial with Operation");
  workbook_->Opened();
  PasteAt(*workbook_->holder().clipboard, *workbook_, sheet_, {area_.top, area_.left}, 1,
          arguments.Paste == ExcelPasteType::kAll);
}

void SheetRange::Select() {
  SheetModel& sheet = Model();
  if (!workbook_->IsActive() || workbook_->Opened().activeSheet() != sheet_) {
    RaiseExcelError(u"Only cells of the active sheet can be selected.");
  }
  sheet.Select(area_);
}

void SheetRange::ChangeFormat(const CellFormatChange& change, TextView member) {
  SheetModel& sheet = Model();
  if (!area_.IsWholeRows() && !area_.IsWholeColumns()) {
    RaiseUnsupportedExcelMember(zorkanca::Text(member).append(u" of other than whole rows or columns"));
  }
  sheet.ChangeFormat(area_, change);
}

void SheetRange::HorizontalAlignment(ExcelAlignment alignment) {
  ChangeFormat({.alignment = alignment}, u"Range.HorizontalAlignment");
}

void SheetRange::FontBold(bool bold) {
  ChangeFormat({.bold = bold}, u"Range.Font.Bold");
}

void SheetRange::AutoFitColumns() {
  Model().AutoFit(area_);
}

}  // namespace zorkanca::excel
