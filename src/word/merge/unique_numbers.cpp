#include "word/merge/unique_numbers.h"

#include <algorithm>

#include "word/xml/word_xml.h"

namespace zorkanca::word {

std::optional<NumberKind> NumberKindOf(std::string_view element, std::string_view attribute) {
  if (element == "wp:docPr") return attribute == "id" ? std::optional(NumberKind::kDrawing) : std::nullopt;
  if (attribute != "w:id") return std::nullopt;
  if (element == "w:bookmarkStart" || element == "w:bookmarkEnd") return NumberKind::kBookmark;
  if (element == "w:footnoteReference" || element == "w:footnote") return NumberKind::kFootnote;
  if (element == "w:endnoteReference" || element == "w:endnote") return NumberKind::kEndnote;
  if (element == "w:commentRangeStart" || element == "w:commentRangeEnd" || element == "w:commentReference" ||
      element == "w:comment") {
    return NumberKind::kComment;
  }
  return std::nullopt;
}

void UniqueNumbers::Gather(const pugi::xml_node& tree) {
  for (const pugi::xml_attribute attribute : tree.attributes()) {
    if (const auto kind = NumberKindOf(tree.name(), attribute.name())) Use(*kind, attribute.as_llong());
  }
  if (Is(tree, "w:bookmarkStart")) bookmarks_.insert(tree.attribute("w:name").value());
  for (const pugi::xml_node child : tree.children()) Gather(child);
}

void UniqueNumbers::Use(NumberKind kind, std::int64_t number) {
  Kind& numbers = KindOf(kind);
  numbers.places.emplace(number, numbers.places.size());
  Avoid(kind, number);
}

void UniqueNumbers::Avoid(NumberKind kind, std::int64_t number) {
  KindOf(kind).highest = std::max(KindOf(kind).highest, number);
}

NumberStep UniqueNumbers::StepFor(NumberKind kind, std::int64_t number) const {
  const Kind& numbers = KindOf(kind);
  const std::int64_t place = static_cast<std::int64_t>(numbers.places.at(number));
  return {number, numbers.highest + 1 + place, static_cast<std::int64_t>(numbers.places.size())};
}

}  // namespace zorkanca::word
