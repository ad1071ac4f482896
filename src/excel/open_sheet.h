// A sheet of an open workbook under the members of the object model.
#pragma once

#include "excel/open_workbook.h"

namespace zorkanca::excel {

class OpenSheet final : public ExcelWorksheet {
 public:
  /// @param index  of the sheet, from 0
  OpenSheet(std::shared_ptr<OpenWorkbook> workbook, std::size_t index)
      : workbook_(std::move(workbook)), index_(index) {}

  std::unique_ptr<ExcelRange> Range(TextView address) override;
  std::unique_ptr<ExcelRange> Rows(TextView address) override;
  std::unique_ptr<ExcelRange> Columns(std::int32_t index) override;
  std::int32_t ShapeCount() override;
  void Paste() override;
  void Activate() override;

 private:
  std::unique_ptr<ExcelRange> RangeOf(const CellArea& area) const;

  std::shared_ptr<OpenWorkbook> workbook_;
  std::size_t index_;
};

}  // namespace zorkanca::excel
