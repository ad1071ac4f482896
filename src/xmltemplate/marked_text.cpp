// The text is a list of pieces that look into texts which never move: the one that was read, and one for each
// replacement. A piece is a whole marker, a stretch that begins with a token, or what lies between.
//
// Invariant: the markers and tokens are those that reading the whole text anew would find. `Replace` keeps it by
// reading more than it puts in. It starts where something begins that the change may touch: a marker that is cut into,
// a "<?" or the name of a tag that ends at the place, a marker that never ended and may now be closed. It goes on,
// piece by piece, until the scanner stands in the midst of nothing: what follows is then read as it was before.
//
// Cost: a replacement reads what it puts in and a few pieces around it, and moves pointers within a block of the list.
// What was replaced stays in memory until the end; it grows with the work that is done.
#include "xmltemplate/marked_text.h"

#include <algorithm>

#include "xmltemplate/markers.h"
#include "xmltemplate/template_text.h"

namespace zorkanca {

namespace {

constexpr TextView kMarkerClosing = u"?>";

// True when the text could bring a marker to its end that began before it.
bool MayCloseMarker(TextView text) {
  return text.starts_with(u'>') || text.ends_with(u'?') || text.find(kMarkerClosing) != TextView::npos;
}

}  // namespace

MarkedText::MarkedText(Text text) {
  texts_.push_back(std::move(text));
  size_ = texts_.back().size();
  PieceScanner scanner;
  scanner.Scan(texts_.back(), true);
  std::vector<TextPiece*> pieces;
  AddPieces(texts_.back(), scanner.cuts(), pieces);
  order_.Replace(nullptr, nullptr, pieces);
  Index(pieces);
}

TextPiece* MarkedText::NewPiece(TextView text, TokenSet tokens) {
  hasUnclosed_ = hasUnclosed_ || (tokens & kUnclosed);
  return &pieces_.emplace_back(TextPiece{.text = text, .tokens = tokens});
}

void MarkedText::AddPieces(TextView text, const std::vector<PieceScanner::Cut>& cuts, std::vector<TextPiece*>& pieces) {
  pieces.reserve(cuts.size() + 1);
  std::size_t start = 0;
  for (const PieceScanner::Cut& cut : cuts) {
    pieces.push_back(NewPiece(text.substr(start, cut.end - start), cut.tokens));
    start = cut.end;
  }
}

void MarkedText::Index(const std::vector<TextPiece*>& pieces) {
  std::vector<TextPiece*> markers;
  std::copy_if(pieces.begin(), pieces.end(), std::back_inserter(markers),
               [](const TextPiece* piece) { return piece->isMarker(); });
  if (!markers.empty()) index_.Add(markers);
}

TextPlace MarkedText::Advance(TextPlace place, std::size_t units) const {
  while (place.piece && units >= place.piece->text.size() - place.offset) {
    units -= place.piece->text.size() - place.offset;
    place = After(place.piece);
  }
  if (place.piece) place.offset += units;
  return place;
}

std::optional<TextPlace> MarkedText::LastToken(Token token, const TextPiece* marker) const {
  TextPiece* piece = order_.LastWith(token, marker);
  if (!piece) return std::nullopt;
  return TextPlace{piece, piece->isMarker() ? FindLastToken(piece->text, token) : 0};
}

std::optional<TextPlace> MarkedText::FirstToken(Token token, TextPlace from) const {
  if (from.piece && from.offset > 0) from = After(from.piece);
  TextPiece* piece = order_.FirstWith(token, from.piece);
  if (!piece) return std::nullopt;
  return TextPlace{piece, piece->isMarker() ? FindToken(piece->text, token) : 0};
}

std::optional<TextPlace> MarkedText::Find(TextView sought, TextPlace from, TextPlace to) const {
  // A window over the text: the end of what was read, where an occurrence may have begun, and the next piece.
  Text window;
  TextPlace windowStart = from;
  for (TextPlace place = from; place.piece && (place.piece != to.piece || place.offset < to.offset);) {
    const std::size_t end = place.piece == to.piece ? to.offset : place.piece->text.size();
    const TextView part = place.piece->text.substr(place.offset, end - place.offset);
    if (window.empty()) windowStart = place;
    const bool isAlone = window.empty();
    if (!isAlone) window.append(part);
    const TextView read = isAlone ? part : TextView(window);
    const std::size_t found = FindIgnoringCase(read, sought);
    if (found != TextView::npos) return Advance(windowStart, found);

    const std::size_t kept = std::min(read.size(), sought.size() - 1);
    windowStart = Advance(windowStart, read.size() - kept);
    window = Text(read.substr(read.size() - kept));
    if (place.piece == to.piece) break;
    place = After(place.piece);
  }
  return std::nullopt;
}

TextPlace MarkedText::SkipBlanks(TextPlace from) const {
  for (; from.piece; from = After(from.piece)) {
    const TextView rest = from.piece->text.substr(from.offset);
    const TextView trimmed = TrimLeftBlanks(rest);
    if (!trimmed.empty()) return {from.piece, from.piece->text.size() - trimmed.size()};
  }
  return from;
}

TextPlace MarkedText::SkipBlankLines(TextPlace from) const {
  for (;;) {
    const TextPlace place = SkipBlanks(from);
    // Line ends lie in one piece: what may be the start of something is always read together with what follows.
    if (!place.piece || !place.piece->text.substr(place.offset).starts_with(kCrLf)) return from;
    from = Advance(place, kCrLf.size());
  }
}

TextPlace MarkedText::SkipBlankLinesBack(TextPlace from) const {
  for (;;) {
    const TextView before = from.piece && from.offset > 0 ? from.piece->text.substr(0, from.offset) : TextView();
    const TextView trimmed = TrimTrailingBlankLines(before);
    if (!trimmed.empty()) return {from.piece, trimmed.size()};
    TextPiece* previous = order_.Previous(from.piece);
    if (!previous) return Begin();
    const std::size_t kept = TrimTrailingBlankLines(previous->text).size();
    if (kept == previous->text.size()) return {from.piece, 0};
    from = {previous, kept};
    if (kept > 0) return from;
  }
}

Text MarkedText::Copy(TextPlace from, TextPlace to) const {
  Text text;
  if (from.piece == order_.First() && from.offset == 0 && !to.piece) text.reserve(size_);
  for (; from.piece && from.piece != to.piece; from = After(from.piece)) {
    text.append(from.piece->text.substr(from.offset));
  }
  if (from.piece) text.append(from.piece->text.substr(from.offset, to.offset - from.offset));
  return text;
}

std::size_t MarkedText::Length(TextPlace from, TextPlace to) const {
  std::size_t length = to.offset;
  for (; from.piece != to.piece; from = After(from.piece)) length += from.piece->text.size() - from.offset;
  return length - from.offset;
}

// Where reading must start when the text at a place changes: where a marker or a token begins that the change may
// touch.
TextPlace MarkedText::SafeStart(TextPlace from, TextView with) const {
  if (from.piece && from.piece->isMarker() && from.offset > 0) from.offset = 0;
  if (hasUnclosed_ && MayCloseMarker(with)) {
    TextPiece* unclosed = order_.FirstWith(kUnclosed, order_.First());
    if (unclosed && (!from.piece || unclosed == from.piece || order_.IsBefore(unclosed, from.piece))) {
      return {unclosed, 0};
    }
  }
  // Nearly always a tag ends there.
  if (const TextPiece* previous = order_.Previous(from.piece); previous && from.offset == 0) {
    if (previous->text.ends_with(u'>')) return from;
  }
  constexpr std::size_t kLongest = 8;  // beginnings of tokens are shorter
  Text tail;
  TextPlace start = from;
  const auto isEnough = [&tail] {
    // Of markers, any number of blanks may stand between "<?" and the word.
    return tail.size() >= kLongest && MarkerStartAt(u"<?" + tail.substr(tail[0] == u'?')) != MarkerStart::kPending;
  };
  while (!isEnough()) {
    if (!start.piece || start.offset == 0) {
      TextPiece* previous = order_.Previous(start.piece);
      if (!previous || previous->isMarker()) break;
      start = {previous, previous->text.size()};
    }
    // A piece at a time, but of long ones only what is needed.
    const std::size_t count = std::min(start.offset, std::max(kLongest, tail.size()));
    start.offset -= count;
    tail.insert(0, start.piece->text.substr(start.offset, count));
    if (tail.back() == u'>') return from;
  }
  const std::size_t pending = PendingStart(tail);
  return pending == tail.size() ? from : Advance(start, pending);
}

TextPlace MarkedText::Replace(TextPlace from, TextPlace to, Text with) {
  const TextPlace start = SafeStart(from, with);
  size_ += with.size();
  size_ -= Length(from, to);
  if (const Text kept = Copy(start, from); !kept.empty()) with.insert(0, kept);
  Text& text = texts_.emplace_back(std::move(with));

  TextPiece* end = to.piece;
  TextView rest;  // of the piece in which the replaced part ends
  if (to.piece && to.offset > 0) {
    end = order_.Next(to.piece);
    rest = to.piece->text.substr(to.offset);
    if (to.piece->isMarker()) {
      text.append(rest);
      rest = {};
    }
  }

  PieceScanner scanner;
  while (!scanner.Scan(text, rest.empty() && !end)) {
    if (!rest.empty()) {
      text.append(rest);
      rest = {};
    } else {
      text.append(end->text);
      end = order_.Next(end);
    }
  }

  TextPiece* first = start.piece;
  if (start.piece && start.offset > 0) {
    first = order_.Next(start.piece);
    start.piece->text = start.piece->text.substr(0, start.offset);
  }
  std::vector<TextPiece*> pieces;
  AddPieces(text, scanner.cuts(), pieces);
  TextPiece* following = end;
  if (!rest.empty()) pieces.push_back(following = NewPiece(rest, 0));
  order_.Replace(first, end, pieces);
  Index(pieces);
  return {following, 0};
}

}  // namespace zorkanca
