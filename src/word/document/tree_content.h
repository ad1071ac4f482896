// A document whose main text is a tree in memory.
#pragma once

#include <functional>
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
  void PartChanged(const std::string& part) override;
  std::uint64_t Version() const override { return version_; }
  WordPackage& Parts() override { return package_; }
  Package Written() override { return package_.Written(); }

 private:
  void CountChange(const std::string& part);

  WordPackage package_;
  std::uint64_t version_ = 0;
  TreeStory mainText_;
  std::map<std::string, std::unique_ptr<TreeStory>> headers_;  // by part
};

/// The text of a header part of a package, made on first use.
/// @param id       of the main part's relationship to it
/// @param changed  told of the part after each change of its text
StoryText* HeaderStoryOf(WordPackage& package, const std::string& id,
                         std::map<std::string, std::unique_ptr<TreeStory>>& stories,
                         const std::function<void(const std::string&)>& changed);

}  // namespace zorkanca::word
