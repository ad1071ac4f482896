#include "word/text/text_units.h"

#include <string_view>

#include "runtime/utf8.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

// What a drawing counts for: pictures in the line are a character, floating ones hang beside the text.
bool IsInLine(const pugi::xml_node& node) {
  if (Is(node, "w:drawing")) return static_cast<bool>(node.child("wp:inline"));
  if (Is(node, "mc:AlternateContent")) {
    const pugi::xml_node choice = node.child("mc:Choice");
    for (const pugi::xml_node child : choice.children()) {
      if (IsInLine(child)) return true;
    }
    return false;
  }
  if (Is(node, "w:object")) return true;
  if (!Is(node, "w:pict")) return false;
  for (const pugi::xml_node shape : node.children()) {
    if (std::string_view(shape.attribute("style").value()).find("position:absolute") != std::string_view::npos) {
      return false;
    }
  }
  return true;
}

bool IsLastInCell(const pugi::xml_node& block) {
  if (NextBlock(block)) return false;
  const pugi::xml_node parent = block.parent();
  if (Is(parent, "w:tc")) return true;
  if (Is(parent, "w:sdtContent")) return IsLastInCell(parent.parent());
  return IsBlockWrapper(parent) && IsLastInCell(parent);
}

}  // namespace

Text ShownText(TextView units) {
  Text shown;
  shown.reserve(units.size());
  for (const char16_t unit : units) {
    if (unit == kCellEnd || unit == kRowEnd) {
      shown += u"\r\u0007";
    } else {
      shown += unit == kSectionEnd ? kPageBreak : unit;
    }
  }
  return shown;
}

void AppendUnitOf(Text& text, const pugi::xml_node& child) {
  const std::string_view name = child.name();
  if (name == "w:tab" || name == "w:ptab") {
    text += u'\t';
  } else if (name == "w:br") {
    const std::string_view type = child.attribute("w:type").value();
    text += type == "page" ? kPageBreak : type == "column" ? kColumnBreak : kLineBreak;
  } else if (name == "w:cr") {
    text += kLineBreak;
  } else if (name == "w:noBreakHyphen") {
    text += u'\u001E';
  } else if (name == "w:softHyphen") {
    text += u'\u001F';
  } else if (name == "w:sym") {
    text += u'(';  // as the object model shows symbols of special fonts
  } else if (name == "w:footnoteReference" || name == "w:endnoteReference") {
    text += kNoteMark;
  } else if (IsInLine(child)) {
    text += kInlinePicture;
  }
}

void AppendTextOf(Text& text, const pugi::xml_node& textElement) {
  const std::size_t start = text.size();
  for (const pugi::xml_node child : textElement.children()) AppendUtf8(text, child.value());
  for (std::size_t i = start; i < text.size(); ++i) {
    if (text[i] < u' ') text[i] = u' ';
  }
}

char16_t MarkOf(const pugi::xml_node& paragraph) {
  if (IsLastInCell(paragraph)) return kCellEnd;
  return paragraph.child("w:pPr").child("w:sectPr") ? kSectionEnd : kParagraphEnd;
}

namespace {

// Leaves in the list the field characters whose fields do not end. Text boxes are stories of their own.
void Match(const pugi::xml_node& node, std::vector<pugi::xml_node>& open) {
  for (const pugi::xml_node child : node.children()) {
    if (Is(child, "w:fldChar")) {
      const std::string_view type = child.attribute("w:fldCharType").value();
      if (type == "begin") open.push_back(child);
      if (type == "end" && !open.empty()) open.pop_back();
    } else if (!Is(child, "w:txbxContent")) {
      Match(child, open);
    }
  }
}

}  // namespace

FieldState::FieldState(const pugi::xml_node& story) {
  std::vector<pugi::xml_node> open;
  Match(story, open);
  if (!open.empty()) endless_ = std::make_shared<const std::set<pugi::xml_node>>(open.begin(), open.end());
}

void FieldState::Pass(const pugi::xml_node& fieldCharacter) {
  if (endless_ && endless_->count(fieldCharacter) != 0) return;
  const std::string_view type = fieldCharacter.attribute("w:fldCharType").value();
  if (type == "begin") {
    inCode_.push_back(true);
    ++codes_;
  } else if (!inCode_.empty() && (type == "separate" || type == "end")) {
    if (inCode_.back()) --codes_;
    inCode_.back() = false;
    if (type == "end") inCode_.pop_back();
  }
}

}  // namespace zorkanca::word
