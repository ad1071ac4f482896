#include "host/word/text/position_set.h"

#include <algorithm>

namespace zorkanca::word {

Position PositionSet::Count() const {
  Position count = 0;
  for (const Interval& interval : intervals_) count += interval.end - interval.start;
  return count;
}

void PositionSet::Add(Interval added) {
  if (added.start >= added.end) return;
  const auto first = std::lower_bound(intervals_.begin(), intervals_.end(), added.start,
                                      [](const Interval& interval, Position start) { return interval.end < start; });
  auto last = first;
  while (last != intervals_.end() && last->start <= added.end) {
    added.start = std::min(added.start, last->start);
    added.end = std::max(added.end, last->end);
    ++last;
  }
  intervals_.insert(intervals_.erase(first, last), added);
}

void PositionSet::Add(const PositionSet& other) {
  for (const Interval& interval : other.intervals_) Add(interval);
}

void PositionSet::Remove(Position position) {
  for (std::size_t i = 0; i < intervals_.size(); ++i) {
    const Interval whole = intervals_[i];
    if (position < whole.start || position >= whole.end) continue;
    intervals_.erase(intervals_.begin() + static_cast<std::ptrdiff_t>(i));
    Add({whole.start, position});
    Add({position + 1, whole.end});
    return;
  }
}

bool PositionSet::Covers(Interval wanted) const {
  const bool empty = wanted.start == wanted.end;
  return std::any_of(intervals_.begin(), intervals_.end(), [&](const Interval& interval) {
    return empty ? interval.start < wanted.start && wanted.end < interval.end
                 : interval.start <= wanted.start && wanted.end <= interval.end;
  });
}

Text PositionSet::Without(TextView text) const {
  Text result;
  std::size_t from = 0;
  for (const Interval& interval : intervals_) {
    const std::size_t start = std::min(text.size(), static_cast<std::size_t>(interval.start));
    result.append(text.substr(from, start - from));
    from = std::min(text.size(), static_cast<std::size_t>(interval.end));
  }
  result.append(text.substr(from));
  return result;
}

Position PositionSet::ToWhole(Position remaining) const {
  for (const Interval& interval : intervals_) {
    if (remaining < interval.start) break;
    remaining += interval.end - interval.start;
  }
  return remaining;
}

Interval PositionSet::ToWhole(Interval remaining) const {
  if (remaining.start >= remaining.end) return {};
  return {ToWhole(remaining.start), ToWhole(remaining.end - 1) + 1};
}

}  // namespace zorkanca::word
