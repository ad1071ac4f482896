// One walk over the tree in the order of the document, which appends to the text what each node shows and notes from
// where to where it stands: one unit a position, so that a range of the text is a range of nodes. What has no text of
// its own (properties, bookmarks, the instruction of a field) takes no position; paragraphs, cells and rows end with a
// mark of one unit, as the object model counts them. Instructions of fields are passed over by a state that goes with
// the walk. Invariant: ranges are nested as the nodes are, and the end of a block is the length of the text when the
// walk leaves it. Cost: linear in the nodes, but for the search for anchored drawings in each paragraph, which visits
// the paragraph's nodes once more. The second half tells which marks outlive the deletion of a range.
#include "word/text/story_map.h"

#include <algorithm>
#include <set>

#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

bool HasAnchor(const pugi::xml_node& node) {
  if (Is(node, "wp:anchor") || Is(node, "w:pict") || Is(node, "mc:AlternateContent")) return true;
  const auto children = node.children();
  return std::any_of(children.begin(), children.end(), HasAnchor);
}

}  // namespace

void StoryMap::VisitBlocks(const pugi::xml_node& container) {
  for (const pugi::xml_node block : container.children()) VisitBlock(block);
}

void StoryMap::VisitBlock(const pugi::xml_node& block) {
  if (Is(block, "w:p")) {
    VisitParagraph(block);
  } else if (Is(block, "w:tbl")) {
    VisitTable(block);
  } else if (Is(block, "mc:AlternateContent")) {
    VisitBlocks(block.child("mc:Choice"));
  } else if (IsBlockWrapper(block)) {
    VisitBlocks(ContentOf(block));
  }
}

void StoryMap::VisitParagraph(const pugi::xml_node& paragraph) {
  const std::size_t index = paragraphs_.size();
  paragraphs_.push_back({{static_cast<Position>(text_.size()), 0}, paragraph, HasAnchor(paragraph)});
  VisitInline(paragraph);
  if (state_.InText()) text_ += MarkOf(paragraph);
  paragraphs_[index].range.end = length();
}

void StoryMap::VisitTable(const pugi::xml_node& table) {
  const std::size_t index = tables_.size();
  tables_.push_back({{length(), 0}, {}, tableDepth_, table});
  ++tableDepth_;
  for (const pugi::xml_node child : table.children()) {
    if (Is(child, "w:tr")) {
      VisitRow(child, index);
    } else if (IsBlockWrapper(child)) {
      for (const pugi::xml_node row : ContentOf(child).children("w:tr")) VisitRow(row, index);
    }
  }
  --tableDepth_;
  tables_[index].range.end = length();
}

void StoryMap::VisitRow(const pugi::xml_node& row, std::size_t table) {
  RowPlace place{{length(), 0}, {}, row};
  const auto visitCell = [&](const pugi::xml_node& cell) {
    VisitBlocks(cell);
    if (state_.InText()) place.cellEnds.push_back(length() - 1);
  };
  for (const pugi::xml_node child : row.children()) {
    if (Is(child, "w:tc")) {
      visitCell(child);
    } else if (IsBlockWrapper(child)) {
      for (const pugi::xml_node cell : ContentOf(child).children("w:tc")) visitCell(cell);
    }
  }
  if (state_.InText()) text_ += kRowEnd;
  place.range.end = length();
  tables_[table].rows.push_back(std::move(place));
}

void StoryMap::VisitInline(const pugi::xml_node& container) {
  for (const pugi::xml_node child : container.children()) {
    if (Is(child, "w:r")) {
      VisitRun(child);
    } else if (IsInlineWrapper(child)) {
      VisitInline(ContentOf(child));
    }
  }
}

void StoryMap::VisitRun(const pugi::xml_node& run) {
  for (const pugi::xml_node child : run.children()) {
    if (Is(child, "w:fldChar")) {
      VisitFieldCharacter(child);
    } else if (!state_.InText()) {
      if (!open_.empty() && !Is(child, "w:rPr")) open_.back().place.elements.push_back(child);
    } else if (Is(child, "w:t")) {
      const Position start = length();
      AppendTextOf(text_, child);
      if (length() > start) pieces_.push_back({{start, length()}, child});
    } else {
      const Position start = length();
      AppendUnitOf(text_, child);
      if (length() > start) pieces_.push_back({{start, length()}, child});
    }
  }
}

// A field in the code of another one is part of that.
void StoryMap::VisitFieldCharacter(const pugi::xml_node& node) {
  const std::size_t depth = state_.depth();
  const bool wasInText = state_.InText();
  state_.Pass(node);
  if (state_.depth() > depth && wasInText) open_.push_back({{{length(), length()}, {}}, state_.depth()});
  if (open_.empty()) return;
  OpenField& field = open_.back();
  field.place.elements.push_back(node);
  if (state_.depth() >= field.depth) return;
  field.place.result.end = length();
  fields_.push_back(std::move(field.place));
  open_.pop_back();
}

namespace {

// The ends of cells and rows that a deletion leaves standing.
std::vector<Position> KeptCells(const StoryMap& map, Interval range, const DeletionSurroundings& around) {
  std::vector<Position> kept;
  for (const TablePlace& table : map.tables()) {
    const bool beyond =
        around.reachesBefore || around.reachesBehind || range.start < table.range.start || range.end > table.range.end;
    for (const RowPlace& row : table.rows) {
      const bool covered = range.start <= row.range.start && row.range.end <= range.end;
      if (covered && beyond) continue;
      kept.insert(kept.end(), row.cellEnds.begin(), row.cellEnds.end());
      kept.push_back(row.range.end - 1);
    }
  }
  return kept;
}

bool Remains(const ParagraphPlace& place, const PositionSet& gone) {
  return place.range.start < place.range.end - 1 && !gone.Covers({place.range.start, place.range.end - 1});
}

// The marks of paragraphs that would have to join a table.
std::vector<Position> MarksBeforeTables(const StoryMap& map, const DeletionSurroundings& around,
                                        const PositionSet& gone) {
  std::vector<Position> kept;
  std::set<pugi::xml_node> vanishing;
  for (const ParagraphPlace& place : map.paragraphs()) {
    if (place.range.start < place.range.end && gone.Contains(place.range.end - 1)) vanishing.insert(place.node);
  }
  for (const TablePlace& table : map.tables()) {
    if (gone.Covers(table.range)) vanishing.insert(table.node);
  }
  for (const ParagraphPlace& place : map.paragraphs()) {
    const bool remains = Remains(place, gone) || (around.continues && place.range.start == 0);
    if (!remains || vanishing.count(place.node) == 0) continue;
    pugi::xml_node next = NextBlock(place.node);
    while (next && vanishing.count(next) != 0) next = NextBlock(next);
    if (Is(next, "w:tbl") || (!next && around.tableFollows)) kept.push_back(place.range.end - 1);
  }
  return kept;
}

}  // namespace

PositionSet PlanPlainDeletion(TextView text, Interval range, const DeletionSurroundings& around) {
  const auto unitAt = [&](Position position) { return text[static_cast<std::size_t>(position)]; };
  const char16_t before = range.start == 0 ? around.before : unitAt(range.start - 1);
  const Position length = static_cast<Position>(text.size()) - (around.endsStory ? 1 : 0);
  const bool whole = range.start < range.end && range.end < length && EndsParagraph(before) &&
                     unitAt(range.end) == kParagraphEnd && !EndsParagraph(unitAt(range.end - 1));
  return PositionSet({range.start, range.end + (whole ? 1 : 0)});
}

PositionSet PlanDeletion(const StoryMap& map, Interval range, const DeletionSurroundings& around) {
  PositionSet gone = PlanPlainDeletion(map.text(), range, around);
  const bool extended = gone.Contains(range.end);
  const auto anchored = [&](const ParagraphPlace& place) {
    return place.anchors && place.range.start <= range.end && range.end < place.range.end;
  };
  if (extended && std::any_of(map.paragraphs().begin(), map.paragraphs().end(), anchored)) gone.Remove({range.end});
  gone.Remove(KeptCells(map, range, around));
  gone.Remove(MarksBeforeTables(map, around, gone));
  return gone;
}

}  // namespace zorkanca::word
