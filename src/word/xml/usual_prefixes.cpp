// The renaming of prefixes; see word_xml.h.
#include <map>
#include <string>
#include <vector>

#include "opc/office_error.h"
#include "opc/xml_names.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

// Bound prefixes at one place of the tree: what a document calls a vocabulary, and its usual name.
using Renames = std::map<std::string, std::string>;

std::string_view UsualPrefix(std::string_view uri) {
  switch (SpaceOf(uri)) {
    case XmlSpace::kWord:
      return "w";
    case XmlSpace::kRelationships:
      return "r";
    case XmlSpace::kCompatibility:
      return "mc";
    case XmlSpace::kWordDrawing:
      return "wp";
    case XmlSpace::kWord2010:
      return "w14";
    case XmlSpace::kVml:
      return "v";
    default:
      return "";
  }
}

bool IsUsual(std::string_view prefix) {
  return prefix == "w" || prefix == "r" || prefix == "mc" || prefix == "wp" || prefix == "w14" || prefix == "v";
}

// The prefix that an attribute declares: "" for the default namespace, nothing for any other attribute.
bool Declares(std::string_view attribute, std::string& prefix) {
  if (attribute == "xmlns") {
    prefix.clear();
    return true;
  }
  if (!attribute.starts_with("xmlns:")) return false;
  prefix = attribute.substr(6);
  return true;
}

struct Finding {
  bool unusual = false;  // a vocabulary under another prefix
  bool foreign = false;  // a usual prefix for something else
};

void Inspect(const pugi::xml_node& node, Finding& finding) {
  std::string prefix;
  for (const pugi::xml_attribute attribute : node.attributes()) {
    if (!Declares(attribute.name(), prefix)) continue;
    const std::string_view usual = UsualPrefix(attribute.value());
    if (!usual.empty() && usual != prefix) finding.unusual = true;
    if (usual != prefix && IsUsual(prefix)) finding.foreign = true;
  }
  for (const pugi::xml_node child : node.children()) {
    if (child.type() == pugi::node_element) Inspect(child, finding);
  }
}

std::string Renamed(std::string_view name, const Renames& renames, bool attribute) {
  const std::size_t colon = name.find(':');
  if (attribute && colon == name.npos) return std::string(name);
  const std::string prefix(colon == name.npos ? std::string_view() : name.substr(0, colon));
  const auto found = renames.find(prefix);
  if (found == renames.end() || found->second.empty()) return std::string(name);
  return found->second + ':' + std::string(colon == name.npos ? name : name.substr(colon + 1));
}

// The list of prefixes in mc:Ignorable and mc:Requires.
std::string RenamedList(std::string_view list, const Renames& renames) {
  std::string result;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(' '), list.size());
    const auto found = renames.find(std::string(list.substr(0, end)));
    if (!result.empty()) result += ' ';
    result += found != renames.end() && !found->second.empty() ? found->second : std::string(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return result;
}

void Rename(pugi::xml_node node, Renames renames) {
  std::string prefix;
  for (pugi::xml_attribute attribute = node.first_attribute(); attribute;) {
    const pugi::xml_attribute next = attribute.next_attribute();
    if (Declares(attribute.name(), prefix)) {
      const std::string usual(UsualPrefix(attribute.value()));
      renames[prefix] = usual;
      const std::string declaration = "xmlns:" + usual;
      if (!usual.empty() && node.attribute(declaration.c_str()) && prefix != usual) {
        node.remove_attribute(attribute);  // declared under the usual prefix too
      } else if (!usual.empty()) {
        attribute.set_name(declaration.c_str());
      }
    }
    attribute = next;
  }
  for (pugi::xml_attribute attribute : node.attributes()) {
    const std::string_view name = attribute.name();
    if (name.starts_with("xmlns")) continue;
    const std::string renamed = Renamed(name, renames, true);
    if (renamed != name) attribute.set_name(renamed.c_str());
    if (renamed == "mc:Ignorable" || renamed == "Requires") {
      attribute.set_value(RenamedList(attribute.value(), renames).c_str());
    }
  }
  node.set_name(Renamed(node.name(), renames, false).c_str());
  for (const pugi::xml_node child : node.children()) {
    if (child.type() == pugi::node_element) Rename(child, renames);
  }
}

}  // namespace

void UseUsualPrefixes(pugi::xml_document& document, const std::string& file) {
  Finding finding;
  Inspect(document.document_element(), finding);
  if (!finding.unusual) return;
  if (finding.foreign) RaiseNotOfficeDocument(file, "its prefixes are used against all custom");
  Rename(document.document_element(), {});
}

}  // namespace zorkanca::word
