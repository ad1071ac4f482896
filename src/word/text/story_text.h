// The text of a story as ranges work on it, whatever stands behind it: a tree, or copies that are made when asked for.
#pragma once

#include <optional>
#include <vector>

#include "word/text/text_pattern.h"

namespace zorkanca::word {

/// A stretch of a story's text.
struct TextChunk {
  Position start = 0;
  TextView units;  ///< never empty; ends with a paragraph's end unless deletions joined it to the next chunk
};

class StoryText {
 public:
  virtual ~StoryText() = default;
  virtual Position Length() = 0;
  /// The chunk around a position below `Length`; valid until the next call.
  virtual TextChunk ChunkAt(Position position) = 0;
  /// Removes a range that leaves the story's last unit alone.
  virtual void Delete(Interval range) = 0;
  /// Puts text in place of ranges, in order and apart. Errors: 438 where the story cannot.
  virtual void ReplaceAll(const std::vector<Interval>& ranges, TextView replacement) = 0;
};

/// The first and the last match that lies within an interval. The cost is that of the text passed over.
std::optional<Interval> FindForward(StoryText& story, const TextPattern& pattern, Interval within);
std::optional<Interval> FindBackward(StoryText& story, const TextPattern& pattern, Interval within);
/// The units of an interval.
Text UnitsOf(StoryText& story, Interval interval);

}  // namespace zorkanca::word
