// Form fields and content controls, found once and filled many times.
//
// One walk over the trees notes for each name the field characters between which the field's text stands, and for each
// tag its controls: names are compared in lower case, of fields of one name the first counts, of controls all. The runs
// that hold field characters were split before, so that a new result never has to cut one. A result replaces all that
// stands between the separate and the end character, in the format of the first run that it replaces; bookmarks in
// there stay. Filling does not move any character of another field, and what was noted stays true, but for fields and
// controls inside an old result: after one of those was replaced everything is gathered anew (`stale`).
//
// Gathering is linear in the trees, one filling in the paragraphs that its field spans.
#include "word/forms/form_fields.h"

#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "word/fields/date_picture.h"
#include "word/fields/field_fold.h"
#include "word/fields/number_picture.h"
#include "word/fields/number_text.h"
#include "word/forms/content_controls.h"
#include "word/forms/field_result.h"
#include "word/text/text_units.h"
#include "word/xml/word_errors.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

constexpr TextView kEmptyShown = u"\u2002\u2002\u2002\u2002\u2002";

bool Holds(const pugi::xml_node& ancestor, const pugi::xml_node& node) {
  pugi::xml_node above = node.parent();
  while (above && above != ancestor) above = above.parent();
  return above == ancestor;
}

// The children of runs between two field characters, in order.
class Between {
 public:
  static std::vector<pugi::xml_node> Gather(const pugi::xml_node& from, const pugi::xml_node& to) {
    Between between{from, to};
    pugi::xml_node top = from.parent();
    while (top && !Holds(top, to)) top = top.parent();
    between.Visit(top);
    return between.nodes_;
  }

 private:
  Between(const pugi::xml_node& from, const pugi::xml_node& to) : from_(from), to_(to) {}

  bool Visit(const pugi::xml_node& node) {
    if (node == from_) {
      inside_ = true;
    } else if (node == to_) {
      return true;
    } else if (inside_ && Is(node.parent(), "w:r") && !Is(node, "w:rPr")) {
      nodes_.push_back(node);
    } else {
      for (const pugi::xml_node child : node.children()) {
        if (Visit(child)) return true;
      }
    }
    return false;
  }

  pugi::xml_node from_;
  pugi::xml_node to_;
  bool inside_ = false;
  std::vector<pugi::xml_node> nodes_;
};

Text ShownResult(const FormField& field) {
  Text text;
  if (!field.separate) return text;
  for (const pugi::xml_node& node : Between::Gather(field.separate, field.end)) {
    Is(node, "w:t") ? AppendTextOf(text, node) : AppendUnitOf(text, node);
  }
  return text == kEmptyShown ? Text() : text;
}

Text InFormat(TextView text, TextView format) {
  if (EqualsIgnoringCase(format, u"UPPERCASE")) return UpperCase(text);
  if (EqualsIgnoringCase(format, u"LOWERCASE")) return LowerCase(text);
  const bool first = EqualsIgnoringCase(format, u"FIRST CAPITAL");
  const bool title = EqualsIgnoringCase(format, u"TITLE CASE");
  Text result(text);
  for (std::size_t i = 0; i < result.size() && (first || title); ++i) {
    const bool starts = i == 0 || (title && result[i - 1] <= u' ');
    if (starts) result[i] = UpperCase(result[i]);
  }
  return result;
}

Text Formatted(const pugi::xml_node& input, TextView text, const Locale& locale) {
  const Text format = FromUtf8(input.child("w:format").attribute("w:val").value());
  const std::string_view type = input.child("w:type").attribute("w:val").as_string("regular");
  if (format.empty() || text.empty()) return Text(text);
  if (type == "number") {
    const auto number = NumberOf(text, locale);
    return number ? NumberPicture(format, locale).Apply(*number, locale) : Text(text);
  }
  if (type == "date") {
    const auto date = ParseDate(text, locale);
    return date ? DatePicture(format).Apply(*date, locale) : Text(text);
  }
  return type == "regular" ? InFormat(text, format) : Text(text);
}

pugi::xml_node FormatOf(const pugi::xml_node& node) {
  return node.parent().child("w:rPr");
}

// A field without a result, as those that nobody has filled yet may be.
void AddSeparator(FormField& field) {
  pugi::xml_node end = field.end.parent();
  pugi::xml_node run = end.parent().insert_child_before("w:r", end);
  if (const pugi::xml_node format = FormatOf(field.begin)) run.append_copy(format);
  field.separate = run.append_child("w:fldChar");
  SetAttribute(field.separate, "w:fldCharType", "separate");
}

void RemoveWithEmptyRun(const pugi::xml_node& node) {
  pugi::xml_node run = node.parent();
  run.remove_child(node);
  const pugi::xml_node left = run.first_child();
  if (!left || (Is(left, "w:rPr") && !left.next_sibling())) run.parent().remove_child(run);
}

// The new text stands in one run behind the separator, with the format of the old result.
void WriteResult(FormField& field, TextView text) {
  if (!field.separate) AddSeparator(field);
  const std::vector<pugi::xml_node> old = Between::Gather(field.separate, field.end);
  const pugi::xml_node format = FormatOf(old.empty() ? field.separate : old.front());
  pugi::xml_node separate = field.separate.parent();
  pugi::xml_node run = separate.parent().insert_child_after("w:r", separate);
  if (format) run.append_copy(format);
  for (const pugi::xml_node& node : old) RemoveWithEmptyRun(node);
  AppendResultText(run, text);
}

void SetText(FormField& field, TextView result, const Locale& locale) {
  const pugi::xml_node input = field.data.child("w:textInput");
  const int longest = input.child("w:maxLength").attribute("w:val").as_int();
  const Text text = Formatted(input, result, locale);
  if (longest > 0 && text.size() > static_cast<std::size_t>(longest)) {
    RaiseWordError(WordError::kTextTooLong,
                   u"The form field takes " + DecimalText(longest) + u" characters at the most.");
  }
  WriteResult(field, text.empty() ? kEmptyShown : TextView(text));
}

void SetCheckBox(pugi::xml_node box, TextView result) {
  pugi::xml_node checked = box.child("w:checked");
  const bool value = TruthOf(result);
  if (!checked) checked = box.append_child("w:checked");
  SetAttribute(checked, "w:val", value ? "1" : "0");
}

void SetList(pugi::xml_node list, TextView result) {
  int index = 0;
  for (const pugi::xml_node entry : list.children("w:listEntry")) {
    if (FromUtf8(entry.attribute("w:val").value()) != result) {
      ++index;
      continue;
    }
    pugi::xml_node chosen = list.child("w:result");
    if (!chosen) chosen = list.prepend_child("w:result");
    return SetAttribute(chosen, "w:val", std::to_string(index));
  }
  Raise(RuntimeError::kInvalidCall, u"The list of the form field has no entry " + Text(result) + u".");
}

Text ListEntry(const pugi::xml_node& list) {
  const pugi::xml_node chosen = list.child("w:result") ? list.child("w:result") : list.child("w:default");
  int index = chosen.attribute("w:val").as_int();
  for (const pugi::xml_node entry : list.children("w:listEntry")) {
    if (index-- == 0) return FromUtf8(entry.attribute("w:val").value());
  }
  return {};
}

// What the old text of a control may take along.
bool HoldsFields(const pugi::xml_node& control) {
  const auto is = [](const pugi::xml_node& node) { return Is(node, "w:sdt") || Is(node, "w:fldChar"); };
  return static_cast<bool>(control.find_node(is));
}

Text NameIn(const pugi::xml_node& properties, const char* element) {
  return LowerCase(FromUtf8(properties.child(element).attribute("w:val").value()));
}

}  // namespace

// Goes through a tree once; of several form fields of one name the first one counts, as for Word.
class FormFields::Gatherer {
 public:
  /// @param part  "" for the body, whose field characters stand alone in their runs
  Gatherer(FormFields& found, std::string part) : found_(found), part_(std::move(part)) {}

  void Visit(const pugi::xml_node& node) {
    if (Is(node, "w:fldChar")) {
      if (part_.empty()) Take(node);
      return;
    }
    if (Is(node, "w:sdt")) {
      const Text tag = NameIn(node.child("w:sdtPr"), "w:tag");
      if (!tag.empty()) TakeControl(found_.controls_[tag], node);
    }
    for (const pugi::xml_node child : node.children()) Visit(child);
  }

 private:
  void Take(const pugi::xml_node& character) {
    const std::string_view type = character.attribute("w:fldCharType").value();
    if (type == "begin") {
      open_.push_back({character.child("w:ffData"), character, {}, {}});
    } else if (type == "separate" && !open_.empty()) {
      open_.back().separate = character;
    } else if (type == "end" && !open_.empty()) {
      FormField field = open_.back();
      open_.pop_back();
      field.end = character;
      const Text name = NameIn(field.data, "w:name");
      if (!name.empty()) found_.fields_.emplace(name, field);
      if (!open_.empty()) found_.nested_ = true;
    }
  }

  // One inside another of the same tag goes with that one's old text.
  void TakeControl(std::vector<Control>& controls, const pugi::xml_node& control) const {
    if (controls.empty() || !Holds(controls.back().node, control)) controls.push_back({control, part_});
  }

  FormFields& found_;
  std::string part_;
  std::vector<FormField> open_;  // fields that have begun and not ended, the innermost last
};

FormFields::FormFields(pugi::xml_node body, const std::vector<Part>& others) {
  SplitFieldRuns(body);
  Gatherer(*this, {}).Visit(body);
  for (const Part& part : others) Gatherer(*this, part.name).Visit(part.root);
}

Text FormFields::Result(TextView name) const {
  const Text key = LowerCase(name);
  const auto found = fields_.find(key);
  if (found == fields_.end()) {
    const auto control = controls_.find(key);
    if (control == controls_.end()) RaiseNoFormField(name);
    return ContentControlResult(control->second.front().node);
  }
  const FormField& field = found->second;
  if (const pugi::xml_node box = field.data.child("w:checkBox")) {
    const bool checked = box.child("w:checked") ? HasProperty(box, "w:checked") : HasProperty(box, "w:default");
    return checked ? u"1" : u"0";
  }
  if (const pugi::xml_node list = field.data.child("w:ddList")) return ListEntry(list);
  return ShownResult(field);
}

std::set<std::string> FormFields::SetResult(TextView name, TextView result, const Locale& locale) {
  const Text key = LowerCase(name);
  const auto found = fields_.find(key);
  if (found == fields_.end()) return SetControls(name, result);
  stale_ = stale_ || nested_;
  FormField& field = found->second;
  if (const pugi::xml_node box = field.data.child("w:checkBox")) {
    SetCheckBox(box, result);
  } else if (const pugi::xml_node list = field.data.child("w:ddList")) {
    SetList(list, result);
  } else {
    SetText(field, result, locale);
  }
  return {};
}

std::set<std::string> FormFields::SetControls(TextView tag, TextView result) {
  const auto controls = controls_.find(LowerCase(tag));
  if (controls == controls_.end()) RaiseNoFormField(tag);
  std::set<std::string> parts;
  for (const Control& each : controls->second) {
    stale_ = stale_ || HoldsFields(each.node);
    SetContentControlResult(each.node, result);
    if (!each.part.empty()) parts.insert(each.part);
  }
  return parts;
}

}  // namespace zorkanca::word
