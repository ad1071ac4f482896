#include "word/text/story_text.h"

#include <algorithm>

namespace zorkanca::word {

namespace {

// The part of a chunk that lies within an interval.
TextChunk Cut(const TextChunk& chunk, Interval within) {
  const Position start = std::max(chunk.start, within.start);
  const Position end = std::min(chunk.start + static_cast<Position>(chunk.units.size()), within.end);
  return {start,
          chunk.units.substr(static_cast<std::size_t>(start - chunk.start), static_cast<std::size_t>(end - start))};
}

std::optional<Interval> Shifted(std::optional<Interval> match, Position by) {
  if (match) *match = {match->start + by, match->end + by};
  return match;
}

}  // namespace

// A match can pass from one chunk to the next only where a deletion joined their paragraphs; only then is the end of
// the last paragraph kept and searched again with what follows.
std::optional<Interval> FindForward(StoryText& story, const TextPattern& pattern, Interval within) {
  Text open;
  for (Position position = within.start; position < within.end;) {
    const TextChunk chunk = Cut(story.ChunkAt(position), within);
    position = chunk.start + static_cast<Position>(chunk.units.size());
    TextView units = chunk.units;
    Position start = chunk.start;
    if (!open.empty()) {
      start -= static_cast<Position>(open.size());
      units = open.append(chunk.units);
    }
    if (const auto match = pattern.First(units)) return Shifted(match, start);
    std::size_t rest = units.size();
    while (rest > 0 && !EndsParagraph(units[rest - 1])) --rest;
    open = Text(units.substr(rest));
  }
  return std::nullopt;
}

std::optional<Interval> FindBackward(StoryText& story, const TextPattern& pattern, Interval within) {
  Text open;  // up to the first end of a paragraph of what was passed over
  for (Position position = within.end; position > within.start;) {
    const TextChunk chunk = Cut(story.ChunkAt(position - 1), within);
    position = chunk.start;
    Text joined;
    TextView units = chunk.units;
    if (!open.empty() && !EndsParagraph(units.back())) units = joined.append(units).append(open);
    if (const auto match = pattern.Last(units)) return Shifted(match, chunk.start);
    std::size_t end = 0;
    while (end < units.size() && !EndsParagraph(units[end])) ++end;
    open = Text(units.substr(0, end));
  }
  return std::nullopt;
}

Text UnitsOf(StoryText& story, Interval interval) {
  Text units;
  for (Position position = interval.start; position < interval.end;) {
    const TextChunk chunk = Cut(story.ChunkAt(position), interval);
    units += chunk.units;
    position += static_cast<Position>(chunk.units.size());
  }
  return units;
}

}  // namespace zorkanca::word
