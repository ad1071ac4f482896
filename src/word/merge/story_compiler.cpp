// The tree of a story as a program (field_compiler.cpp has the fields).
//
// The tree is walked once, in the order of the text, and written as XML into a constant step; whatever differs from
// copy to copy ends that step and stands between two of them: values of fields, numbers that no two copies share, names
// of bookmarks, relationships of headers. Escaping is done here, so that a copy costs no more than appending. Beside
// its XML every constant carries the units that it adds to the text of the story: the text of a merged document is made
// by running the same program, not by reading its XML.
//
// What is not visible (text boxes, deleted text, the codes of fields) adds no units; the state of fields that are open
// is saved and restored round it, because a field may begin inside and end outside of what is walked. A paragraph that
// holds fields alone becomes a step of its own, which its own run may take back. The cost is linear in the tree; the
// depth of the recursion is that of the elements, which the strict gate bounds.
#include "word/merge/story_compiler.h"

#include <algorithm>

#include "opc/xml_document.h"
#include "opc/xml_escape.h"
#include "runtime/utf8.h"
#include "word/xml/own_elements.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

bool HoldsFormula(const pugi::xml_node& node) {
  if (Is(node, own::kField) && IsFormulaType(FoldedField(node).type())) return true;
  const auto children = node.children();
  return std::any_of(children.begin(), children.end(), HoldsFormula);
}

// True for fields that give no text but their values, so that a line of theirs may be empty.
bool IsSilent(TextView type) {
  return IsEvaluatedType(type) && type != u"IF" && type != u"REF" && type != u"QUOTE" && !IsFormulaType(type);
}

}  // namespace

ConstantStep& StoryCompiler::Constant() {
  if (program_->empty() || !std::holds_alternative<ConstantStep>(program_->back().action)) {
    program_->push_back({ConstantStep{}});
  }
  return std::get<ConstantStep>(program_->back().action);
}

void StoryCompiler::Xml(std::string_view xml) {
  if (!ahead_) Constant().xml += xml;
}

void StoryCompiler::Units(TextView units) {
  if (visible_ && state_.InText() && !units.empty()) Constant().units += units;
}

// What the body adds, as a program of its own.
Program StoryCompiler::Sub(const std::function<void()>& body) {
  Program sub;
  Program* const outer = program_;
  program_ = &sub;
  body();
  program_ = outer;
  return sub;
}

void StoryCompiler::Invisibly(const std::function<void()>& body) {
  const bool visible = visible_;
  const FieldState state = state_;
  visible_ = false;
  body();
  visible_ = visible;
  state_ = state;
}

void StoryCompiler::AddChildren(const pugi::xml_node& node) {
  for (const pugi::xml_node child : node.children()) Add(child);
}

void StoryCompiler::Add(const pugi::xml_node& node) {
  switch (node.type()) {
    case pugi::node_pcdata:
    case pugi::node_cdata: {
      std::string escaped;
      AppendXmlText(escaped, std::string_view(node.value()));
      return Xml(escaped);
    }
    case pugi::node_element:
      return AddElement(node);
    default:
      return;
  }
}

void StoryCompiler::AddElement(const pugi::xml_node& node) {
  const std::string_view name = node.name();
  if (name == "w:proofErr" || name == "w:lastRenderedPageBreak") return;
  if (name == "w:p") return AddParagraph(node);
  if (name == "w:r") return AddRun(node);
  if (name == "w:instrText") return AddInstruction(node);
  if (name == own::kField) return AddField(node, false);
  if (name == "mc:AlternateContent") return AddAlternate(node);
  if (name == "w:tbl" && !ahead_ && HoldsFormula(node)) CellsOf(node);
  if (name == "w:tc" && AddCell(node)) return;
  if (own::IsOwn(node)) return AddJoin(node);
  if (!node.first_child()) {
    return AddOpenTag(node, "/>");
  }
  AddOpenTag(node);
  if (name == "w:del" || name == "w:moveFrom" || name == "w:txbxContent") {
    Invisibly([&] { AddChildren(node); });
  } else {
    AddChildren(node);
  }
  Xml("</");
  Xml(name);
  Xml(">");
  if (name == "w:tr") Units(TextView(&kRowEnd, 1));
}

void StoryCompiler::AddOpenTag(const pugi::xml_node& node, std::string_view end) {
  Xml("<");
  Xml(node.name());
  for (const pugi::xml_attribute attribute : node.attributes()) AddAttribute(node, attribute);
  Xml(end);
}

void StoryCompiler::AddAttribute(const pugi::xml_node& node, const pugi::xml_attribute& attribute) {
  const std::string_view element = node.name();
  const std::string_view name = attribute.name();
  if (name == "w14:paraId" || name == "w14:textId" || name == "w:dirty") return;
  Xml(" ");
  Xml(name);
  Xml("=\"");
  const auto kind = element == "w:numId" && name == "w:val" ? NumberKind::kList : NumberKindOf(element, name);
  const bool isHeader = (element == "w:headerReference" || element == "w:footerReference") && name == "r:id";
  const auto header = isHeader ? input_.headers.find(attribute.value()) : input_.headers.end();
  const bool mayBeName = (element == "w:bookmarkStart" && name == "w:name") || name == "w:anchor";
  const auto bookmark = mayBeName ? input_.numbers.StepForName(attribute.value()) : std::nullopt;
  if (kind && input_.numbers.Uses(*kind, attribute.as_llong())) {
    program_->push_back({input_.numbers.StepFor(*kind, attribute.as_llong())});
  } else if (header != input_.headers.end()) {
    program_->push_back({HeaderStep{header->second}});
  } else if (bookmark) {
    program_->push_back({*bookmark});
  } else {
    std::string escaped;
    AppendXmlAttribute(escaped, std::string_view(attribute.value()));
    Xml(escaped);
  }
  Xml("\"");
}

void StoryCompiler::AddRun(const pugi::xml_node& run) {
  AddOpenTag(run);
  for (const pugi::xml_node child : run.children()) AddRunChild(child);
  Xml("</w:r>");
}

void StoryCompiler::AddRunChild(const pugi::xml_node& child) {
  if (Is(child, "w:t")) {
    Text text;
    AppendTextOf(text, child);
    Units(text);
    Add(child);
  } else if (Is(child, "w:fldChar")) {
    state_.Pass(child);
    Add(child);
  } else {
    Text unit;
    AppendUnitOf(unit, child);
    Units(unit);
    Invisibly([&] { Add(child); });
  }
}

// Names of bookmarks in the codes of fields that stay follow the bookmarks.
void StoryCompiler::AddInstruction(const pugi::xml_node& node) {
  AddOpenTag(node);
  const std::string code = TextOf(node);
  constexpr std::string_view kEnds = " \"\\";
  std::size_t start = 0;
  bool first = true;
  const auto add = [&](std::string_view piece) {
    std::string escaped;
    AppendXmlText(escaped, piece);
    Xml(escaped);
  };
  while (start < code.size()) {
    const std::size_t word = std::min(code.find_first_not_of(kEnds, start), code.size());
    add(std::string_view(code).substr(start, word - start));
    const std::size_t end = std::min(code.find_first_of(kEnds, word), code.size());
    const std::string name = code.substr(word, end - word);
    if (const auto bookmark = first ? std::nullopt : input_.numbers.StepForName(name)) {
      program_->push_back({*bookmark});
    } else {
      add(name);
    }
    first = false;
    start = end;
  }
  Xml("</w:instrText>");
}

void StoryCompiler::AddParagraph(const pugi::xml_node& paragraph) {
  const auto addAll = [&] {
    AddOpenTag(paragraph);
    AddChildren(paragraph);
    Xml("</w:p>");
    AddParagraphMark(paragraph);
  };
  if (IsSuppressible(paragraph)) {
    program_->push_back({SuppressStep{Sub(addAll)}});
  } else {
    addAll();
  }
}

void StoryCompiler::AddParagraphMark(const pugi::xml_node& paragraph) {
  const char16_t mark = MarkOf(paragraph);
  if (!paragraph.child("w:pPr").child(own::kBreak) || !visible_ || !state_.InText()) return Units(TextView(&mark, 1));
  LastCopyStep step;
  step.others = PlainOperand(TextView(&kSectionEnd, 1)).parts;
  step.last = PlainOperand(TextView(&kParagraphEnd, 1)).parts;
  program_->push_back({std::move(step)});
}

// The elements that are not WordprocessingML.
void StoryCompiler::AddJoin(const pugi::xml_node& node) {
  if (Is(node, own::kBreak) || Is(node, own::kCarrier)) {
    LastCopyStep step;
    step.others = Sub([&] { AddChildren(node); });
    program_->push_back({std::move(step)});
    return;
  }
  if (!Is(node, own::kOpen)) {
    Xml("</w:p>");
    Units(TextView(&kParagraphEnd, 1));
  }
  if (!Is(node, own::kBlock)) Xml("<w:p>");
  AddChildren(node);
}

void StoryCompiler::AddAlternate(const pugi::xml_node& node) {
  AlternateStep step;
  AddOpenTag(node);
  const auto addChild = [&](const pugi::xml_node& child) {
    return Sub([&] { Is(child, "mc:Fallback") ? Invisibly([&] { Add(child); }) : Add(child); });
  };
  for (const pugi::xml_node child : node.children()) {
    Program part = addChild(child);
    Program& target = Is(child, "mc:Fallback") ? step.fallback : step.choice;
    target.insert(target.end(), std::make_move_iterator(part.begin()), std::make_move_iterator(part.end()));
  }
  program_->push_back({std::move(step)});
  Xml("</mc:AlternateContent>");
}

bool StoryCompiler::HoldsFieldsAlone(const pugi::xml_node& container, bool& anyField) const {
  for (const pugi::xml_node child : container.children()) {
    if (child.type() != pugi::node_element || Is(child, "w:pPr") || Is(child, "w:proofErr")) continue;
    if (Is(child, own::kField)) {
      const FoldedField field(child);
      const bool isValue = field.type() == u"MERGEFIELD";
      if (field.locked() || !IsSilent(field.type()) || child.child(own::kParagraph)) return false;
      anyField = anyField || isValue;
    } else if (Is(child, "w:r")) {
      for (const pugi::xml_node part : child.children()) {
        if (!Is(part, "w:rPr")) return false;
      }
    } else if (!Is(child, "w:ins") && !Is(child, "w:smartTag")) {
      return false;
    } else if (!HoldsFieldsAlone(child, anyField)) {
      return false;
    }
  }
  return true;
}

bool StoryCompiler::IsSuppressible(const pugi::xml_node& paragraph) const {
  if (!input_.suppressBlankLines) return false;
  const pugi::xml_node properties = paragraph.child("w:pPr");
  if (properties.child("w:sectPr") || properties.child(own::kBreak) || MarkOf(paragraph) == kCellEnd) return false;
  if (!NextBlock(paragraph) && !Is(paragraph.parent(), "w:body")) return false;  // a story or text box keeps its last
  bool anyField = false;
  return HoldsFieldsAlone(paragraph, anyField) && anyField;
}

void GatherVariables(const pugi::xml_node& tree, std::set<Text>& variables) {
  if (Is(tree, own::kField)) {
    const FoldedField field(tree);
    if (field.type() == u"SET" && !field.locked()) {
      const std::vector<CodeToken> tokens = TokensOf(field, false);
      if (tokens.size() > 1) variables.insert(UpperCase(tokens[1].PlainText()));
    }
  }
  for (const pugi::xml_node child : tree.children()) GatherVariables(child, variables);
}

}  // namespace zorkanca::word
