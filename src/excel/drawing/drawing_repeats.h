// The drawing of a sheet whose rows are repeated: what is anchored in a copied row comes again with each copy.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "excel/grid/work_watch.h"
#include "excel/sheet/row_repeats.h"
#include "opc/part_sink.h"
#include "opc/xml_document.h"

namespace zorkanca::excel {

/// A part xl/drawings/drawingN.xml. Pictures and shapes that move with the cell of their upper left corner are
/// repeated, over the same media; charts and what is fixed to the page are not.
class DrawingPart {
 public:
  /// Errors: 5 for what is no sound drawing.
  DrawingPart(std::string xml, const XmlSource& source);

  /// Anchored objects.
  std::size_t shapeCount() const { return anchors_.size(); }
  /// True when a repeat brings anything.
  bool IsRepeated(const std::vector<RowRepeat>& repeats) const;
  /// Writes the part with the copies. Its cost grows with what is written. Errors: 18 when cancelled.
  void Write(PartSink& sink, const std::vector<RowRepeat>& repeats, const ExcelWatch& watch) const;

 private:
  friend class AnchorReader;

  enum class PieceKind {
    kText,
    kFromRow,
    kToRow,
    kId,      ///< `number` is the index of the object within its anchor
    kName,    ///< the same; follows the text of the name without its number
    kUnique,  ///< the first eight digits of an identifier
  };
  struct Piece {
    PieceKind kind = PieceKind::kText;
    std::uint32_t begin = 0;  ///< of a text
    std::uint32_t end = 0;
    std::int32_t number = 0;  ///< a row, from 0; or an index
  };
  struct Anchor {
    std::int32_t row = 0;  ///< of its upper left corner, from 1; 0 for what is not repeated
    std::int32_t objects = 0;
    std::vector<Piece> pieces;
  };
  /// A copy of an anchor.
  struct Copy {
    std::uint32_t anchor = 0;
    std::int32_t shift = 0;  ///< rows
  };

  std::vector<Copy> CopiesFor(const std::vector<RowRepeat>& repeats) const;

  std::string xml_;
  std::size_t rootEnd_ = 0;  ///< of its last tag's beginning
  std::vector<Anchor> anchors_;
  std::int64_t lastId_ = 0;
};

}  // namespace zorkanca::excel
