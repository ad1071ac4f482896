// A range of a story as clients hold it.
#pragma once

#include <functional>

#include "platform/word/word_range.h"
#include "word/text/story_text.h"

namespace zorkanca::word {

/// Gives the story that a range works on. Errors: 5825 when its document was closed.
using StoryAccess = std::function<StoryText&()>;

class StoryRange final : public WordRange {
 public:
  /// Errors: 4608 for a range outside the text.
  StoryRange(StoryAccess story, Interval range);
  /// The whole story.
  explicit StoryRange(StoryAccess story);

  std::int32_t Start() const override;
  std::int32_t End() const override;
  zorkanca::Text Text() override;
  void SetRange(std::int32_t start, std::int32_t end) override;
  void Delete() override;
  bool Find(const FindArguments& arguments) override;

 private:
  std::vector<Interval> SearchAreas(const FindArguments& arguments, Position length) const;
  void ReplaceMatches(StoryText& story, const TextPattern& pattern, const FindArguments& arguments, Interval area);

  StoryAccess story_;
  Interval range_;
  zorkanca::Text found_;  // the text whose match the range is; searching it again goes on behind
};

}  // namespace zorkanca::word
