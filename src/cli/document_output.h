// Where the documents of a Word command go: one file, or a folder with a numbered file for each.
#pragma once

#include <CLI/App.hpp>
#include <memory>
#include <string>

#include "cli/command_line.h"
#include "host/pdf_batch.h"
#include "platform/word/word_document.h"

namespace zorkanca::cli {

struct OutputOptions {
  std::string output;
  bool pdf = false;
  bool noOpen = false;
};

void AddOutputOptions(CLI::App& command, OutputOptions& options);

class DocumentOutput {
 public:
  /// How many documents there will be.
  enum class Count { kOne, kSeveral, kUnknown };

  /// @param rsTemplate  names the output where -o does not; it is looked at when the first document comes
  /// Errors: `UsageError` for an -o that does not suit; 76 when its folder does not exist.
  DocumentOutput(const CommandContext& context, const OutputOptions& options, Count count, const Text& rsTemplate);

  /// Takes a finished document; one that goes into a folder is saved and closed at once, so that no more than a few are
  /// in memory. Errors: those of saving; 5 for a second document of one file.
  void Add(const WordDocumentReference& document);

  /// Brings the work to its end and opens the result where -o does not name one.
  /// @param done  the export ended well; else documents of a folder that are finished are still written
  /// Errors: those of saving.
  void Finish(bool done);

 private:
  Text DefaultName() const;
  void AddToFolder(WordDocument& document);

  const CommandContext& context_;
  const OutputOptions& options_;
  const Text& template_;
  Text path_;  // of the file or folder; empty while it is not known
  bool isFolder_ = false;
  std::int64_t number_ = 0;     // of the last document in the folder
  WordDocumentReference only_;  // waits for another, or for the end
  PdfBatch pdfs_;
};

}  // namespace zorkanca::cli
