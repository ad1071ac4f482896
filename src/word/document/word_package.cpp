#include "word/document/word_package.h"

#include <algorithm>

#include "opc/office_error.h"
#include "opc/xml_document.h"
#include "opc/xml_names.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

constexpr std::string_view kTypes = "application/vnd.openxmlformats-officedocument.wordprocessingml.";
constexpr std::string_view kMacroDocument = "application/vnd.ms-word.document.macroEnabled.main+xml";
constexpr std::string_view kMacroTemplate = "application/vnd.ms-word.template.macroEnabledTemplate.main+xml";

std::string Type(std::string_view kind) {
  return std::string(kTypes).append(kind).append("+xml");
}

std::string Declared(std::string_view element, std::string_view content) {
  std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<w:";
  xml.append(element).append(" xmlns:w=\"").append(NamespaceUri(XmlSpace::kWord)).append("\">");
  return xml.append(content).append("</w:").append(element).append(">");
}

}  // namespace

WordPackage::WordPackage(Package package) : package_(std::move(package)) {
  mainPart_ = package_.MainPart();
  const std::string type = package_.ContentTypeOf(mainPart_);
  if (type == Type("template.main")) {
    package_.SetContentType(mainPart_, Type("document.main"));
  } else if (type == kMacroTemplate) {
    package_.SetContentType(mainPart_, kMacroDocument);
  } else if (type != Type("document.main") && type != kMacroDocument) {
    RaiseNotOfficeDocument(file(), "its main part is no Word document");
  }
}

void WordPackage::Prepare() {
  Body();
  if (Related("settings")) Settings();
  ControlParts();
}

WordPackage WordPackage::Copy() const {
  WordPackage copy;
  copy.package_ = package_;
  copy.mainPart_ = mainPart_;
  copy.settingsPart_ = settingsPart_;
  copy.controlParts_ = controlParts_;
  for (const auto& [part, tree] : trees_) {
    PartTree& own = copy.trees_[part];
    own.document = std::make_unique<pugi::xml_document>();
    own.document->reset(*tree.document);
    own.changed = tree.changed;
  }
  return copy;
}

// A page of the size that the product's users print on.
WordPackage WordPackage::Blank() {
  Package package;
  const std::string main = "/word/document.xml";
  package.AddPart(main, Type("document.main"),
                  Declared("document",
                           "<w:body><w:p/><w:sectPr><w:pgSz w:w=\"11906\" w:h=\"16838\"/><w:pgMar w:top=\"1417\" "
                           "w:right=\"1417\" w:bottom=\"1417\" w:left=\"1417\" w:header=\"708\" w:footer=\"708\" "
                           "w:gutter=\"0\"/></w:sectPr></w:body>"));
  Relationships relationships{std::string(Package::kRoot)};
  relationships.Add(OfficeRelationshipType("officeDocument"), main);
  package.SetRelationships(relationships);
  return WordPackage(std::move(package));
}

pugi::xml_document& WordPackage::Tree(const std::string& part) {
  PartTree& tree = trees_[part];
  if (!tree.document) {
    auto document = std::make_unique<pugi::xml_document>(ParseXml(package_.ReadPart(part), {package_.path(), part}));
    UseUsualPrefixes(*document, package_.path());
    DropLayout(*document);
    tree.document = std::move(document);
  }
  return *tree.document;
}

pugi::xml_node WordPackage::Body() {
  pugi::xml_node body = Tree(mainPart_).document_element().child("w:body");
  if (!body) RaiseBadPart(file(), mainPart_, "it has no body");
  const pugi::xml_node first = body.first_child();
  if (!first || (Is(first, "w:sectPr") && first == body.last_child()))
    body.prepend_child("w:p");  // Word has one always
  return body;
}

// Most headers hold none and need no tree.
const std::vector<std::string>& WordPackage::ControlParts() {
  if (controlParts_) return *controlParts_;
  controlParts_.emplace();
  const Relationships relationships = package_.RelationshipsOf(mainPart_);
  for (const Relationship& each : relationships.all()) {
    const bool mayHold = each.Is("header") || each.Is("footer") || each.Is("footnotes") || each.Is("endnotes");
    const auto part = mayHold ? relationships.PartOf(each) : std::nullopt;
    if (!part || !package_.HasPart(*part) || package_.ReadPart(*part).find("sdt") == std::string::npos) continue;
    const bool known = std::find(controlParts_->begin(), controlParts_->end(), *part) != controlParts_->end();
    if (!known && Tree(*part).find_node([](const pugi::xml_node& node) { return Is(node, "w:sdt"); })) {
      controlParts_->push_back(*part);
    }
  }
  return *controlParts_;
}

pugi::xml_document& WordPackage::Settings() {
  if (settingsPart_.empty()) {
    if (const auto part = Related("settings")) {
      settingsPart_ = *part;
    } else {
      settingsPart_ = package_.FreshPartName("/word/settings#.xml");
      package_.AddPart(settingsPart_, Type("settings"), Declared("settings", ""));
      Relationships relationships = package_.RelationshipsOf(mainPart_);
      relationships.Add(OfficeRelationshipType("settings"), settingsPart_);
      package_.SetRelationships(relationships);
    }
  }
  return Tree(settingsPart_);
}

Package WordPackage::Written() const {
  Package written = package_;
  for (const auto& [part, tree] : trees_) {
    if (tree.changed) written.ReplacePart(part, XmlBytes(*tree.document));
  }
  return written;
}

void RemoveMacros(Package& package, const std::string& mainPart) {
  if (package.ContentTypeOf(mainPart) != kMacroDocument) return;
  package.SetContentType(mainPart, Type("document.main"));
  Relationships relationships = package.RelationshipsOf(mainPart);
  const std::vector<Relationship> all = relationships.all();
  for (const Relationship& relationship : all) {
    if (!relationship.type.ends_with("/vbaProject") && !relationship.type.ends_with("/keyMapCustomizations")) continue;
    if (const auto part = relationships.PartOf(relationship)) {
      const Relationships own = package.RelationshipsOf(*part);
      for (const Relationship& inner : own.all()) {
        if (const auto data = own.PartOf(inner)) package.RemovePart(*data);
      }
      package.RemovePart(*part);
    }
    relationships.Remove(relationship.id);
  }
  package.SetRelationships(relationships);
}

}  // namespace zorkanca::word
