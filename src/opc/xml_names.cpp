#include "opc/xml_names.h"

#include <algorithm>
#include <array>

namespace zorkanca {

namespace {

struct Vocabulary {
  XmlSpace space;
  std::string_view prefix;  // the usual one
  std::string_view transitional;
  std::string_view strict;  // empty where both families use the same
};

#define OFFICE_2006 "http://schemas.openxmlformats.org/"
#define OFFICE_STRICT "http://purl.oclc.org/ooxml/"
constexpr std::array kVocabularies = std::to_array<Vocabulary>({
    {XmlSpace::kXml, "xml", "http://www.w3.org/XML/1998/namespace", ""},
    {XmlSpace::kWord, "w", OFFICE_2006 "wordprocessingml/2006/main", OFFICE_STRICT "wordprocessingml/main"},
    {XmlSpace::kSheet, "x", OFFICE_2006 "spreadsheetml/2006/main", OFFICE_STRICT "spreadsheetml/main"},
    {XmlSpace::kRelationships, "r", OFFICE_2006 "officeDocument/2006/relationships",
     OFFICE_STRICT "officeDocument/relationships"},
    {XmlSpace::kDrawing, "a", OFFICE_2006 "drawingml/2006/main", OFFICE_STRICT "drawingml/main"},
    {XmlSpace::kPicture, "pic", OFFICE_2006 "drawingml/2006/picture", OFFICE_STRICT "drawingml/picture"},
    {XmlSpace::kWordDrawing, "wp", OFFICE_2006 "drawingml/2006/wordprocessingDrawing",
     OFFICE_STRICT "drawingml/wordprocessingDrawing"},
    {XmlSpace::kSheetDrawing, "xdr", OFFICE_2006 "drawingml/2006/spreadsheetDrawing",
     OFFICE_STRICT "drawingml/spreadsheetDrawing"},
    {XmlSpace::kMath, "m", OFFICE_2006 "officeDocument/2006/math", OFFICE_STRICT "officeDocument/math"},
    {XmlSpace::kVml, "v", "urn:schemas-microsoft-com:vml", ""},
    {XmlSpace::kOffice, "o", "urn:schemas-microsoft-com:office:office", ""},
    {XmlSpace::kCompatibility, "mc", OFFICE_2006 "markup-compatibility/2006", ""},
    {XmlSpace::kWord2010, "w14", "http://schemas.microsoft.com/office/word/2010/wordml", ""},
    {XmlSpace::kWordShape, "wps", "http://schemas.microsoft.com/office/word/2010/wordprocessingShape", ""},
    {XmlSpace::kSheet2009, "x14", "http://schemas.microsoft.com/office/spreadsheetml/2009/9/main", ""},
    {XmlSpace::kContentTypes, "ct", OFFICE_2006 "package/2006/content-types", ""},
    {XmlSpace::kPackageRelationships, "rel", OFFICE_2006 "package/2006/relationships", ""},
});
#undef OFFICE_2006
#undef OFFICE_STRICT

const Vocabulary* Find(XmlSpace space) {
  const auto* found = std::find_if(kVocabularies.begin(), kVocabularies.end(),
                                   [&](const Vocabulary& vocabulary) { return vocabulary.space == space; });
  return found == kVocabularies.end() ? nullptr : found;
}

constexpr std::string_view kDeclaration = "xmlns";

bool IsElement(const pugi::xml_node& node) {
  return node.type() == pugi::node_element;
}

// The prefix that an attribute declares ("" for the default namespace); false for any other attribute.
bool IsDeclaration(const pugi::xml_attribute& attribute, std::string_view& prefix) {
  const std::string_view name = attribute.name();
  if (!name.starts_with(kDeclaration)) return false;
  prefix = name.substr(kDeclaration.size());
  if (prefix.empty()) return true;
  if (prefix.front() != ':') return false;
  prefix.remove_prefix(1);
  return true;
}

std::string_view PrefixOf(std::string_view qualifiedName) {
  const std::size_t colon = qualifiedName.find(':');
  return colon == qualifiedName.npos ? std::string_view() : qualifiedName.substr(0, colon);
}

std::string Join(std::string_view prefix, std::string_view localName) {
  return prefix.empty() ? std::string(localName) : std::string(prefix) + ':' + std::string(localName);
}

}  // namespace

std::string_view NamespaceUri(XmlSpace space) {
  const Vocabulary* vocabulary = Find(space);
  return vocabulary ? vocabulary->transitional : std::string_view();
}

XmlSpace SpaceOf(std::string_view uri) {
  if (uri.empty()) return XmlSpace::kNone;
  for (const Vocabulary& vocabulary : kVocabularies) {
    if (uri == vocabulary.transitional || uri == vocabulary.strict) return vocabulary.space;
  }
  return XmlSpace::kOther;
}

std::string_view LocalName(std::string_view qualifiedName) {
  const std::size_t colon = qualifiedName.find(':');
  return colon == qualifiedName.npos ? qualifiedName : qualifiedName.substr(colon + 1);
}

XmlNames::XmlNames(const pugi::xml_node& root) {
  prefixes_.push_back({"xml", XmlSpace::kXml, false});
  const pugi::xml_node top = root.type() == pugi::node_document ? root.find_child(IsElement) : root;
  // What is outside of all default declarations has no namespace; then a later default makes "" ambiguous.
  if (!top.attribute(kDeclaration.data())) Learn("", "");
  Gather(top);
}

void XmlNames::Gather(const pugi::xml_node& node) {
  std::string_view prefix;
  for (const pugi::xml_attribute& attribute : node.attributes()) {
    if (IsDeclaration(attribute, prefix)) Learn(prefix, attribute.value());
  }
  for (const pugi::xml_node& child : node.children()) {
    if (IsElement(child)) Gather(child);
  }
}

void XmlNames::Learn(std::string_view prefix, std::string_view uri) {
  const XmlSpace space = zorkanca::SpaceOf(uri);
  for (Prefix& known : prefixes_) {
    if (known.name == prefix) {
      known.ambiguous = known.ambiguous || known.space != space;
      return;
    }
  }
  prefixes_.push_back({std::string(prefix), space, false});
}

XmlSpace XmlNames::SpaceOfPrefix(const pugi::xml_node& node, std::string_view prefix) const {
  for (const Prefix& known : prefixes_) {
    if (known.name == prefix && !known.ambiguous) return known.space;
  }
  std::string_view declared;
  for (pugi::xml_node scope = node; scope; scope = scope.parent()) {
    for (const pugi::xml_attribute& attribute : scope.attributes()) {
      if (IsDeclaration(attribute, declared) && declared == prefix) return zorkanca::SpaceOf(attribute.value());
    }
  }
  return prefix.empty() ? XmlSpace::kNone : XmlSpace::kOther;
}

XmlSpace XmlNames::SpaceOf(const pugi::xml_node& node) const {
  return SpaceOfPrefix(node, PrefixOf(node.name()));
}

bool XmlNames::Is(const pugi::xml_node& node, XmlSpace space, std::string_view localName) const {
  const std::string_view name = node.name();
  if (!name.ends_with(localName)) return false;
  if (name.size() == localName.size()) return SpaceOfPrefix(node, {}) == space;
  const std::size_t colon = name.size() - localName.size() - 1;
  return name[colon] == ':' && SpaceOfPrefix(node, name.substr(0, colon)) == space;
}

pugi::xml_node XmlNames::Child(const pugi::xml_node& node, XmlSpace space, std::string_view localName) const {
  const pugi::xml_node first = node.first_child();
  return !first || Is(first, space, localName) ? first : NextSibling(first, space, localName);
}

pugi::xml_node XmlNames::NextSibling(const pugi::xml_node& node, XmlSpace space, std::string_view localName) const {
  pugi::xml_node sibling = node.next_sibling();
  while (sibling && !Is(sibling, space, localName)) sibling = sibling.next_sibling();
  return sibling;
}

pugi::xml_attribute XmlNames::Attribute(const pugi::xml_node& node, XmlSpace space, std::string_view localName) const {
  for (const pugi::xml_attribute& attribute : node.attributes()) {
    const std::string_view name = attribute.name();
    if (LocalName(name) != localName) continue;
    const std::string_view prefix = PrefixOf(name);
    if ((prefix.empty() ? XmlSpace::kNone : SpaceOfPrefix(node, prefix)) == space) return attribute;
  }
  return {};
}

const std::string* XmlNames::KnownPrefix(XmlSpace space) const {
  for (const Prefix& known : prefixes_) {
    if (known.space == space && !known.ambiguous) return &known.name;
  }
  return nullptr;
}

std::string XmlNames::Qualified(XmlSpace space, std::string_view localName) const {
  const std::string* known = KnownPrefix(space);
  const Vocabulary* vocabulary = Find(space);
  return Join(known ? std::string_view(*known) : vocabulary ? vocabulary->prefix : std::string_view(), localName);
}

}  // namespace zorkanca
