// The match of a text against elements of which some stand for any run of units: what all wildcards come down to.
//
// The elements are taken from left to right, runs as short as can be. When an element fails, only the last run need
// take one unit more and the match goes on from there: what stands before that run has matched as early as it can, so
// that an earlier run taking more would gain nothing. Time is bounded by the product of both lengths, memory is none.
#pragma once

#include <cstddef>

#include "runtime/text.h"

namespace zorkanca {

/// True when the whole text matches `count` elements.
/// @param isRun    tells by its index whether an element is any run
/// @param matches  tells whether an element that is no run matches a unit
template <typename IsRun, typename Matches>
bool MatchesWhole(TextView text, std::size_t count, IsRun isRun, Matches matches) {
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t element = 0;
  std::size_t position = 0;
  std::size_t lastRun = kNone;
  std::size_t runEnd = 0;
  while (position < text.size()) {
    if (element < count && isRun(element)) {
      lastRun = element++;
      runEnd = position;
    } else if (element < count && matches(element, text[position])) {
      ++element;
      ++position;
    } else if (lastRun != kNone) {
      element = lastRun + 1;
      position = ++runEnd;
    } else {
      return false;
    }
  }
  while (element < count && isRun(element)) ++element;
  return element == count;
}

}  // namespace zorkanca
