// Which markers of a text carry a symbol, in the order of the text.
#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "runtime/text.h"
#include "xmltemplate/text_pieces.h"

namespace zorkanca {

/// Markers under the symbols that somebody may ask for: those of tagged cells and grids where the marker ends exactly
/// as the system writes it, those of worksheets and sections wherever they stand in it. The case of symbols is ignored.
/// A marker that left the text is forgotten when it is next met.
class MarkerIndex {
 public:
  /// @param order  outlives the index
  explicit MarkerIndex(const PieceList& order) : order_(&order) {
    symbols_.max_load_factor(0.25f);  // most look-ups find nothing, and an empty bucket tells that at once
  }

  /// Adds markers that were put into the text at one place, in their order.
  void Add(const std::vector<TextPiece*>& markers);

  /// The first marker with the symbol; null when there is none.
  TextPiece* First(TextView symbol);
  /// The first one behind another piece. `cursor` is 0 at first; the places of later calls must come later, too, and
  /// nothing with the symbol be added in between.
  TextPiece* FirstAfter(TextView symbol, const TextPiece* place, std::size_t& cursor);

 private:
  struct Occurrences {
    std::vector<TextPiece*> markers;
    std::size_t first = 0;  // those before it have left the text
  };
  struct NewMarker {
    Occurrences* occurrences;
    TextPiece* marker;
  };
  struct Hash {
    std::size_t operator()(TextView symbol) const;
  };
  struct Equal {
    bool operator()(TextView left, TextView right) const;
  };

  void AddUnder(TextView symbol, TextPiece* marker, std::vector<NewMarker>& amidst);
  void InsertAmidst(Occurrences& occurrences, const std::vector<TextPiece*>& markers);

  const PieceList* order_;
  std::unordered_map<TextView, Occurrences, Hash, Equal> symbols_;  // the keys are parts of markers' texts
};

}  // namespace zorkanca
