#include "word/forms/content_controls.h"

#include <string>

#include "runtime/error.h"
#include "runtime/utf8.h"
#include "word/forms/field_result.h"
#include "word/text/text_units.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

constexpr const char* kCheckBox = "w14:checkbox";

bool ShowsPlaceholder(const pugi::xml_node& properties) {
  return HasProperty(properties, "w:showingPlcHdr");
}

// What holds the runs of a control: the content itself, or its first paragraph; nothing for one that takes no text.
pugi::xml_node RunHolder(const pugi::xml_node& content) {
  const pugi::xml_node cell = content.child("w:tc");
  const pugi::xml_node blocks = cell ? cell : content;
  if (const pugi::xml_node paragraph = blocks.child("w:p")) return paragraph;
  return cell || content.child("w:tbl") || content.child("w:tr") ? pugi::xml_node() : content;
}

bool IsProperties(const pugi::xml_node& node) {
  return Is(node, "w:pPr") || Is(node, "w:tcPr");
}

// The paragraph stays alone in its holder.
void RemoveOtherBlocks(pugi::xml_node paragraph) {
  pugi::xml_node holder = paragraph.parent();
  for (pugi::xml_node child = holder.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();
    if (child != paragraph && !IsProperties(child)) holder.remove_child(child);
    child = next;
  }
}

pugi::xml_node FirstRunFormat(const pugi::xml_node& holder) {
  const pugi::xml_node run = holder.find_node([](const pugi::xml_node& node) { return Is(node, "w:r"); });
  return run.child("w:rPr");
}

void WriteText(const pugi::xml_node& control, TextView text) {
  const pugi::xml_node properties = control.child("w:sdtPr");
  pugi::xml_node holder = RunHolder(control.child("w:sdtContent"));
  if (!holder || properties.child("w:picture"))
    Raise(RuntimeError::kInvalidCall, u"The content control takes no text.");
  // A placeholder has a format of its own; the control's stands in its properties.
  const pugi::xml_node format = ShowsPlaceholder(properties) ? properties.child("w:rPr") : FirstRunFormat(holder);
  pugi::xml_node run = holder.append_child("w:r");
  if (format) run.append_copy(format);
  if (Is(holder, "w:p")) RemoveOtherBlocks(holder);
  for (pugi::xml_node child = holder.first_child(); child && child != run;) {
    const pugi::xml_node next = child.next_sibling();
    if (!IsProperties(child)) holder.remove_child(child);
    child = next;
  }
  AppendResultText(run, text);
}

// The two signs of a check box are characters of its own choice.
Text BoxSign(const pugi::xml_node& box, bool checked) {
  const pugi::xml_node state = box.child(checked ? "w14:checkedState" : "w14:uncheckedState");
  const unsigned code =
      static_cast<unsigned>(std::stoul("0" + std::string(state.attribute("w14:val").value()), nullptr, 16));
  if (code > 0 && code <= 0xFFFF) return Text(1, static_cast<char16_t>(code));
  return checked ? u"\u2612" : u"\u2610";
}

void SetCheckBox(const pugi::xml_node& control, pugi::xml_node box, TextView result) {
  const bool checked = TruthOf(result);
  WriteText(control, BoxSign(box, checked));
  pugi::xml_node state = box.child("w14:checked");
  if (!state) state = box.prepend_child("w14:checked");
  SetAttribute(state, "w14:val", checked ? "1" : "0");
}

// The name of the entry that a text means.
Text EntryName(const pugi::xml_node& list, TextView text) {
  for (const pugi::xml_node entry : list.children("w:listItem")) {
    const Text value = FromUtf8(entry.attribute("w:value").value());
    const pugi::xml_attribute shown = entry.attribute("w:displayText");
    const Text name = shown ? FromUtf8(shown.value()) : value;
    if (text == name || text == value) return name;
  }
  if (text.empty() || Is(list, "w:comboBox")) return Text(text);
  Raise(RuntimeError::kInvalidCall, u"The list of the content control has no entry " + Text(text) + u".");
}

}  // namespace

Text ContentControlResult(const pugi::xml_node& control) {
  const pugi::xml_node properties = control.child("w:sdtPr");
  if (const pugi::xml_node box = properties.child(kCheckBox)) {
    const pugi::xml_attribute state = box.child("w14:checked").attribute("w14:val");
    return state && IsOn(state) ? u"1" : u"0";
  }
  Text text;
  if (ShowsPlaceholder(properties)) return text;
  for (const pugi::xpath_node& found : control.child("w:sdtContent").select_nodes(".//w:r/*")) {
    Is(found.node(), "w:t") ? AppendTextOf(text, found.node()) : AppendUnitOf(text, found.node());
  }
  return text;
}

void SetContentControlResult(pugi::xml_node control, TextView result) {
  pugi::xml_node properties = control.child("w:sdtPr");
  if (const pugi::xml_node box = properties.child(kCheckBox)) {
    SetCheckBox(control, box, result);
  } else {
    pugi::xml_node list = properties.child("w:dropDownList");
    if (!list) list = properties.child("w:comboBox");
    WriteText(control, list ? EntryName(list, result) : Text(result));
    list.remove_attribute("w:lastValue");
    properties.child("w:date").remove_attribute("w:fullDate");
  }
  for (const char* left : {"w:showingPlcHdr", "w:dataBinding", "w15:dataBinding"}) properties.remove_child(left);
}

}  // namespace zorkanca::word
