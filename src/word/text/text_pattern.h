// What a search looks for: a text, or with wildcards a pattern of texts, "*" and "?".
#pragma once

#include <optional>
#include <vector>

#include "platform/word/word_range.h"
#include "word/text/position_set.h"

namespace zorkanca::word {

class TextPattern {
 public:
  /// Errors: 438 for what the search does not support (whole words, sounds, word forms, formats, "^" codes, other
  /// wildcards than "*" and "?"); 5 for an empty text.
  explicit TextPattern(const FindArguments& arguments);

  /// The first match in the text, the shortest one there.
  std::optional<Interval> First(TextView text) const;
  /// The last one.
  std::optional<Interval> Last(TextView text) const;

 private:
  Text Prepared(TextView text) const;
  std::optional<Interval> MatchPieces(TextView text, std::size_t from) const;
  std::size_t EndOfMatchAt(TextView text, std::size_t position) const;

  bool matchCase_;
  bool wildcards_;
  Text plain_;                // without wildcards, folded when case does not count
  std::vector<Text> pieces_;  // between "*"; U+FFFF stands for "?"
};

}  // namespace zorkanca::word
