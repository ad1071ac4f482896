// The walk of `Like` without sets: only the last "*" ever takes one unit more.
#include "runtime/wildcards.h"

namespace zorkanca {

bool MatchesWildcards(TextView name, TextView wildcards) {
  if (wildcards == u"*.*") return true;
  std::size_t at = 0;
  std::size_t pattern = 0;
  std::size_t star = TextView::npos;  // the last "*" seen, and how far its run reaches
  std::size_t runEnd = 0;
  while (at < name.size()) {
    const bool more = pattern < wildcards.size();
    if (more && wildcards[pattern] == u'*') {
      star = pattern++;
      runEnd = at;
    } else if (more && (wildcards[pattern] == u'?' || LowerCase(wildcards[pattern]) == LowerCase(name[at]))) {
      ++pattern;
      ++at;
    } else if (star != TextView::npos) {
      pattern = star + 1;
      at = ++runEnd;
    } else {
      return false;
    }
  }
  return wildcards.find_first_not_of(u'*', pattern) == TextView::npos;
}

}  // namespace zorkanca
