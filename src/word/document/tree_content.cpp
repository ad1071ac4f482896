#include "word/document/tree_content.h"

#include "word/document/sections.h"
#include "word/xml/word_errors.h"

namespace zorkanca::word {

TreeContent::TreeContent(WordPackage package)
    : package_(std::move(package)), mainText_(package_.Body(), [this] { CountChange(package_.mainPart()); }) {}

void TreeContent::CountChange(const std::string& part) {
  ++version_;
  package_.Changed(part);
}

void TreeContent::BodyChanged() {
  mainText_.Forget();
  CountChange(package_.mainPart());
}

void TreeContent::PartChanged(const std::string& part) {
  if (const auto story = headers_.find(part); story != headers_.end()) story->second->Forget();
  CountChange(part);
}

StoryText* TreeContent::HeaderText(std::int32_t section, HeaderKind kind) {
  const std::vector<pugi::xml_node> sections = SectionsOf(package_.Body());
  if (section < 1 || static_cast<std::size_t>(section) > sections.size()) {
    RaiseWordError(WordError::kMemberMissing, u"The requested member of the collection does not exist.");
  }
  return HeaderStoryOf(package_, PrimaryHeaderId(sections, static_cast<std::size_t>(section) - 1, kind), headers_,
                       [this](const std::string& part) { CountChange(part); });
}

StoryText* HeaderStoryOf(WordPackage& package, const std::string& id,
                         std::map<std::string, std::unique_ptr<TreeStory>>& stories,
                         const std::function<void(const std::string&)>& changed) {
  if (id.empty()) return nullptr;
  const Relationships relationships = package.package().RelationshipsOf(package.mainPart());
  const Relationship* relationship = relationships.Find(id);
  const auto part = relationship ? relationships.PartOf(*relationship) : std::nullopt;
  if (!part || !package.package().HasPart(*part)) return nullptr;
  std::unique_ptr<TreeStory>& story = stories[*part];
  if (!story) {
    story =
        std::make_unique<TreeStory>(package.Tree(*part).document_element(), [changed, name = *part] { changed(name); });
  }
  return story.get();
}

}  // namespace zorkanca::word
