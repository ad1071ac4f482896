#include "word/merge/unique_numbers.h"

#include <algorithm>
#include <set>

#include "runtime/ascii.h"
#include "runtime/utf8.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

// A bookmark's name has 40 characters at the most; the ending of a copy, "_" and its number, takes up to 8 of them.
constexpr std::size_t kLongestStem = 32;

Text CutTo(Text name, std::size_t length) {
  if (name.size() <= length) return name;
  name.resize(length);
  if (!name.empty() && (name.back() & 0xFC00) == 0xD800) name.pop_back();  // half of a character
  return name;
}

// What stands before the number of a name like "X_2", which the second copy of "X" must not have too.
Text StemOfNumbered(TextView name) {
  std::size_t digits = name.size();
  while (digits > 0 && IsDigit(name[digits - 1])) --digits;
  const bool numbered = digits > 0 && digits < name.size() && name[digits - 1] == u'_';
  return Text(numbered ? name.substr(0, digits - 1) : TextView());
}

// "_a", "_b", ..., "_z", "_ba", ...: no copy's number ends so.
Text Letters(std::size_t number) {
  Text letters;
  do {
    letters.insert(letters.begin(), static_cast<char16_t>(u'a' + number % 26));
    number /= 26;
  } while (number > 0);
  return u'_' + letters;
}

}  // namespace

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
  if (Is(tree, "w:bookmarkStart")) {
    const std::string name = tree.attribute("w:name").value();
    names_.emplace(LowerCase(FromUtf8(name)), NameStep{name, name});
  }
  for (const pugi::xml_node child : tree.children()) Gather(child);
}

// Copies have the stem and their number. Stems differ from each other, and none makes a name that the template has.
void UniqueNumbers::NameBookmarks() {
  std::set<Text> taken;
  for (const auto& [key, bookmark] : names_) taken.insert(StemOfNumbered(key));
  std::map<Text, std::size_t> tries;  // by shortened name, so that many alike cost no more than their number
  for (auto& [key, bookmark] : names_) {
    const Text whole = CutTo(FromUtf8(bookmark.name), kLongestStem);
    Text candidate = whole;
    while (!taken.insert(LowerCase(candidate)).second) {
      const Text letters = Letters(tries[LowerCase(whole)]++);
      candidate = CutTo(whole, kLongestStem - letters.size()) + letters;
    }
    bookmark.stem = ToUtf8(candidate);
  }
}

std::optional<NameStep> UniqueNumbers::StepForName(std::string_view name) const {
  const auto found = names_.find(LowerCase(FromUtf8(name)));
  if (found == names_.end()) return std::nullopt;
  return NameStep{std::string(name), found->second.stem};
}

std::vector<NameStep> UniqueNumbers::AllNames() const {
  std::vector<NameStep> all;
  for (const auto& [key, bookmark] : names_) all.push_back(bookmark);
  return all;
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
