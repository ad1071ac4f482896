// A small buffer in front of a text: the writers of numbers and dates put single characters, and a text that checks and
// ends itself at each of them would take longer than all the rest.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "runtime/text.h"

namespace zorkanca {

/// Collects units for a text. What was put is in the text after `Flush`.
class TextSink {
 public:
  explicit TextSink(Text& text) : text_(text) {}
  TextSink(const TextSink&) = delete;
  TextSink& operator=(const TextSink&) = delete;

  void Put(char16_t unit) {
    if (size_ == kCapacity) Flush();
    units_[size_++] = unit;
  }

  void Put(TextView piece) {
    if (piece.size() > kCapacity - size_) {
      Flush();
      if (piece.size() > kCapacity) {
        text_.append(piece);
        return;
      }
    }
    std::copy(piece.begin(), piece.end(), units_ + size_);
    size_ += piece.size();
  }

  /// Puts a number below 100, in two digits or, below 10, without the leading zero. Lengths of days and months change
  /// without a pattern that a processor could foresee: no branch depends on them.
  void PutBelow100(std::int32_t number, bool twoDigits) {
    if (kCapacity - size_ < 2) Flush();
    units_[size_] = static_cast<char16_t>(u'0' + number / 10);
    size_ += twoDigits || number >= 10 ? 1 : 0;
    units_[size_++] = static_cast<char16_t>(u'0' + number % 10);
  }

  void Flush() {
    text_.append(units_, size_);
    size_ = 0;
  }

 private:
  static constexpr std::size_t kCapacity = 64;

  Text& text_;
  std::size_t size_ = 0;
  char16_t units_[kCapacity];
};

}  // namespace zorkanca
