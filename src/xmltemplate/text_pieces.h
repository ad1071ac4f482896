// A long text as a list of pieces, so that a change in its middle moves nothing but a few pointers.
// Pieces are kept in blocks of about a hundred. A block knows what stands in its pieces, so that a search passes over
// whole blocks, and its number, so that any two pieces can be told which comes first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

/// What stands in a piece, as far as operations ask for it.
enum Token : unsigned {
  kCellStart = 1,   ///< "<Cell " or "<Cell>"
  kDataStart = 2,   ///< "<Data " or "<Data>"
  kDataEnd = 4,     ///< "</Data>"
  kTableStart = 8,  ///< "<Table " or "<Table>"
  kMarker = 16,     ///< the whole piece is a marker
  kUnclosed = 32,   ///< the start of a marker that never ends
};
using TokenSet = unsigned;

struct PieceBlock;

/// A stretch of text, never empty. A token stands at the start of its piece; only in a marker it may stand elsewhere.
struct TextPiece {
  TextView text;
  TokenSet tokens = 0;
  std::uint32_t index = 0;      ///< in the block
  PieceBlock* block = nullptr;  ///< null: the piece is not, or no longer, part of the text

  bool isMarker() const { return tokens & kMarker; }
};

struct PieceBlock {
  std::vector<TextPiece*> pieces;  ///< never empty
  TokenSet tokens = 0;             ///< of all pieces
  std::size_t number = 0;          ///< from 0
};

/// The order of pieces that somebody else owns. A null piece stands for the end of the text.
class PieceList {
 public:
  TextPiece* First() const { return blocks_.empty() ? nullptr : blocks_.front()->pieces.front(); }
  TextPiece* Next(const TextPiece* piece) const;
  /// @param piece  null for the last one of all
  TextPiece* Previous(const TextPiece* piece) const;
  bool IsBefore(const TextPiece* left, const TextPiece* right) const;

  /// The first piece from `piece` on that holds some of the tokens; null when there is none.
  TextPiece* FirstWith(TokenSet tokens, TextPiece* piece) const;
  /// The last piece before `piece` that holds some of them; null when there is none.
  TextPiece* LastWith(TokenSet tokens, const TextPiece* piece) const;

  /// Puts pieces in place of those from `first` up to but without `end`.
  void Replace(TextPiece* first, TextPiece* end, const std::vector<TextPiece*>& pieces);

 private:
  using Pieces = std::vector<TextPiece*>;

  void Overwrite(TextPiece* piece, TextPiece* with);
  void Erase(TextPiece* first, TextPiece* end);
  void Insert(TextPiece* before, Pieces pieces);
  void SplitInto(std::size_t blockNumber, const Pieces& pieces);
  void Renumber(std::size_t fromBlock);

  std::vector<std::unique_ptr<PieceBlock>> blocks_;
};

}  // namespace zorkanca
