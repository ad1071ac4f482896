// The code of a field taken apart:
//
//   code      type argument argument ... switch argument ...
//   argument  "quoted, may hold blanks", also in typographic quotes; or a word; a field inside is one by itself
//   switch    \ and one character; its argument may touch it, and one for formatting (\# \@ \*) what stands before it
//   escapes   \" a quote, \\ a backslash, inside arguments
//   operator  = <> < <= > >= ; separate from what touches it, in the codes of comparisons
#pragma once

#include <pugixml.hpp>
#include <vector>

#include "runtime/text.h"
#include "word/fields/field_fold.h"

namespace zorkanca::word {

/// A piece of an argument: characters of one run, or something else that stands in the code.
struct CodePiece {
  Text text;              ///< empty for a node
  pugi::xml_node source;  ///< the run of the text; zk:field, zk:para, a drawing, ... for a node
};

struct CodeToken {
  enum class Kind { kArgument, kSwitch, kOperator };
  Kind kind = Kind::kArgument;
  bool quoted = false;
  std::vector<CodePiece> pieces;

  /// True without any field or other node inside.
  bool IsPlain() const;
  /// The characters alone.
  Text PlainText() const;
};

/// @param comparison  whether operators are cut out of words, as in IF
std::vector<CodeToken> TokensOf(const FoldedField& field, bool comparison);

}  // namespace zorkanca::word
