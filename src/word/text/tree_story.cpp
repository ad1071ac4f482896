#include "word/text/tree_story.h"

#include "word/text/story_edit.h"

namespace zorkanca::word {

const StoryMap& TreeStory::Map() {
  if (!map_) map_.emplace(container_);
  return *map_;
}

void TreeStory::Changed() {
  map_.reset();
  changed_();
}

void TreeStory::Delete(Interval range) {
  const StoryMap& map = Map();
  RemovePositions(map, PlanDeletion(map, range));
  Changed();
}

void TreeStory::ReplaceAll(const std::vector<Interval>& ranges, TextView replacement) {
  ReplaceRanges(Map(), ranges, replacement);
  Changed();
}

}  // namespace zorkanca::word
