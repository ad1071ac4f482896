// WdExport: the rows of a SELECT merged into a Word template.
#pragma once

#include <cstdint>
#include <memory>

#include "barcode/bar_code.h"
#include "export/query_reader.h"
#include "export/word_export.h"
#include "platform/database.h"

namespace zorkanca {

/// Arguments of WdExport under their published names; the texts are also outputs.
struct WdExportArguments : WordExportArguments {
  /// Column names separated by ";", may be followed by a bar-code specification; receives the header of the data file.
  Text rsFieldNames{};
  std::int16_t ri_rsOptions = 0;
};

class WordQueryExport {
 public:
  WordQueryExport(ExportContext& context, Database& database, TextView select, WdExportArguments& arguments);

  /// Runs the export from start to end; failures are shown to the user.
  /// @return true when the document was made; false, too, when the user chose no template
  bool Run();

 private:
  bool Export();
  void ShowCheckpoint() const;

  ExportContext& context_;
  Database& database_;
  Text select_;
  WdExportArguments& arguments_;
  ExportSession session_;
  QueryReader reader_;
  std::unique_ptr<cBarCode> barCode_;
  std::int16_t checkpointNumber_ = 0;  // how far the export has come, 0 to 9
};

}  // namespace zorkanca
