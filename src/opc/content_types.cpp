#include "opc/content_types.h"

#include "opc/office_error.h"
#include "opc/xml_document.h"
#include "opc/xml_escape.h"
#include "opc/xml_names.h"
#include "runtime/ascii.h"

namespace zorkanca {

namespace {

constexpr std::string_view kPart = "[Content_Types].xml";

// The extension of the last piece of a part's name, without point.
std::string_view ExtensionOf(std::string_view part) {
  const std::string_view name = part.substr(part.rfind('/') + 1);
  const std::size_t point = name.rfind('.');
  return point == name.npos ? std::string_view() : name.substr(point + 1);
}

}  // namespace

const ContentTypes::List::Entry* ContentTypes::List::Find(std::string_view key) const {
  const auto found = index.find(AsciiLower(key));
  return found == index.end() || entries[found->second].type.empty() ? nullptr : &entries[found->second];
}

void ContentTypes::List::Set(std::string_view key, std::string_view type) {
  const auto [place, isNew] = index.try_emplace(AsciiLower(key), entries.size());
  if (isNew) {
    entries.push_back({std::string(key), std::string(type)});
  } else {
    entries[place->second].type = type;
  }
}

ContentTypes ContentTypes::Parse(std::string_view xml, const std::string& file) {
  const pugi::xml_document document = ParseXml(xml, {.file = file, .part = std::string(kPart)});
  const XmlNames names(document);
  const pugi::xml_node root = document.document_element();
  if (!names.Is(root, XmlSpace::kContentTypes, "Types")) RaiseBadPart(file, kPart, "it is no list of content types");
  ContentTypes types;
  for (const pugi::xml_node& child : root.children()) {
    const bool isDefault = names.Is(child, XmlSpace::kContentTypes, "Default");
    if (!isDefault && !names.Is(child, XmlSpace::kContentTypes, "Override")) continue;
    const std::string_view key = child.attribute(isDefault ? "Extension" : "PartName").value();
    const std::string_view type = child.attribute("ContentType").value();
    if (key.empty() || type.empty()) RaiseBadPart(file, kPart, "an entry is incomplete");
    (isDefault ? types.defaults_ : types.overrides_).Set(key, type);
  }
  return types;
}

std::string ContentTypes::TypeOf(std::string_view part) const {
  if (const List::Entry* own = overrides_.Find(part)) return own->type;
  const List::Entry* general = defaults_.Find(ExtensionOf(part));
  return general ? general->type : std::string();
}

void ContentTypes::SetOverride(std::string_view part, std::string_view type) {
  overrides_.Set(part, type);
}

bool ContentTypes::AddDefault(std::string_view extension, std::string_view type) {
  if (defaults_.Find(extension)) return false;
  defaults_.Set(extension, type);
  return true;
}

bool ContentTypes::RemoveOverride(std::string_view part) {
  if (!overrides_.Find(part)) return false;
  overrides_.Set(part, "");
  return true;
}

std::string ContentTypes::ToXml() const {
  std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<Types xmlns=\"";
  xml += NamespaceUri(XmlSpace::kContentTypes);
  xml += "\">";
  const auto append = [&xml](const List& list, std::string_view element, std::string_view keyName) {
    for (const List::Entry& entry : list.entries) {
      if (entry.type.empty()) continue;
      xml.append("<").append(element).append(" ").append(keyName).append("=\"");
      AppendXmlAttribute(xml, entry.key);
      xml += "\" ContentType=\"";
      AppendXmlAttribute(xml, entry.type);
      xml += "\"/>";
    }
  };
  append(defaults_, "Default", "Extension");
  append(overrides_, "Override", "PartName");
  xml += "</Types>";
  return xml;
}

}  // namespace zorkanca
