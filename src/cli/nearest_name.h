// What a misspelt name most likely stands for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorkanca::cli {

/// The candidate that is two letters away at most (one left out, put in, changed, or two neighbours swapped, is a
/// letter each), else one that begins alike: the longest common beginning of three letters and more, or one is the
/// beginning of the other. Case is ignored. @return empty when there is none
std::string NearestName(std::string_view word, const std::vector<std::string>& candidates);

/// "; did you mean NAME?", or nothing without a name.
std::string DidYouMean(const std::string& name);

}  // namespace zorkanca::cli
