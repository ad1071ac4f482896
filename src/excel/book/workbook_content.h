// A workbook's package with what was done to its sheets. Sheets that nobody asked for are never read.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "excel/grid/work_watch.h"
#include "excel/sheet/sheet_model.h"
#include "excel/tables/shared_strings.h"
#include "excel/tables/style_book.h"
#include "opc/package.h"
#include "runtime/locale.h"

namespace zorkanca::excel {

class WorkbookContent {
 public:
  /// Takes the package as a workbook: a template becomes one.
  /// @param locale, watch  outlive the workbook
  /// Errors: 5 when it is no workbook.
  WorkbookContent(Package package, const Locale& locale, const ExcelWatch& watch);

  std::size_t sheetCount() const { return sheets_.size(); }
  /// @param index  from 0. Errors: 438 for a sheet that holds no cells; 5 for one that cannot be read.
  SheetModel& Sheet(std::size_t index);
  std::size_t activeSheet() const { return activeSheet_; }
  void ActivateSheet(std::size_t index);

  /// Pictures, shapes, charts, controls and comments.
  std::int32_t ShapeCount(std::size_t index);

  const Locale& locale() const { return locale_; }
  const SharedStrings& texts() const { return texts_; }
  StyleBook& styles() { return *styles_; }
  bool is1904() const { return is1904_; }

  /// The package with all changes. Errors: 61, 57 when there is no room for what is compressed ahead; 18 when
  /// cancelled.
  Package Written();
  /// The same without macros, as a file with a usual name has none.
  Package WrittenWithoutMacros();

 private:
  friend class WorkbookSaver;

  struct SheetEntry {
    std::string name;
    std::string part;
    bool hasCells = false;
    std::unique_ptr<SheetModel> model = {};
  };

  void SettleType();
  void ReadSheets();
  void ReadStyles();
  const std::string& file() const { return package_.path(); }
  pugi::xml_node WorkbookChild(const char* name) const;

  Package package_;
  const Locale& locale_;
  const ExcelWatch& watch_;
  std::string mainPart_;
  std::string stylesPart_;
  std::string textsPart_;
  pugi::xml_document workbook_;
  std::vector<SheetEntry> sheets_;
  std::size_t activeSheet_ = 0;
  bool activeChanged_ = false;
  bool is1904_ = false;
  SharedStrings texts_;
  std::unique_ptr<StyleBook> styles_;
};

}  // namespace zorkanca::excel
