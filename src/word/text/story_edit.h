// Changes to the tree of a story by positions of its text.
#pragma once

#include <string>

#include "word/text/story_map.h"

namespace zorkanca::word {

/// What is left of a paragraph whose mark was deleted and that no paragraph follows in its tree: XML of its runs, for
/// the start of the next paragraph.
using LeftOver = std::string;

/// Takes positions out of the tree, as `PlanDeletion` gives them: runs, fields and wrappers that become empty go too;
/// what remains of a paragraph without its mark moves to the next one; rows and tables go with their ends.
/// @param leftOver  gets what remains of the last paragraph when its mark is gone
void RemovePositions(const StoryMap& map, const PositionSet& gone, LeftOver* leftOver = nullptr);

/// Puts text in place of each range, in the format of the range's first unit. Line ends become line breaks; a merge
/// field of whose result something is replaced becomes plain text. The map is void afterwards.
/// @param ranges  in order, apart, each inside one paragraph and not empty
void ReplaceRanges(const StoryMap& map, const std::vector<Interval>& ranges, TextView replacement);

}  // namespace zorkanca::word
