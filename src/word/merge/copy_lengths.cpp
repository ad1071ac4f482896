#include "word/merge/copy_lengths.h"

namespace zorkanca::word {

namespace {

std::size_t LowestBit(std::size_t number) {
  return number & (~number + 1);
}

}  // namespace

CopyLengths::CopyLengths(std::vector<std::uint32_t> lengths)
    : lengths_(std::move(lengths)), sums_(lengths_.size() + 1) {
  for (std::size_t i = 1; i < sums_.size(); ++i) {
    sums_[i] += lengths_[i - 1];
    if (const std::size_t next = i + LowestBit(i); next < sums_.size()) sums_[next] += sums_[i];
  }
  while (top_ * 2 < sums_.size()) top_ *= 2;
}

Position CopyLengths::StartOf(std::size_t copy) const {
  Position sum = 0;
  for (std::size_t i = copy; i > 0; i -= LowestBit(i)) sum += sums_[i];
  return sum;
}

std::size_t CopyLengths::CopyAt(Position position) const {
  std::size_t copy = 0;
  for (std::size_t step = top_; step > 0; step /= 2) {
    if (copy + step >= sums_.size() || sums_[copy + step] > position) continue;
    copy += step;
    position -= sums_[copy];
  }
  return copy;
}

void CopyLengths::Shorten(std::size_t copy, Position by) {
  lengths_[copy] -= static_cast<std::uint32_t>(by);
  for (std::size_t i = copy + 1; i < sums_.size(); i += LowestBit(i)) sums_[i] -= by;
}

}  // namespace zorkanca::word
