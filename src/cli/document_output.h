// Where the documents of a Word command go: one file, or a folder with a numbered file for each.
#pragma once

#include <CLI/App.hpp>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "cli/document_names.h"
#include "cli/output_file.h"
#include "cli/query_database.h"
#include "export/finished_document.h"
#include "host/pdf_batch.h"
#include "platform/word/word_document.h"

namespace zorkanca::cli {

struct OutputOptions {
  std::string output;
  std::string name;
  bool pdf = false;
  bool noOpen = false;
};

void AddOutputOptions(CLI::App& command, OutputOptions& options);

class DocumentOutput {
 public:
  /// How many documents there will be.
  enum class Count { kOne, kSeveral, kUnknown };

  /// @param rsTemplate  names the output where -o does not; it is looked at when the first document comes
  /// @param query       tells by which record the numbers start; null: the first one
  /// Errors: `UsageError` for options that do not suit; 76 when the folder of -o does not exist.
  DocumentOutput(const CommandContext& context, const OutputOptions& options, Count count, const Text& rsTemplate,
                 const QueryDatabase* query);

  /// Takes a finished document; one that goes into a folder is saved and closed at once, so that no more than a few are
  /// in memory. Errors: those of saving; 5 for a second document of one file.
  void Add(const FinishedDocument& document);

  /// Nothing was added.
  bool IsEmpty() const { return !only_ && count_ == 0; }

  /// Brings the work to its end and opens the result where -o does not name one.
  /// @param done  the export ended well; else documents of a folder that are finished are still written
  /// Errors: those of saving.
  void Finish(bool done);

 private:
  Text Ending() const;
  Text DefaultName() const;
  std::vector<Text> Extensions() const;
  Text NameOfNext(const FinishedDocument& finished);
  void AddToFolder(const FinishedDocument& finished);
  void SaveInFolder(WordDocument& document, const Text& name);
  void SaveOnly();

  const CommandContext& context_;
  const OutputOptions& options_;
  const Text& template_;
  const QueryDatabase* query_;
  std::optional<OutputFile> file_;  // that -o names
  Text path_;                       // of the folder, or of a file that -o does not name; empty while it is not known
  bool isFolder_ = false;
  std::int64_t count_ = 0;  // of the documents in the folder
  DocumentNames names_;
  WordDocumentReference only_;  // waits for another, or for the end
  std::optional<Text> nameOfOnly_;
  PdfBatch pdfs_;
};

}  // namespace zorkanca::cli
