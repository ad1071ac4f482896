// The pattern is compiled into elements first; then one walk over the text. When an element does not match, the walk
// goes back to the last "*" and lets it take one unit more. Earlier ones need never be tried again: what stands between
// two of them has matched as early as it can, and a later place leaves less for the rest. That bounds the time by the
// product of the lengths, where trying all ways would take exponential time.
#include "runtime/like.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#include "runtime/ascii.h"
#include "runtime/error.h"
#include "runtime/run_match.h"

namespace zorkanca {

namespace {

enum class Kind : std::uint8_t { kUnit, kAnyUnit, kDigit, kSet, kAnyRun };

struct Element {
  Kind kind;
  char16_t unit = 0;     // of kUnit
  TextView list = {};    // of kSet, without brackets and "!"
  bool negated = false;  // of kSet
};

/// True when `test(first, last)` holds for some range of the list; a single unit is a range of its own. "-" is itself
/// at either end of the list and wherever no range can begin before it.
template <typename Test>
bool AnyRange(TextView list, Test test) {
  for (std::size_t index = 0; index < list.size(); ++index) {
    const char16_t first = list[index];
    const bool leadingDash = index == 0 && first == u'-';
    const bool isRange = !leadingDash && index + 2 < list.size() && list[index + 1] == u'-';
    if (isRange) index += 2;
    if (test(first, list[index])) return true;
  }
  return false;
}

/// The set whose "[" stands at the position, which moves to its "]".
Element ReadSet(TextView pattern, std::size_t& position) {
  const std::size_t end = pattern.find(u']', position);
  if (end == TextView::npos) Raise(RuntimeError::kInvalidPattern);
  Element set{.kind = Kind::kSet, .list = pattern.substr(position + 1, end - position - 1)};
  position = end;
  if (set.list.size() > 1 && set.list.front() == u'!') {  // "[!]" alone is the exclamation mark itself
    set.negated = true;
    set.list.remove_prefix(1);
  }
  if (AnyRange(set.list, [](char16_t first, char16_t last) { return first > last; })) {
    Raise(RuntimeError::kInvalidPattern);
  }
  return set;
}

/// The whole pattern is read before any matching, so that a bad one is an error whatever the text.
std::vector<Element> Compile(TextView pattern) {
  std::vector<Element> elements;
  elements.reserve(pattern.size());
  for (std::size_t position = 0; position < pattern.size(); ++position) {
    switch (const char16_t unit = pattern[position]) {
      case u'?':
        elements.push_back({.kind = Kind::kAnyUnit});
        break;
      case u'#':
        elements.push_back({.kind = Kind::kDigit});
        break;
      case u'*':
        elements.push_back({.kind = Kind::kAnyRun});
        break;
      case u'[': {
        const Element set = ReadSet(pattern, position);
        if (!set.list.empty()) elements.push_back(set);  // "[]" stands for no character at all
        break;
      }
      default:
        elements.push_back({.kind = Kind::kUnit, .unit = unit});
    }
  }
  return elements;
}

bool Matches(const Element& element, char16_t unit) {
  switch (element.kind) {
    case Kind::kUnit:
      return unit == element.unit;
    case Kind::kDigit:
      return IsDigit(unit);
    case Kind::kSet: {
      const bool found =
          AnyRange(element.list, [unit](char16_t first, char16_t last) { return first <= unit && unit <= last; });
      return found != element.negated;
    }
    case Kind::kAnyUnit:
    case Kind::kAnyRun:
      break;
  }
  return true;
}

}  // namespace

bool Like(TextView text, TextView pattern) {
  const std::vector<Element> elements = Compile(pattern);
  return MatchesWhole(
      text, elements.size(), [&](std::size_t index) { return elements[index].kind == Kind::kAnyRun; },
      [&](std::size_t index, char16_t unit) { return Matches(elements[index], unit); });
}

}  // namespace zorkanca
