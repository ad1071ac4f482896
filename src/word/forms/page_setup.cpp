#include "word/forms/page_setup.h"

#include <cmath>
#include <string>

#include "word/xml/word_errors.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

constexpr float kLargest = 1584;  // points: the largest page

pugi::xml_node RequireMargins(pugi::xml_node section) {
  const bool had = static_cast<bool>(section.child("w:pgMar"));
  pugi::xml_node margins = RequireChild(section, "w:pgMar", kSectionOrder);
  if (had) return margins;
  for (const char* side : {"w:top", "w:right", "w:bottom", "w:left"}) SetAttribute(margins, side, "1417");
  for (const char* side : {"w:header", "w:footer"}) SetAttribute(margins, side, "708");
  SetAttribute(margins, "w:gutter", "0");
  return margins;
}

}  // namespace

// The file counts in twentieths of a point.
void SectionMargins::Set(const char* side, float points) {
  if (!(points >= 0 && points <= kLargest)) RaiseWordError(WordError::kOutOfRange, u"Value out of range.");
  const std::string twentieths = std::to_string(std::lround(static_cast<double>(points) * 20));
  for (const pugi::xml_node section : sections_()) SetAttribute(RequireMargins(section), side, twentieths);
  changed_();
}

}  // namespace zorkanca::word
