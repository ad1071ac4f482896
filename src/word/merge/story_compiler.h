// Compiles the tree of a story into a program. Fields must have been folded (fields/field_fold.h) and sections
// assembled (section_assembly.h); what both put into the tree is told in xml/own_elements.h.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <pugixml.hpp>
#include <set>
#include <string>

#include "word/fields/field_code.h"
#include "word/merge/data_source.h"
#include "word/merge/formula_scope.h"
#include "word/merge/program.h"
#include "word/merge/unique_numbers.h"
#include "word/text/text_units.h"

namespace zorkanca::word {

/// The elements at both ends of a bookmark.
struct BookmarkPlace {
  pugi::xml_node start;
  pugi::xml_node end;
};

/// What a compiler needs to know of the merge. All outlives it.
struct CompileInput {
  const DataSource& source;
  const Locale& locale;
  const UniqueNumbers& numbers;
  bool suppressBlankLines = true;
  /// Relationship ids of headers and footers whose text differs from copy to copy, with their index.
  std::map<std::string, std::size_t> headers;
  /// Names that some SET field sets, in upper case.
  std::set<Text> variables;
  /// Of the main text, by names in upper case.
  std::map<Text, BookmarkPlace> bookmarks;
  /// Told in English of what was left as it was.
  std::function<void(TextView)> warn;
};

/// Adds the names of a tree's SET fields.
void GatherVariables(const pugi::xml_node& tree, std::set<Text>& variables);
/// Adds the bookmarks of a tree.
void GatherBookmarks(const pugi::xml_node& tree, std::map<Text, BookmarkPlace>& bookmarks);

class StoryCompiler {
 public:
  /// @param story         of which nodes will be added
  /// @param movesRecords  false where NEXT and its like have no effect: headers, footers, notes
  StoryCompiler(const CompileInput& input, const pugi::xml_node& story, bool movesRecords)
      : input_(input), movesRecords_(movesRecords), state_(story) {}

  /// Adds a node with all that is inside.
  void Add(const pugi::xml_node& node);
  /// Adds the children of a node.
  void AddChildren(const pugi::xml_node& node);
  /// Adds XML that is ready.
  void AddXml(std::string_view xml) { Xml(xml); }
  Program Take() { return std::move(own_); }

 private:
  // XML (story_compiler.cpp)
  void AddElement(const pugi::xml_node& node);
  void AddOpenTag(const pugi::xml_node& node, std::string_view end = ">");
  void AddAttribute(const pugi::xml_node& node, const pugi::xml_attribute& attribute);
  void AddRun(const pugi::xml_node& run);
  void AddRunChild(const pugi::xml_node& child);
  void AddInstruction(const pugi::xml_node& node);
  void AddParagraph(const pugi::xml_node& paragraph);
  void AddParagraphMark(const pugi::xml_node& paragraph);
  void AddJoin(const pugi::xml_node& node);
  void AddAlternate(const pugi::xml_node& node);
  bool IsSuppressible(const pugi::xml_node& paragraph) const;
  bool HoldsFieldsAlone(const pugi::xml_node& container, bool& anyField) const;
  void Xml(std::string_view xml);
  void Units(TextView units);
  ConstantStep& Constant();
  Program Sub(const std::function<void()>& body);
  void Invisibly(const std::function<void()>& body);

  // Fields (field_compiler.cpp)
  void AddField(const pugi::xml_node& node, bool inCode);
  void AddUntouched(const FoldedField& field);
  void AddMergeField(const FoldedField& field, bool inCode);
  bool AddIf(const FoldedField& field, bool inCode);
  bool AddRecordMove(const FoldedField& field);
  void AddSet(const FoldedField& field);
  void AddReference(const FoldedField& field, TextView name, bool inCode);
  void AddNumber(const FoldedField& field, ValueStep::Source source, bool inCode);
  void AddBranch(const CodeToken& token, bool inCode);
  void AddValue(const FoldedField& field, ValueStep step, bool inCode);
  void AddMessage(const FoldedField& field, ResultRuns runs, TextView message, bool inCode);
  void AddTextRun(const pugi::xml_node& format, TextView text, bool inCode);
  void Warn(TextView warning) const {
    if (!ahead_) input_.warn(warning);  // where the text itself is compiled, it is told
  }
  void AddQuote(const FoldedField& field, bool inCode);
  bool IsVariable(const FoldedField& field, Text& name) const;
  bool IsEvaluated(const FoldedField& field) const;
  FieldFormat FormatOf(const FoldedField& field, const std::vector<CodeToken>& tokens, ValueStep* framed);
  Operand OperandOf(const CodeToken& token);
  std::optional<Condition> ConditionOf(const std::vector<CodeToken>& tokens, std::size_t& next);

  // Formulas (formula_compiler.cpp)
  struct CellPlace {
    std::shared_ptr<const TableCells> table;
    std::size_t row = 0;
    std::size_t column = 0;
  };
  void AddFormula(const FoldedField& field, bool inCode);
  bool AddCell(const pugi::xml_node& cell);
  void FindNames(TextView formula, FormulaScope& scope);
  std::shared_ptr<const Operand> TextOfBookmark(const BookmarkPlace& place);
  std::shared_ptr<const TableCells> CellsOf(const pugi::xml_node& table);
  Operand TextAhead(const std::vector<pugi::xml_node>& nodes);

  const CompileInput& input_;
  bool movesRecords_;
  Program own_;
  Program* program_ = &own_;
  FieldState state_;
  bool ahead_ = false;  // in a text that a formula before it refers to; no XML is needed
  std::map<pugi::xml_node, std::shared_ptr<const TableCells>> tables_;  // with formulas
  std::map<pugi::xml_node, CellPlace> cells_;                           // of these tables
  std::map<pugi::xml_node, std::shared_ptr<const Operand>> bookmarks_;  // in formulas, by their starts
  bool visible_ = true;  // false inside what does not count for the story's text: text boxes, deleted runs
};

}  // namespace zorkanca::word
