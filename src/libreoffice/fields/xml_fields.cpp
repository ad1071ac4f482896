// Fields have the two shapes that they have in packages: characters (w:fldChar) in runs, with the code between them in
// w:instrText, and w:fldSimple, an element round the result. The tree is walked once to find them and to see which
// characters are free; then the chosen ones are rewritten as runs of text. Notes and headers stand inside the body.
#include "libreoffice/fields/xml_fields.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "libreoffice/fields/field_types.h"
#include "libreoffice/fields/marker_choice.h"
#include "opc/xml_document.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr std::size_t kDeepestField = 64;

struct Field {
  pugi::xml_node begin;
  pugi::xml_node separate;
  pugi::xml_node end;
  pugi::xml_node simple;  // instead of the three
  std::vector<pugi::xml_node> codes;
  bool inCode = true;
  bool locked = false;
  bool inBody = false;
};

bool Is(const pugi::xml_node& node, std::string_view name) {
  return name == node.name();
}

bool IsStory(const pugi::xml_node& node) {
  static constexpr std::array<std::string_view, 5> kStories = {"w:hdr", "w:ftr", "w:footnote", "w:endnote",
                                                               "w:txbxContent"};
  for (const std::string_view story : kStories) {
    if (Is(node, story)) return true;
  }
  return Is(node, "aml:annotation") && std::string_view(node.attribute("w:type").value()) == "Word.Comment";
}

bool IsOn(const pugi::xml_attribute& attribute) {
  const std::string_view value = attribute.value();
  return value == "on" || value == "true" || value == "1";
}

Text FirstWord(std::string_view code) {
  const Text text = FromUtf8(code);
  const std::size_t start = std::min(text.find_first_not_of(u" \t\n"), text.size());
  return text.substr(start, text.find_first_of(u" \t\n\"\\", start) - start);
}

class XmlReader {
 public:
  XmlReader() : used_(0x10000) {}

  void Walk(const pugi::xml_node& node);
  /// Decides what is to be done with each field. @return the number of spoiled ones
  std::size_t Choose();
  const std::vector<bool>& used() const { return used_; }
  const std::vector<Field>& fields() const { return fields_; }
  const std::vector<FieldPlace>& places() const { return places_; }

 private:
  void WalkStory(const pugi::xml_node& story);
  void WalkSimple(const pugi::xml_node& simple);
  void FollowCharacter(const pugi::xml_node& character);
  Field& Begin();
  void NoteCharacters(std::string_view text);

  std::vector<bool> used_;  // characters by their codes
  std::vector<Field> fields_;
  std::vector<FieldPlace> places_;
  std::vector<std::size_t> open_;
  bool inBody_ = true;
};

void XmlReader::NoteCharacters(std::string_view text) {
  for (const char16_t unit : FromUtf8(text)) used_[unit] = true;
}

void XmlReader::Walk(const pugi::xml_node& node) {
  for (const pugi::xml_node& child : node.children()) {
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
      NoteCharacters(child.value());
    } else if (IsStory(child)) {
      WalkStory(child);
    } else if (Is(child, "w:fldSimple")) {
      WalkSimple(child);
    } else {
      if (Is(child, "w:fldChar")) FollowCharacter(child);
      const bool code = Is(child, "w:instrText") || Is(child, "w:delInstrText");
      if (code && !open_.empty() && fields_[open_.back()].inCode) fields_[open_.back()].codes.push_back(child);
      Walk(child);
    }
  }
}

void XmlReader::WalkStory(const pugi::xml_node& story) {
  const std::vector<std::size_t> around = std::exchange(open_, {});
  const bool inBody = std::exchange(inBody_, false);
  Walk(story);
  inBody_ = inBody;
  open_ = around;
}

Field& XmlReader::Begin() {
  if (open_.size() == kDeepestField) RefuseFields("its fields are nested too deeply");
  places_.push_back({.parent = open_.empty() ? FieldPlace::kNone : open_.back()});
  open_.push_back(fields_.size());
  Field& field = fields_.emplace_back();
  field.inBody = inBody_;
  return field;
}

void XmlReader::WalkSimple(const pugi::xml_node& simple) {
  Field& field = Begin();
  field.simple = simple;
  field.inCode = false;
  field.locked = IsOn(simple.attribute("w:fldLock"));
  NoteCharacters(simple.attribute("w:instr").value());
  const std::size_t depth = open_.size() - 1;
  Walk(simple);
  open_.resize(depth);
}

void XmlReader::FollowCharacter(const pugi::xml_node& character) {
  const std::string_view type = character.attribute("w:fldCharType").value();
  if (type == "begin") {
    Field& field = Begin();
    field.begin = character;
    field.locked = IsOn(character.attribute("w:fldLock"));
    if (character.child("w:ffData")) places_.back().care = FieldCare::kObject;
    return;
  }
  if (open_.empty() || fields_[open_.back()].simple) return;
  Field& field = fields_[open_.back()];
  field.inCode = false;
  if (type == "separate") field.separate = character;
  if (type == "end") {
    field.end = character;
    open_.pop_back();
  }
}

std::size_t XmlReader::Choose() {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const Field& field = fields_[i];
    std::string code = field.simple.attribute("w:instr").value();
    for (const pugi::xml_node& part : field.codes) code += part.text().get();
    if (!field.simple && !field.end) places_[i].care = FieldCare::kObject;  // not whole
    if (places_[i].care == FieldCare::kMark) places_[i].care = CareOf(FirstWord(code));
  }
  return ChooseFields(places_);
}

void SetText(pugi::xml_node node, TextView text) {
  node.remove_children();
  node.append_child(pugi::node_pcdata).set_value(ToUtf8(text).c_str());
}

void ReplaceByMarker(pugi::xml_node character, char16_t marker) {
  if (!character) return;
  SetText(character.parent().insert_child_before("w:t", character), TextView(&marker, 1));
  character.parent().remove_child(character);
}

// A run with a text before a node.
void InsertRun(pugi::xml_node before, const pugi::xml_node& format, TextView text) {
  pugi::xml_node run = before.parent().insert_child_before("w:r", before);
  if (format) run.append_copy(format);
  SetText(run.append_child("w:t"), text);
}

void MarkSimple(const Field& field, const FieldMarkers& markers) {
  pugi::xml_node simple = field.simple;
  const pugi::xml_node format = simple.child("w:r").child("w:rPr");
  const Text code = FromUtf8(simple.attribute("w:instr").value());
  InsertRun(simple, format, (field.locked ? markers.lockedBegin : markers.begin) + code + markers.separate);
  while (const pugi::xml_node child = simple.first_child()) simple.parent().insert_move_before(child, simple);
  InsertRun(simple, {}, TextView(&markers.end, 1));
  simple.parent().remove_child(simple);
}

void Mark(const Field& field, const FieldMarkers& markers) {
  if (field.simple) return MarkSimple(field, markers);
  ReplaceByMarker(field.begin, field.locked ? markers.lockedBegin : markers.begin);
  ReplaceByMarker(field.separate, markers.separate);
  ReplaceByMarker(field.end, markers.end);
  for (pugi::xml_node code : field.codes) code.set_name(Is(code, "w:instrText") ? "w:t" : "w:delText");
}

pugi::xml_document Parse(std::string_view xml) {
  try {
    return ParseXml(xml, {});
  } catch (const Error&) {
    RefuseFields("its XML is not sound or larger than we read");
  }
}

}  // namespace

std::optional<MarkedText> MarkXmlFields(std::string_view xml) {
  const pugi::xml_document document = Parse(xml);
  const pugi::xml_node root = document.child("w:wordDocument");
  if (!root || std::string_view(root.attribute("xmlns:w").value()) != kWordXmlOf2003) {
    RefuseFields("its elements have unusual prefixes");
  }
  XmlReader reader;
  reader.Walk(root.child("w:body"));
  MarkedText result;
  result.fields.spoiled = reader.Choose();
  result.fields.markers = ChooseMarkers(reader.used(), false);
  for (std::size_t i = 0; i < reader.fields().size(); ++i) {
    if (!reader.places()[i].marked) continue;
    ++result.fields.count;
    if (reader.fields()[i].inBody) ++result.fields.inBody;
    Mark(reader.fields()[i], result.fields.markers);
  }
  if (result.fields.count == 0 && result.fields.spoiled == 0) return std::nullopt;
  result.bytes = XmlBytes(document);
  return result;
}

}  // namespace zorkanca
