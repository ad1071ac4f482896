// The distance is that of optimal string alignment, by dynamic programming over the prefixes of both words: three rows
// of the table are enough, since a swap looks back two letters.
#include "runtime/nearest_name.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr std::size_t kNear = 2;
constexpr std::size_t kShort = 4;  // letters of a word of which two are too much
constexpr std::size_t kAlike = 3;

std::string InSmallLetters(std::string_view word) {
  std::string small(word);
  for (char& letter : small) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return small;
}

std::size_t Distance(std::string_view one, std::string_view other) {
  std::array<std::vector<std::size_t>, 3> rows;
  for (auto& row : rows) row.resize(other.size() + 1);
  for (std::size_t at = 0; at <= other.size(); ++at) rows[0][at] = at;
  for (std::size_t row = 1; row <= one.size(); ++row) {
    auto& now = rows[row % 3];
    const auto& before = rows[(row + 2) % 3];
    const auto& twoBefore = rows[(row + 1) % 3];
    now[0] = row;
    for (std::size_t at = 1; at <= other.size(); ++at) {
      const bool same = one[row - 1] == other[at - 1];
      now[at] = std::min({before[at] + 1, now[at - 1] + 1, before[at - 1] + (same ? 0 : 1)});
      const bool swapped = row > 1 && at > 1 && one[row - 1] == other[at - 2] && one[row - 2] == other[at - 1];
      if (swapped) now[at] = std::min(now[at], twoBefore[at - 2] + 1);
    }
  }
  return rows[one.size() % 3][other.size()];
}

std::size_t CommonBeginning(std::string_view one, std::string_view other) {
  const auto length = std::min(one.size(), other.size());
  const auto end = one.begin() + static_cast<std::ptrdiff_t>(length);
  return static_cast<std::size_t>(std::mismatch(one.begin(), end, other.begin()).first - one.begin());
}

}  // namespace

std::string NearestName(std::string_view word, const std::vector<std::string>& candidates, bool byBeginning) {
  const std::string wanted = InSmallLetters(word);
  std::string nearest;
  std::size_t distance = kNear + 1;
  std::size_t beginning = 0;
  for (const std::string& candidate : candidates) {
    const std::string name = InSmallLetters(candidate);
    const std::size_t shorter = std::min(name.size(), wanted.size());
    const std::size_t away = Distance(wanted, name);
    const std::size_t common = CommonBeginning(wanted, name);
    const bool alike = byBeginning && (common >= kAlike || (common > 0 && common == shorter));
    if (away <= kNear && away < distance && (away < kNear ? 2 * away <= shorter : shorter > kShort)) {
      distance = away;
      nearest = candidate;
    } else if (distance > kNear && alike && common > beginning) {
      beginning = common;
      nearest = candidate;
    }
  }
  return nearest;
}

std::string DidYouMean(const std::string& name) {
  return name.empty() ? "" : "; did you mean " + name + "?";
}

Text NearestText(TextView word, std::span<const Text> candidates) {
  std::vector<std::string> names;
  for (const Text& candidate : candidates) names.push_back(ToUtf8(candidate));
  return FromUtf8(NearestName(ToUtf8(word), names));
}

Text NearestHint(TextView word, std::span<const Text> candidates) {
  const Text nearest = NearestText(word, candidates);
  return nearest.empty() ? Text() : u"; the nearest is " + nearest;
}

Text NoColumn(TextView name, std::span<const Text> columns) {
  const Text nearest = NearestText(name, columns);
  Text text = u"The query has no column \"";
  text.append(name).append(u"\"");
  text += nearest.empty() ? u"; its columns are " : u"; did you mean " + nearest + u"? Its columns are ";
  return text + Join({columns.begin(), columns.end()}, u", ");
}

}  // namespace zorkanca
