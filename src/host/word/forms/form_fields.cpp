#include "host/word/forms/form_fields.h"

#include <optional>
#include <vector>

#include "host/opc/xml_escape.h"
#include "host/word/document/word_xml.h"
#include "host/word/fields/date_picture.h"
#include "host/word/fields/field_fold.h"
#include "host/word/fields/number_picture.h"
#include "host/word/fields/number_text.h"
#include "host/word/text/text_units.h"
#include "host/word/word_errors.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::word {

namespace {

constexpr TextView kEmptyShown = u"\u2002\u2002\u2002\u2002\u2002";

struct FormField {
  pugi::xml_node data;      // w:ffData
  pugi::xml_node begin;     // w:fldChar elements
  pugi::xml_node separate;  // may be missing
  pugi::xml_node end;
};

// Goes through the field characters in order until the field of that name has ended.
class Finder {
 public:
  explicit Finder(TextView name) : name_(name) {}

  std::optional<FormField> Find(const pugi::xml_node& node) {
    Visit(node);
    return found_ && found_->end ? found_ : std::nullopt;
  }

 private:
  bool Visit(const pugi::xml_node& node) {
    if (Is(node, "w:fldChar")) return Take(node);
    for (const pugi::xml_node child : node.children()) {
      if (Visit(child)) return true;
    }
    return false;
  }

  bool Take(const pugi::xml_node& character) {
    const std::string_view type = character.attribute("w:fldCharType").value();
    if (type == "begin") {
      ++depth_;
      const pugi::xml_node data = character.child("w:ffData");
      const Text name = FromUtf8(data.child("w:name").attribute("w:val").value());
      if (!found_ && data && EqualsIgnoringCase(name, name_)) {
        found_ = FormField{data, character, {}, {}};
        ownDepth_ = depth_;
      }
    } else if (type == "separate" && found_ && depth_ == ownDepth_) {
      found_->separate = character;
    } else if (type == "end") {
      if (found_ && depth_ == ownDepth_) found_->end = character;
      --depth_;
    }
    return found_ && found_->end;
  }

  TextView name_;
  std::optional<FormField> found_;
  int depth_ = 0;
  int ownDepth_ = 0;
};

FormField Require(const pugi::xml_node& body, TextView name) {
  std::optional<FormField> field = Finder(name).Find(body);
  if (!field) RaiseWordError(WordError::kMemberMissing, u"There is no form field " + Text(name) + u".");
  return *field;
}

// The children of runs between two field characters, in order.
class Between {
 public:
  static std::vector<pugi::xml_node> Gather(const pugi::xml_node& from, const pugi::xml_node& to) {
    Between between{from, to};
    pugi::xml_node top = from;
    while (top.parent() && !Is(top, "w:body")) top = top.parent();
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

// The run that the new text goes into, at its end: made behind the separator, with the format of the old result.
void WriteResult(const FormField& field, TextView text) {
  pugi::xml_node end = field.end.parent();
  pugi::xml_node separate = field.separate.parent();
  pugi::xml_node format;
  if (!field.separate) {
    format = FormatOf(field.begin);
    separate = end.parent().insert_child_before("w:r", end);
    if (format) separate.append_copy(format);
    SetAttribute(separate.append_child("w:fldChar"), "w:fldCharType", "separate");
  } else {
    const std::vector<pugi::xml_node> old = Between::Gather(field.separate, field.end);
    format = FormatOf(old.empty() ? field.separate : old.front());
  }
  pugi::xml_node run = separate.parent().insert_child_after("w:r", separate);
  if (format) run.append_copy(format);
  if (field.separate) {
    for (pugi::xml_node node : Between::Gather(field.separate, field.end)) {
      pugi::xml_node holder = node.parent();
      holder.remove_child(node);
      const bool empty =
          !holder.first_child() || (Is(holder.first_child(), "w:rPr") && !holder.first_child().next_sibling());
      if (empty && holder != run) holder.parent().remove_child(holder);
    }
  }
  Text line;
  const auto flush = [&] {
    if (!line.empty()) SetTextOf(run.append_child("w:t"), XmlCharacters(line));
    line.clear();
  };
  for (const char16_t unit : text) {
    if (unit == u'\n' || unit == kLineBreak) {
      flush();
      run.append_child("w:br");
    } else if (unit == u'\t') {
      flush();
      run.append_child("w:tab");
    } else if (unit != u'\r') {
      line += unit;
    }
  }
  flush();
}

void SetText(const FormField& field, TextView result, const Locale& locale) {
  const pugi::xml_node input = field.data.child("w:textInput");
  const int longest = input.child("w:maxLength").attribute("w:val").as_int();
  const Text text = Formatted(input, result, locale);
  if (longest > 0 && text.size() > static_cast<std::size_t>(longest)) {
    RaiseWordError(WordError::kTextTooLong,
                   u"The form field takes " + DecimalText(longest) + u" characters at the most.");
  }
  for (pugi::xml_node character : {field.begin, field.end}) {
    while (!Is(character, "w:p")) character = character.parent();
    SplitFieldRuns(character);
  }
  WriteResult(field, text.empty() ? kEmptyShown : TextView(text));
}

void SetCheckBox(pugi::xml_node box, TextView result) {
  if (result != u"1" && result != u"0") {
    Raise(RuntimeError::kInvalidCall, u"A check box takes \"1\" or \"0\".");
  }
  pugi::xml_node checked = box.child("w:checked");
  if (!checked) checked = box.append_child("w:checked");
  SetAttribute(checked, "w:val", ToUtf8(result));
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

}  // namespace

Text FormFieldResultOf(const pugi::xml_node& body, TextView name) {
  const FormField field = Require(body, name);
  if (const pugi::xml_node box = field.data.child("w:checkBox")) {
    const bool checked = box.child("w:checked") ? HasProperty(box, "w:checked") : HasProperty(box, "w:default");
    return checked ? u"1" : u"0";
  }
  if (const pugi::xml_node list = field.data.child("w:ddList")) {
    const pugi::xml_node chosen = list.child("w:result") ? list.child("w:result") : list.child("w:default");
    int index = chosen.attribute("w:val").as_int();
    for (const pugi::xml_node entry : list.children("w:listEntry")) {
      if (index-- == 0) return FromUtf8(entry.attribute("w:val").value());
    }
    return {};
  }
  return ShownResult(field);
}

void SetFormFieldResult(pugi::xml_node body, TextView name, TextView result, const Locale& locale) {
  const FormField field = Require(body, name);
  if (const pugi::xml_node box = field.data.child("w:checkBox")) return SetCheckBox(box, result);
  if (const pugi::xml_node list = field.data.child("w:ddList")) return SetList(list, result);
  SetText(field, result, locale);
}

}  // namespace zorkanca::word
