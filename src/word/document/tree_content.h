// A document whose main text is a tree in memory.
#pragma once

#include <map>
#include <memory>

#include "word/document/document_content.h"
#include "word/text/tree_story.h"

namespace zorkanca::word {

class TreeContent final : public DocumentContent {
 public:
  explicit TreeContent(WordPackage package);

  StoryText& MainText() override { return mainText_; }
  StoryText* HeaderText(std::int32_t section, HeaderKind kind) override;
  pugi::xml_node Body() override { return package_.Body(); }
  void BodyChanged() override;
  std::uint64_t BodyVersion() const override { return bodyVersion_; }
  WordPackage& Parts() override { return package_; }
  Package Written() override { return package_.Written(); }

 private:
  void CountChange();

  WordPackage package_;
  std::uint64_t bodyVersion_ = 0;
  TreeStory mainText_;
  std::map<std::string, std::unique_ptr<TreeStory>> headers_;  // by part
};

/// The text of a header part of a package, made on first use.
/// @param id  of the main part's relationship to it
StoryText* HeaderStoryOf(WordPackage& package, const std::string& id,
                         std::map<std::string, std::unique_ptr<TreeStory>>& stories);

}  // namespace zorkanca::word
