#include "xmltemplate/start_tags.h"

#include <algorithm>

#include "xmltemplate/template_text.h"

namespace zorkanca {

namespace {

// What the tag tells of an attribute.
struct FoundAttribute {
  bool isPresent = false;          // its name stands there, followed by "="
  std::optional<TextRange> value;  // between the quotes; nothing when they are missing
};

FoundAttribute FindAttribute(TextView tag, TextView name) {
  // Names are the client's: unlike the rest of a template, they may hold any letters.
  const std::size_t found = LowerCase(tag).find(u" " + LowerCase(name));
  if (found == TextView::npos) return {};
  const TextView rest = TrimLeftBlanks(tag.substr(found + 1 + name.size()));
  if (!rest.starts_with(u'=')) return {};
  const std::size_t opening = tag.find(u'"', tag.size() - rest.size());
  const std::size_t closing = opening == TextView::npos ? opening : tag.find(u'"', opening + 1);
  if (closing == TextView::npos) return {.isPresent = true, .value = {}};
  return {.isPresent = true, .value = TextRange{opening + 1, closing}};
}

std::size_t PlaceOfNewAttribute(TextView tag) {
  for (const char16_t unit : {u' ', u'/', u'>'}) {
    const std::size_t found = tag.find(unit);
    if (found != TextView::npos) return found;
  }
  return tag.size();
}

}  // namespace

std::optional<TextRange> FindNextStartTag(TextView text, TextView element, std::size_t from) {
  const Text start = u"<" + Text(element);
  for (std::size_t at = from;; ++at) {
    at = FindIgnoringCase(text, start, at);
    if (at == TextView::npos) return std::nullopt;
    const TextView rest = text.substr(at + start.size());
    if (!rest.starts_with(u' ') && !rest.starts_with(u'>')) continue;
    const std::size_t end = text.find(u'>', at);
    return end == TextView::npos ? std::nullopt : std::optional(TextRange{at, end + 1});
  }
}

Text GetAttribute(TextView tag, TextView name) {
  const auto value = FindAttribute(tag, name).value;
  return value ? Text(tag.substr(value->start, value->end - value->start)) : Text();
}

Text SetAttribute(TextView tag, TextView name, TextView value) {
  const FoundAttribute attribute = FindAttribute(tag, name);
  Text changed(tag);
  if (attribute.value) {
    changed.replace(attribute.value->start, attribute.value->end - attribute.value->start, value);
  } else if (!attribute.isPresent) {
    changed.insert(PlaceOfNewAttribute(tag), Text(u" ").append(name).append(u"=\"").append(value).append(u"\""));
  }
  return changed;
}

}  // namespace zorkanca
