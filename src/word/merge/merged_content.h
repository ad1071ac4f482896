// A merged document: the compiled template, the records, and what was changed since. Its text is made whenever it is
// asked for, its file while it is written; nothing grows with the number of copies but a few bytes each.
#pragma once

#include <functional>
#include <map>
#include <memory>

#include "platform/word/mail_merge.h"
#include "word/document/document_content.h"
#include "word/merge/list_restarts.h"
#include "word/merge/merged_story.h"
#include "word/merge/note_copies.h"
#include "word/merge/varying_headers.h"
#include "word/text/tree_story.h"

namespace zorkanca::word {

/// What is to be merged, and how.
struct MergeOrder {
  std::shared_ptr<const DataSource> source;
  MainDocumentType type = MainDocumentType::kFormLetters;
  bool suppressBlankLines = true;
  std::size_t firstRecord = 0;  ///< from 0
  std::size_t endRecord = 0;    ///< behind the last one
  /// Told in English of fields that could not be evaluated.
  std::function<void(TextView)> warn;
  std::function<bool()> cancelled;  ///< asked before each copy is made, while the document is open
};

class MergedContent final : public DocumentContent {
 public:
  /// Compiles the template and deals the records out to copies.
  /// @param main  the main document as it is now; not changed
  /// Errors: 5631 when no record gives a copy; 5 for a damaged part.
  MergedContent(WordPackage& main, const MergeOrder& order, const Locale& locale);

  StoryText& MainText() override { return *story_; }
  StoryText* HeaderText(std::int32_t section, HeaderKind kind) override;
  pugi::xml_node Body() override { return {}; }
  void BodyChanged() override {}
  void PartChanged(const std::string&) override {}
  std::uint64_t Version() const override { return 0; }
  WordPackage& Parts() override { return parts_; }
  Package Written() override;

 private:
  void CompileHeaders(CompileInput& input);
  void CompileBody(pugi::xml_node body, const CompileInput& input, const MergeOrder& order, const Locale& locale);
  void Produce(PartSink& sink) const;

  WordPackage parts_;
  bool separate_;                       // copies are sections of their own
  std::vector<std::string> headerIds_;  // of the sections of one copy, header and footer in turn
  std::string prologue_;
  std::string epilogue_;
  Program finalSection_;
  VaryingHeaders headers_;
  std::vector<NoteCopies> notes_;
  ListRestarts lists_;
  std::unique_ptr<MergedCopies> copies_;
  std::unique_ptr<MergedStory> story_;
  std::map<std::string, std::unique_ptr<TreeStory>> plainHeaders_;
};

}  // namespace zorkanca::word
