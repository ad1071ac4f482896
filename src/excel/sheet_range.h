// A range of a sheet under the members of the object model.
#pragma once

#include "excel/open_workbook.h"

namespace zorkanca::excel {

class SheetRange final : public ExcelRange {
 public:
  SheetRange(std::shared_ptr<OpenWorkbook> workbook, std::size_t sheet, const CellArea& area)
      : workbook_(std::move(workbook)), sheet_(sheet), area_(area) {}

  std::int32_t RowCount() const override;
  std::int32_t ColumnCount() const override;
  std::unique_ptr<ExcelRange> CurrentRegion() override;
  std::unique_ptr<ExcelRange> Offset(std::int32_t rows, std::int32_t columns) override;
  std::unique_ptr<ExcelRange> Resize(std::int32_t rows, std::int32_t columns) override;
  zorkanca::Text Text() override;
  void Formula(TextView formula) override;
  CellGrid FormulaR1C1() override;
  void FormulaR1C1(const CellGrid& contents) override;
  CellGrid Value2() override;
  void Copy() override;
  void Copy(ExcelRange& Destination) override;
  void PasteSpecial(const PasteSpecialArguments& arguments) override;
  void Select() override;
  void HorizontalAlignment(ExcelAlignment alignment) override;
  void FontBold(bool bold) override;
  void AutoFitColumns() override;

 private:
  SheetModel& Model() const { return workbook_->Sheet(sheet_); }
  std::unique_ptr<ExcelRange> RangeOf(const CellArea& area) const;
  void ChangeFormat(const CellFormatChange& change, TextView member);
  /// Calls for each cell of the area that there is. @param use  called with the cell's view and its address
  template <typename Use>
  void ForEachCell(Use use) const;
  CellGrid EmptyGrid() const;
  void MarkMissingFields(CellGrid& grid) const;

  std::shared_ptr<OpenWorkbook> workbook_;
  std::size_t sheet_;
  CellArea area_;
};

}  // namespace zorkanca::excel
