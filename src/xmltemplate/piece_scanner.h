// Cuts a text into the pieces that operations ask for: markers, stretches that begin with a token, and what lies
// between. A marker goes from "<?", blanks and the target word to the next "?>", whatever stands in between.
#pragma once

#include <cstddef>
#include <vector>

#include "runtime/text.h"
#include "xmltemplate/text_pieces.h"

namespace zorkanca {

/// Where a text that is to be continued ends in the midst of something: the start of a token, a marker or a line end
/// that the continuation may complete. The text's size when it does not.
std::size_t PendingStart(TextView text);

/// Position of the first, or of the last, of the tokens in the text; `npos` when there is none.
std::size_t FindToken(TextView text, TokenSet tokens);
std::size_t FindLastToken(TextView text, TokenSet tokens);

/// Reads a text that may grow, from left to right, once.
class PieceScanner {
 public:
  /// A piece of the text, from the end of the piece before it.
  struct Cut {
    std::size_t end = 0;
    TokenSet tokens = 0;
  };

  /// Reads on to the end of the text.
  /// @param text    what was given before, and more
  /// @param isLast  nothing will follow
  /// @return        false when the text ends in the midst of something, and more of it is needed
  bool Scan(TextView text, bool isLast);

  /// All pieces, once `Scan` returned true.
  const std::vector<Cut>& cuts() const { return cuts_; }

 private:
  bool FinishMarker(TextView text, bool isLast);
  void CutAt(std::size_t end);

  std::vector<Cut> cuts_;
  std::size_t start_ = 0;  // of the piece being read
  TokenSet tokens_ = 0;    // at its start
  bool inMarker_ = false;
  bool anyUnclosed_ = false;  // markers begin no more
  std::size_t next_ = 0;      // where reading goes on
};

}  // namespace zorkanca
