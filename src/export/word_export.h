// What WdExport and WdExport_file have in common: their arguments, the message box of their failures, and the last
// steps, from the finished data file to the document.
#pragma once

#include <vector>

#include "export/export_session.h"
#include "export/template_check.h"
#include "export/template_choice.h"
#include "platform/word/word_document.h"
#include "runtime/text.h"

namespace zorkanca {

/// Title of the message boxes of all Word exports.
inline constexpr TextView kWordExportTitle = u"Export dat do aplikace MS Word";
/// The merge failed; ExportState has told why.
inline constexpr TextView kDocumentNotFilled = u"Nepodařilo se naplnit dokument !";

/// Under the published names.
struct WordExportArguments : TemplateArguments {
  Text rsSourceFile{};               ///< path of the data file, as in `OutputPathInWorkFolder`; receives the path
  bool MultiDocument = false;        ///< one document per record
  std::vector<Text> rvFormat{};      ///< formats of the columns, by position
  WordDocumentReference roRetDoc{};  ///< receives the (last) merged document
  bool rbSetAppVisible = true;       ///< leave Word visible and maximised
};

/// Settles the template, has it checked unless that was done before, and merges the finished data file into it.
/// @return false when the user chose no template
/// Errors: stops the export when the template's name is invalid or the merge failed.
bool MergeIntoTemplate(ExportSession& session, TemplateChoice& choice, TemplateCheck& check,
                       WordExportArguments& arguments);

}  // namespace zorkanca
