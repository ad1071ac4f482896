#include "cli/document_names.h"

#include <algorithm>

#include "cli/command_line.h"
#include "cli/query_arguments.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

constexpr std::size_t kLongestName = 200;  // bytes of UTF-8; a folder's entry has 255, and a number may follow

bool IsForbidden(char16_t unit) {
  return unit < u' ' || unit == 0x7F || TextView(u"/\\:*?\"<>|").find(unit) != TextView::npos;
}

// What is left when no byte of a character is cut off.
Text CutToFit(const Text& name) {
  std::string bytes = ToUtf8(name);
  if (bytes.size() <= kLongestName) return name;
  std::size_t end = kLongestName;
  while ((static_cast<unsigned char>(bytes[end]) & 0xC0u) == 0x80u) --end;
  return FromUtf8(bytes.substr(0, end));
}

}  // namespace

DocumentNames::DocumentNames(const std::string& pattern) : pattern_(FromUtf8(pattern)) {
  bool inside = false;
  for (const char16_t unit : pattern_) {
    if (unit != u'{' && unit != u'}') continue;
    if (inside == (unit == u'{')) throw UsageError("--name: a column stands in braces, {cislo}, not " + pattern);
    inside = !inside;
  }
  if (inside) throw UsageError("--name: a brace is not closed: " + pattern);
}

std::vector<Text> DocumentNames::ColumnNames() const {
  std::vector<Text> names;
  for (std::size_t at = 0; (at = pattern_.find(u'{', at)) != Text::npos;) {
    const std::size_t end = pattern_.find(u'}', at);
    names.push_back(pattern_.substr(at + 1, end - at - 1));
    at = end;
  }
  return names;
}

Text DocumentNames::Filled(const Columns& columns) const {
  Text name;
  for (std::size_t at = 0; at < pattern_.size();) {
    if (pattern_[at] != u'{') {
      name.push_back(pattern_[at++]);
      continue;
    }
    const std::size_t end = pattern_.find(u'}', at);
    const Text column = pattern_.substr(at + 1, end - at - 1);
    const std::optional<Text> value = columns(column);
    if (!value) Raise(RuntimeError::kItemNotFound, u"--name: the query has no column \"" + column + u"\"");
    name += *value;
    at = end + 1;
  }
  return name;
}

Text DocumentNames::NameOf(std::int64_t number, const Columns& columns, TextView extension) {
  if (pattern_.empty()) return NumberedName(number, extension);
  Text name = Filled(columns);
  std::replace_if(name.begin(), name.end(), IsForbidden, u'_');
  name = CutToFit(Text(Trim(name)));
  if (name.empty()) return NumberedName(number, extension);
  Text unique = name;
  for (int count = 2; !given_.insert(LowerCase(unique)).second; ++count) {
    unique = name + u" (" + DecimalText(count) + u")";
  }
  return unique.append(extension);
}

}  // namespace zorkanca::cli
