// A set of text positions as ordered, disjoint intervals.
#pragma once

#include <vector>

#include "word/text/text_units.h"

namespace zorkanca::word {

struct Interval {
  Position start = 0;
  Position end = 0;  ///< behind the last position
  friend bool operator==(const Interval&, const Interval&) = default;
};

class PositionSet {
 public:
  PositionSet() = default;
  explicit PositionSet(Interval interval) { Add(interval); }

  bool empty() const { return intervals_.empty(); }
  const std::vector<Interval>& intervals() const { return intervals_; }
  /// Number of positions.
  Position Count() const;

  void Add(Interval interval);
  void Add(const PositionSet& other);
  void Remove(std::vector<Position> positions);

  bool Contains(Position position) const { return Covers({position, position + 1}); }
  /// True when one interval covers all of this one; an empty one must lie strictly inside.
  bool Covers(Interval interval) const;
  /// The positions of the set in an interval, counted from its start.
  PositionSet Within(Interval part) const;
  /// The text without the positions.
  Text Without(TextView text) const;

  /// Where a position of what remains lies in the whole. A position at a gap is the one behind it.
  Position ToWhole(Position remaining) const;
  /// The interval of the whole from the first to the last position of one of what remains.
  Interval ToWhole(Interval remaining) const;

 private:
  std::vector<Interval> intervals_;
};

}  // namespace zorkanca::word
