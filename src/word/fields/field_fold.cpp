// Fields as elements.
//
// A field is three characters somewhere among the runs, with any runs between, other fields, ends of paragraphs,
// tables; they need not even stand in the same element. Folding gathers the field characters and codes of a container
// in the order of the text, keeps a stack of the fields that are open and, when one ends, moves its nodes into an
// element of its own, so that inner fields are folded before the ones around them and all later work is that of a tree.
// Where its ends stand in different wrappers (hyperlinks, insertions), those are opened; where they stand in different
// paragraphs of one container, the paragraphs are joined into the first, with marks for what stood between
// (own_elements.h).
//
// A field that cannot be taken whole stays as it is, and is text: one that never ends or whose ends lie in different
// cells, one that crosses the end of a section, one over paragraphs that no merge evaluates, and one in more than fifty
// others, since the recursion that follows is as deep as fields nest. Each node moves once for each field around it.
#include "word/fields/field_fold.h"

#include <algorithm>
#include <array>
#include <string>

#include "runtime/utf8.h"
#include "word/xml/own_elements.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

pugi::xml_node AddFieldCharacter(pugi::xml_node place, const char* type, const pugi::xml_node& format) {
  pugi::xml_node run = place.parent().insert_child_before("w:r", place);
  if (format) run.append_copy(format);
  pugi::xml_node character = run.append_child("w:fldChar");
  character.append_attribute("w:fldCharType").set_value(type);
  return character;
}

void MakeComplex(pugi::xml_node simple) {
  const pugi::xml_node format = simple.child("w:r").child("w:rPr");
  pugi::xml_node begin = AddFieldCharacter(simple, "begin", format);
  simple.remove_child("w:fldData");
  if (const auto locked = simple.attribute("w:fldLock")) begin.append_attribute("w:fldLock").set_value(locked.value());
  pugi::xml_node code = simple.parent().insert_child_before("w:r", simple);
  if (format) code.append_copy(format);
  SetTextOf(code.append_child("w:instrText"), simple.attribute("w:instr").value());
  AddFieldCharacter(simple, "separate", format);
  while (const pugi::xml_node child = simple.first_child()) simple.parent().insert_move_before(child, simple);
  AddFieldCharacter(simple, "end", format);
  simple.parent().remove_child(simple);
}

void SplitRun(pugi::xml_node run) {
  const pugi::xml_node format = run.child("w:rPr");
  pugi::xml_node first = Is(run.first_child(), "w:rPr") ? format.next_sibling() : run.first_child();
  while (const pugi::xml_node second = first.next_sibling()) {
    pugi::xml_node part = run.parent().insert_child_before("w:r", run);
    if (format) part.append_copy(format);
    part.append_move(first);
    first = second;
  }
}

void MakeAllComplex(pugi::xml_node node) {
  for (pugi::xml_node child = node.first_child(); child;) {
    pugi::xml_node next = child.next_sibling();
    MakeAllComplex(child);
    if (Is(child, "w:fldSimple")) MakeComplex(child);
    child = next;
  }
}

// The first word of a code.
std::string TypeOf(std::string_view code) {
  const std::size_t start = code.find_first_not_of(" \t\r\n");
  if (start == code.npos) return {};
  const std::size_t end = std::min(code.find_first_of(" \t\r\n\"\\", start), code.size());
  return ToUtf8(UpperCase(FromUtf8(code.substr(start, end - start))));
}

pugi::xml_node ParagraphOf(pugi::xml_node node) {
  while (node && !Is(node, "w:p")) node = node.parent();
  return node;
}

// Puts the children of a wrapper in its place.
void Unwrap(pugi::xml_node wrapper) {
  pugi::xml_node content = ContentOf(wrapper);
  while (const pugi::xml_node child = content.first_child()) wrapper.parent().insert_move_before(child, wrapper);
  wrapper.parent().remove_child(wrapper);
}

// Makes a run a direct child of a node above it. @return false when something else than wrappers is between
bool Lift(const pugi::xml_node& run, const pugi::xml_node& above) {
  while (run.parent() && run.parent() != above) {
    pugi::xml_node wrapper = run.parent();
    if (Is(wrapper, "w:sdtContent")) wrapper = wrapper.parent();
    if (!IsInlineWrapper(wrapper)) return false;
    Unwrap(wrapper);
  }
  return static_cast<bool>(run.parent());
}

bool CanJoin(const pugi::xml_node& first, const pugi::xml_node& last) {
  if (first.parent() != last.parent()) return false;
  for (pugi::xml_node block = first; block; block = block.next_sibling()) {
    if (block.child("w:pPr").child("w:sectPr")) return false;
    if (block == last) return true;
  }
  return false;
}

// Moves everything up to the last paragraph into the first one.
void Join(pugi::xml_node first, const pugi::xml_node& last) {
  bool open = true;
  for (bool done = false; !done;) {
    pugi::xml_node block = first.next_sibling();
    done = block == last;
    if (Is(block, "w:p")) {
      pugi::xml_node start = first.append_child(open ? own::kParagraph : own::kOpen);
      if (const pugi::xml_node properties = block.child("w:pPr")) start.append_move(properties);
      while (const pugi::xml_node child = block.first_child()) first.append_move(child);
      first.parent().remove_child(block);
      open = true;
    } else if (block.type() != pugi::node_element || IsRangeMark(block) || Is(block, "w:proofErr")) {
      first.append_move(block);
    } else {
      if (open) first.append_child(own::kBlock);
      pugi::xml_node holder = first.last_child();
      while (!Is(holder, own::kBlock)) holder = holder.previous_sibling();
      holder.append_move(block);
      open = false;
    }
  }
}

// Fields may nest without elements nesting: a hostile document must not make our recursion deep.
constexpr std::size_t kDeepest = 50;

struct OpenField {
  pugi::xml_node begin;  // runs
  pugi::xml_node separate;
  std::string code;
};

class ContainerFolder {
 public:
  void Fold(const pugi::xml_node& container) {
    GatherBlocks(container);
    for (const pugi::xml_node& piece : pieces_) Take(piece);
  }

 private:
  void GatherBlocks(const pugi::xml_node& container) {
    for (const pugi::xml_node block : container.children()) {
      if (Is(block, "w:p")) {
        GatherInline(block);
      } else if (block.type() == pugi::node_element) {
        FoldInside(block);
      }
    }
  }

  // Cells, text boxes and the like are containers of their own.
  static void FoldInside(const pugi::xml_node& node) {
    if (Is(node, "w:tc") || Is(node, "w:txbxContent") || Is(node, "w:sdtContent")) {
      ContainerFolder().Fold(node);
    } else {
      for (const pugi::xml_node child : node.children()) FoldInside(child);
    }
  }

  void GatherInline(const pugi::xml_node& container) {
    for (const pugi::xml_node child : container.children()) {
      if (Is(child, "w:r")) {
        GatherRun(child);
      } else if (IsInlineWrapper(child)) {
        GatherInline(ContentOf(child));
      }
    }
  }

  void GatherRun(const pugi::xml_node& run) {
    for (const pugi::xml_node child : run.children()) {
      if (Is(child, "w:fldChar") || Is(child, "w:instrText") || Is(child, "w:t")) {
        pieces_.push_back(child);
      } else {
        FoldInside(child);
      }
    }
  }

  void Take(const pugi::xml_node& piece) {
    if (!Is(piece, "w:fldChar")) {
      if (!open_.empty() && !open_.back().separate) open_.back().code += TextOf(piece);
      return;
    }
    const std::string_view type = piece.attribute("w:fldCharType").value();
    if (type == "begin") {
      open_.push_back({piece.parent(), {}, {}});
    } else if (type == "separate" && !open_.empty()) {
      open_.back().separate = piece.parent();
    } else if (type == "end" && !open_.empty()) {
      const OpenField field = std::move(open_.back());
      open_.pop_back();
      if (open_.size() < kDeepest) Close(field, piece.parent());
    }
  }

  static void Close(const OpenField& field, const pugi::xml_node& end) {
    const std::string type = TypeOf(field.code);
    const pugi::xml_node first = ParagraphOf(field.begin);
    const pugi::xml_node last = ParagraphOf(end);
    pugi::xml_node holder = field.begin.parent();
    if (first != last) {
      if (!IsEvaluatedType(FromUtf8(type)) || !CanJoin(first, last)) return;
      if (!Lift(field.begin, first) || !Lift(end, last)) return;
      Join(first, last);
      holder = first;
    } else if (end.parent() != holder) {
      if (!Lift(field.begin, first) || !Lift(end, first)) return;
      holder = first;
    }
    if (field.separate && !Lift(field.separate, holder)) return;
    pugi::xml_node folded = holder.insert_child_before(own::kField, field.begin);
    folded.append_attribute("type").set_value(type.c_str());
    if (const auto locked = field.begin.child("w:fldChar").attribute("w:fldLock"); locked && IsOn(locked)) {
      folded.append_attribute("locked").set_value("1");
    }
    for (bool done = false; !done;) {
      const pugi::xml_node next = folded.next_sibling();
      done = next == end;
      folded.append_move(next);
    }
  }

  std::vector<pugi::xml_node> pieces_;  // field characters, codes and texts in order
  std::vector<OpenField> open_;
};

}  // namespace

void SplitFieldRuns(pugi::xml_node tree) {
  for (pugi::xml_node child = tree.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();
    SplitFieldRuns(child);
    if (Is(child, "w:r") && child.child("w:fldChar")) SplitRun(child);
    child = next;
  }
}

void FoldFields(pugi::xml_node container) {
  MakeAllComplex(container);
  SplitFieldRuns(container);
  ContainerFolder().Fold(container);
}

FoldedField::FoldedField(const pugi::xml_node& field)
    : node_(field), type_(FromUtf8(field.attribute("type").value())), locked_(field.attribute("locked").as_bool()) {
  bool inResult = false;
  for (const pugi::xml_node child : field.children()) {
    if (child == field.first_child() || child == field.last_child()) continue;
    const std::string_view character = child.child("w:fldChar").attribute("w:fldCharType").value();
    if (!inResult && character == "separate") {
      inResult = true;
    } else {
      (inResult ? result_ : code_).push_back(child);
    }
  }
}

bool IsEvaluatedType(TextView type) {
  static constexpr std::array<TextView, 10> kTypes = {u"MERGEFIELD", u"IF",       u"NEXT", u"NEXTIF", u"SKIPIF",
                                                      u"MERGEREC",   u"MERGESEQ", u"SET",  u"REF",    u"QUOTE"};
  return IsFormulaType(type) || std::find(kTypes.begin(), kTypes.end(), type) != kTypes.end();
}

}  // namespace zorkanca::word
