// Excel and its workbooks, driven by the names of their members.
#pragma once

#include <memory>

#include "platform/excel/excel_application.h"
#include "win32/automation/automation_object.h"

namespace zorkanca::win32 {

class LateExcelRange final : public ExcelRange, public Automation {
 public:
  using Automation::Automation;
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
  /// Errors: also 13 for a range of another computer's.
  void Copy(ExcelRange& Destination) override;
  void PasteSpecial(const PasteSpecialArguments& arguments) override;
  void Select() override;
  void HorizontalAlignment(ExcelAlignment alignment) override;
  void FontBold(bool bold) override;
  void AutoFitColumns() override;
};

class LateExcelWorksheet final : public ExcelWorksheet, public Automation {
 public:
  using Automation::Automation;
  std::unique_ptr<ExcelRange> Range(TextView address) override;
  std::unique_ptr<ExcelRange> Rows(TextView address) override;
  std::unique_ptr<ExcelRange> Columns(std::int32_t index) override;
  std::int32_t ShapeCount() override;
  void Paste() override;
  void Activate() override;
};

class LateExcelWorkbook final : public ExcelWorkbook, public Automation {
 public:
  using Automation::Automation;
  ExcelApplicationReference Application() override;
  Text Name() const override;
  Text FullName() const override;
  ExcelWorksheetReference Sheets(std::int32_t index) override;
  ExcelWorksheetReference ActiveSheet() override;
  void Activate() override;
  void SaveAs(TextView fileName, ExcelSaveFormat format) override;
  void ExportAsFixedFormat(const ExportWorkbookArguments& arguments) override;
  void Close(bool SaveChanges) override;
};

class LateExcelApplication final : public ExcelApplication, public Automation {
 public:
  using Automation::Automation;
  ExcelWorkbookReference AddWorkbook(TextView Template) override;
  void OpenText(const OpenTextArguments& arguments) override;
  ExcelWorkbookReference Workbooks(TextView name) override;
  ExcelWorkbookReference ActiveWorkbook() override;
  bool Visible() const override;
  void Visible(bool visible) override;
  bool ScreenUpdating() const override;
  void ScreenUpdating(bool updating) override;
  void Interactive(bool interactive) override;
  void CutCopyMode(bool mode) override;
  ExcelWindowState WindowState() const override;
  void WindowState(ExcelWindowState state) override;
  ExcelWindowState ActiveWindowState() const override;
  void ActiveWindowState(ExcelWindowState state) override;
  void WindowVisible(TextView name, bool visible) override;
};

}  // namespace zorkanca::win32
