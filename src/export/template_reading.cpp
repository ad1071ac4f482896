#include "export/template_reading.h"

#include "export/excel_template_sheet.h"
#include "export/office_opening.h"
#include "foundation/ignore_errors.h"

namespace zorkanca {

namespace {

// A workbook of the template, closed in any case.
class TemplateWorkbook {
 public:
  TemplateWorkbook(ExcelApplication& excel, const Text& path) : workbook_(excel.AddWorkbook(path)) {}
  ~TemplateWorkbook() {
    IgnoreErrors([&] { workbook_->Close(/*SaveChanges=*/false); });
  }
  TemplateWorkbook(const TemplateWorkbook&) = delete;
  TemplateWorkbook& operator=(const TemplateWorkbook&) = delete;

  ExcelWorksheetReference ActiveSheet() { return workbook_->ActiveSheet(); }

 private:
  ExcelWorkbookReference workbook_;
};

std::vector<TemplateField> ReadExcelFields(const Platform& platform, const Text& path) {
  const auto attached =
      AttachOrStart(platform.office, &OfficeApplications::AttachExcel, &OfficeApplications::StartExcel);
  TemplateWorkbook workbook(*attached.application, path);
  TemplateFieldList fields;
  for (const auto& row : ReadRowPatterns(*workbook.ActiveSheet()).rows) {
    for (const ExcelCellPattern& cell : row) {
      for (const Text& name : cell.ColumnNames()) fields.Add(TemplateFieldKind::kCell, name);
      if (cell.HasCode()) fields.Add(TemplateFieldKind::kBarcode, u"code");
    }
  }
  return fields.Take();
}

}  // namespace

std::vector<TemplateField> ReadTemplateFields(const Platform& platform, ApplOffice kind, const Text& path) {
  return kind == ApplOffice::MSExcel ? ReadExcelFields(platform, path) : platform.office.WordTemplateFields(path);
}

}  // namespace zorkanca
