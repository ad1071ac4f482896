// The formulas of a template as steps; see story_compiler.h.
//
// A formula keeps its text with the fields inside it as a program, and what its names mean: bookmarks, and the cells of
// the table around it. The cells of such a table are steps of their own, so that a copy's formulas find the texts of
// the cells before them as they were written; of the cells behind them, and of bookmarks, they take the text that the
// current record gives. Formulas in those keep their old results, as they do for an update in the order of the
// document, and end every circle.
#include <algorithm>

#include "runtime/utf8.h"
#include "word/fields/formula_numbers.h"
#include "word/merge/story_compiler.h"
#include "word/xml/own_elements.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

constexpr std::size_t kLongestBookmark = 10'000;  // nodes: what is longer is no number

// The next node in the order of the document.
pugi::xml_node NextOf(pugi::xml_node node, bool inside) {
  if (inside && node.first_child()) return node.first_child();
  while (node && !node.next_sibling()) node = node.parent();
  return node.next_sibling();
}

bool IsWhole(const pugi::xml_node& node) {
  return Is(node, "w:r") || Is(node, own::kField);
}

// Calls for each node between both ends; not for what is inside runs and fields.
// @return false when the end is not reached
template <typename Visit>
bool ForEachWithin(const BookmarkPlace& place, const Visit& visit) {
  std::size_t count = 0;
  pugi::xml_node node = NextOf(place.start, false);
  for (; node && node != place.end && count < kLongestBookmark; ++count) {
    visit(node);
    node = NextOf(node, !IsWhole(node));
  }
  return node && node == place.end;
}

pugi::xml_node Around(pugi::xml_node node, const char* name) {
  while (node && !Is(node, name)) node = node.parent();
  return node;
}

pugi::xml_node MarkedTable(const BookmarkPlace& place) {
  pugi::xml_node table = Around(place.start, "w:tbl");
  if (table) return table;
  ForEachWithin(place, [&](const pugi::xml_node& node) {
    if (!table && Is(node, "w:tbl")) table = node;
  });
  return table;
}

// The children of a name, those in content controls and the like too.
void GatherChildren(const pugi::xml_node& parent, const char* name, std::vector<pugi::xml_node>& found) {
  for (const pugi::xml_node child : parent.children()) {
    if (Is(child, name)) {
      found.push_back(child);
    } else if (IsBlockWrapper(child)) {
      GatherChildren(ContentOf(child), name, found);
    }
  }
}

}  // namespace

void StoryCompiler::AddFormula(const FoldedField& field, bool inCode) {
  const std::vector<CodeToken> tokens = TokensOf(field, false);
  CodeToken formula;
  for (const CodeToken& token : tokens) {
    if (token.kind == CodeToken::Kind::kSwitch) break;
    if (!formula.pieces.empty()) formula.pieces.push_back({u" ", formula.pieces.back().source});
    formula.pieces.insert(formula.pieces.end(), token.pieces.begin(), token.pieces.end());
  }
  if (!formula.pieces.empty()) formula.pieces.front().text.erase(0, 1);  // "="
  if (!formula.pieces.empty() && formula.pieces.front().text.empty()) formula.pieces.erase(formula.pieces.begin());

  ValueStep step;
  step.source = ValueStep::Source::kFormula;
  step.argument = OperandOf(formula);
  step.format = FormatOf(field, tokens, nullptr);
  FormulaScope scope;
  if (const auto cell = cells_.find(Around(field.node(), "w:tc")); cell != cells_.end()) {
    scope.table = cell->second.table;
    scope.row = cell->second.row;
    scope.column = cell->second.column;
  }
  FindNames(formula.PlainText(), scope);
  step.scope = std::make_shared<const FormulaScope>(std::move(scope));
  AddValue(field, std::move(step), inCode);
}

// Whatever word of a formula is the name of a bookmark.
void StoryCompiler::FindNames(TextView formula, FormulaScope& scope) {
  for (std::size_t start = 0; start < formula.size();) {
    std::size_t end = start;
    while (end < formula.size() && IsFormulaWordUnit(formula[end])) ++end;
    const Text name = UpperCase(formula.substr(start, end - start));
    start = std::max(end, start + 1);
    const auto found = name.empty() ? input_.bookmarks.end() : input_.bookmarks.find(name);
    if (found == input_.bookmarks.end() || scope.bookmarks.count(name) != 0) continue;
    if (auto text = TextOfBookmark(found->second)) scope.bookmarks.emplace(name, std::move(text));
    if (const pugi::xml_node table = MarkedTable(found->second)) scope.tables.emplace(name, CellsOf(table));
  }
}

std::shared_ptr<const Operand> StoryCompiler::TextOfBookmark(const BookmarkPlace& place) {
  const auto [known, isNew] = bookmarks_.try_emplace(place.start);
  if (!isNew) return known->second;
  std::vector<pugi::xml_node> nodes;
  const bool closed = ForEachWithin(place, [&](const pugi::xml_node& node) {
    if (IsWhole(node)) nodes.push_back(node);
  });
  if (closed) known->second = std::make_shared<const Operand>(TextAhead(nodes));
  return known->second;
}

std::shared_ptr<const TableCells> StoryCompiler::CellsOf(const pugi::xml_node& table) {
  const auto [known, isNew] = tables_.try_emplace(table);
  if (!isNew) return known->second;
  auto cells = std::make_shared<TableCells>();
  known->second = cells;
  std::vector<pugi::xml_node> rows;
  GatherChildren(table, "w:tr", rows);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    std::vector<pugi::xml_node> ofRow;
    GatherChildren(rows[row], "w:tc", ofRow);
    cells->widths.push_back(ofRow.size());
    cells->ahead.emplace_back();
    for (std::size_t column = 0; column < ofRow.size(); ++column) {
      cells_[ofRow[column]] = {cells, row, column};
      const auto blocks = ofRow[column].children();
      cells->ahead.back().push_back(TextAhead({blocks.begin(), blocks.end()}));
    }
  }
  return cells;
}

Operand StoryCompiler::TextAhead(const std::vector<pugi::xml_node>& nodes) {
  const bool ahead = std::exchange(ahead_, true);
  const bool visible = std::exchange(visible_, true);
  const FieldState state = std::exchange(state_, FieldState());
  Operand text;
  text.parts = Sub([&] {
    for (const pugi::xml_node& node : nodes) Add(node);
  });
  ahead_ = ahead;
  visible_ = visible;
  state_ = state;
  return text;
}

// A cell that formulas may refer to. Where the text is not the story's, nothing could be taken down.
bool StoryCompiler::AddCell(const pugi::xml_node& cell) {
  const auto place = cells_.find(cell);
  if (place == cells_.end() || ahead_ || !visible_ || !state_.InText()) return false;
  CellStep step{place->second.table, place->second.row, place->second.column, {}};
  AddOpenTag(cell);
  step.content = Sub([&] { AddChildren(cell); });
  program_->push_back({std::move(step)});
  Xml("</w:tc>");
  return true;
}

namespace {

using Ends = std::map<std::string, pugi::xml_node>;  // by w:id

void GatherEnds(const pugi::xml_node& tree, Ends& ends) {
  if (Is(tree, "w:bookmarkEnd")) ends.emplace(tree.attribute("w:id").value(), tree);
  for (const pugi::xml_node child : tree.children()) GatherEnds(child, ends);
}

void GatherStarts(const pugi::xml_node& tree, const Ends& ends, std::map<Text, BookmarkPlace>& bookmarks) {
  if (Is(tree, "w:bookmarkStart")) {
    const auto end = ends.find(tree.attribute("w:id").value());
    const Text name = UpperCase(FromUtf8(tree.attribute("w:name").value()));
    if (end != ends.end()) bookmarks.emplace(name, BookmarkPlace{tree, end->second});
  }
  for (const pugi::xml_node child : tree.children()) GatherStarts(child, ends, bookmarks);
}

}  // namespace

void GatherBookmarks(const pugi::xml_node& tree, std::map<Text, BookmarkPlace>& bookmarks) {
  Ends ends;
  GatherEnds(tree, ends);
  if (!ends.empty()) GatherStarts(tree, ends, bookmarks);
}

}  // namespace zorkanca::word
