// WdExportForm: a Word form filled once per record, each column's value written into the form field of its name.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "barcode/bar_code.h"
#include "export/driven_word.h"
#include "export/query_reader.h"
#include "export/template_choice.h"
#include "formats/column_formats.h"
#include "platform/database.h"
#include "platform/word/word_document.h"

namespace zorkanca {

/// Leaves a margin as the template has it.
inline constexpr float kUnchangedMargin = -1;

/// Arguments of WdExportForm under their published names. Margins are centimetres.
struct WdExportFormArguments : TemplateArguments {
  std::int16_t ri_rsOptions = 0;
  Text rsBarCodeParam{};                  ///< parameters of `cBarCode`; blank: no bar code
  std::vector<Text> rvFormat{};           ///< formats of the columns, by position
  std::vector<bool> rvOneChar{};          ///< columns whose k-th character goes into the field "name_k"
  float LeftMargin = kUnchangedMargin;    ///< of the document; with LeftMarginP2 of its first section
  float TopMargin = kUnchangedMargin;     ///< likewise
  float LeftMarginP2 = kUnchangedMargin;  ///< of the second section, together with LeftMargin only
  float TopMarginP2 = kUnchangedMargin;   ///< likewise
  WordDocumentReference roRetDoc{};       ///< receives the last document; null when a further one failed to open
  bool rbSetAppVisible = true;            ///< leave Word visible and maximised
};

class WordFormExport {
 public:
  WordFormExport(ExportContext& context, Database& database, TextView select, WdExportFormArguments& arguments);

  /// Runs the export from start to end; failures are shown to the user. Documents that are filled stay open.
  /// @return true when all records were written; false, too, when the user chose no template
  bool Run();

 private:
  bool Export();
  void OpenDocument(bool screenUpdating, TextView failure);
  void SetMargins();
  void FillDocuments();
  void FillDocument(ColumnFormats& formats);
  std::optional<Text> ValueOf(TextView name, ColumnFormats& formats);
  Text TextOf(const QueryColumn& column, ColumnFormats& formats, std::int32_t index);
  void WriteField(const Text& name, TextView text, bool oneCharacterEach);
  bool IsOneChar(std::size_t column) const {
    return column < arguments_.rvOneChar.size() && arguments_.rvOneChar[column];
  }

  ExportContext& context_;
  Database& database_;
  Text select_;
  WdExportFormArguments& arguments_;
  ExportSession session_;
  QueryReader reader_;
  std::unique_ptr<cBarCode> barCode_;
  std::vector<QueryColumn> columns_;
  DrivenWord word_;
  WordDocumentReference document_;
};

}  // namespace zorkanca
