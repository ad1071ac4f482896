// A machine with a state for each thing that a unit may follow, so that the text can come in pieces cut anywhere: what
// a quote or a CR means is known only from the unit after it, and until then it is a state, not a unit of the value.
// The stretches between such units are copied at once. The line end of the header decides whether a lone LF ends a
// record; each value is given out when its separator or line end has come. Cost: linear in the units, a value held at a
// time.
#include "word/merge/delimited_parser.h"

#include <algorithm>

#include "opc/xml_escape.h"
#include "runtime/error.h"

namespace zorkanca::word {

namespace {

constexpr char16_t kQuote = u'"';
constexpr char16_t kSeparator = u';';

// A name that somebody's program quoted after all.
Text Unquoted(TextView name) {
  if (name.size() < 2 || name.front() != kQuote || name.back() != kQuote) return Text(name);
  return Replace(name.substr(1, name.size() - 2), u"\"\"", u"\"");
}

}  // namespace

void DelimitedParser::Feed(TextView units) {
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (state_ == State::kPlain || state_ == State::kQuoted) {  // the long stretches
      const TextView stops = state_ == State::kPlain ? TextView(u";\"\r\n") : TextView(u"\"");
      const std::size_t end = std::min(units.find_first_of(stops, i), units.size());
      value_.append(units.substr(i, end - i));
      i = end;
      if (i == units.size()) return;
    }
    Take(units[i]);
  }
}

void DelimitedParser::Take(char16_t unit) {
  switch (state_) {
    case State::kHeader:
      return TakeHeader(unit);
    case State::kStart:
      return TakeStart(unit);
    case State::kPlain:
      return TakePlain(unit);
    case State::kPlainQuote:
      value_ += kQuote;
      state_ = State::kPlain;
      if (unit != kQuote) TakePlain(unit);
      return;
    case State::kPlainCr:
      if (unit == u'\n') return EndRecord();
      value_ += u'\r';
      state_ = State::kPlain;
      return TakePlain(unit);
    case State::kQuoted:
      if (unit != kQuote) {
        value_ += unit;
      } else {
        state_ = State::kQuotedQuote;
      }
      return;
    case State::kQuotedQuote:
      return TakeAfterQuote(unit);
    case State::kQuotedCr:
      if (unit == u'\n') return EndRecord();
      value_ += u"\"\r";
      state_ = State::kQuoted;
      return Take(unit);
  }
}

void DelimitedParser::TakeHeader(char16_t unit) {
  if (unit != u'\n') {
    value_ += unit;
    return;
  }
  endsWithLf_ = value_.empty() || value_.back() != u'\r';
  if (!endsWithLf_) value_.pop_back();
  EndHeader();
}

void DelimitedParser::TakeStart(char16_t unit) {
  if (unit == kQuote) {
    state_ = State::kQuoted;
  } else {
    state_ = State::kPlain;
    TakePlain(unit);
  }
}

void DelimitedParser::TakePlain(char16_t unit) {
  if (unit == kSeparator) {
    EndValue();
  } else if (unit == kQuote) {
    state_ = State::kPlainQuote;
  } else if (unit == u'\r') {
    state_ = State::kPlainCr;
  } else if (unit == u'\n' && endsWithLf_) {
    EndRecord();
  } else {
    value_ += unit;
  }
}

void DelimitedParser::TakeAfterQuote(char16_t unit) {
  if (unit == kQuote) {
    value_ += kQuote;
    state_ = State::kQuoted;
  } else if (unit == kSeparator) {
    EndValue();
  } else if (unit == u'\r') {
    state_ = State::kQuotedCr;
  } else if (unit == u'\n' && endsWithLf_) {
    EndRecord();
  } else if (value_.empty()) {  // plain text that begins with a doubled quote
    value_ += kQuote;
    state_ = State::kPlain;
    TakePlain(unit);
  } else {
    value_ += kQuote;
    value_ += unit;
    state_ = State::kQuoted;
  }
}

void DelimitedParser::EndHeader() {
  for (const TextView name : Split(value_, kSeparator)) columns_.push_back(Unquoted(name));
  value_.clear();
  state_ = State::kStart;
}

void DelimitedParser::EndValue() {
  records_.AddValue(XmlCharacters(value_));
  value_.clear();
  inRecord_ = true;
  state_ = State::kStart;
}

void DelimitedParser::EndRecord() {
  EndValue();
  records_.EndRecord();
  inRecord_ = false;
}

void DelimitedParser::Finish() {
  switch (state_) {
    case State::kHeader:
      if (value_.ends_with(u'\r')) value_.pop_back();
      if (value_.empty()) Raise(RuntimeError::kInvalidCall, u"The data source has no header line.");
      return EndHeader();
    case State::kQuoted:
      Raise(RuntimeError::kInvalidCall, u"The data source ends inside a quoted value of record " +
                                            DecimalText(static_cast<std::int64_t>(records_.count()) + 1) + u".");
    case State::kStart:
      if (inRecord_) EndRecord();
      return;
    case State::kPlainQuote:
      value_ += kQuote;
      break;
    case State::kPlainCr:
      value_ += u'\r';
      break;
    default:
      break;
  }
  EndRecord();
}

}  // namespace zorkanca::word
