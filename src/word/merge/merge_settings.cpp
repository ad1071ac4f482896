#include "word/merge/merge_settings.h"

#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

MainDocumentType TypeOf(std::string_view name) {
  if (name == "catalog") return MainDocumentType::kCatalog;
  if (name == "envelopes") return MainDocumentType::kEnvelopes;
  if (name == "mailingLabels") return MainDocumentType::kMailingLabels;
  return MainDocumentType::kFormLetters;  // letters, and e-mails and faxes, which are letters on paper
}

bool IsMergeSource(const Relationship& relationship) {
  return relationship.Is("mailMergeSource") || relationship.Is("mailMergeHeaderSource") ||
         relationship.Is("recipientData");
}

}  // namespace

MergeSettings ReadMergeSettings(WordPackage& package) {
  if (!package.Related("settings")) return {};
  const pugi::xml_node merge = package.Settings().document_element().child("w:mailMerge");
  if (!merge) return {};
  return {TypeOf(merge.child("w:mainDocumentType").attribute("w:val").value()),
          !HasProperty(merge, "w:doNotSuppressBlankLines")};
}

void RemoveMergeSettings(WordPackage& package) {
  const std::optional<std::string> part = package.Related("settings");
  if (!part) return;
  if (package.Settings().document_element().remove_child("w:mailMerge")) package.SettingsChanged();
  Relationships relationships = package.package().RelationshipsOf(*part);
  const std::vector<Relationship> all = relationships.all();
  for (const Relationship& relationship : all) {
    if (!IsMergeSource(relationship)) continue;
    if (const auto target = relationships.PartOf(relationship)) package.package().RemovePart(*target);
    relationships.Remove(relationship.id);
  }
  if (relationships.all().size() != all.size()) package.package().SetRelationships(relationships);
}

}  // namespace zorkanca::word
