#include "platform/text_edit.h"

#include <algorithm>

namespace zorkanca {

TextEdit EditBetween(TextView before, TextView after, std::size_t cursor) {
  const std::size_t common = std::min(before.size(), after.size());
  const std::size_t mostBehind = std::min(common, after.size() - std::min(cursor, after.size()));
  std::size_t behind = 0;
  while (behind < mostBehind && before[before.size() - 1 - behind] == after[after.size() - 1 - behind]) ++behind;
  std::size_t start = 0;
  while (start < common - behind && before[start] == after[start]) ++start;
  return {.start = start,
          .removed = before.size() - behind - start,
          .inserted = after.substr(start, after.size() - behind - start)};
}

}  // namespace zorkanca
