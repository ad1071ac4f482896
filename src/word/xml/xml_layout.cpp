// The dropping of layout; see word_xml.h.
#include <algorithm>
#include <string_view>

#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == text.npos;
}

bool HasElements(const pugi::xml_node& node) {
  const auto children = node.children();
  return std::any_of(children.begin(), children.end(),
                     [](const pugi::xml_node& child) { return child.type() == pugi::node_element; });
}

// No vocabulary of documents mixes text with elements. Without elements inside, an element of another vocabulary may
// hold a text of blanks; of Word's own only some hold any.
bool HoldsText(const pugi::xml_node& node) {
  const std::string_view name = node.name();
  if (!name.starts_with("w:")) return !HasElements(node);
  return name == "w:t" || name == "w:instrText" || name == "w:delText" || name == "w:delInstrText" ||
         name == "w:fldData" || name == "w:binData";
}

void Drop(pugi::xml_node node) {
  const bool text = HoldsText(node);
  for (pugi::xml_node child = node.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();
    switch (child.type()) {
      case pugi::node_element:
        Drop(child);
        break;
      case pugi::node_pcdata:
        if (!text && IsBlank(child.value())) node.remove_child(child);
        break;
      case pugi::node_comment:
      case pugi::node_pi:
        node.remove_child(child);
        break;
      default:
        break;
    }
    child = next;
  }
}

}  // namespace

void DropLayout(pugi::xml_document& document) {
  Drop(document.document_element());
}

}  // namespace zorkanca::word
