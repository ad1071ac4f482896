#include "runtime/error.h"
#include "win32/office/cell_arrays.h"
#include "win32/office/excel_objects.h"

namespace zorkanca::win32 {

namespace {

std::unique_ptr<ExcelRange> RangeOf(LateObject range) {
  return std::make_unique<LateExcelRange>(std::move(range));
}

}  // namespace

std::int32_t LateExcelRange::RowCount() const {
  return AsLong(object_.Child(u"Rows").Get(u"Count"));
}

std::int32_t LateExcelRange::ColumnCount() const {
  return AsLong(object_.Child(u"Columns").Get(u"Count"));
}

std::unique_ptr<ExcelRange> LateExcelRange::CurrentRegion() {
  return RangeOf(object_.Child(u"CurrentRegion"));
}

std::unique_ptr<ExcelRange> LateExcelRange::Offset(std::int32_t rows, std::int32_t columns) {
  return RangeOf(object_.Child(u"Offset", rows, columns));
}

std::unique_ptr<ExcelRange> LateExcelRange::Resize(std::int32_t rows, std::int32_t columns) {
  return RangeOf(object_.Child(u"Resize", rows, columns));
}

Text LateExcelRange::Text() {
  return AsText(object_.Get(u"Text"));
}

void LateExcelRange::Formula(TextView formula) {
  object_.Put(u"Formula", formula);
}

CellGrid LateExcelRange::FormulaR1C1() {
  return ToGrid(object_.Get(u"FormulaR1C1"));
}

void LateExcelRange::FormulaR1C1(const CellGrid& contents) {
  object_.PutMember(u"FormulaR1C1", GridToVariant(contents));
}

CellGrid LateExcelRange::Value2() {
  return ToGrid(object_.Get(u"Value2"));
}

void LateExcelRange::Copy() {
  object_.Call(u"Copy");
}

void LateExcelRange::Copy(ExcelRange& Destination) {
  const auto* destination = dynamic_cast<const LateExcelRange*>(&Destination);
  if (!destination) Raise(RuntimeError::kTypeMismatch);
  object_.Call(u"Copy", destination->object());
}

void LateExcelRange::PasteSpecial(const PasteSpecialArguments& arguments) {
  object_.Call(u"PasteSpecial", static_cast<std::int32_t>(arguments.Paste),
               static_cast<std::int32_t>(arguments.Operation), arguments.SkipBlanks, arguments.Transpose);
}

void LateExcelRange::Select() {
  object_.Call(u"Select");
}

void LateExcelRange::HorizontalAlignment(ExcelAlignment alignment) {
  object_.Put(u"HorizontalAlignment", static_cast<std::int32_t>(alignment));
}

void LateExcelRange::FontBold(bool bold) {
  object_.Child(u"Font").Put(u"Bold", bold);
}

void LateExcelRange::AutoFitColumns() {
  object_.Child(u"Columns").Call(u"AutoFit");
}

}  // namespace zorkanca::win32
