// MakeMailDocument: a template merged with a data file, into one document of all records or into one document each.
#pragma once

#include <optional>

#include "export/driven_word.h"
#include "export/export_context.h"
#include "platform/word/word_application.h"

namespace zorkanca {

/// Arguments of MakeMailDocument under their published names.
struct MakeMailDocumentArguments {
  Text rsTemplate{};
  Text rsDataSourceFile{};  ///< as `MergeDataFile` writes it
  bool MultiDocument = false;
  WordDocumentReference roRetDoc{};  ///< receives the (last) merged document; null when a further one failed to open
  bool rbSetAppVisible = true;       ///< leave Word visible and maximised
};

class MailMergeRun {
 public:
  MailMergeRun(ExportContext& context, MakeMailDocumentArguments& arguments)
      : context_(context), arguments_(arguments) {}

  /// Runs the merge from start to end. Failures are told by ExportState; documents that are merged stay open.
  bool Run();
  /// How many records of the data file were merged.
  std::int64_t RecordCount() const { return recordCount_; }

 private:
  void Make();
  void MakeOneDocumentPerRecord();
  void MakeDocumentOf(TextView header, TextView record);
  void OpenTemplate(TextView failure);
  void MergeInto(const Text& dataFile);
  void Finish(const std::optional<Text>& failure);
  void ShowWord();
  void Tell(TextView result);

  ExportContext& context_;
  MakeMailDocumentArguments& arguments_;
  WordDocumentReference document_;
  DrivenWord word_;
  std::int64_t recordCount_ = 0;
  Text dataFile_;  // the caller's, or a copy in an encoding that can be merged
};

/// Merges a main document with a data file and closes it; the kind of the merge is that of the marker in its text, else
/// its own. The marked-up text of the result is put in order.
/// @param recordCount  is raised by the number of records, where Word knows it
/// @return the merged document
WordDocumentReference RunMailMerge(const ExportContext& context, WordDocument& document, const Text& dataFile,
                                   WordApplication& word, std::int64_t& recordCount);

}  // namespace zorkanca
