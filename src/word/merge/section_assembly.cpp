#include "word/merge/section_assembly.h"

#include "word/document/sections.h"
#include "word/xml/own_elements.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

pugi::xml_node LastBlock(const pugi::xml_node& body) {
  pugi::xml_node last;
  for (const pugi::xml_node child : body.children()) {
    const bool beside = child.type() != pugi::node_element || Is(child, "w:sectPr") || IsRangeMark(child);
    if (!beside && !Is(child, "w:proofErr")) last = child;
  }
  return last;
}

void BeginOnNewPage(pugi::xml_node section, bool restartPages) {
  const pugi::xml_node given = section.child("w:type");
  const std::string_view type = given.attribute("w:val").value();
  if (type != "oddPage" && type != "evenPage") {
    SetAttribute(RequireChild(section, "w:type", kSectionOrder), "w:val", "nextPage");
  }
  if (!restartPages) return;
  pugi::xml_node numbers = RequireChild(section, "w:pgNumType", kSectionOrder);
  if (!numbers.attribute("w:start")) SetAttribute(numbers, "w:start", "1");
}

}  // namespace

void SeparateCopies(pugi::xml_node body, bool restartPages) {
  const std::vector<pugi::xml_node> sections = SectionsOf(body);
  BeginOnNewPage(sections.front(), restartPages);
  const pugi::xml_node own = sections.back();
  pugi::xml_node last = LastBlock(body);
  const bool endsInParagraph = Is(last, "w:p") && !last.child("w:pPr").child("w:sectPr");
  if (endsInParagraph) {
    pugi::xml_node properties = last.child("w:pPr");
    if (!properties) properties = last.prepend_child("w:pPr");
    pugi::xml_node place = RequireChild(properties, "w:sectPr", kParagraphPropertyOrder);
    place.set_name(own::kBreak);
    place.append_copy(own);
    return;
  }
  pugi::xml_node carrier = body.insert_child_before(own::kCarrier, own);
  carrier.append_child("w:p").append_child("w:pPr").append_copy(own);
}

}  // namespace zorkanca::word
