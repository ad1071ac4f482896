// HTMLExport: the rows of a SELECT as one HTML table in a file, opened in the associated viewer.
//
// One element a line, every line ended by CR LF, in the ANSI code page; texts stand as they come, without escaping:
// clients put markup of their own into names and values.
#pragma once

#include <cstdint>
#include <vector>

#include "export/column_names.h"
#include "export/export_session.h"
#include "export/query_reader.h"
#include "platform/database.h"
#include "runtime/text.h"

namespace zorkanca {

/// Optional arguments of HTMLExport under their published names; the texts are also outputs.
struct HtmlExportArguments {
  Text rsFieldNames{};  ///< captions separated by ";"; empty after the header was written
  std::int16_t ri_rsOptions = 0;
  Text rsSourceFile{};  ///< output path; receives the path that was written, with the extension htm or html
  Text rsTitle{};
  std::int16_t riTblBorder = 1;
  std::int16_t riTblCellPadding = 1;
  std::int16_t riTblCellSpacing = 0;
};

class HtmlExport {
 public:
  HtmlExport(ExportContext& context, Database& database, TextView select, HtmlExportArguments& arguments);

  /// Runs the export from start to end; failures are shown to the user.
  /// @return true when the file was written and its viewer was started
  bool Run();

 private:
  void Export();
  void SettlePath();
  void WriteTable(ColumnNameSource names);
  void WriteHeaderRow(ColumnNameSource names);
  void WriteBlankRows();
  void WriteRecord();
  void OpenViewer();

  ExportContext& context_;
  Database& database_;
  Text select_;
  HtmlExportArguments& arguments_;
  ExportSession session_;
  QueryReader reader_;
  TextStream* output_ = nullptr;
  std::vector<QueryColumn> columns_;
  Text row_;  // lines of one row, kept for its room
};

}  // namespace zorkanca
