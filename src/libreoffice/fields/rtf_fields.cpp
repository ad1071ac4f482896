// A field is a group {\field {\*\fldinst code} {\fldrslt result}}; both inner groups hold text, groups and further
// fields. One pass over groups, control words and characters notes where the words of each field stand; then the chosen
// fields lose these words, so that their groups become plain ones, and get markers in their places.
#include "libreoffice/fields/rtf_fields.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>
#include <vector>

#include "libreoffice/fields/field_types.h"
#include "libreoffice/fields/marker_choice.h"
#include "runtime/ascii.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr std::size_t kDeepestGroup = 4096;
constexpr std::size_t kDeepestField = 64;
constexpr std::size_t kLongestWord = 40;

struct Span {
  std::size_t start = 0;
  std::size_t end = 0;
};

struct Field {
  std::vector<Span> words;  // that make its group a field
  Span code;                // the words that make a group its code
  Span result;              // and its result
  std::size_t end = 0;      // of the closing brace
  bool locked = false;
  bool inBody = false;
  bool wordEnded = false;
  std::string firstWord;
};

struct Group {
  enum class Kind { kPlain, kField, kCode, kResult };

  Kind kind = Kind::kPlain;
  std::size_t field = FieldPlace::kNone;   // the innermost one around
  std::size_t codeOf = FieldPlace::kNone;  // the field whose code the characters belong to
  std::size_t depth = 0;                   // number of fields around
  std::size_t star = 0;                    // where "\*" stands, which makes the next word a destination; 0 without
  bool inBody = true;
};

struct Edit {
  Span span;
  std::string text;
};

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Groups whose text is none of the main text.
bool LeavesBody(std::string_view word) {
  static constexpr std::array<std::string_view, 22> kWords = {
      "header",  "headerl",  "headerr",    "headerf",    "footer",   "footerl",    "footerr", "footerf",
      "info",    "footnote", "shptxt",     "dptxbxtext", "listtext", "annotation", "pntext",  "nonshppict",
      "fonttbl", "colortbl", "stylesheet", "ftnsep",     "pict",     "object"};
  return std::find(kWords.begin(), kWords.end(), word) != kWords.end();
}

class RtfReader {
 public:
  explicit RtfReader(std::string_view rtf) : rtf_(rtf), used_(0x10000) {}

  void Read();
  const std::vector<bool>& used() const { return used_; }
  std::vector<Field>& fields() { return fields_; }
  std::vector<FieldPlace>& places() { return places_; }

 private:
  void Open();
  void Close();
  void ReadControl();
  void ReadWord();
  void FollowWord(std::string_view word, std::int64_t number, Span span);
  void BeginField(Span span);
  void AddCharacter(char character);

  std::string_view rtf_;
  std::size_t at_ = 0;
  std::vector<bool> used_;  // characters by their codes
  std::vector<Group> groups_;
  std::vector<Field> fields_;
  std::vector<FieldPlace> places_;
};

void RtfReader::Read() {
  while (at_ < rtf_.size()) {
    const char c = rtf_[at_];
    if (c == '\\') {
      ReadControl();
      continue;
    }
    if (c == '{') Open();
    if (c == '}') Close();
    if (c == '}' && groups_.empty()) break;
    if (c != '{' && c != '}' && c != '\r' && c != '\n') AddCharacter(c);
    ++at_;
  }
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const Field& field = fields_[i];
    const bool whole =
        field.end > 0 && field.code.end > 0 && (field.result.end == 0 || field.result.start > field.code.end);
    if (places_[i].care != FieldCare::kObject) {
      places_[i].care = whole ? CareOf(FromUtf8(field.firstWord)) : FieldCare::kObject;
    }
  }
}

void RtfReader::Open() {
  if (groups_.size() == kDeepestGroup) RefuseFields("its groups are nested too deeply");
  Group group = groups_.empty() ? Group() : groups_.back();
  group.kind = Group::Kind::kPlain;
  group.star = 0;
  groups_.push_back(group);
}

void RtfReader::Close() {
  if (groups_.empty()) return;
  const Group& group = groups_.back();
  if (group.kind == Group::Kind::kField) fields_[group.field].end = at_;
  groups_.pop_back();
}

void RtfReader::ReadControl() {
  constexpr std::size_t kHexadecimal = 4;  // "\'e9"
  const char symbol = at_ + 1 < rtf_.size() ? rtf_[at_ + 1] : '\0';
  if (IsLetter(symbol)) return ReadWord();
  if (symbol == '*' && !groups_.empty()) groups_.back().star = at_;
  if (symbol == '\'') AddCharacter('?');
  if (symbol == '\\' || symbol == '{' || symbol == '}') AddCharacter(symbol);
  at_ = std::min(at_ + (symbol == '\'' ? kHexadecimal : 2), rtf_.size());
}

void RtfReader::ReadWord() {
  const std::size_t start = at_++;
  const std::size_t name = at_;
  while (at_ < rtf_.size() && IsLetter(rtf_[at_])) ++at_;
  const std::string_view word = rtf_.substr(name, at_ - name);
  std::int64_t number = 0;
  const std::size_t digits = at_;
  if (at_ < rtf_.size() && rtf_[at_] == '-') ++at_;
  while (at_ < rtf_.size() && IsDigit(rtf_[at_])) ++at_;
  std::from_chars(rtf_.data() + digits, rtf_.data() + at_, number);
  if (at_ < rtf_.size() && rtf_[at_] == ' ') ++at_;
  FollowWord(word, number, {start, at_});
}

void RtfReader::FollowWord(std::string_view word, std::int64_t number, Span span) {
  if (word == "bin" && number > 0) {
    at_ += std::min(static_cast<std::size_t>(number), rtf_.size() - at_);
  } else if (word == "u") {
    used_[static_cast<std::uint16_t>(number)] = true;
    AddCharacter('?');
  }
  if (groups_.empty()) return;
  Group& group = groups_.back();
  const std::size_t star = std::exchange(group.star, 0);
  const bool inField = group.kind == Group::Kind::kPlain && groups_.size() > 1 &&
                       groups_[groups_.size() - 2].kind == Group::Kind::kField;
  if (word == "field") {
    BeginField(span);
  } else if (word == "fldinst" && inField) {
    group.kind = Group::Kind::kCode;
    group.codeOf = group.field;
    fields_[group.field].code = {star ? star : span.start, span.end};
  } else if (word == "fldrslt" && inField) {
    group.kind = Group::Kind::kResult;
    group.codeOf = FieldPlace::kNone;
    fields_[group.field].result = span;
  } else if (group.kind == Group::Kind::kField &&
             (word == "fldlock" || word == "flddirty" || word == "fldedit" || word == "fldpriv")) {
    fields_[group.field].words.push_back(span);
    fields_[group.field].locked = fields_[group.field].locked || word == "fldlock";
  } else if (word == "formfield" || word == "object") {
    if (group.field != FieldPlace::kNone) places_[group.field].care = FieldCare::kObject;
  }
  if (LeavesBody(word) || (star && word != "fldinst")) {
    group.inBody = false;
    if (star) group.codeOf = FieldPlace::kNone;
  }
}

void RtfReader::BeginField(Span span) {
  Group& group = groups_.back();
  if (group.kind != Group::Kind::kPlain) {  // a group that is two things at once
    places_[group.field].care = FieldCare::kObject;
    return;
  }
  if (group.depth == kDeepestField) RefuseFields("its fields are nested too deeply");
  places_.push_back({.parent = group.field});
  Field& field = fields_.emplace_back();
  field.words = {span};
  field.inBody = group.inBody;
  group.kind = Group::Kind::kField;
  group.field = fields_.size() - 1;
  group.codeOf = FieldPlace::kNone;
  ++group.depth;
}

// Only the first word of a code matters.
void RtfReader::AddCharacter(char character) {
  if (groups_.empty() || groups_.back().codeOf == FieldPlace::kNone) return;
  Field& field = fields_[groups_.back().codeOf];
  if (field.wordEnded || (character == ' ' && field.firstWord.empty())) return;
  field.wordEnded = character == ' ' || character == '"' || character == '\\' || field.firstWord.size() == kLongestWord;
  if (!field.wordEnded) field.firstWord += character;
}

std::string Written(char16_t marker) {
  return "{\\uc1\\u" + std::to_string(static_cast<std::int16_t>(marker)) + "?}";
}

void AddEdits(std::vector<Edit>& edits, const Field& field, const FieldMarkers& markers) {
  for (const Span& word : field.words) edits.push_back({word, {}});
  edits.push_back({field.code, Written(field.locked ? markers.lockedBegin : markers.begin)});
  if (field.result.end > 0) edits.push_back({field.result, Written(markers.separate)});
  edits.push_back({{field.end, field.end}, Written(markers.end)});
}

std::string Edited(std::string_view rtf, std::vector<Edit>& edits) {
  std::sort(edits.begin(), edits.end(), [](const Edit& a, const Edit& b) { return a.span.start < b.span.start; });
  std::string bytes;
  std::size_t at = 0;
  for (const Edit& edit : edits) {
    bytes.append(rtf, at, edit.span.start - at).append(edit.text);
    at = edit.span.end;
  }
  return bytes.append(rtf, at);
}

}  // namespace

std::optional<MarkedText> MarkRtfFields(std::string_view rtf) {
  RtfReader reader(rtf);
  reader.Read();
  MarkedText result;
  result.fields.spoiled = ChooseFields(reader.places());
  result.fields.markers = ChooseMarkers(reader.used(), false);
  std::vector<Edit> edits;
  for (std::size_t i = 0; i < reader.fields().size(); ++i) {
    const Field& field = reader.fields()[i];
    if (!reader.places()[i].marked) continue;
    ++result.fields.count;
    if (field.inBody) ++result.fields.inBody;
    AddEdits(edits, field, result.fields.markers);
  }
  if (result.fields.count == 0 && result.fields.spoiled == 0) return std::nullopt;
  result.bytes = Edited(rtf, edits);
  return result;
}

}  // namespace zorkanca
