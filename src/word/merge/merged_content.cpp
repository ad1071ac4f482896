#include "word/merge/merged_content.h"

#include <algorithm>

#include "opc/xml_document.h"
#include "runtime/utf8.h"
#include "word/document/sections.h"
#include "word/document/tree_content.h"
#include "word/merge/inherited_headers.h"
#include "word/merge/merge_settings.h"
#include "word/merge/section_assembly.h"
#include "word/xml/word_errors.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

constexpr std::string_view kPlaceOfCopies = "zorkanca-place-of-copies";

bool IsLetter(MainDocumentType type) {
  return type != MainDocumentType::kCatalog && type != MainDocumentType::kMailingLabels;
}

bool HasFloating(const pugi::xml_node& node) {
  if (Is(node, "wp:anchor") || Is(node, "w:pict") || Is(node, "mc:AlternateContent")) return true;
  const auto children = node.children();
  return std::any_of(children.begin(), children.end(), HasFloating);
}

bool HasTable(const pugi::xml_node& node) {
  const auto children = node.children();
  return Is(node, "w:tbl") || std::any_of(children.begin(), children.end(), HasTable);
}

}  // namespace

MergedContent::MergedContent(WordPackage& main, const MergeOrder& order, const Locale& locale)
    : parts_(main.Written()), separate_(order.type != MainDocumentType::kCatalog) {
  RemoveMergeSettings(parts_);
  const std::string mainPart = parts_.mainPart();
  pugi::xml_document document;
  parts_.Body();
  document.reset(parts_.Tree(mainPart));
  pugi::xml_node body = document.document_element().child("w:body");

  UniqueNumbers numbers;
  numbers.Gather(body);
  GatherNoteNumbers(parts_, numbers);
  numbers.NameBookmarks();
  if (IsLetter(order.type)) lists_.Gather(parts_, body, numbers);
  FoldFields(body);
  CompileInput input{*order.source, locale, numbers, order.suppressBlankLines, {}, {}, {}, order.warn};
  if (!input.warn) input.warn = [](TextView) {};
  GatherVariables(body, input.variables);
  GatherBookmarks(body, input.bookmarks);

  const std::vector<pugi::xml_node> sections = SectionsOf(body);
  if (separate_) NameInheritedHeaders(parts_, sections);
  for (std::size_t i = 0; i < sections.size(); ++i) {
    headerIds_.push_back(PrimaryHeaderId(sections, i, HeaderKind::kHeader));
    headerIds_.push_back(PrimaryHeaderId(sections, i, HeaderKind::kFooter));
  }
  if (IsLetter(order.type)) CompileHeaders(input);
  notes_ = CompileNotes(parts_, input);
  if (separate_) SeparateCopies(body, IsLetter(order.type));
  const MergedStory::Features features{HasFloating(body), HasTable(body)};
  CompileBody(body, input, order, locale);
  story_ = std::make_unique<MergedStory>(*copies_, features, numbers.AllNames(), order.warn);

  body.remove_children();
  body.append_child(pugi::node_pcdata).set_value(std::string(kPlaceOfCopies).c_str());
  const std::string frame = XmlBytes(document);
  const std::size_t place = frame.find(kPlaceOfCopies);
  prologue_ = frame.substr(0, place);
  epilogue_ = frame.substr(place + kPlaceOfCopies.size());
}

// Headers and footers in which something differs from copy to copy.
void MergedContent::CompileHeaders(CompileInput& input) {
  const Relationships relationships = parts_.package().RelationshipsOf(parts_.mainPart());
  static const UniqueNumbers kNoNumbers;
  for (const Relationship& relationship : relationships.all()) {
    const auto part = relationships.PartOf(relationship);
    const bool isHeader = relationship.Is("header") || relationship.Is("footer");
    if (!isHeader || !part || !parts_.package().HasPart(*part)) continue;
    pugi::xml_document document;
    document.reset(parts_.Tree(*part));
    pugi::xml_node root = document.document_element();
    FoldFields(root);
    const CompileInput own{input.source, input.locale,    kNoNumbers,      input.suppressBlankLines,
                           {},           input.variables, input.bookmarks, input.warn};
    StoryCompiler compiler(own, root, false);
    compiler.AddXml("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n");
    compiler.Add(root);
    Program program = compiler.Take();
    if (TraitsOf(program).varies) headers_.Add(relationship.id, *part, std::move(program));
  }
  input.headers = headers_.byId();
}

void MergedContent::CompileBody(pugi::xml_node body, const CompileInput& input, const MergeOrder& order,
                                const Locale& locale) {
  StoryCompiler copyCompiler(input, body, true);
  StoryCompiler endCompiler(input, body, true);
  const pugi::xml_node section = RequireFinalSection(body);
  for (const pugi::xml_node block : body.children()) {
    (block == section ? endCompiler : copyCompiler).Add(block);
  }
  finalSection_ = endCompiler.Take();
  copies_ = std::make_unique<MergedCopies>(
      order.source, copyCompiler.Take(), order.firstRecord,
      MergeInput{*order.source, locale, order.endRecord, nullptr, order.cancelled, order.warn});
  if (copies_->count() == 0) {
    RaiseWordError(WordError::kNoDataSource,
                   u"The data source " + FromUtf8(order.source->path()) + u" holds no record that could be merged.");
  }
  headers_.Distribute(*copies_);
  copies_->UseHeaders(headers_);
}

StoryText* MergedContent::HeaderText(std::int32_t section, HeaderKind kind) {
  const std::size_t perCopy = headerIds_.size() / 2;  // sections; the last one of a catalogue stands once, at the end
  const std::size_t ending = separate_ ? 0 : 1;
  const std::size_t repeated = perCopy - ending;
  const std::size_t count = repeated * copies_->count() + ending;
  if (section < 1 || static_cast<std::size_t>(section) > count) {
    RaiseWordError(WordError::kMemberMissing, u"The requested member of the collection does not exist.");
  }
  const std::size_t index = static_cast<std::size_t>(section) - 1;
  const bool atEnd = index >= repeated * copies_->count();
  const std::size_t own = atEnd ? perCopy - 1 : index % repeated;
  const std::string& id = headerIds_[own * 2 + (kind == HeaderKind::kFooter ? 1 : 0)];
  const auto varying = headers_.byId().find(id);
  if (varying != headers_.byId().end()) return &headers_.StoryOf(varying->second, index / repeated, *copies_);
  return HeaderStoryOf(parts_, id, plainHeaders_, [this](const std::string& part) { parts_.Changed(part); });
}

void MergedContent::Produce(PartSink& sink) const {
  sink.Append(prologue_);
  if (!story_->WriteXml(sink)) sink.Append("<w:p/>");
  std::string section;
  copies_->AppendXml(finalSection_, copies_->count() - 1, section);
  sink.Append(section);
  sink.Append(epilogue_);
}

Package MergedContent::Written() {
  Package package = parts_.Written();
  const std::string& mainPart = parts_.mainPart();
  package.ReplacePart(mainPart, [this](PartSink& sink) { Produce(sink); });
  headers_.AddTo(package, mainPart, *copies_);
  AddNotesTo(package, notes_, *copies_);
  lists_.AddTo(package, copies_->count());
  return package;
}

}  // namespace zorkanca::word
