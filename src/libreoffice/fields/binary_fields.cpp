// A table of fields (PLC) holds the positions of the three characters of each field, and two bytes for each of them:
// which of the three it is, and the field's type or its flags. A marked field leaves the table, and its characters
// become markers; the formatting that says of them that they are no text (sprmCFSpec) does no harm.
#include "libreoffice/fields/binary_fields.h"

#include <algorithm>
#include <vector>

#include "libreoffice/fields/binary_text.h"
#include "libreoffice/fields/field_types.h"
#include "libreoffice/fields/marker_choice.h"

namespace zorkanca {

namespace {

constexpr std::uint32_t kBegin = 0x13;
constexpr std::uint32_t kSeparate = 0x14;
constexpr std::uint32_t kEnd = 0x15;
constexpr std::size_t kDeepest = 64;  // fields inside each other
constexpr std::uint32_t kNowhere = 0xFFFFFFFF;

// One character of a field, as the table has it.
struct Entry {
  std::uint32_t position = 0;  // in the story
  std::uint32_t value = 0;
  std::size_t field = 0;
};

struct Field {
  std::uint8_t type = 0;
  bool locked = false;
  std::uint32_t begin = kNowhere;
  std::uint32_t separate = kNowhere;
  std::uint32_t end = kNowhere;
};

[[noreturn]] void RefuseContradicting() {
  RefuseFields("the table of its fields contradicts its text");
}

// The fields of one story.
class FieldTable {
 public:
  FieldTable(BinaryText& text, const BinaryStory& story)
      : text_(text), story_(story), table_(text.Table(story.fields)) {
    if (table_.size == 0) return;
    if (table_.size < 4 || (table_.size - 4) % 6 != 0) RefuseContradicting();
    ReadEntries();
    spoiled_ = ChooseFields(places_);
  }

  std::size_t spoiled() const { return spoiled_; }
  std::size_t marked() const {
    return static_cast<std::size_t>(
        std::count_if(places_.begin(), places_.end(), [](const FieldPlace& place) { return place.marked; }));
  }
  void CollectNames(std::map<Text, Text>& englishNames) const;
  void Mark(const FieldMarkers& markers);

 private:
  void ReadEntries();
  void Begin(const Entry& entry);
  Text FirstWord(const Field& field) const;

  BinaryText& text_;
  BinaryStory story_;
  BinaryTable table_;
  std::vector<Entry> entries_;
  std::vector<Field> fields_;
  std::vector<FieldPlace> places_;
  std::vector<std::size_t> open_;
  std::size_t spoiled_ = 0;
};

void FieldTable::ReadEntries() {
  constexpr std::uint32_t kKind = 0x1F;
  constexpr std::uint32_t kLocked = 0x10;
  const std::size_t count = (table_.size - 4) / 6;
  const std::size_t values = table_.start + 4 * (count + 1);
  for (std::size_t i = 0; i < count; ++i) {
    Entry entry{text_.tables().Number(table_.start + 4 * i, 4), text_.tables().Number(values + 2 * i, 2)};
    const std::uint32_t kind = entry.value & kKind;
    const bool ascending = entries_.empty() || entries_.back().position < entry.position;
    if (!ascending || entry.position >= story_.length || text_.Character(story_.start + entry.position) != kind) {
      RefuseContradicting();
    }
    if (kind == kBegin) {
      Begin(entry);
    } else if (open_.empty() || (kind != kSeparate && kind != kEnd)) {
      RefuseContradicting();
    }
    entry.field = open_.back();
    Field& field = fields_[entry.field];
    if (kind == kSeparate) {
      if (field.separate != kNowhere) RefuseContradicting();
      field.separate = entry.position;
    } else if (kind == kEnd) {
      field.end = entry.position;
      field.locked = (entry.value >> 8 & kLocked) != 0;
      open_.pop_back();
    }
    entries_.push_back(entry);
  }
  if (!open_.empty()) RefuseContradicting();
}

void FieldTable::Begin(const Entry& entry) {
  if (open_.size() == kDeepest) RefuseFields("its fields are nested too deeply");
  const auto type = static_cast<std::uint8_t>(entry.value >> 8);
  places_.push_back({CareOf(type), open_.empty() ? FieldPlace::kNone : open_.back()});
  fields_.push_back({.type = type, .begin = entry.position});
  open_.push_back(fields_.size() - 1);
}

// The first word of a code, without what could not be the name of a type.
Text FieldTable::FirstWord(const Field& field) const {
  constexpr std::size_t kLongest = 40;
  Text word;
  for (std::uint32_t at = field.begin + 1; at < std::min(field.separate, field.end); ++at) {
    const char16_t character = text_.Character(story_.start + at);
    if (character == u' ' && word.empty()) continue;
    if (character <= u' ' || character == u'"' || character == u'\\') break;
    word += character;
    if (word.size() > kLongest) return Text();
  }
  return word;
}

void FieldTable::CollectNames(std::map<Text, Text>& englishNames) const {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (!places_[i].marked) continue;
    const Text word = FirstWord(fields_[i]);
    if (auto name = EnglishNameFor(fields_[i].type, word)) englishNames.emplace(UpperCase(word), *std::move(name));
  }
}

void FieldTable::Mark(const FieldMarkers& markers) {
  const auto set = [&](std::uint32_t position, char16_t marker) {
    if (position != kNowhere) text_.SetCharacter(story_.start + position, marker);
  };
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (!places_[i].marked) continue;
    set(fields_[i].begin, fields_[i].locked ? markers.lockedBegin : markers.begin);
    set(fields_[i].separate, markers.separate);
    set(fields_[i].end, markers.end);
  }
  const std::size_t old = entries_.size();
  const std::uint32_t last = old == 0 ? 0 : text_.tables().Number(table_.start + 4 * old, 4);
  std::erase_if(entries_, [&](const Entry& entry) { return places_[entry.field].marked; });
  const std::size_t left = entries_.size();
  if (left == old) return;
  const std::size_t values = table_.start + 4 * (left + 1);
  for (std::size_t i = 0; i < left; ++i) {
    text_.tables().Put(table_.start + 4 * i, entries_[i].position, 4);
    text_.tables().Put(values + 2 * i, entries_[i].value, 2);
  }
  text_.tables().Put(table_.start + 4 * left, last, 4);
  text_.ShrinkTable(story_.fields, left == 0 ? 0 : 4 * (left + 1) + 2 * left);
}

}  // namespace

std::optional<MarkedFields> MarkBinaryFields(std::string& bytes) {
  BinaryText text(bytes);
  std::vector<FieldTable> tables;
  MarkedFields result;
  for (const BinaryStory& story : text.stories()) {
    const FieldTable& table = tables.emplace_back(text, story);
    if (tables.size() == 1) result.inBody = table.marked();
    result.count += table.marked();
    result.spoiled += table.spoiled();
    table.CollectNames(result.englishNames);
  }
  if (result.count == 0 && result.spoiled == 0) return std::nullopt;
  result.markers = ChooseMarkers(text.UsedCharacters(), text.HasBytes());
  for (FieldTable& table : tables) table.Mark(result.markers);
  return result;
}

}  // namespace zorkanca
