#include "word/text/position_set.h"

#include <algorithm>
#include <iterator>

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

void PositionSet::Remove(std::vector<Position> positions) {
  std::sort(positions.begin(), positions.end());
  std::vector<Interval> left;
  auto position = positions.begin();
  for (Interval interval : intervals_) {
    position = std::lower_bound(position, positions.end(), interval.start);
    for (; position != positions.end() && *position < interval.end; ++position) {
      if (interval.start < *position) left.push_back({interval.start, *position});
      interval.start = *position + 1;
    }
    if (interval.start < interval.end) left.push_back(interval);
  }
  intervals_ = std::move(left);
}

bool PositionSet::Covers(Interval wanted) const {
  const auto behind = std::upper_bound(intervals_.begin(), intervals_.end(), wanted.start,
                                       [](Position start, const Interval& each) { return start < each.start; });
  if (behind == intervals_.begin()) return false;
  const Interval& interval = *std::prev(behind);
  const bool empty = wanted.start == wanted.end;
  return empty ? interval.start < wanted.start && wanted.end < interval.end : wanted.end <= interval.end;
}

PositionSet PositionSet::Within(Interval part) const {
  PositionSet within;
  auto interval = std::lower_bound(intervals_.begin(), intervals_.end(), part.start,
                                   [](const Interval& each, Position start) { return each.end <= start; });
  for (; interval != intervals_.end() && interval->start < part.end; ++interval) {
    within.intervals_.push_back(
        {std::max(interval->start, part.start) - part.start, std::min(interval->end, part.end) - part.start});
  }
  return within;
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
