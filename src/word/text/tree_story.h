// The text of a story whose tree is in memory: a document's main text, a header, a footer.
#pragma once

#include <functional>
#include <optional>

#include "word/text/story_map.h"
#include "word/text/story_text.h"

namespace zorkanca::word {

class TreeStory final : public StoryText {
 public:
  /// @param container  w:body, w:hdr, w:ftr; its tree outlives the object
  /// @param changed    called after every change of the tree
  TreeStory(const pugi::xml_node& container, std::function<void()> changed)
      : container_(container), changed_(std::move(changed)) {}

  Position Length() override { return Map().length(); }
  TextChunk ChunkAt(Position) override { return {0, Map().text()}; }
  void Delete(Interval range) override;
  void ReplaceAll(const std::vector<Interval>& ranges, TextView replacement) override;

  /// To be called when the tree was changed by others.
  void Forget() { map_.reset(); }

 private:
  const StoryMap& Map();
  void Changed();

  pugi::xml_node container_;
  std::function<void()> changed_;
  std::optional<StoryMap> map_;
};

}  // namespace zorkanca::word
