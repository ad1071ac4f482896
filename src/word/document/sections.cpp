#include "word/document/sections.h"

#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

// Sections end in paragraphs of the body or of its wrappers, never in tables.
void GatherSections(const pugi::xml_node& container, std::vector<pugi::xml_node>& sections) {
  for (const pugi::xml_node block : container.children()) {
    if (Is(block, "w:p")) {
      if (const pugi::xml_node section = block.child("w:pPr").child("w:sectPr")) sections.push_back(section);
    } else if (IsBlockWrapper(block)) {
      GatherSections(ContentOf(block), sections);
    }
  }
}

}  // namespace

std::vector<pugi::xml_node> SectionsOf(const pugi::xml_node& body) {
  std::vector<pugi::xml_node> sections;
  GatherSections(body, sections);
  sections.push_back(RequireFinalSection(body));
  return sections;
}

pugi::xml_node RequireFinalSection(pugi::xml_node body) {
  const pugi::xml_node section = body.child("w:sectPr");
  return section ? section : body.append_child("w:sectPr");
}

std::string PrimaryHeaderId(const std::vector<pugi::xml_node>& sections, std::size_t section, HeaderKind kind) {
  const char* name = kind == HeaderKind::kHeader ? "w:headerReference" : "w:footerReference";
  for (std::size_t i = section + 1; i-- > 0;) {
    for (const pugi::xml_node reference : sections[i].children(name)) {
      const std::string_view type = reference.attribute("w:type").value();
      if (type == "default" || type.empty()) return reference.attribute("r:id").value();
    }
  }
  return {};
}

}  // namespace zorkanca::word
