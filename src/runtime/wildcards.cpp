// The walk of `Like` without sets: only the last "*" ever takes one unit more.
#include "runtime/wildcards.h"

#include "runtime/run_match.h"

namespace zorkanca {

bool MatchesWildcards(TextView name, TextView wildcards) {
  if (wildcards == u"*.*") return true;
  return MatchesWhole(
      name, wildcards.size(), [&](std::size_t index) { return wildcards[index] == u'*'; },
      [&](std::size_t index, char16_t unit) {
        return wildcards[index] == u'?' || LowerCase(wildcards[index]) == LowerCase(unit);
      });
}

}  // namespace zorkanca
