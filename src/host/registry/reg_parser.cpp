#include <algorithm>
#include <cstring>

#include "host/registry/reg_format.h"
#include "host/registry/reg_names.h"
#include "runtime/ascii.h"
#include "runtime/utf8.h"
#include "textfiles/utf16.h"

namespace zorkanca {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool IsBlankUnit(char16_t unit) {
  return unit == u' ' || unit == u'\t';
}

TextView WithoutBlanks(TextView text) {
  while (!text.empty() && IsBlankUnit(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlankUnit(text.back())) text.remove_suffix(1);
  return text;
}

int HexDigit(char16_t unit) {
  if (IsDigit(unit)) return unit - u'0';
  if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
  if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
  return -1;
}

// The number that at most eight hexadecimal digits spell.
std::optional<std::uint32_t> HexNumber(TextView digits) {
  if (digits.empty() || digits.size() > 8) return std::nullopt;
  std::uint32_t number = 0;
  for (const char16_t unit : digits) {
    const int digit = HexDigit(unit);
    if (digit < 0) return std::nullopt;
    number = number << 4 | static_cast<std::uint32_t>(digit);
  }
  return number;
}

// Bytes of kinds that have a type of their own become it where they are sound, else they stay bytes.
RegistryValue ValueOfBytes(std::uint32_t type, std::vector<std::byte> bytes) {
  if (type == kRegNumber && bytes.size() == sizeof(std::int32_t)) {
    std::int32_t number = 0;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
  }
  if (type == kRegText && bytes.size() % sizeof(char16_t) == 0) {
    Text text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), bytes.size());
    if (text.ends_with(u'\0')) text.pop_back();
    return text;
  }
  return RawRegistryValue{.type = type, .bytes = std::move(bytes)};
}

class Parser {
 public:
  Parser(TextView text, const Text& origin) : rest_(text), origin_(origin) {}

  std::vector<RegSection> Run() {
    if (!NextLine() || WithoutBlanks(line_) != kRegSignature) {
      Fail(u"this is no registry file; it has to begin with \"Windows Registry Editor Version 5.00\"");
    }
    while (NextLine()) {
      line_ = WithoutBlanks(line_);
      if (line_.empty() || line_.front() == u';') continue;
      if (line_.front() == u'[') {
        ReadKey();
      } else {
        ReadValueLine();
      }
    }
    return std::move(sections_);
  }

 private:
  [[noreturn]] void Fail(TextView reason) const { RaiseRegError(origin_, number_ > 0 ? number_ : 1, reason); }

  bool NextLine() {
    if (rest_.empty()) return false;
    const std::size_t end = rest_.find(u'\n');
    line_ = rest_.substr(0, end);
    rest_.remove_prefix(end == TextView::npos ? rest_.size() : end + 1);
    if (line_.ends_with(u'\r')) line_.remove_suffix(1);
    ++number_;
    return true;
  }

  void ReadKey() {
    const std::size_t end = line_.rfind(u']');  // a key name may hold "]"
    if (end == TextView::npos) Fail(u"\"]\" is missing");
    TextView path = line_.substr(1, end - 1);
    line_.remove_prefix(end + 1);
    RequireEnd();
    const bool deleted = path.starts_with(u'-');
    if (deleted) path.remove_prefix(1);
    sections_.push_back({.path = Text(path), .deleted = deleted, .lines = {}, .lineNumber = number_});
  }

  void ReadValueLine() {
    if (sections_.empty()) Fail(u"a value stands before the first key");
    if (sections_.back().deleted) Fail(u"a value stands under a deleted key");
    RegLine entry;
    if (Accept(u"@")) {
      // the default value: no name
    } else if (Accept(u"\"")) {
      entry.name = ReadQuoted();
    } else {
      Fail(u"neither a key nor a value");
    }
    SkipBlanks();
    if (!Accept(u"=")) Fail(u"\"=\" is missing after the name");
    SkipBlanks();
    if (!Accept(u"-")) entry.value = ReadValue();
    RequireEnd();
    sections_.back().lines.push_back(std::move(entry));
  }

  RegistryValue ReadValue() {
    if (Accept(u"\"")) return ReadQuoted();
    if (Accept(u"dword:")) {
      const std::optional<std::uint32_t> number = HexNumber(TakeWord());
      if (!number) Fail(u"\"dword:\" needs one to eight hexadecimal digits");
      return static_cast<std::int32_t>(*number);
    }
    std::uint32_t type = kRegBinary;
    if (!Accept(u"hex")) Fail(u"a value of an unknown form");
    if (Accept(u"(")) {
      const std::size_t end = line_.find(u')');
      const std::optional<std::uint32_t> number = HexNumber(line_.substr(0, end));
      if (!number || end == TextView::npos) Fail(u"the kind in \"hex( )\" is no hexadecimal number");
      type = *number;
      line_.remove_prefix(end + 1);
    }
    if (!Accept(u":")) Fail(u"\":\" is missing after \"hex\"");
    return ValueOfBytes(type, ReadBytes());
  }

  // The text up to the closing quotation mark; the opening one is taken.
  Text ReadQuoted() {
    Text text;
    for (;;) {
      const std::size_t plain = line_.find_first_of(u"\\\"");
      if (plain == TextView::npos) Fail(u"the closing quotation mark is missing");
      text.append(line_, 0, plain);
      const bool closed = line_[plain] == u'"';
      line_.remove_prefix(plain + 1);
      if (closed) return text;
      if (line_.empty() || (line_.front() != u'\\' && line_.front() != u'"')) {
        Fail(u"\"\\\" stands only before \"\\\" and quotation marks");
      }
      text.push_back(line_.front());
      line_.remove_prefix(1);
    }
  }

  std::vector<std::byte> ReadBytes() {
    std::vector<std::byte> bytes;
    for (;;) {
      SkipBlanks();
      if (Accept(u"\\")) {
        if (!WithoutBlanks(line_).empty()) Fail(u"\"\\\" is not the end of the line");
        if (!NextLine()) Fail(u"the file ends within a value");
        continue;
      }
      if (line_.empty() || line_.front() == u';') return bytes;
      const TextView word = TakeWord();
      const std::optional<std::uint32_t> byte = HexNumber(word);
      if (!byte || word.size() > 2) Fail(u"a byte needs one or two hexadecimal digits");
      bytes.push_back(static_cast<std::byte>(*byte));
      SkipBlanks();
      if (!Accept(u",") && !line_.empty() && line_.front() != u';') Fail(u"\",\" is missing between bytes");
    }
  }

  // The letters and digits that come next.
  TextView TakeWord() {
    const std::size_t end = std::min(line_.find_first_of(u" \t,;\\"), line_.size());
    const TextView word = line_.substr(0, end);
    line_.remove_prefix(end);
    return word;
  }

  bool Accept(TextView start) {
    if (!line_.starts_with(start)) return false;
    line_.remove_prefix(start.size());
    return true;
  }

  void SkipBlanks() {
    while (!line_.empty() && IsBlankUnit(line_.front())) line_.remove_prefix(1);
  }

  void RequireEnd() {
    SkipBlanks();
    if (!line_.empty() && line_.front() != u';') Fail(u"more stands on the line than its value");
  }

  TextView rest_;
  TextView line_;  // what is left of the current line
  int number_ = 0;
  const Text& origin_;
  std::vector<RegSection> sections_;
};

// Line of the first byte that is no UTF-8.
int LineOfBadByte(std::string_view bytes) {
  int number = 1;
  for (;; ++number) {
    const std::size_t end = bytes.find('\n');
    Text line;
    if (!AppendUtf8(line, bytes.substr(0, end)) || end == std::string_view::npos) return number;
    bytes.remove_prefix(end + 1);
  }
}

}  // namespace

std::vector<RegSection> ParseReg(std::string_view bytes, const Text& origin) {
  Text text;
  if (bytes.starts_with(kByteOrderMark)) {
    bytes.remove_prefix(kByteOrderMark.size());
    if (bytes.size() % sizeof(char16_t) != 0) RaiseRegError(origin, 1, u"the file ends within a character");
    text.resize(bytes.size() / sizeof(char16_t));
    std::memcpy(text.data(), bytes.data(), bytes.size());
  } else {
    if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
    if (!AppendUtf8(text, bytes)) RaiseRegError(origin, LineOfBadByte(bytes), u"neither UTF-16 nor UTF-8");
  }
  return Parser(text, origin).Run();
}

}  // namespace zorkanca
