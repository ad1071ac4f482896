// Makes spreadsheet-XML workbooks (the single-file format of Excel 2003) from a template that an author prepared and
// marked, without Excel. What a template looks like is told in docs/formats/spreadsheet_xml.md.
//
//   cExcel2003XmlTemplateFactory factory(platform);
//   factory.ReadTemplateFile(u"faktura.xml");
//   auto worksheet = factory.AddWorksheet(u"Faktura 12");
//   worksheet->SetRowsOfTaggedGrid(1, 3);
//   worksheet->SetDataIntoTaggedCell(u"Šroub", {.ColSign = 1, .RowSign = 1, .RowIndex = 2});
//   factory.SaveWorkbook(u"faktura 12.xml");
#pragma once

#include <functional>
#include <vector>

#include "platform/platform.h"
#include "runtime/text.h"
#include "xmltemplate/workbook_template.h"
#include "xmltemplate/worksheets.h"

namespace zorkanca {

/// Failures are shown to the user and told by the result; nothing is raised.
class cExcel2003XmlTemplateFactory {
 public:
  explicit cExcel2003XmlTemplateFactory(const Platform& platform) : platform_(platform), worksheets_(platform.locale) {}
  cExcel2003XmlTemplateFactory(const cExcel2003XmlTemplateFactory&) = delete;
  cExcel2003XmlTemplateFactory& operator=(const cExcel2003XmlTemplateFactory&) = delete;

  /// Reads a template in place of the one before; worksheets already added stay. After a failure the one before stays.
  bool ReadTemplateFile(TextView sFileName);
  /// Adds a worksheet made of the template sheet of that key, see `WorkbookTemplate::SheetText`.
  /// @return null after a failure; the worksheet stays, with an empty text when no template sheet was found
  WorksheetReference AddWorksheet(Text sWorksheetName, TextView sWorksheetKey = {});
  cExcel2003XmlWorksheets& Worksheets() { return worksheets_; }
  /// Writes the workbook as it is now. It can be saved again, and filled further in between.
  bool SaveWorkbook(TextView fileName);

 private:
  std::vector<Text> ComposeWorkbook() const;
  bool Succeeds(TextView failure, const std::function<void()>& body);
  void ShowFailure(Text message);

  const Platform& platform_;
  WorkbookTemplate template_;
  cExcel2003XmlWorksheets worksheets_;
};

}  // namespace zorkanca
