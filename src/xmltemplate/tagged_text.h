// The text of a worksheet or of a section, and what clients do to it: fill tagged cells, set attributes, repeat grids.
#pragma once

#include <cstdint>
#include <memory>

#include "runtime/code_page.h"
#include "runtime/text.h"
#include "xmltemplate/marked_text.h"
#include "xmltemplate/markers.h"

namespace zorkanca {

/// Which tagged cell is meant. A cell with these indices is taken before one that stands for any indices, that before
/// one for any column, and that before one for any row; of several alike the first in the text.
struct TaggedCell {
  std::int16_t ColSign = 0;
  std::int16_t RowSign = 0;
  std::int16_t ColIndex = 1;
  std::int16_t RowIndex = 1;
};

/// What is not there changes nothing: a cell, an element around it, a grid.
class TaggedText {
 public:
  /// @param codePage  of the file; outlives the object
  TaggedText(Text text, const CodePage& codePage) : text_(std::move(text)), codePage_(&codePage) {}

  TaggedText(std::unique_ptr<MarkedText> text, const CodePage& codePage)
      : marked_(std::move(text)), codePage_(&codePage) {}

  /// The current text.
  Text Whole() const { return marked_ ? marked_->Whole() : text_; }

  /// Puts the UTF-8 form of the data in place of the cell's marker, characters of XML's own included.
  void SetData(TextView data, const TaggedCell& cell);
  /// Removes the `Data` element that holds the cell's marker.
  void RemoveData(const TaggedCell& cell);
  /// Sets an attribute of the `Cell` start tag before the cell's marker; a blank "ss:StyleID" is not set.
  void SetCellAttribute(TextView name, TextView value, const TaggedCell& cell);
  Text GetCellAttribute(TextView name, const TaggedCell& cell);
  /// An attribute of the first `Table` start tag.
  void SetTableAttribute(TextView name, TextView value);
  Text GetTableAttribute(TextView name);

  /// Repeats what stands in each grid of the sign so many times, below 1 not at all, and removes the grid's borders. In
  /// copy i the first marker of that sign whose index is open gets index i.
  /// Errors: 7 when the text would become larger than `kMaximumSize`; grids before that one are repeated then.
  void ExpandGrid(GridDirection direction, std::int16_t sign, std::int16_t count);

  /// Characters that grids may let a text grow to; more than a client of 32 bits could ever hold.
  static constexpr std::size_t kMaximumSize = std::size_t{1} << 27;

 private:
  struct Tag {
    TextPlace start;
    TextPlace end;
  };

  MarkedText& Marked();
  TextPiece* FindCell(const TaggedCell& cell);
  std::optional<Tag> TagAt(std::optional<TextPlace> start);
  std::optional<Tag> CellTag(const TaggedCell& cell);
  void SetTagAttribute(const std::optional<Tag>& tag, TextView name, TextView value);
  Text GetTagAttribute(const std::optional<Tag>& tag, TextView name);

  Text symbol_;  // what is being looked for: one text for all searches
  Text text_;    // until it is first worked on
  std::unique_ptr<MarkedText> marked_;
  const CodePage* codePage_;
};

}  // namespace zorkanca
