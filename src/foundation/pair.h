// Two numbers that belong together: a place and a size on the screen, in twips.
#pragma once

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

/// Its numbers are settled when it is made.
class Pair {
 public:
  /// @param itemFormat  a format pattern (runtime/format.h) for either number; refers to a literal
  Pair(float first, float second, TextView itemFormat) : first_(first), second_(second), itemFormat_(itemFormat) {}

  float First() const { return first_; }
  float Second() const { return second_; }

  /// "first, second", either formatted.
  Text ToString(const Locale& locale) const;

  friend bool operator==(const Pair&, const Pair&) = default;

 private:
  float first_;
  float second_;
  TextView itemFormat_;
};

class Point final : public Pair {
 public:
  explicit Point(float x = 0, float y = 0) : Pair(x, y, u"##0") {}

  float X() const { return First(); }
  float Y() const { return Second(); }
};

class Size final : public Pair {
 public:
  /// Errors: `ArgumentErrorCode` for a negative number.
  explicit Size(float width = 0, float height = 0);

  float Width() const { return First(); }
  float Height() const { return Second(); }
};

}  // namespace zorkanca
