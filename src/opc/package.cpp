#include "opc/package.h"

#include <algorithm>

#include "files/atomic_file.h"
#include "opc/document_kind.h"
#include "opc/office_error.h"
#include "opc/strict_names.h"
#include "opc/zip_writer.h"
#include "runtime/ascii.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr std::string_view kContentTypesPart = "/[Content_Types].xml";
constexpr std::string_view kRelationshipsType = "application/vnd.openxmlformats-package.relationships+xml";

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

std::string PartName(std::string_view entryName) {
  return '/' + std::string(entryName);
}

// Letters, digits and the marks that stand unescaped in a part name; "%" begins an escape.
bool IsPartName(std::string_view part) {
  constexpr std::string_view kMarks = "-._~!$&'()*+,;=:@%/";
  const bool plain =
      std::all_of(part.begin(), part.end(), [&](char c) { return IsAlphanumeric(c) || kMarks.find(c) != kMarks.npos; });
  return plain && part.size() > 1 && ResolveTarget(Package::kRoot, part) == part && !part.ends_with('.');
}

void RefuseForeignDocument(const std::string& path) {
  switch (DocumentKindOf(path)) {
    case DocumentKind::kCompound:
      RaiseNotOfficeDocument(path, "it is a binary document of an earlier version, or protected by a password");
    case DocumentKind::kOpenDocument:
      RaiseNotOfficeDocument(path, "it is an OpenDocument file");
    case DocumentKind::kRichText:
      RaiseNotOfficeDocument(path, "it is a document in rich text format");
    default:
      break;
  }
}

}  // namespace

Package Package::Open(const std::string& path, const ZipLimits& limits) {
  RefuseForeignDocument(path);
  Package package;
  package.zip_ = std::make_shared<const ZipReader>(path, limits);
  for (const ZipEntry& entry : package.zip_->entries()) package.items_.push_back({entry.name, &entry, nullptr});
  package.Index();
  const Item* types = package.Find(kContentTypesPart);
  if (!types) RaiseNotOfficeDocument(path, "it has no list of content types");
  package.contentTypes_ = ContentTypes::Parse(package.zip_->Read(*types->original), path);
  package.contentTypesChanged_ = false;
  package.strict_ = package.IsStrict();
  return package;
}

// By where the main part is named; the office reads packages of both families mixed as little.
bool Package::IsStrict() const {
  const Relationships relationships = RelationshipsOf(kRoot);
  const Relationship* main = relationships.FirstOf("officeDocument");
  return main && TransitionalUri(main->type);
}

const std::string& Package::path() const {
  static const std::string kNone;
  return zip_ ? zip_->path() : kNone;
}

void Package::Index() {
  index_.clear();
  for (std::size_t i = 0; i < items_.size(); ++i) index_.emplace(AsciiLower(PartName(items_[i].name)), i);
}

const Package::Item* Package::Find(std::string_view part) const {
  const auto found = index_.find(AsciiLower(part));
  return found == index_.end() ? nullptr : &items_[found->second];
}

const Package::Item& Package::Require(std::string_view part) const {
  const Item* item = Find(part);
  if (!item) RaiseNotOfficeDocument(path(), "part " + std::string(part) + " is missing");
  return *item;
}

std::vector<std::string> Package::PartNames() const {
  std::vector<std::string> names;
  for (const Item& item : items_) {
    std::string name = PartName(item.name);
    if (!name.ends_with('/') && AsciiLower(name) != AsciiLower(kContentTypesPart)) names.push_back(std::move(name));
  }
  return names;
}

bool Package::HasPart(std::string_view part) const {
  return Find(part) != nullptr;
}

void Package::StreamPart(std::string_view part, const Take& take) const {
  const Item& item = Require(part);
  if (item.original) return StreamOriginal(item, take);
  std::visit(Overloaded{[&](const std::string& bytes) { take(bytes); },
                        [&](const std::shared_ptr<const DeflatedPart>& deflated) { deflated->Read(take); },
                        [&](const PartProducer&) {
                          Raise(RuntimeError::kInvalidCall,
                                u"Part " + FromUtf8(part) + u" is written when the package is saved.");
                        }},
             *item.content);
}

std::string Package::ReadPart(std::string_view part) const {
  const Item& item = Require(part);
  if (item.original && !IsTranslated(item)) return zip_->Read(*item.original);
  std::string bytes;
  StreamPart(part, [&](std::string_view piece) { bytes += piece; });
  return bytes;
}

void Package::SetContentType(std::string_view part, std::string_view type) {
  if (contentTypes_.TypeOf(part) == type) return;
  contentTypes_.SetOverride(part, type);
  contentTypesChanged_ = true;
}

void Package::AddPart(std::string_view part, std::string_view contentType, PartContent content) {
  if (!IsPartName(part)) Raise(RuntimeError::kInvalidCall, FromUtf8(part) + u" is no name of a part.");
  if (HasPart(part)) Raise(RuntimeError::kInvalidCall, u"There is a part " + FromUtf8(part) + u" already.");
  index_.emplace(AsciiLower(part), items_.size());
  items_.push_back({std::string(part.substr(1)), nullptr, std::make_shared<const PartContent>(std::move(content))});
  SetContentType(part, contentType);
}

void Package::ReplacePart(std::string_view part, PartContent content) {
  Require(part);
  Item& item = items_[index_.at(AsciiLower(part))];
  item.original = nullptr;
  item.content = std::make_shared<const PartContent>(std::move(content));
}

void Package::RemovePart(std::string_view part) {
  const std::string relationships = RelationshipsPartOf(part);
  for (const std::string& name : {AsciiLower(part), AsciiLower(relationships)}) {
    const auto found = index_.find(name);
    if (found == index_.end()) continue;
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(found->second));
    Index();
  }
  if (contentTypes_.RemoveOverride(part)) contentTypesChanged_ = true;
}

std::string Package::FreshPartName(std::string_view pattern) {
  std::size_t& number = lastNumbers_[std::string(pattern)];
  const std::size_t mark = pattern.find('#');
  for (;;) {
    std::string name(pattern);
    name.replace(mark, 1, std::to_string(++number));
    if (!HasPart(name)) return name;
  }
}

Relationships Package::RelationshipsOf(std::string_view source) const {
  const std::string part = RelationshipsPartOf(source);
  if (!HasPart(part)) return Relationships(std::string(source));
  return Relationships::Parse(ReadPart(part), std::string(source), path());
}

void Package::SetRelationships(const Relationships& relationships) {
  const std::string part = RelationshipsPartOf(relationships.source());
  if (relationships.empty()) return RemovePart(part);
  if (HasPart(part)) return ReplacePart(part, relationships.ToXml());
  index_.emplace(AsciiLower(part), items_.size());
  items_.push_back({part.substr(1), nullptr, std::make_shared<const PartContent>(relationships.ToXml())});
  contentTypesChanged_ = contentTypes_.AddDefault("rels", kRelationshipsType) || contentTypesChanged_;
}

std::string Package::MainPart() const {
  std::optional<std::string> part = RelatedPart(kRoot, "officeDocument");
  if (!part) RaiseNotOfficeDocument(path(), "it has no main part");
  return *part;
}

std::optional<std::string> Package::RelatedPart(std::string_view source, std::string_view kind) const {
  const Relationships relationships = RelationshipsOf(source);
  const Relationship* found = relationships.FirstOf(kind);
  std::optional<std::string> part = found ? relationships.PartOf(*found) : std::nullopt;
  if (part && !HasPart(*part)) return std::nullopt;
  return part;
}

bool Package::IsTranslated(const Item& item) const {
  return strict_ && AsciiLower(ContentTypeOf(PartName(item.name))).ends_with("xml");
}

void Package::StreamOriginal(const Item& item, const Take& take) const {
  if (!IsTranslated(item)) return zip_->Read(*item.original, take);
  StrictTranslator translator(take);
  zip_->Read(*item.original, [&](std::string_view piece) { translator.Append(piece); });
  translator.Finish();
}

void Package::WriteItem(ZipWriter& writer, const Item& item) const {
  if (item.original && !IsTranslated(item)) return writer.Copy(*zip_, *item.original);
  if (item.original) {
    PartSink& sink = writer.Begin(item.name);
    StreamOriginal(item, [&](std::string_view piece) { sink.Append(piece); });
    return writer.End();
  }
  std::visit(Overloaded{[&](const std::string& bytes) { writer.Add(item.name, bytes); },
                        [&](const std::shared_ptr<const DeflatedPart>& deflated) { writer.Add(item.name, *deflated); },
                        [&](const PartProducer& produce) {
                          produce(writer.Begin(item.name));
                          writer.End();
                        }},
             *item.content);
}

// Readers of a stream need the content types first, whatever place a package had them at.
void Package::WriteTo(ByteSink& sink) const {
  ZipWriter writer(sink);
  const Item* types = Find(kContentTypesPart);
  if (types && !contentTypesChanged_) {
    WriteItem(writer, *types);
  } else {
    writer.Add(kContentTypesPart.substr(1), contentTypes_.ToXml());
  }
  for (const Item& item : items_) {
    if (&item != types) WriteItem(writer, item);
  }
  writer.Finish();
}

void Package::SaveAs(const std::string& path) const {
  AtomicFile file(path, {});
  WriteTo(file);
  file.Commit();
}

}  // namespace zorkanca
