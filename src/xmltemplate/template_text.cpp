#include "xmltemplate/template_text.h"

#include <algorithm>
#include <cstring>

#include "runtime/ascii.h"
#include "runtime/utf8.h"

namespace zorkanca {

bool EqualsIgnoringAsciiCase(TextView left, TextView right) {
  if (left.size() != right.size()) return false;
  const bool isSame = std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0;  // most are
  return isSame || StartsIgnoringCase(left, right);
}

bool StartsIgnoringCase(TextView text, TextView start) {
  if (text.size() < start.size()) return false;
  for (std::size_t index = 0; index < start.size(); ++index) {
    if (AsciiLower(text[index]) != AsciiLower(start[index])) return false;
  }
  return true;
}

// The compiler turns the inner loop into a few instructions.
std::size_t FindUnit(TextView text, char16_t unit, std::size_t from) {
  constexpr std::size_t kBlock = 16;
  for (; from + kBlock <= text.size(); from += kBlock) {
    unsigned found = 0;
    for (std::size_t index = 0; index < kBlock; ++index) found |= text[from + index] == unit ? 1u : 0u;
    if (found != 0) break;
  }
  return text.find(unit, from);
}

// Nearly all that is sought begins with a sign of punctuation: looking for that unit alone passes over most of a text.
std::size_t FindIgnoringCase(TextView text, TextView sought, std::size_t from) {
  if (sought.empty()) return from <= text.size() ? from : TextView::npos;
  const char16_t first = AsciiLower(sought.front());
  const char16_t second = sought.size() > 1 ? AsciiLower(sought[1]) : u'\0';
  const bool isLetter = first >= u'a' && first <= u'z';
  const char16_t firsts[] = {first, static_cast<char16_t>(first - u'a' + u'A')};
  for (std::size_t at = from;; ++at) {
    at = isLetter ? text.find_first_of(firsts, at, 2) : FindUnit(text, first, at);
    if (at == TextView::npos) return at;
    const bool goesOn = sought.size() == 1 || (at + 1 < text.size() && AsciiLower(text[at + 1]) == second);
    if (goesOn && StartsIgnoringCase(text.substr(at), sought)) return at;
  }
}

TextView TrimLeftBlanks(TextView text) {
  while (!text.empty() && IsTemplateBlank(text.front())) text.remove_prefix(1);
  return text;
}

TextView TrimRightBlanks(TextView text) {
  while (!text.empty() && IsTemplateBlank(text.back())) text.remove_suffix(1);
  return text;
}

TextView TrimLeadingBlankLines(TextView text) {
  for (;;) {
    const TextView rest = TrimLeftBlanks(text);
    if (!rest.starts_with(kCrLf)) return text;
    text = rest.substr(kCrLf.size());
  }
}

TextView TrimTrailingBlankLines(TextView text) {
  for (;;) {
    text = TrimRightBlanks(text);
    if (!text.ends_with(kCrLf)) return text;
    text.remove_suffix(kCrLf.size());
  }
}

namespace {

std::ptrdiff_t Offset(std::size_t position) {
  return static_cast<std::ptrdiff_t>(position);
}

bool EndsIgnoringCase(TextView text, TextView end) {
  return text.size() >= end.size() && EqualsIgnoringAsciiCase(text.substr(text.size() - end.size()), end);
}

// Length of the text up to the end of the next closing; the closing may begin with the last units of the opening that
// stands before the text. 0 when there is none.
std::size_t LengthToClosing(TextView text, TextView opening, TextView closing) {
  for (std::size_t shared = closing.size() - 1; shared > 0; --shared) {
    if (EndsIgnoringCase(opening, closing.substr(0, shared)) && StartsIgnoringCase(text, closing.substr(shared))) {
      return closing.size() - shared;
    }
  }
  const std::size_t found = FindIgnoringCase(text, closing);
  return found == TextView::npos ? 0 : found + closing.size();
}

}  // namespace

Text RemoveEnclosed(Text whole, TextView opening, TextView closing) {
  const std::size_t first = FindIgnoringCase(whole, opening);
  if (first == Text::npos) return whole;
  Text kept = whole.substr(0, first);
  TextView text = TextView(whole).substr(first);
  // What is kept never holds a whole opening but the one just completed at its end.
  for (;;) {
    const std::size_t end = text.find(opening.back());
    if (end == TextView::npos) return kept.append(text);
    kept.append(text.substr(0, end + 1));
    text.remove_prefix(end + 1);
    if (!EndsIgnoringCase(kept, opening)) continue;
    const std::size_t length = LengthToClosing(text, opening, closing);
    if (length == 0) return kept.append(text);
    kept.resize(kept.size() - opening.size());
    text.remove_prefix(length);
  }
}

Text RemoveBlankLines(Text text) {
  std::size_t kept = 0;  // units, moved to the start of the text
  const auto keep = [&](std::size_t start, std::size_t end) {
    if (kept != start) std::copy(text.begin() + Offset(start), text.begin() + Offset(end), text.begin() + Offset(kept));
    kept += end - start;
  };
  std::size_t unmoved = 0;
  std::size_t line = 0;
  for (std::size_t end = FindIgnoringCase(text, kCrLf); end != Text::npos; end = FindIgnoringCase(text, kCrLf, line)) {
    const std::size_t next = end + kCrLf.size();
    if (TrimLeftBlanks(TextView(text).substr(line, end - line)).empty()) {
      keep(unmoved, line);
      unmoved = next;
    }
    line = next;
  }
  keep(unmoved, text.size());
  text.resize(kept);
  return text;
}

Text Utf8Encode(TextView text, const CodePage& codePage) {
  Text encoded;
  encoded.reserve(text.size());
  const auto put = [&](char byte) { encoded.push_back(codePage.Decode(static_cast<std::uint8_t>(byte))); };
  for (const char16_t unit : text) EncodeUtf8(unit, put);
  return encoded;
}

}  // namespace zorkanca
