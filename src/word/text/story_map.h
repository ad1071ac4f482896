// Where the text of a story (main text, header, footer) stands in its tree: the text with one unit per position, and
// for each stretch of it the node it comes from.
#pragma once

#include <pugixml.hpp>
#include <vector>

#include "word/text/position_set.h"
#include "word/text/text_units.h"

namespace zorkanca::word {

/// A stretch of text and its node: a w:t, or a child of a run that counts as one unit.
struct TextPiece {
  Interval range;
  pugi::xml_node node;
};

struct ParagraphPlace {
  Interval range;  ///< with its mark; a paragraph inside a field's code has no positions
  pugi::xml_node node;
  bool anchors = false;  ///< holds floating pictures or text boxes
};

/// A field that opens and closes in the story.
struct FieldPlace {
  Interval result;
  std::vector<pugi::xml_node> elements;  ///< children of runs that make it up, but for its visible result
};

struct RowPlace {
  Interval range;                  ///< with the row's end
  std::vector<Position> cellEnds;  ///< of its own cells
  pugi::xml_node node;
};

struct TablePlace {
  Interval range;
  std::vector<RowPlace> rows;
  std::size_t depth = 0;  ///< tables around it
  pugi::xml_node node;
};

/// Valid until the tree changes.
class StoryMap {
 public:
  /// @param container  w:body, w:hdr, w:ftr
  explicit StoryMap(const pugi::xml_node& container) : state_(container) { VisitBlocks(container); }

  const Text& text() const { return text_; }
  Position length() const { return static_cast<Position>(text_.size()); }
  const std::vector<TextPiece>& pieces() const { return pieces_; }
  const std::vector<ParagraphPlace>& paragraphs() const { return paragraphs_; }
  const std::vector<FieldPlace>& fields() const { return fields_; }
  /// Outer tables before those inside them.
  const std::vector<TablePlace>& tables() const { return tables_; }

 private:
  void VisitBlocks(const pugi::xml_node& container);
  void VisitBlock(const pugi::xml_node& block);
  void VisitParagraph(const pugi::xml_node& paragraph);
  void VisitTable(const pugi::xml_node& table);
  void VisitRow(const pugi::xml_node& row, std::size_t table);
  void VisitInline(const pugi::xml_node& container);
  void VisitRun(const pugi::xml_node& run);
  void VisitFieldCharacter(const pugi::xml_node& node);
  void AddUnit(char16_t unit, const pugi::xml_node& node);

  Text text_;
  std::vector<TextPiece> pieces_;
  std::vector<ParagraphPlace> paragraphs_;
  std::vector<FieldPlace> fields_;
  std::vector<TablePlace> tables_;
  struct OpenField {
    FieldPlace place;
    std::size_t depth = 0;  // fields open with it
  };

  std::vector<OpenField> open_;  // fields that have not closed, but for those in the code of another
  FieldState state_;
  std::size_t tableDepth_ = 0;
};

/// What lies round a text in which something is deleted, when it is only a part of its story.
struct DeletionSurroundings {
  char16_t before = kParagraphEnd;  ///< the unit before the deletion, when that begins at the text's start or before it
  bool reachesBefore = false;       ///< the deletion begins before this text
  bool reachesBehind = false;       ///< the deletion ends behind this text
  bool endsStory = true;            ///< the text's last mark is the story's and stays
  bool tableFollows = false;        ///< what follows this text begins with a table
  bool continues = false;           ///< the first paragraph has a part before this text, which stays
};

/// The positions that a deletion takes away: not the ends of cells and rows that stay, nor the mark of a paragraph of
/// which something remains before a table, but with the mark of a paragraph whose whole text goes. Rows go when the
/// deletion covers them and reaches beyond their table.
/// @param range  within the map's text
PositionSet PlanDeletion(const StoryMap& map, Interval range, const DeletionSurroundings& around = {});

/// The same where the range touches neither tables nor floating pictures; needs no tree.
PositionSet PlanPlainDeletion(TextView text, Interval range, const DeletionSurroundings& around);

}  // namespace zorkanca::word
