#include "tabular/json_parser.h"

#include "runtime/ascii.h"
#include "runtime/utf8.h"
#include "tabular/file_limits.h"

namespace zorkanca {

namespace {

constexpr bool IsJsonBlank(char byte) {
  return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
}

// The value of a hexadecimal digit, 16 of any other character.
constexpr char16_t HexDigit(char byte) {
  if (IsDigit(byte)) return static_cast<char16_t>(byte - '0');
  if (byte >= 'a' && byte <= 'f') return static_cast<char16_t>(byte - 'a' + 10);
  if (byte >= 'A' && byte <= 'F') return static_cast<char16_t>(byte - 'A' + 10);
  return 16;
}

// Four digits that are known to be some.
char16_t UnitOf(std::string_view digits) {
  char16_t unit = 0;
  for (const char digit : digits.substr(0, 4)) unit = static_cast<char16_t>(unit << 4 | HexDigit(digit));
  return unit;
}

constexpr char EscapedCharacter(char letter) {
  switch (letter) {
    case 'b':
      return '\b';
    case 'f':
      return '\f';
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    default:
      return letter;
  }
}

}  // namespace

void JsonParser::SkipBlanks() {
  while (next_ < text_.size() && IsJsonBlank(text_[next_])) ++next_;
}

bool JsonParser::Take(char byte) {
  if (next_ == text_.size() || text_[next_] != byte) return false;
  ++next_;
  return true;
}

void JsonParser::Require(char byte, const char16_t* reason) {
  if (next_ == text_.size()) Fail(u"the file ends inside an object");
  if (!Take(byte)) Fail(reason);
}

const std::vector<JsonMember>& JsonParser::Parse(std::string_view object) {
  text_ = object;
  next_ = 1;
  members_.clear();
  room_.clear();
  room_.reserve(object.size());
  SkipBlanks();
  if (Take('}')) return members_;
  do {
    ParseMember();
    SkipBlanks();
  } while (Take(','));
  Require('}', u"\",\" or \"}\" is expected");
  return members_;
}

void JsonParser::ParseMember() {
  SkipBlanks();
  const std::size_t start = next_;
  Require('"', u"a name in quotation marks is expected");
  bool hasEscapes = false;
  std::string_view name = TakeText(hasEscapes);
  if (hasEscapes) name = Decoded(name, start);
  SkipBlanks();
  Require(':', u"\":\" is expected");
  SkipBlanks();
  const std::size_t offset = next_;
  members_.push_back({.name = name, .value = ParseValue(), .offset = offset});
}

Cell JsonParser::ParseValue() {
  const std::size_t start = next_;
  if (Take('"')) {
    bool hasEscapes = false;
    const std::string_view raw = TakeText(hasEscapes);
    return {.kind = CellKind::kText, .text = hasEscapes ? Decoded(raw, start) : raw};
  }
  if (Current() == '{' || Current() == '[') {
    const std::size_t room = room_.size();
    Compact(1);
    return {.kind = CellKind::kJson, .text = std::string_view(room_).substr(room)};
  }
  if (TakeWord("null")) return {};
  if (TakeWord("true") || TakeWord("false")) {
    return {.kind = CellKind::kBoolean, .text = text_.substr(start, next_ - start)};
  }
  return {.kind = CellKind::kNumber, .text = TakeNumber()};
}

bool JsonParser::TakeWord(std::string_view word) {
  if (!text_.substr(next_).starts_with(word)) return false;
  next_ += word.size();
  return true;
}

void JsonParser::TakeDigits() {
  if (!IsDigit(Current())) Fail(u"a digit is expected");
  while (IsDigit(Current())) ++next_;
}

std::string_view JsonParser::TakeNumber() {
  const std::size_t start = next_;
  if (next_ == text_.size()) Fail(u"the file ends inside an object");
  if (!Take('-') && !IsDigit(Current())) {
    Fail(u"a value is expected: a text in quotation marks, a number, true, false, null, an array or an object");
  }
  if (!Take('0')) TakeDigits();
  if (IsDigit(Current())) Fail(u"a number has no 0 before its digits");
  if (Take('.')) TakeDigits();
  if (Take('e') || Take('E')) {
    if (!Take('+')) Take('-');
    TakeDigits();
  }
  return text_.substr(start, next_ - start);
}

// Behind the opening mark; checks all there is to check. @return what stands between the marks
std::string_view JsonParser::TakeText(bool& hasEscapes) {
  const std::size_t start = next_;
  for (;; ++next_) {
    if (next_ == text_.size()) Fail(u"the file ends inside a text");
    const char byte = text_[next_];
    if (byte == '"') break;
    if (static_cast<unsigned char>(byte) < 0x20) {
      Fail(u"a control character stands in a text; there it is written \\n, \\t or \\u and four digits");
    }
    if (byte != '\\') continue;
    hasEscapes = true;
    CheckEscape();
  }
  ++next_;
  return text_.substr(start, next_ - 1 - start);
}

// From "\" to the last character that it escapes.
void JsonParser::CheckEscape() {
  const std::size_t start = next_++;
  if (Current() != 'u') {
    if (std::string_view("\"\\/bfnrt").find(Current()) == std::string_view::npos || next_ == text_.size()) {
      --next_;
      Fail(u"no character is written so; \"\\\" itself is \"\\\\\"");
    }
    return;
  }
  const char16_t unit = TakeUnit();
  if (!IsHighSurrogate(unit) && !IsLowSurrogate(unit)) return;
  if (IsHighSurrogate(unit) && text_.substr(next_ + 1).starts_with("\\u")) {
    next_ += 2;
    if (IsLowSurrogate(TakeUnit())) return;
  }
  next_ = start;
  Fail(u"half of a character stands alone: a surrogate without the other one");
}

// From "u" to the last of its four digits.
char16_t JsonParser::TakeUnit() {
  char16_t unit = 0;
  for (int digits = 0; digits < 4; ++digits) {
    ++next_;
    const char16_t digit = HexDigit(Current());
    if (digit > 15) Fail(u"four hexadecimal digits are expected after \\u");
    unit = static_cast<char16_t>(unit << 4 | digit);
  }
  return unit;
}

// @param raw  was checked
std::string_view JsonParser::Decoded(std::string_view raw, std::size_t offset) {
  const std::size_t start = room_.size();
  while (!raw.empty()) {
    const std::size_t escape = raw.find('\\');
    room_.append(raw.substr(0, escape));
    if (escape == std::string_view::npos) break;
    const char letter = raw[escape + 1];
    raw.remove_prefix(escape + 2);
    if (letter != 'u') {
      room_.push_back(EscapedCharacter(letter));
      continue;
    }
    char32_t character = UnitOf(raw);
    raw.remove_prefix(4);
    if (character == 0) throw faults_.FaultIn(offset, u"a NUL character stands in the text");
    if (character >= 0xD800 && character < 0xDC00) {
      character = CharacterOf(static_cast<char16_t>(character), UnitOf(raw.substr(2)));
      raw.remove_prefix(6);
    }
    AppendCharacterAsUtf8(room_, character);
  }
  return std::string_view(room_).substr(start);
}

// A value of any kind, copied without the blanks between its parts.
void JsonParser::Compact(std::size_t depth) {
  if (depth > kDeepestNesting) Fail(DeepestNestingText());
  if (Current() == '{' || Current() == '[') {
    const bool named = Current() == '{';
    room_.push_back(Current());
    ++next_;
    return CompactItems(depth, named ? '}' : ']', named);
  }
  const std::size_t start = next_;
  if (Take('"')) {
    bool hasEscapes = false;
    TakeText(hasEscapes);
  } else if (!TakeWord("null") && !TakeWord("true") && !TakeWord("false")) {
    TakeNumber();
  }
  room_.append(text_.substr(start, next_ - start));
}

void JsonParser::CompactItems(std::size_t depth, char closing, bool named) {
  SkipBlanks();
  bool isFirst = true;
  while (!(isFirst && Current() == closing)) {
    SkipBlanks();
    if (named) {
      const std::size_t start = next_;
      Require('"', u"a name in quotation marks is expected");
      bool hasEscapes = false;
      TakeText(hasEscapes);
      room_.append(text_.substr(start, next_ - start));
      SkipBlanks();
      Require(':', u"\":\" is expected");
      room_.push_back(':');
      SkipBlanks();
    }
    Compact(depth + 1);
    SkipBlanks();
    isFirst = false;
    if (!Take(',')) break;
    room_.push_back(',');
  }
  Require(closing, named ? u"\",\" or \"}\" is expected" : u"\",\" or \"]\" is expected");
  room_.push_back(closing);
}

}  // namespace zorkanca
