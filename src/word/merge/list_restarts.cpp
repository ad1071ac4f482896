// Lists that begin again in each letter.
//
// A paragraph's list is the one it names itself or the one of its style, which is written into the paragraph, because a
// copy can be given another number only there. Each numbered list that is used gets a twin for every copy but the
// first: a w:num with the same definition and a start for all nine levels, the list's own one where it has any, that of
// the definition otherwise, and "0" where neither tells, as the format does. The numbers are spread so that they are
// known without counting (unique_numbers.h): the twins of a copy are written while the package is saved, none is ever
// held.
//
// Finding lists costs a look through the numbering for each paragraph; the rest is linear in copies and lists.
#include "word/merge/list_restarts.h"

#include <optional>

#include "opc/xml_document.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

constexpr int kLevels = 9;

pugi::xml_node AbstractOf(const pugi::xml_node& numbering, const pugi::xml_node& number) {
  const char* id = number.child("w:abstractNumId").attribute("w:val").value();
  return numbering.find_child_by_attribute("w:abstractNum", "w:abstractNumId", id);
}

pugi::xml_node NumberOf(const pugi::xml_node& numbering, const std::string& id) {
  return numbering.find_child_by_attribute("w:num", "w:numId", id.c_str());
}

bool IsNumbered(const pugi::xml_node& numbering, const std::string& id) {
  const pugi::xml_node abstract = AbstractOf(numbering, NumberOf(numbering, id));
  for (const pugi::xml_node level : abstract.children("w:lvl")) {
    const std::string_view format = level.child("w:numFmt").attribute("w:val").value();
    if (format != "bullet" && format != "none") return true;
  }
  return false;
}

// The list of a paragraph style, its own or that of the style it is based on.
pugi::xml_node ListOfStyle(const pugi::xml_node& styles, std::string style) {
  for (int depth = 0; depth < 16 && !style.empty(); ++depth) {
    const pugi::xml_node found = styles.find_child_by_attribute("w:style", "w:styleId", style.c_str());
    if (const pugi::xml_node list = found.child("w:pPr").child("w:numPr")) {
      if (list.child("w:numId")) return list;
    }
    style = found.child("w:basedOn").attribute("w:val").value();
  }
  return {};
}

// The level that a list ties to a style.
std::string LevelOfStyle(const pugi::xml_node& numbering, const std::string& number, const std::string& style) {
  for (const pugi::xml_node level : AbstractOf(numbering, NumberOf(numbering, number)).children("w:lvl")) {
    if (style == level.child("w:pStyle").attribute("w:val").value()) return level.attribute("w:ilvl").value();
  }
  return "0";
}

void Visit(const pugi::xml_node& node, const pugi::xml_node& numbering, const pugi::xml_node& styles,
           UniqueNumbers& numbers) {
  for (pugi::xml_node child : node.children()) Visit(child, numbering, styles, numbers);
  if (!Is(node, "w:p")) return;
  pugi::xml_node properties = node.child("w:pPr");
  const std::string style = properties.child("w:pStyle").attribute("w:val").value();
  pugi::xml_node list = properties.child("w:numPr");
  if (!list.child("w:numId") && !style.empty()) {
    const pugi::xml_node ofStyle = ListOfStyle(styles, style);
    const std::string number = ofStyle.child("w:numId").attribute("w:val").value();
    if (!ofStyle || !IsNumbered(numbering, number)) return;
    list = RequireChild(properties, "w:numPr", kParagraphPropertyOrder);
    list.remove_children();
    const pugi::xml_node level = ofStyle.child("w:ilvl");
    SetAttribute(list.append_child("w:ilvl"), "w:val",
                 level ? level.attribute("w:val").value() : LevelOfStyle(numbering, number, style));
    SetAttribute(list.append_child("w:numId"), "w:val", number);
  }
  const pugi::xml_attribute number = list.child("w:numId").attribute("w:val");
  if (number && IsNumbered(numbering, number.value())) numbers.Use(NumberKind::kList, number.as_llong());
}

std::string StartOf(const pugi::xml_node& number, const pugi::xml_node& abstract, const std::string& level) {
  const pugi::xml_node override = number.find_child_by_attribute("w:lvlOverride", "w:ilvl", level.c_str());
  if (const auto start = override.child("w:startOverride")) return start.attribute("w:val").value();
  const pugi::xml_node own = abstract.find_child_by_attribute("w:lvl", "w:ilvl", level.c_str());
  const pugi::xml_attribute start = own.child("w:start").attribute("w:val");
  return start ? start.value() : "0";
}

}  // namespace

void ListRestarts::Gather(WordPackage& package, pugi::xml_node body, UniqueNumbers& numbers) {
  const auto part = package.Related("numbering");
  if (!part) return;
  const auto stylesPart = package.Related("styles");
  const pugi::xml_node numbering = package.Tree(*part).document_element();
  const pugi::xml_node styles = stylesPart ? package.Tree(*stylesPart).document_element() : pugi::xml_node();
  Visit(body, numbering, styles, numbers);
  if (numbers.Count(NumberKind::kList) == 0) return;
  for (const pugi::xml_node number : numbering.children("w:num")) {
    numbers.Avoid(NumberKind::kList, number.attribute("w:numId").as_llong());
  }
  part_ = *part;
  Compile(package, numbers);
}

void ListRestarts::Compile(WordPackage& package, const UniqueNumbers& numbers) {
  constexpr std::string_view kPlaceOfCopies = "zorkanca-place-of-copies";
  pugi::xml_document document;
  document.reset(package.Tree(part_));
  pugi::xml_node numbering = document.document_element();
  pugi::xml_node last;
  for (const pugi::xml_node number : numbering.children("w:num")) last = number;
  for (const auto& [id, place] : numbers.NumbersOf(NumberKind::kList)) {
    const pugi::xml_node number = NumberOf(numbering, std::to_string(id));
    const pugi::xml_node abstract = AbstractOf(numbering, number);
    pugi::xml_document holder;
    pugi::xml_node copy = holder.append_copy(number);
    copy.attribute("w:numId").set_value(std::string(kPlaceOfCopies).c_str());
    for (int i = 0; i < kLevels; ++i) {
      const std::string level = std::to_string(i);
      pugi::xml_node override = copy.find_child_by_attribute("w:lvlOverride", "w:ilvl", level.c_str());
      if (!override) {
        override = copy.append_child("w:lvlOverride");
        SetAttribute(override, "w:ilvl", level);
      }
      pugi::xml_node start = override.child("w:startOverride");
      if (!start) start = override.prepend_child("w:startOverride");
      SetAttribute(start, "w:val", StartOf(number, abstract, level));
    }
    const std::string xml = XmlBytes(copy);
    const std::size_t at = xml.find(kPlaceOfCopies);
    lists_.push_back(
        {numbers.StepFor(NumberKind::kList, id), xml.substr(0, at), xml.substr(at + kPlaceOfCopies.size())});
  }
  numbering.insert_child_after(pugi::node_pcdata, last).set_value(std::string(kPlaceOfCopies).c_str());
  const std::string frame = XmlBytes(document);
  const std::size_t at = frame.find(kPlaceOfCopies);
  prologue_ = frame.substr(0, at);
  epilogue_ = frame.substr(at + kPlaceOfCopies.size());
}

void ListRestarts::AddTo(Package& package, std::size_t copies) const {
  if (lists_.empty()) return;
  package.ReplacePart(part_, [this, copies](PartSink& sink) {
    sink.Append(prologue_);
    for (std::size_t copy = 1; copy < copies; ++copy) {
      for (const List& list : lists_) {
        const std::int64_t number = list.number.first + (static_cast<std::int64_t>(copy) - 1) * list.number.stride;
        sink.Append(list.beforeNumber + std::to_string(number) + list.afterNumber);
      }
    }
    sink.Append(epilogue_);
  });
}

}  // namespace zorkanca::word
