#include "opc/core_properties.h"

#include <cstdio>
#include <optional>
#include <pugixml.hpp>

#include "files/system_clock.h"
#include "opc/xml_document.h"
#include "runtime/date.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::string_view kRelationshipType =
    "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties";
std::string_view LocalName(const pugi::xml_node& node) {
  const std::string_view name = node.name();
  return name.substr(name.find(':') + 1);  // npos + 1 is 0
}

std::optional<std::string> PartOfProperties(const Package& package) {
  const Relationships relationships = package.RelationshipsOf(Package::kRoot);
  for (const Relationship& relationship : relationships.all()) {
    if (relationship.type != kRelationshipType) continue;
    std::optional<std::string> part = relationships.PartOf(relationship);
    if (part && package.HasPart(*part)) return part;
  }
  return std::nullopt;
}

void AddDate(pugi::xml_node properties, const char* name, std::string_view date) {
  pugi::xml_node element = properties.append_child(name);
  element.append_attribute("xmlns:dcterms") = "http://purl.org/dc/terms/";
  element.append_attribute("xmlns:xsi") = "http://www.w3.org/2001/XMLSchema-instance";
  element.append_attribute("xsi:type") = "dcterms:W3CDTF";
  element.text() = std::string(date).append("T00:00:00Z").c_str();
}

std::string WithDates(std::string_view xml, const XmlSource& source, std::string_view date) {
  pugi::xml_document document = ParseXml(xml, source);
  pugi::xml_node properties = document.document_element();
  for (pugi::xml_node child = properties.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();
    const std::string_view name = LocalName(child);
    if (name == "created" || name == "modified" || name == "lastModifiedBy") properties.remove_child(child);
    child = next;
  }
  AddDate(properties, "dcterms:created", date);
  AddDate(properties, "dcterms:modified", date);
  return XmlBytes(document);
}

}  // namespace

void SetDayOfOrigin(Package& package, std::string_view date) {
  const std::optional<std::string> part = PartOfProperties(package);
  if (!part) return;
  try {
    package.ReplacePart(*part, WithDates(package.ReadPart(*part), {package.path(), *part}, date));
  } catch (const Error&) {
    // Nobody's letters fail for what their template says of itself.
  }
}

std::string Today() {
  const DateParts today = Disassemble(SystemClock().Now());
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", today.year, today.month, today.day);
  return text;
}

}  // namespace zorkanca
