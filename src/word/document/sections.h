// The sections of a main text in the order of the document.
#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "word/document/document_content.h"

namespace zorkanca::word {

/// The w:sectPr elements; the last one is the body's own.
std::vector<pugi::xml_node> SectionsOf(const pugi::xml_node& body);
/// The body's own w:sectPr, made when it is missing.
pugi::xml_node RequireFinalSection(pugi::xml_node body);

/// Relationship id of a section's primary header or footer: its own, else that of the nearest section before it.
/// @param section  index in the list
/// @return "" when there is none
std::string PrimaryHeaderId(const std::vector<pugi::xml_node>& sections, std::size_t section, HeaderKind kind);

}  // namespace zorkanca::word
