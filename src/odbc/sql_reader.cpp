// One pass, a token at a time. The only doubt is ":": it begins a parameter where a name follows it and neither another
// ":" (a cast, "a::int") nor the end of an expression (a slice, "a[1:n]") stands directly before it.
#include "odbc/sql_reader.h"

#include <algorithm>

#include "runtime/ascii.h"

namespace zorkanca {

namespace {

bool IsBlankUnit(char16_t unit) {
  return unit == u' ' || (unit >= u'\t' && unit <= u'\r') || unit == u'\u00A0';
}

bool BeginsName(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_' || unit >= u'\u0080';
}

bool ContinuesName(char16_t unit) {
  return BeginsName(unit) || IsDigit(unit);
}

}  // namespace

void SqlReader::SkipLine() {
  at_ = std::min(sql_.find(u'\n', at_), sql_.size());
}

void SqlReader::SkipComment() {
  std::size_t depth = 0;
  do {
    if (StartsWith(u"/*") && (depth == 0 || dialect_.nestedComments)) {
      ++depth;
      at_ += 2;
    } else if (StartsWith(u"*/")) {
      --depth;
      at_ += 2;
    } else {
      ++at_;
    }
  } while (depth > 0 && at_ < sql_.size());
  at_ = std::min(at_, sql_.size());
}

void SqlReader::SkipBlanksAndComments() {
  const std::size_t begin = at_;
  while (at_ < sql_.size()) {
    if (IsBlankUnit(sql_[at_])) {
      ++at_;
    } else if (StartsWith(u"--") || (dialect_.hashComments && sql_[at_] == u'#')) {
      SkipLine();
    } else if (dialect_.commentsThatRun && (StartsWith(u"/*!") || StartsWith(u"/*M!"))) {
      at_ += std::size_t{sql_[at_ + 2] == u'M' ? 4U : 3U};
      while (IsDigit(At(at_))) ++at_;
      inRunningComment_ = true;
    } else if (inRunningComment_ && StartsWith(u"*/")) {
      at_ += 2;
      inRunningComment_ = false;
    } else if (StartsWith(u"/*")) {
      SkipComment();
    } else {
      break;
    }
  }
  if (at_ != begin) behindOperand_ = false;
}

// Behind the opening quote; a doubled quote stands for one.
void SqlReader::TakeQuoted(char16_t end, bool backslashes) {
  while (at_ < sql_.size()) {
    const char16_t unit = sql_[at_++];
    if (backslashes && unit == u'\\') {
      ++at_;
    } else if (unit == end) {
      if (At(at_) != end) return;
      ++at_;
    }
  }
  at_ = std::min(at_, sql_.size());
}

bool SqlReader::TakeDollarText() {
  std::size_t tagEnd = at_ + 1;
  while (ContinuesName(At(tagEnd))) ++tagEnd;
  if (At(tagEnd) != u'$' || IsDigit(At(at_ + 1))) return false;
  const TextView tag = sql_.substr(at_, tagEnd + 1 - at_);
  const std::size_t close = sql_.find(tag, tagEnd + 1);
  at_ = close == TextView::npos ? sql_.size() : close + tag.size();
  return true;
}

void SqlReader::TakeWord() {
  while (ContinuesName(At(at_)) || At(at_) == u'$') ++at_;
}

SqlToken SqlReader::Next() {
  SkipBlanksAndComments();
  const bool behindOperand = behindOperand_;
  SqlToken token{.kind = SqlToken::Kind::kEnd, .begin = at_, .end = at_};
  if (at_ >= sql_.size()) return token;
  const char16_t unit = sql_[at_];
  if (unit == u'\'' || (unit == u'"' && dialect_.quotesAreTexts)) {
    ++at_;
    TakeQuoted(unit, dialect_.backslashes);
    token.kind = SqlToken::Kind::kText;
  } else if (unit == u'"' || unit == u'`' || (unit == u'[' && dialect_.bracketNames)) {
    ++at_;
    TakeQuoted(unit == u'[' ? u']' : unit, false);
    token.kind = SqlToken::Kind::kName;
  } else if (dialect_.dollarTexts && unit == u'$' && TakeDollarText()) {
    token.kind = SqlToken::Kind::kText;
  } else if (dialect_.dollarTexts && (unit == u'E' || unit == u'e') && At(at_ + 1) == u'\'') {
    at_ += 2;
    TakeQuoted(u'\'', true);
    token.kind = SqlToken::Kind::kText;
  } else if (ContinuesName(unit)) {
    TakeWord();
    token.kind = SqlToken::Kind::kWord;
  } else if (unit == u':' && !behindOperand && BeginsName(At(at_ + 1))) {
    ++at_;
    TakeWord();
    token.kind = SqlToken::Kind::kParameter;
  } else {
    at_ += StartsWith(u"::") ? 2U : 1U;
    token.kind = SqlToken::Kind::kMark;
  }
  token.end = at_;
  behindOperand_ = token.kind != SqlToken::Kind::kMark || unit == u')' || unit == u']';
  return token;
}

}  // namespace zorkanca
