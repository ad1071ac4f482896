// Deletion and replacement in the tree of a story.
//
// A story map tells for each stretch of the text the node it comes from; it is made before the first change and never
// looked at again for a node that went, so that nothing has to be kept in step with the tree. Deletion goes from small
// to large: characters out of w:t elements, and with them runs and wrappers that hold nothing any more; then what makes
// up fields whose whole result goes; then rows and tables; then paragraphs without their mark, from behind, so that a
// paragraph takes up what remains of the one before it once and as it will stay. Marks of places (bookmarks, comment
// ranges) are never lost: they move into the next paragraph or stay where they are.
//
// Which positions go is decided elsewhere (PlanDeletion), by text alone. The cost is that of one pass over the map and
// one look into the set of positions for each piece: linear in the story, with the logarithm of the deletions.
#include "word/text/story_edit.h"

#include <algorithm>

#include "opc/xml_document.h"
#include "opc/xml_escape.h"
#include "runtime/utf8.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

bool IsEmptyHolder(const pugi::xml_node& node) {
  if (!Is(node, "w:r") && !IsInlineWrapper(node)) return false;
  if (Is(node, "w:sdt")) return !ContentOf(node).first_child();
  for (const pugi::xml_node child : node.children()) {
    if (!Is(child, "w:rPr")) return false;
  }
  return true;
}

// Removes a child of a run and then whatever holds nothing any more.
void RemoveWithHolders(pugi::xml_node node) {
  pugi::xml_node parent = node.parent();
  parent.remove_child(node);
  while (Is(parent, "w:sdtContent") || IsEmptyHolder(parent)) {
    if (Is(parent, "w:sdtContent") && parent.first_child()) return;
    node = parent;
    parent = node.parent();
    if (!Is(node, "w:sdtContent")) parent.remove_child(node);
  }
}

void RemoveText(const TextPiece& piece, const PositionSet& gone) {
  const PositionSet own = gone.Within(piece.range);
  if (own.empty()) return;
  Text text;
  if (Is(piece.node, "w:t")) {
    AppendTextOf(text, piece.node);
    text = own.Without(text);
  }
  if (text.empty()) {
    RemoveWithHolders(piece.node);
  } else {
    SetTextOf(piece.node, XmlCharacters(text));
  }
}

void RemoveFields(const StoryMap& map, const PositionSet& gone) {
  for (const FieldPlace& field : map.fields()) {
    if (!gone.Covers(field.result)) continue;
    for (const pugi::xml_node& element : field.elements) RemoveWithHolders(element);
  }
}

// Removes rows and tables; the places it took away are returned, because their nodes are void now.
PositionSet RemoveTables(const StoryMap& map, const PositionSet& gone) {
  PositionSet removed;
  for (const TablePlace& table : map.tables()) {
    if (table.rows.empty() || removed.Contains(table.range.start)) continue;
    std::size_t left = table.rows.size();
    for (const RowPlace& row : table.rows) {
      if (!gone.Contains(row.range.end - 1)) continue;
      row.node.parent().remove_child(row.node);
      removed.Add(row.range);
      --left;
    }
    if (left == 0) table.node.parent().remove_child(table.node);
  }
  return removed;
}

bool IsContent(const pugi::xml_node& node, bool all) {
  if (Is(node, "w:pPr") || Is(node, "w:proofErr")) return false;
  return IsRangeMark(node) || !all;
}

// The paragraph that takes up what remains of this one.
pugi::xml_node TakerOf(const pugi::xml_node& paragraph) {
  pugi::xml_node next = NextBlock(paragraph);
  while (next && IsBlockWrapper(next)) next = ContentOf(next).first_child();
  return Is(next, "w:p") ? next : pugi::xml_node();
}

void JoinWithNext(const ParagraphPlace& place, const PositionSet& gone, LeftOver* leftOver) {
  pugi::xml_node paragraph = place.node;
  const bool all = gone.Covers(place.range);
  pugi::xml_node taker = TakerOf(paragraph);
  pugi::xml_node before = taker.child("w:pPr");
  bool remains = false;
  LeftOver moved;
  for (pugi::xml_node child = paragraph.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();
    if (IsContent(child, all)) {
      if (taker) {
        before = before ? taker.insert_move_after(child, before) : taker.prepend_move(child);
      } else if (leftOver && !NextBlock(paragraph)) {
        moved += XmlBytes(child);
      } else {
        remains = remains || !IsRangeMark(child);
      }
    }
    child = next;
  }
  if (leftOver) *leftOver = moved + *leftOver;
  if (!remains) paragraph.parent().remove_child(paragraph);
}

}  // namespace

void RemovePositions(const StoryMap& map, const PositionSet& gone, LeftOver* leftOver) {
  for (const TextPiece& piece : map.pieces()) RemoveText(piece, gone);
  RemoveFields(map, gone);
  const PositionSet removed = RemoveTables(map, gone);
  // From behind, so that what a paragraph takes up from the one before it is not mistaken for its own.
  for (auto place = map.paragraphs().rbegin(); place != map.paragraphs().rend(); ++place) {
    if (place->range.start == place->range.end || removed.Contains(place->range.start)) continue;
    if (gone.Contains(place->range.end - 1)) JoinWithNext(*place, gone, leftOver);
  }
}

namespace {

// Writes text into a run from a place on: w:t elements and breaks.
void InsertText(pugi::xml_node run, pugi::xml_node before, TextView text) {
  Text line;
  const auto flush = [&] {
    if (!line.empty()) SetTextOf(run.insert_child_before("w:t", before), XmlCharacters(line));
    line.clear();
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;
    if (unit == u'\r' || unit == u'\n' || unit == kLineBreak) {
      flush();
      run.insert_child_before("w:br", before);
    } else if (unit == u'\t') {
      flush();
      run.insert_child_before("w:tab", before);
    } else {
      line += unit;
    }
  }
  flush();
}

}  // namespace

namespace {

bool IsMergeFieldCode(std::string_view code) {
  const std::size_t start = std::min(code.find_first_not_of(' '), code.size());
  return EqualsIgnoringCase(FromUtf8(code.substr(start, 10)), u"MERGEFIELD");
}

// Makes a merge field plain text: an update would put its old name back.
void Unlink(const FieldPlace& field) {
  std::string code;
  for (const pugi::xml_node& element : field.elements) {
    if (Is(element, "w:instrText")) code += TextOf(element);
  }
  if (!IsMergeFieldCode(code)) return;
  for (const pugi::xml_node& element : field.elements) RemoveWithHolders(element);
}

void UnlinkSimple(pugi::xml_node field) {
  if (!Is(field, "w:fldSimple") || !IsMergeFieldCode(field.attribute("w:instr").value())) return;
  while (const pugi::xml_node child = field.first_child()) field.parent().insert_move_before(child, field);
  field.parent().remove_child(field);
}

}  // namespace

void ReplaceRanges(const StoryMap& map, const std::vector<Interval>& ranges, TextView replacement) {
  auto range = ranges.begin();
  for (const TextPiece& piece : map.pieces()) {
    if (range == ranges.end()) break;
    if (range->start >= piece.range.end) continue;
    const TextView old = TextView(map.text()).substr(static_cast<std::size_t>(piece.range.start));
    Text changed;
    Position kept = piece.range.start;  // what lies before is written or gone
    const auto keepUpTo = [&](Position end) {
      if (end > kept)
        changed += old.substr(static_cast<std::size_t>(kept - piece.range.start), static_cast<std::size_t>(end - kept));
    };
    while (range != ranges.end() && range->start < piece.range.end) {
      if (range->start >= piece.range.start) {
        keepUpTo(range->start);
        changed += replacement;
      }
      kept = std::min(range->end, piece.range.end);
      if (range->end > piece.range.end) break;
      ++range;
    }
    keepUpTo(piece.range.end);
    pugi::xml_node run = piece.node.parent();
    UnlinkSimple(run.parent());
    InsertText(run, piece.node, changed);
    RemoveWithHolders(piece.node);
  }
  for (const FieldPlace& field : map.fields()) {
    const auto inside = [&](const Interval& each) {
      return field.result.start <= each.start && each.end <= field.result.end;
    };
    if (std::any_of(ranges.begin(), ranges.end(), inside)) Unlink(field);
  }
}

}  // namespace zorkanca::word
