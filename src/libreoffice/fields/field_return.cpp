// Each part is walked once in the order of its text. Markers come inside of longer texts, between tabs and breaks, with
// any formatting; a run that holds some is split at them into runs of the same formatting. What stands between the
// beginning and the middle of the innermost field is code: its texts change their element.
//
// LibreOffice leaves out what it does not know, so the outcome is counted: every story must close the fields that it
// opened, and the main text must have as many as were marked there. Headers are repeated or left out as it likes.
#include "libreoffice/fields/field_return.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "opc/package.h"
#include "opc/xml_document.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

bool Is(const pugi::xml_node& node, std::string_view name) {
  return name == node.name();
}

bool IsText(const pugi::xml_node& node) {
  return Is(node, "w:t") || Is(node, "w:delText");
}

// Text boxes, notes and comments have fields of their own, whatever stands around them.
bool IsStory(const pugi::xml_node& node) {
  return Is(node, "w:txbxContent") || Is(node, "w:footnote") || Is(node, "w:endnote") || Is(node, "w:comment");
}

void SetText(pugi::xml_node node, const std::string& text) {
  node.remove_children();
  node.append_child(pugi::node_pcdata).set_value(text.c_str());
  if (!node.attribute("xml:space")) node.append_attribute("xml:space").set_value("preserve");
}

class PartWalk {
 public:
  PartWalk(const MarkedFields& fields, bool isBody) : fields_(fields), counts_(isBody) {}

  void Walk(const pugi::xml_node& node);
  /// Whether all fields that were opened are closed.
  bool IsWhole() const { return whole_ && open_.empty(); }
  std::size_t count() const { return count_; }

 private:
  struct OpenField {
    bool marked = false;
    bool inCode = true;
  };
  enum class Mark { kBegin, kSeparate, kEnd };

  void WalkStory(const pugi::xml_node& story);
  void WalkRun(pugi::xml_node run);
  void SplitRun(pugi::xml_node run);
  void SplitText(pugi::xml_node run, pugi::xml_node& piece, const pugi::xml_node& text);
  void AddText(pugi::xml_node run, pugi::xml_node& piece, const pugi::xml_node& text, TextView part);
  void AddMark(pugi::xml_node run, char16_t marker);
  void FollowField(const pugi::xml_node& character);
  void Enter(Mark mark, bool marked);
  void TurnToCode(pugi::xml_node text);
  Text Translated(Text code);
  bool InCode() const { return !open_.empty() && open_.back().inCode; }
  bool IsMarker(char16_t unit) const;
  bool HoldsMarker(const pugi::xml_node& run) const;

  const MarkedFields& fields_;
  bool counts_;
  bool whole_ = true;
  bool nameAwaited_ = false;  // the next text of code begins with the name of its type
  std::size_t count_ = 0;
  std::vector<OpenField> open_;
};

bool PartWalk::IsMarker(char16_t unit) const {
  const auto all = fields_.markers.All();
  return std::find(all.begin(), all.end(), unit) != all.end();
}

bool PartWalk::HoldsMarker(const pugi::xml_node& run) const {
  for (const pugi::xml_node& child : run.children()) {
    if (!IsText(child)) continue;
    for (const char16_t unit : FromUtf8(child.text().get())) {
      if (IsMarker(unit)) return true;
    }
  }
  return false;
}

void PartWalk::Walk(const pugi::xml_node& node) {
  for (pugi::xml_node child = node.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();  // a run is replaced by its pieces
    if (IsStory(child)) {
      WalkStory(child);
    } else if (Is(child, "w:r")) {
      WalkRun(child);
    } else if (Is(child, "mc:Fallback")) {
      const bool counts = std::exchange(counts_, false);
      Walk(child);
      counts_ = counts;
    } else {
      Walk(child);
    }
    child = next;
  }
}

void PartWalk::WalkStory(const pugi::xml_node& story) {
  std::vector<OpenField> around = std::exchange(open_, {});
  const bool counts = std::exchange(counts_, false);
  Walk(story);
  whole_ = IsWhole();
  counts_ = counts;
  open_ = std::move(around);
}

void PartWalk::WalkRun(pugi::xml_node run) {
  if (HoldsMarker(run)) return SplitRun(run);
  for (const pugi::xml_node& child : run.children()) {
    if (Is(child, "w:fldChar")) FollowField(child);
    if (InCode() && IsText(child)) TurnToCode(child);
  }
  Walk(run);  // pictures may hold text boxes
}

// A run with the attributes and the formatting of another one, before it.
pugi::xml_node RunLike(pugi::xml_node run) {
  pugi::xml_node piece = run.parent().insert_child_before("w:r", run);
  for (const pugi::xml_attribute& attribute : run.attributes()) piece.append_copy(attribute);
  if (const pugi::xml_node format = run.child("w:rPr")) piece.append_copy(format);
  return piece;
}

void PartWalk::SplitRun(pugi::xml_node run) {
  pugi::xml_node piece;  // the one being filled
  for (pugi::xml_node child = run.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();
    if (IsText(child)) {
      SplitText(run, piece, child);
    } else if (!Is(child, "w:rPr")) {
      if (Is(child, "w:fldChar")) FollowField(child);
      if (!piece) piece = RunLike(run);
      Walk(piece.append_move(child));
    }
    child = next;
  }
  run.parent().remove_child(run);
}

void PartWalk::SplitText(pugi::xml_node run, pugi::xml_node& piece, const pugi::xml_node& text) {
  const Text units = FromUtf8(text.text().get());
  std::size_t start = 0;
  for (std::size_t at = 0; at <= units.size(); ++at) {
    const bool marker = at < units.size() && IsMarker(units[at]);
    if (!marker && at < units.size()) continue;
    if (at > start) AddText(run, piece, text, TextView(units).substr(start, at - start));
    start = at + 1;
    if (!marker) break;
    AddMark(run, units[at]);
    piece = {};
  }
}

void PartWalk::AddText(pugi::xml_node run, pugi::xml_node& piece, const pugi::xml_node& text, TextView part) {
  if (!piece) piece = RunLike(run);
  pugi::xml_node added = piece.append_copy(text);
  SetText(added, ToUtf8(part));
  if (InCode()) TurnToCode(added);
}

void PartWalk::AddMark(pugi::xml_node run, char16_t marker) {
  const FieldMarkers& markers = fields_.markers;
  const bool locked = marker == markers.lockedBegin;
  const Mark mark = locked || marker == markers.begin ? Mark::kBegin
                    : marker == markers.separate      ? Mark::kSeparate
                                                      : Mark::kEnd;
  Enter(mark, true);
  pugi::xml_node character = RunLike(run).append_child("w:fldChar");
  const char* type = mark == Mark::kBegin ? "begin" : mark == Mark::kSeparate ? "separate" : "end";
  character.append_attribute("w:fldCharType").set_value(type);
  if (locked) character.append_attribute("w:fldLock").set_value("true");
}

// A field that LibreOffice wrote itself.
void PartWalk::FollowField(const pugi::xml_node& character) {
  const std::string_view type = character.attribute("w:fldCharType").value();
  if (type == "begin") Enter(Mark::kBegin, false);
  if (type == "separate") Enter(Mark::kSeparate, false);
  if (type == "end") Enter(Mark::kEnd, false);
}

void PartWalk::Enter(Mark mark, bool marked) {
  nameAwaited_ = mark == Mark::kBegin && marked;
  if (mark == Mark::kBegin) {
    open_.push_back({.marked = marked});
    if (marked && counts_) ++count_;
    return;
  }
  if (open_.empty() || open_.back().marked != marked || (mark == Mark::kSeparate && !open_.back().inCode)) {
    whole_ = false;
  } else if (mark == Mark::kSeparate) {
    open_.back().inCode = false;
  } else {
    open_.pop_back();
  }
}

// The letters of a code in a symbol font come back as private characters, which would be nobody's letters.
void ReplacePrivateLetters(Text& code) {
  constexpr char16_t kFirst = 0xF020;
  constexpr char16_t kLast = 0xF07E;
  for (char16_t& unit : code) {
    if (unit >= kFirst && unit <= kLast) unit &= 0x7F;
  }
}

void PartWalk::TurnToCode(pugi::xml_node text) {
  text.set_name(Is(text, "w:t") ? "w:instrText" : "w:delInstrText");
  Text code = FromUtf8(text.text().get());
  ReplacePrivateLetters(code);
  if (nameAwaited_ && !IsBlank(code)) code = Translated(std::move(code));
  SetText(text, ToUtf8(code));
}

// The code with the English name of its type.
Text PartWalk::Translated(Text code) {
  nameAwaited_ = false;
  const std::size_t start = code.find_first_not_of(u' ');
  const std::size_t end = std::min(code.find_first_of(u" \"\\", start), code.size());
  const auto english = fields_.englishNames.find(UpperCase(TextView(code).substr(start, end - start)));
  if (english != fields_.englishNames.end()) code.replace(start, end - start, english->second);
  return code;
}

std::vector<std::string> TextParts(const Package& package) {
  const std::string main = package.MainPart();
  std::vector<std::string> parts = {main};
  const Relationships relationships = package.RelationshipsOf(main);
  for (const Relationship& relationship : relationships.all()) {
    for (const char* kind : {"header", "footer", "footnotes", "endnotes", "comments"}) {
      if (!relationship.Is(kind)) continue;
      const auto part = relationships.PartOf(relationship);
      if (part && package.HasPart(*part)) parts.push_back(*part);
    }
  }
  return parts;
}

bool HoldsAny(std::string_view xml, const FieldMarkers& markers) {
  for (const char16_t marker : markers.All()) {
    if (xml.find(ToUtf8(TextView(&marker, 1))) != xml.npos) return true;
  }
  return false;
}

}  // namespace

bool ReturnFields(const std::string& path, const MarkedFields& fields) {
  Package package = Package::Open(path);
  std::size_t inBody = 0;
  bool changed = false;
  for (const std::string& part : TextParts(package)) {
    const std::string xml = package.ReadPart(part);
    if (!HoldsAny(xml, fields.markers)) continue;
    pugi::xml_document tree = ParseXml(xml, {.file = path, .part = part});
    PartWalk walk(fields, part == package.MainPart());
    walk.Walk(tree);
    inBody += walk.count();
    std::string returned = XmlBytes(tree);
    if (!walk.IsWhole() || HoldsAny(returned, fields.markers)) return false;
    package.ReplacePart(part, std::move(returned));
    changed = true;
  }
  if (inBody != fields.inBody) return false;
  if (changed) package.SaveAs(path);
  return true;
}

}  // namespace zorkanca
