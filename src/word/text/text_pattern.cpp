#include "word/text/text_pattern.h"

#include "runtime/error.h"

namespace zorkanca::word {

namespace {

constexpr char16_t kAnyUnit = 0xFFFF;
constexpr TextView kOtherWildcards = u"[]{}<>()@!\\";

[[noreturn]] void RefuseMember(TextView member) {
  Raise(RuntimeError::kNotSupported, Text(u"not supported: Word.Find.").append(member));
}

bool PieceMatches(TextView text, std::size_t position, TextView piece) {
  if (position + piece.size() > text.size()) return false;
  for (std::size_t i = 0; i < piece.size(); ++i) {
    const char16_t unit = text[position + i];
    if (piece[i] == kAnyUnit ? EndsParagraph(unit) : piece[i] != unit) return false;
  }
  return true;
}

}  // namespace

TextPattern::TextPattern(const FindArguments& arguments)
    : matchCase_(arguments.MatchCase || arguments.MatchWildcards), wildcards_(arguments.MatchWildcards) {
  if (arguments.MatchWholeWord) RefuseMember(u"MatchWholeWord");
  if (arguments.MatchSoundsLike) RefuseMember(u"MatchSoundsLike");
  if (arguments.MatchAllWordForms) RefuseMember(u"MatchAllWordForms");
  if (arguments.Format) RefuseMember(u"Format");
  const TextView wanted = arguments.FindText;
  if (wanted.empty()) Raise(RuntimeError::kInvalidCall, u"There is no text to find.");
  if (wanted.find(u'^') != wanted.npos) RefuseMember(u"Text with \"^\" codes");
  if (!wildcards_) {
    plain_ = matchCase_ ? Text(wanted) : LowerCase(wanted);
    return;
  }
  if (wanted.find_first_of(kOtherWildcards) != wanted.npos) RefuseMember(u"MatchWildcards with others than * and ?");
  for (const TextView piece : Split(wanted, u'*')) pieces_.push_back(Replace(piece, u"?", Text(1, kAnyUnit)));
}

Text TextPattern::Prepared(TextView text) const {
  return matchCase_ ? Text() : LowerCase(text);
}

std::optional<Interval> TextPattern::First(TextView text) const {
  if (wildcards_) return MatchPieces(text, 0);
  const Text folded = Prepared(text);
  const std::size_t found = (matchCase_ ? text : TextView(folded)).find(plain_);
  if (found == text.npos) return std::nullopt;
  return Interval{static_cast<Position>(found), static_cast<Position>(found + plain_.size())};
}

std::optional<Interval> TextPattern::Last(TextView text) const {
  if (!wildcards_) {
    const Text folded = Prepared(text);
    const std::size_t found = (matchCase_ ? text : TextView(folded)).rfind(plain_);
    if (found == text.npos) return std::nullopt;
    return Interval{static_cast<Position>(found), static_cast<Position>(found + plain_.size())};
  }
  std::optional<Interval> last;
  while (const auto next = MatchPieces(text, last ? static_cast<std::size_t>(last->start) + 1 : 0)) last = next;
  return last;
}

// The end of the shortest match that begins at a position, npos when none does. A "*" never passes a paragraph's end,
// so the shortest continuation is the right one.
std::size_t TextPattern::EndOfMatchAt(TextView text, std::size_t position) const {
  std::size_t piece = 0;
  if (!PieceMatches(text, position, pieces_[piece])) return TextView::npos;
  position += pieces_[piece].size();
  while (++piece < pieces_.size()) {
    while (!PieceMatches(text, position, pieces_[piece])) {
      if (position >= text.size() || EndsParagraph(text[position])) return TextView::npos;
      ++position;
    }
    position += pieces_[piece].size();
  }
  return position;
}

std::optional<Interval> TextPattern::MatchPieces(TextView text, std::size_t from) const {
  for (std::size_t start = from; start < text.size(); ++start) {
    const std::size_t end = EndOfMatchAt(text, start);
    if (end != text.npos && end > start) return Interval{static_cast<Position>(start), static_cast<Position>(end)};
  }
  return std::nullopt;
}

}  // namespace zorkanca::word
