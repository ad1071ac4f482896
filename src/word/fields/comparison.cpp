#include "word/fields/comparison.h"

#include "word/fields/number_text.h"

namespace zorkanca::word {

namespace {

constexpr std::size_t kLongestStar = 128;

// Iterative with one way back to the last "*", so that no pattern makes it slow.
bool Matches(TextView text, TextView pattern) {
  std::size_t t = 0;
  std::size_t p = 0;
  std::size_t star = pattern.npos;
  std::size_t starText = 0;  // where the last star's stretch begins
  std::size_t taken = 0;     // what it covers
  while (t < text.size()) {
    if (p < pattern.size() && (pattern[p] == u'?' || (pattern[p] == text[t] && pattern[p] != u'*'))) {
      ++t;
      ++p;
    } else if (p < pattern.size() && pattern[p] == u'*') {
      star = p++;
      starText = t;
      taken = 0;
    } else if (star != pattern.npos && taken < kLongestStar) {
      p = star + 1;
      t = starText + ++taken;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == u'*') ++p;
  return p == pattern.size();
}

template <typename Operand>
bool Holds(const Operand& left, Comparison comparison, const Operand& right) {
  switch (comparison) {
    case Comparison::kEqual:
      return left == right;
    case Comparison::kNotEqual:
      return left != right;
    case Comparison::kLess:
      return left < right;
    case Comparison::kLessOrEqual:
      return left <= right;
    case Comparison::kGreater:
      return left > right;
    default:
      return left >= right;
  }
}

}  // namespace

std::optional<Comparison> ComparisonOf(TextView text) {
  if (text == u"=") return Comparison::kEqual;
  if (text == u"<>") return Comparison::kNotEqual;
  if (text == u"<") return Comparison::kLess;
  if (text == u"<=") return Comparison::kLessOrEqual;
  if (text == u">") return Comparison::kGreater;
  if (text == u">=") return Comparison::kGreaterOrEqual;
  return std::nullopt;
}

bool Compare(TextView left, Comparison comparison, TextView right, const Locale& locale) {
  const auto leftNumber = NumberOf(left, locale);
  const auto rightNumber = NumberOf(right, locale);
  if (leftNumber && rightNumber) return Holds(*leftNumber, comparison, *rightNumber);
  if (right.find_first_of(u"?*") != right.npos) {
    if (comparison == Comparison::kEqual) return Matches(left, right);
    if (comparison == Comparison::kNotEqual) return !Matches(left, right);
  }
  return Holds(left, comparison, right);
}

}  // namespace zorkanca::word
