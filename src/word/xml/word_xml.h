// Small helpers over the tree of a WordprocessingML part. Every part passes `UseUsualPrefixes` once, so that the rest
// of the engine can compare names as they are usually written ("w:p").
#pragma once

#include <pugixml.hpp>
#include <span>
#include <string>
#include <string_view>

#include "opc/xml_tree.h"
#include "runtime/text.h"

namespace zorkanca::word {

/// True for an element of this name.
inline bool Is(const pugi::xml_node& node, std::string_view name) {
  return name == node.name();
}

/// Renames elements and attributes so that the vocabularies the engine looks at carry their usual prefixes
/// (w, r, mc, wp, w14, v). Documents that use them already are left alone.
/// Errors: 5 when a document binds a usual prefix to something else beside the vocabulary it stands for.
void UseUsualPrefixes(pugi::xml_document& document, const std::string& file);

/// Takes out what carries no meaning between elements, so that all looking for neighbours finds elements: white space
/// outside of the elements that hold text, comments, processing instructions.
void DropLayout(pugi::xml_document& document);

/// The value of a switch: absent attribute or "1", "true", "on" mean on.
bool IsOn(const pugi::xml_attribute& value);
/// True when the parent has this child and its w:val is on.
bool HasProperty(const pugi::xml_node& parent, const char* name);

/// True for elements that hold runs inside a paragraph (w:hyperlink, w:ins, w:smartTag, ...).
bool IsInlineWrapper(const pugi::xml_node& node);
/// True for elements that hold paragraphs and tables beside those around them (w:sdt, w:customXml, w:ins, ...).
bool IsBlockWrapper(const pugi::xml_node& node);
/// True for marks of places (bookmarks, comment and permission ranges) that must outlive the text round them.
bool IsRangeMark(const pugi::xml_node& node);
/// The next sibling element that is no range mark.
pugi::xml_node NextBlock(const pugi::xml_node& node);
/// The element that really holds the content: w:sdtContent of a w:sdt, the node itself otherwise.
pugi::xml_node ContentOf(const pugi::xml_node& wrapper);

/// All of the text inside a w:t, w:instrText or w:delText, UTF-8.
std::string TextOf(const pugi::xml_node& node);
/// Replaces the text of a w:t; blanks at its ends are kept.
void SetTextOf(pugi::xml_node node, const std::string& utf8);

/// The order of children of w:pPr, of w:sectPr and of w:settings as far as the engine adds any.
extern const std::span<const std::string_view> kParagraphPropertyOrder;
extern const std::span<const std::string_view> kSectionOrder;
extern const std::span<const std::string_view> kSettingsOrder;

}  // namespace zorkanca::word
