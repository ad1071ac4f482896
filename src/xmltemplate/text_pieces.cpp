// A list of blocks with up to 128 pieces. Invariants: no block is empty, `index` and `block` of a piece tell its place,
// blocks are numbered in their order, and a block's tokens are at least those of its pieces. A change costs as much as
// it puts in or takes out and one block; only when a block overflows or becomes empty are the blocks behind it
// renumbered, which happens once in some dozens of insertions. A search looks at one set of tokens for each block that
// it passes over, and at pieces in the blocks where it begins and ends.
#include "xmltemplate/text_pieces.h"

#include <algorithm>
#include <iterator>

namespace zorkanca {

namespace {

constexpr std::size_t kBlockSize = 128;
constexpr std::size_t kFilledSize = 96;  // of blocks filled at once, so that there is room for more

// Tells the pieces from an index on where they are.
void Place(PieceBlock& block, std::size_t fromIndex) {
  for (std::size_t index = fromIndex; index < block.pieces.size(); ++index) {
    block.pieces[index]->block = &block;
    block.pieces[index]->index = static_cast<std::uint32_t>(index);
  }
}

void CollectTokens(PieceBlock& block) {
  block.tokens = 0;
  for (const TextPiece* piece : block.pieces) block.tokens |= piece->tokens;
}

auto At(std::vector<TextPiece*>& pieces, std::size_t index) {
  return pieces.begin() + static_cast<std::ptrdiff_t>(index);
}

}  // namespace

TextPiece* PieceList::Next(const TextPiece* piece) const {
  const PieceBlock& block = *piece->block;
  if (piece->index + 1 < block.pieces.size()) return block.pieces[piece->index + 1];
  return block.number + 1 < blocks_.size() ? blocks_[block.number + 1]->pieces.front() : nullptr;
}

TextPiece* PieceList::Previous(const TextPiece* piece) const {
  if (piece && piece->index > 0) return piece->block->pieces[piece->index - 1];
  const std::size_t number = piece ? piece->block->number : blocks_.size();
  return number > 0 ? blocks_[number - 1]->pieces.back() : nullptr;
}

bool PieceList::IsBefore(const TextPiece* left, const TextPiece* right) const {
  if (left->block == right->block) return left->index < right->index;
  return left->block->number < right->block->number;
}

TextPiece* PieceList::FirstWith(TokenSet tokens, TextPiece* piece) const {
  while (piece && !(piece->tokens & tokens)) {
    const bool isAtStart = piece->index == 0;
    std::size_t number = piece->block->number;
    if (!isAtStart || (piece->block->tokens & tokens)) {
      piece = Next(piece);
      continue;
    }
    do {
      ++number;
    } while (number < blocks_.size() && !(blocks_[number]->tokens & tokens));
    piece = number < blocks_.size() ? blocks_[number]->pieces.front() : nullptr;
  }
  return piece;
}

TextPiece* PieceList::LastWith(TokenSet tokens, const TextPiece* piece) const {
  TextPiece* found = Previous(piece);
  while (found && !(found->tokens & tokens)) {
    const PieceBlock& block = *found->block;
    if (found->index + 1 < block.pieces.size() || (block.tokens & tokens)) {
      found = Previous(found);
      continue;
    }
    std::size_t number = block.number;
    while (number > 0 && !(blocks_[number - 1]->tokens & tokens)) --number;
    found = number > 0 ? blocks_[number - 1]->pieces.back() : nullptr;
  }
  return found;
}

void PieceList::Replace(TextPiece* first, TextPiece* end, const Pieces& pieces) {
  auto next = pieces.begin();
  while (first != end && next != pieces.end()) {
    TextPiece* following = Next(first);
    Overwrite(first, *next++);
    first = following;
  }
  if (next != pieces.end()) {
    Insert(end, Pieces(next, pieces.end()));
  } else if (first != end) {
    Erase(first, end);
  }
}

void PieceList::Overwrite(TextPiece* piece, TextPiece* with) {
  PieceBlock& block = *piece->block;
  block.pieces[piece->index] = with;
  with->block = &block;
  with->index = piece->index;
  piece->block = nullptr;
  if (piece->tokens & ~with->tokens & ~kMarker) {  // nobody searches for markers here
    CollectTokens(block);
  } else {
    block.tokens |= with->tokens;
  }
}

void PieceList::Erase(TextPiece* first, TextPiece* end) {
  const std::size_t firstNumber = first->block->number;
  const std::size_t lastNumber = end ? end->block->number : blocks_.size() - 1;
  const std::size_t endIndex = end ? end->index : blocks_.back()->pieces.size();
  std::size_t from = first->index;
  for (std::size_t number = firstNumber; number <= lastNumber; ++number) {
    PieceBlock& block = *blocks_[number];
    const std::size_t to = number == lastNumber ? endIndex : block.pieces.size();
    for (std::size_t index = from; index < to; ++index) block.pieces[index]->block = nullptr;
    block.pieces.erase(At(block.pieces, from), At(block.pieces, to));
    Place(block, from);
    CollectTokens(block);
    from = 0;
  }
  const auto firstBlock = blocks_.begin() + static_cast<std::ptrdiff_t>(firstNumber);
  const auto endBlock = blocks_.begin() + static_cast<std::ptrdiff_t>(lastNumber) + 1;
  const auto kept = std::remove_if(firstBlock, endBlock, [](const auto& block) { return block->pieces.empty(); });
  if (kept == endBlock) return;
  blocks_.erase(kept, endBlock);
  Renumber(firstNumber);
}

void PieceList::Insert(TextPiece* before, Pieces pieces) {
  if (blocks_.empty()) return SplitInto(0, pieces);
  PieceBlock& block = before ? *before->block : *blocks_.back();
  const std::size_t index = before ? before->index : block.pieces.size();
  if (block.pieces.size() + pieces.size() > kBlockSize) {
    pieces.insert(pieces.begin(), block.pieces.begin(), At(block.pieces, index));
    pieces.insert(pieces.end(), At(block.pieces, index), block.pieces.end());
    return SplitInto(block.number, pieces);
  }
  block.pieces.insert(At(block.pieces, index), pieces.begin(), pieces.end());
  for (const TextPiece* piece : pieces) block.tokens |= piece->tokens;
  Place(block, index);
}

// Puts new blocks, evenly filled, in place of the block of that number.
void PieceList::SplitInto(std::size_t blockNumber, const Pieces& pieces) {
  const std::size_t count = (pieces.size() + kFilledSize - 1) / kFilledSize;
  std::vector<std::unique_ptr<PieceBlock>> fresh;
  for (std::size_t part = 0; part < count; ++part) {
    PieceBlock& block = *fresh.emplace_back(std::make_unique<PieceBlock>());
    block.pieces.reserve(kBlockSize);
    block.pieces.assign(pieces.begin() + static_cast<std::ptrdiff_t>(pieces.size() * part / count),
                        pieces.begin() + static_cast<std::ptrdiff_t>(pieces.size() * (part + 1) / count));
    Place(block, 0);
    CollectTokens(block);
  }
  auto place = blocks_.begin() + static_cast<std::ptrdiff_t>(blockNumber);
  if (place != blocks_.end()) place = blocks_.erase(place);
  blocks_.insert(place, std::make_move_iterator(fresh.begin()), std::make_move_iterator(fresh.end()));
  Renumber(blockNumber);
}

void PieceList::Renumber(std::size_t fromBlock) {
  for (std::size_t number = fromBlock; number < blocks_.size(); ++number) blocks_[number]->number = number;
}

}  // namespace zorkanca
