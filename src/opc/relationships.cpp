#include "opc/relationships.h"

#include <algorithm>
#include <charconv>
#include <unordered_set>

#include "opc/office_error.h"
#include "opc/xml_document.h"
#include "opc/xml_escape.h"
#include "opc/xml_names.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr std::string_view kIdStart = "rId";

// Folder of a part with its last "/"; "/" for the package.
std::string_view FolderOf(std::string_view part) {
  return part.substr(0, part.rfind('/') + 1);
}

// The scheme of a URI ("http:") before any "/".
bool HasScheme(std::string_view target) {
  const std::size_t colon = target.find(':');
  return colon != target.npos && target.find('/') > colon;
}

std::string_view StringOf(const pugi::xml_node& node, const char* attribute) {
  return node.attribute(attribute).value();
}

}  // namespace

bool Relationship::Is(std::string_view kind) const {
  const std::string_view uri = type;
  const std::size_t slash = uri.rfind('/');
  return slash != uri.npos && uri.substr(slash + 1) == kind &&
         SpaceOf(uri.substr(0, slash)) == XmlSpace::kRelationships;
}

std::string OfficeRelationshipType(std::string_view kind) {
  return std::string(NamespaceUri(XmlSpace::kRelationships)) + '/' + std::string(kind);
}

std::optional<std::string> ResolveTarget(std::string_view source, std::string_view target) {
  target = target.substr(0, target.find('#'));
  if (target.empty()) return std::string(source);
  if (HasScheme(target)) return std::nullopt;
  std::string path = target.starts_with('/') ? std::string() : std::string(FolderOf(source));
  path += target;
  std::string resolved;
  for (std::size_t start = 0; start < path.size();) {
    const std::size_t end = std::min(path.find('/', start), path.size());
    const std::string_view piece = std::string_view(path).substr(start, end - start);
    start = end + 1;
    if (piece == "..") {
      if (resolved.empty()) return std::nullopt;
      resolved.resize(resolved.rfind('/'));
    } else if (!piece.empty() && piece != ".") {
      resolved.append("/").append(piece);
    }
  }
  if (resolved.empty()) return std::nullopt;
  return resolved;
}

std::string RelativeTarget(std::string_view source, std::string_view part) {
  const std::string_view from = FolderOf(source);
  std::size_t common = 0;  // length of the shared folders, with the "/"
  for (std::size_t i = 0; i < std::min(from.size(), part.size()) && from[i] == part[i]; ++i) {
    if (from[i] == '/') common = i + 1;
  }
  std::string target;
  for (const char c : from.substr(common)) {
    if (c == '/') target += "../";
  }
  return target.append(part.substr(common));
}

std::string RelationshipsPartOf(std::string_view source) {
  const std::string_view folder = FolderOf(source);
  return std::string(folder) + "_rels/" + std::string(source.substr(folder.size())) + ".rels";
}

Relationships Relationships::Parse(std::string_view xml, std::string source, const std::string& file) {
  const std::string part = RelationshipsPartOf(source);
  const pugi::xml_document document = ParseXml(xml, {.file = file, .part = part});
  const XmlNames names(document);
  const pugi::xml_node root = document.document_element();
  if (!names.Is(root, XmlSpace::kPackageRelationships, "Relationships")) {
    RaiseBadPart(file, part, "it is no list of relationships");
  }
  Relationships list(std::move(source));
  std::unordered_set<std::string_view> ids;
  for (const pugi::xml_node& child : root.children()) {
    if (!names.Is(child, XmlSpace::kPackageRelationships, "Relationship")) continue;
    Relationship relationship{.id = std::string(StringOf(child, "Id")),
                              .type = std::string(StringOf(child, "Type")),
                              .target = std::string(StringOf(child, "Target")),
                              .external = StringOf(child, "TargetMode") == "External"};
    if (relationship.id.empty() || relationship.type.empty()) RaiseBadPart(file, part, "a relationship is incomplete");
    if (!ids.insert(StringOf(child, "Id")).second) {
      RaiseBadPart(file, part, "the id " + relationship.id + " occurs twice");
    }
    list.Append(std::move(relationship));
  }
  return list;
}

void Relationships::Append(Relationship relationship) {
  const std::string_view id = relationship.id;
  std::size_t number = 0;
  if (id.starts_with(kIdStart)) std::from_chars(id.data() + kIdStart.size(), id.data() + id.size(), number);
  lastId_ = std::max(lastId_, number);
  all_.push_back(std::move(relationship));
}

const Relationship* Relationships::Find(std::string_view id) const {
  const auto found = std::find_if(all_.begin(), all_.end(), [&](const Relationship& one) { return one.id == id; });
  return found == all_.end() ? nullptr : &*found;
}

const Relationship* Relationships::FirstOf(std::string_view kind) const {
  const auto found = std::find_if(all_.begin(), all_.end(), [&](const Relationship& one) { return one.Is(kind); });
  return found == all_.end() ? nullptr : &*found;
}

std::optional<std::string> Relationships::PartOf(const Relationship& relationship) const {
  if (relationship.external) return std::nullopt;
  return ResolveTarget(source_, relationship.target);
}

std::string Relationships::Add(std::string_view type, std::string_view part) {
  return AddTarget(type, RelativeTarget(source_, part), false);
}

std::string Relationships::AddExternal(std::string_view type, std::string_view target) {
  return AddTarget(type, std::string(target), true);
}

std::string Relationships::AddTarget(std::string_view type, std::string target, bool external) {
  const std::string id = std::string(kIdStart) + std::to_string(lastId_ + 1);
  Append({.id = id, .type = std::string(type), .target = std::move(target), .external = external});
  return id;
}

void Relationships::Remove(std::string_view id) {
  std::erase_if(all_, [&](const Relationship& one) { return one.id == id; });
}

void Relationships::SetPart(std::string_view id, std::string_view part) {
  const auto found = std::find_if(all_.begin(), all_.end(), [&](const Relationship& one) { return one.id == id; });
  if (found == all_.end()) Raise(RuntimeError::kInvalidCall, u"There is no relationship " + FromUtf8(id) + u".");
  found->target = RelativeTarget(source_, part);
  found->external = false;
}

std::string Relationships::ToXml() const {
  std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<Relationships xmlns=\"";
  xml += NamespaceUri(XmlSpace::kPackageRelationships);
  xml += "\">";
  for (const Relationship& one : all_) {
    xml += "<Relationship Id=\"";
    AppendXmlAttribute(xml, one.id);
    xml += "\" Type=\"";
    AppendXmlAttribute(xml, one.type);
    xml += "\" Target=\"";
    AppendXmlAttribute(xml, one.target);
    xml += one.external ? "\" TargetMode=\"External\"/>" : "\"/>";
  }
  xml += "</Relationships>";
  return xml;
}

}  // namespace zorkanca
