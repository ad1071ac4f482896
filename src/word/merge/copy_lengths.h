// Lengths of copies with their running totals, both cheap to change and to ask (a binary indexed tree).
#pragma once

#include <cstdint>
#include <vector>

#include "word/text/text_units.h"

namespace zorkanca::word {

class CopyLengths {
 public:
  explicit CopyLengths(std::vector<std::uint32_t> lengths);

  std::size_t count() const { return lengths_.size(); }
  Position LengthOf(std::size_t copy) const { return lengths_[copy]; }
  Position Total() const { return StartOf(count()); }
  /// Length of all copies before this one.
  Position StartOf(std::size_t copy) const;
  /// The copy that holds a position below the total.
  std::size_t CopyAt(Position position) const;
  void Shorten(std::size_t copy, Position by);

 private:
  std::vector<std::uint32_t> lengths_;
  std::vector<Position> sums_;  // entry i, from 1: lengths of the copies (i - lowest bit of i) to i - 1
  std::size_t top_ = 1;         // highest power of two within the count
};

}  // namespace zorkanca::word
