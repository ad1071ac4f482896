// Numbers and names that must differ between the copies of a merge: drawings, bookmarks, notes, comments, lists.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "word/merge/program.h"

namespace zorkanca::word {

enum class NumberKind { kDrawing, kBookmark, kFootnote, kEndnote, kComment, kList };
inline constexpr std::size_t kNumberKinds = 6;

class UniqueNumbers {
 public:
  /// Takes note of what a tree uses.
  void Gather(const pugi::xml_node& tree);
  /// Takes note of a number; of one that is used elsewhere only, so that no new one equals it.
  void Use(NumberKind kind, std::int64_t number);
  void Avoid(NumberKind kind, std::int64_t number);
  /// Settles the names of the copies' bookmarks; to be called when all trees are taken note of.
  void NameBookmarks();

  bool Uses(NumberKind kind, std::int64_t number) const { return KindOf(kind).places.count(number) != 0; }
  std::size_t Count(NumberKind kind) const { return KindOf(kind).places.size(); }
  /// The numbers of a kind in order, each with its place among the copies' numbers.
  const std::map<std::int64_t, std::size_t>& NumbersOf(NumberKind kind) const { return KindOf(kind).places; }
  /// The step that writes a number taken note of.
  NumberStep StepFor(NumberKind kind, std::int64_t number) const;
  /// The step that writes the name of a bookmark, case ignored; nothing for what names none.
  std::optional<NameStep> StepForName(std::string_view name) const;
  /// The steps of all bookmarks.
  std::vector<NameStep> AllNames() const;

 private:
  struct Kind {
    std::map<std::int64_t, std::size_t> places;
    std::int64_t highest = 0;
  };
  const Kind& KindOf(NumberKind kind) const { return kinds_[static_cast<std::size_t>(kind)]; }
  Kind& KindOf(NumberKind kind) { return kinds_[static_cast<std::size_t>(kind)]; }

  std::array<Kind, kNumberKinds> kinds_;
  std::map<Text, NameStep> names_;  // of bookmarks, by lower-case name
};

/// The kind of number that an attribute of an element is, by their names; nothing for any other attribute.
/// List numbers (w:numId) are not among them: whether lists start again is the caller's choice.
std::optional<NumberKind> NumberKindOf(std::string_view element, std::string_view attribute);

}  // namespace zorkanca::word
