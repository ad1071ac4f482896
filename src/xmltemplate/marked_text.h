// A text with markers that is changed at many places. The markers are indexed once and the text is kept in pieces: each
// operation costs a look-up and what it reads or writes, whatever the size of the text.
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "runtime/text.h"
#include "xmltemplate/marker_index.h"
#include "xmltemplate/piece_scanner.h"
#include "xmltemplate/text_pieces.h"

namespace zorkanca {

/// A place in a text: a piece and the offset of a unit in it. The end of the text has no piece.
/// A place stays good until what stands there is replaced.
struct TextPlace {
  TextPiece* piece = nullptr;
  std::size_t offset = 0;
};

class MarkedText {
 public:
  explicit MarkedText(Text text);
  MarkedText(const MarkedText&) = delete;
  MarkedText& operator=(const MarkedText&) = delete;

  TextPlace Begin() const { return {order_.First(), 0}; }
  static TextPlace End() { return {}; }
  static TextPlace Before(TextPiece* marker) { return {marker, 0}; }
  TextPlace After(const TextPiece* marker) const { return {order_.Next(marker), 0}; }
  /// The start of the piece that ends at a place.
  TextPlace StartBefore(TextPlace place) const { return {order_.Previous(place.piece), 0}; }
  /// The place some units further on, at most the end.
  TextPlace Advance(TextPlace place, std::size_t units) const;
  bool IsBefore(const TextPiece* left, const TextPiece* right) const { return order_.IsBefore(left, right); }
  std::size_t size() const { return size_; }

  /// The markers with a symbol, see `MarkerIndex`.
  TextPiece* FirstMarker(TextView symbol) { return index_.First(symbol); }
  TextPiece* FirstMarkerAfter(TextView symbol, const TextPiece* place, std::size_t& cursor) {
    return index_.FirstAfter(symbol, place, cursor);
  }

  /// The last token before a marker, the first one from a place on.
  std::optional<TextPlace> LastToken(Token token, const TextPiece* marker) const;
  std::optional<TextPlace> FirstToken(Token token, TextPlace from) const;
  /// The first occurrence of a text, case ignored, that lies between two places.
  std::optional<TextPlace> Find(TextView sought, TextPlace from, TextPlace to) const;

  /// Past the blank lines that follow a place, and past blanks.
  TextPlace SkipBlankLines(TextPlace from) const;
  TextPlace SkipBlanks(TextPlace from) const;
  /// Back over the blanks and line ends before a place.
  TextPlace SkipBlankLinesBack(TextPlace from) const;

  std::size_t Length(TextPlace from, TextPlace to) const;
  Text Copy(TextPlace from, TextPlace to) const;
  Text Whole() const { return Copy(Begin(), End()); }

  /// Puts a text in place of what stands between two places. It may hold anything; markers that it makes, breaks or
  /// joins are indexed as if the whole text had been read anew.
  /// @return the place behind it, past what has to be read together with it
  TextPlace Replace(TextPlace from, TextPlace to, Text with);

 private:
  TextPlace SafeStart(TextPlace from, TextView with) const;
  TextPiece* NewPiece(TextView text, TokenSet tokens);
  void AddPieces(TextView text, const std::vector<PieceScanner::Cut>& cuts, std::vector<TextPiece*>& pieces);
  void Index(const std::vector<TextPiece*>& pieces);

  // Neither texts nor pieces ever move or go: pieces look into the texts, and the index at pieces.
  std::deque<Text> texts_;
  std::deque<TextPiece> pieces_;
  PieceList order_;
  MarkerIndex index_{order_};
  std::size_t size_ = 0;
  bool hasUnclosed_ = false;  // a marker that never ends was seen
};

}  // namespace zorkanca
