// The words of a statement in the writing of one server: what is a text, a quoted name or a comment there is told apart
// from what the server reads as SQL.
#pragma once

#include <cstddef>

#include "runtime/text.h"

namespace zorkanca {

/// How a server writes texts, names and comments, beyond '…', "…", `--` and `/* */`.
struct SqlDialect {
  bool backslashes = false;      ///< \' does not end a text
  bool quotesAreTexts = false;   ///< "…" is a text, not a name
  bool dollarTexts = false;      ///< $tag$…$tag$, and E'…' with backslashes
  bool bracketNames = false;     ///< [name]
  bool hashComments = false;     ///< # to the end of the line
  bool nestedComments = false;   ///< /* /* */ */
  bool commentsThatRun = false;  ///< /*! … */ is SQL
};

struct SqlToken {
  enum class Kind {
    kEnd,
    kWord,       ///< a name or a keyword as it stands, a number
    kName,       ///< a quoted name
    kText,       ///< a text with its quotes
    kParameter,  ///< ":name"
    kMark,       ///< one unit of anything else
  };
  Kind kind = Kind::kEnd;
  std::size_t begin = 0;  ///< position in the statement
  std::size_t end = 0;
};

/// Goes through a statement from its beginning. A text, name or comment that is never closed reaches to the end.
class SqlReader {
 public:
  /// @param sql  outlives this object
  SqlReader(TextView sql, const SqlDialect& dialect) : sql_(sql), dialect_(dialect) {}

  /// The next token; of kind kEnd behind the last one.
  SqlToken Next();

 private:
  char16_t At(std::size_t position) const { return position < sql_.size() ? sql_[position] : u'\0'; }
  bool StartsWith(TextView text) const { return sql_.substr(at_).starts_with(text); }
  void SkipBlanksAndComments();
  void SkipLine();
  void SkipComment();
  bool TakeDollarText();
  void TakeQuoted(char16_t end, bool backslashes);
  void TakeWord();

  TextView sql_;
  const SqlDialect& dialect_;
  std::size_t at_ = 0;
  bool inRunningComment_ = false;
  bool behindOperand_ = false;  // what was last taken can end an expression, and nothing stands between
};

}  // namespace zorkanca
