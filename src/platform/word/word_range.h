// A part of a document's text, and the search in it. Positions are the object model's: one per UTF-16 unit, one per
// paragraph end, cell end and break; codes of fields are not part of the text, their results are.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "runtime/text.h"

namespace zorkanca {

/// Arguments of `Find.Execute`; the defaults are the object model's.
struct FindArguments {
  Text FindText = {};
  bool MatchCase = false;
  bool MatchWholeWord = false;
  bool MatchWildcards = false;  ///< "*" any run within a paragraph, "?" one character
  bool MatchSoundsLike = false;
  bool MatchAllWordForms = false;
  bool Forward = true;
  std::int32_t Wrap = 0;  ///< 0 stop, 1 continue at the other end of the story
  bool Format = false;
  std::optional<Text> ReplaceWith = {};
  std::int32_t Replace = 0;  ///< 0 none, 1 the first, 2 all
};

class WordRange {
 public:
  virtual ~WordRange() = default;
  virtual std::int32_t Start() const = 0;
  virtual std::int32_t End() const = 0;
  /// The text; paragraph ends are CR, cell ends CR and U+0007 in one position.
  virtual zorkanca::Text Text() = 0;
  /// Moves the ends of the range. Errors: 4608 outside the text.
  virtual void SetRange(std::int32_t start, std::int32_t end) = 0;
  /// Removes the text. Paragraphs of which nothing is left go with it when the range covers them whole.
  virtual void Delete() = 0;
  /// `Find.ClearFormatting` and `Find.Execute`: searches the range (from its end when not `Forward`); on success the
  /// range is the match. With `Replace` the matches are replaced. The cost grows with the text that is passed over.
  /// @return true when something was found
  virtual bool Find(const FindArguments& arguments) = 0;
};

}  // namespace zorkanca
