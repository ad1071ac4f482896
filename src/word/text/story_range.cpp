#include "word/text/story_range.h"

#include <algorithm>
#include <limits>

#include "runtime/error.h"
#include "word/xml/word_errors.h"

namespace zorkanca::word {

namespace {

std::int32_t ToClient(Position position) {
  if (position > std::numeric_limits<std::int32_t>::max()) Raise(RuntimeError::kOverflow);
  return static_cast<std::int32_t>(position);
}

Interval Checked(Interval range, Position length) {
  if (range.start < 0 || range.end < range.start || range.end > length) {
    RaiseWordError(WordError::kOutOfRange, u"Value out of range.");
  }
  return range;
}

}  // namespace

StoryRange::StoryRange(StoryAccess story, Interval range)
    : story_(std::move(story)), range_(Checked(range, story_().Length())) {}

StoryRange::StoryRange(StoryAccess story) : story_(std::move(story)), range_{0, story_().Length()} {}

std::int32_t StoryRange::Start() const {
  return ToClient(range_.start);
}

std::int32_t StoryRange::End() const {
  return ToClient(range_.end);
}

zorkanca::Text StoryRange::Text() {
  StoryText& story = story_();
  return ShownText(UnitsOf(story, {range_.start, std::min(range_.end, story.Length())}));
}

void StoryRange::SetRange(std::int32_t start, std::int32_t end) {
  range_ = Checked({start, end}, story_().Length());
  found_.clear();
}

// The last mark of a story cannot be deleted.
void StoryRange::Delete() {
  StoryText& story = story_();
  const Interval doomed{range_.start, std::min(range_.end, story.Length() - 1)};
  if (doomed.start < doomed.end) story.Delete(doomed);
  range_.end = range_.start = std::min(range_.start, story.Length());
  found_.clear();
}

// Where to look, in this order. A range that is a match of the same text, or that is empty, stands for a place: the
// search goes on from there to the end of the story.
std::vector<Interval> StoryRange::SearchAreas(const FindArguments& arguments, Position length) const {
  const bool fromPlace = range_.start == range_.end || (!found_.empty() && found_ == arguments.FindText);
  Interval first{range_.start, std::min(range_.end, length)};
  if (fromPlace && arguments.Replace != 2) {
    first = arguments.Forward ? Interval{first.end, length} : Interval{0, first.start};
  }
  std::vector<Interval> areas{first};
  if (arguments.Wrap == 1) {
    areas.push_back(arguments.Forward ? Interval{first.start, length} : Interval{0, first.end});
    areas.push_back({0, length});
  }
  return areas;
}

bool StoryRange::Find(const FindArguments& arguments) {
  StoryText& story = story_();
  const TextPattern pattern(arguments);
  if (arguments.Wrap != 0 && arguments.Wrap != 1) {
    Raise(RuntimeError::kNotSupported, u"not supported: Word.Find.Wrap with a question");
  }
  for (const Interval& area : SearchAreas(arguments, story.Length())) {
    const std::optional<Interval> match =
        arguments.Forward ? FindForward(story, pattern, area) : FindBackward(story, pattern, area);
    if (!match) continue;
    if (arguments.Replace == 2) {
      const bool all = arguments.Wrap == 1;
      ReplaceMatches(story, pattern, arguments, all ? Interval{0, story.Length()} : area);
      return true;
    }
    range_ = *match;
    found_ = arguments.FindText;
    if (arguments.Replace == 1) {
      const zorkanca::Text replacement = arguments.ReplaceWith.value_or(zorkanca::Text());
      const Position before = story.Length();
      story.ReplaceAll({*match}, replacement);
      range_.end += story.Length() - before;
    }
    return true;
  }
  return false;
}

void StoryRange::ReplaceMatches(StoryText& story, const TextPattern& pattern, const FindArguments& arguments,
                                Interval area) {
  std::vector<Interval> matches;
  while (const std::optional<Interval> match = FindForward(story, pattern, area)) {
    matches.push_back(*match);
    area.start = match->end;
  }
  const Position before = story.Length();
  story.ReplaceAll(matches, arguments.ReplaceWith.value_or(zorkanca::Text()));
  // Matches may differ in length where there are wildcards; the ends of the range follow the average.
  const Position growth = matches.empty() ? 0 : (story.Length() - before) / static_cast<Position>(matches.size());
  const auto moved = [&](Position position) {
    const auto passed =
        std::count_if(matches.begin(), matches.end(), [&](const Interval& match) { return match.end <= position; });
    return std::clamp<Position>(position + growth * passed, 0, story.Length());
  };
  const Position start = moved(range_.start);
  range_ = {start, std::max(start, moved(range_.end))};
  found_.clear();
}

}  // namespace zorkanca::word
