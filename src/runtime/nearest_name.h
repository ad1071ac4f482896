// What a misspelt name most likely stands for.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

/// The candidate that is two letters away at most, one of a word of four letters or less (one left out, put in,
/// changed, or two neighbours swapped, is a letter each), else one that begins alike: the longest common beginning of
/// three letters and more, or one is the beginning of the other. Case is ignored.
/// @param byBeginning  false: a beginning alone does not count
/// @return empty when there is none
std::string NearestName(std::string_view word, const std::vector<std::string>& candidates, bool byBeginning = true);

/// "; did you mean NAME?", or nothing without a name.
std::string DidYouMean(const std::string& name);

/// The same for texts. @return empty when there is none
Text NearestText(TextView word, std::span<const Text> candidates);
/// "; the nearest is NAME", or nothing without one: of two names that should be one, either may be the wrong one.
Text NearestHint(TextView word, std::span<const Text> candidates);
/// "The query has no column "NAME"; did you mean NEAREST? Its columns are ...": an option asks for it.
Text NoColumn(TextView name, std::span<const Text> columns);

}  // namespace zorkanca
