// A scanner of tags: every byte goes on at once but those of attribute values, which are held back until they end or
// are longer than anything to translate. Pieces may end anywhere; nothing grows with the size of the part.
#include "opc/strict_names.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zorkanca {

namespace {

constexpr std::string_view kStrict = "http://purl.oclc.org/ooxml/";
constexpr std::string_view kTransitional = "http://schemas.openxmlformats.org/";
constexpr std::size_t kLongestUri = 256;
constexpr std::size_t kLongestName = 64;

// What the two families spell differently.
constexpr std::array<std::pair<std::string_view, std::string_view>, 2> kRespelt = {
    {{"extendedProperties", "extended-properties"}, {"customProperties", "custom-properties"}}};

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

}  // namespace

std::optional<std::string> TransitionalUri(std::string_view strict) {
  if (!strict.starts_with(kStrict)) return std::nullopt;
  strict.remove_prefix(kStrict.size());
  const std::size_t vocabulary = strict.find('/');  // "drawingml" of "drawingml/main"
  if (vocabulary == strict.npos) return std::nullopt;
  std::string uri(kTransitional);
  uri.append(strict.substr(0, vocabulary)).append("/2006").append(strict.substr(vocabulary));
  const std::size_t last = uri.rfind('/') + 1;
  for (const auto& [from, to] : kRespelt) {
    if (uri.compare(last, uri.npos, from) == 0) uri.replace(last, uri.npos, to);
  }
  return uri;
}

void StrictTranslator::Append(std::string_view bytes) {
  while (!bytes.empty()) {
    if (place_ != Place::kText) {
      Pass(bytes.front());
      bytes.remove_prefix(1);
      continue;
    }
    const std::size_t tag = std::min(bytes.find('<'), bytes.size());
    out_.append(bytes.substr(0, tag));
    bytes.remove_prefix(tag);
    if (bytes.empty()) break;
    out_ += '<';
    bytes.remove_prefix(1);
    place_ = Place::kMarkup;
  }
  take_(out_);
  out_.clear();
}

void StrictTranslator::Finish() {
  take_(value_);
  value_.clear();
}

void StrictTranslator::Pass(char c) {
  switch (place_) {
    case Place::kMarkup:
      place_ = c == '!' || c == '?' ? Place::kBeside : Place::kTag;
      closing_ = c == '?' ? "?>" : "";
      tail_.clear();
      name_.clear();
      if (place_ == Place::kTag) return PassInTag(c);
      break;
    case Place::kTag:
      return PassInTag(c);
    case Place::kValue:
      return PassInValue(c);
    case Place::kBeside:
      if (closing_.empty()) closing_ = c == '-' ? "-->" : c == '[' ? "]]>" : ">";
      tail_ += c;
      if (tail_.ends_with(closing_)) place_ = Place::kText;
      if (tail_.size() > closing_.size()) tail_.erase(0, 1);
      break;
    case Place::kText:
      break;
  }
  out_ += c;
}

void StrictTranslator::PassInTag(char c) {
  out_ += c;
  if (c == '>') {
    place_ = Place::kText;
  } else if (c == '"' || c == '\'') {
    place_ = Place::kValue;
    quote_ = c;
    holding_ = true;
  } else if (IsBlank(c)) {
    name_.clear();
  } else if (name_.size() < kLongestName) {
    name_ += c;
  }
}

void StrictTranslator::PassInValue(char c) {
  if (c == quote_) {
    EndValue();
    out_ += c;
    place_ = Place::kTag;
    name_.clear();
    return;
  }
  if (!holding_) {
    out_ += c;
    return;
  }
  value_ += c;
  if (value_.size() <= kLongestUri) return;
  out_ += std::exchange(value_, {});
  holding_ = false;
}

void StrictTranslator::EndValue() {
  const std::optional<std::string> uri = TransitionalUri(value_);
  const bool conformance = value_ == "strict" && (name_ == "conformance=" || name_.ends_with(":conformance="));
  out_ += uri ? *uri : conformance ? "transitional" : value_;
  value_.clear();
}

}  // namespace zorkanca
