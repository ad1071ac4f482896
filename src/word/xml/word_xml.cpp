#include "word/xml/word_xml.h"

#include <algorithm>
#include <array>

namespace zorkanca::word {

namespace {

// ECMA-376 part 1, 17.3.1.26: children of w:pPr.
constexpr std::array<std::string_view, 36> kParagraphProperties = {"w:pStyle",
                                                                   "w:keepNext",
                                                                   "w:keepLines",
                                                                   "w:pageBreakBefore",
                                                                   "w:framePr",
                                                                   "w:widowControl",
                                                                   "w:numPr",
                                                                   "w:suppressLineNumbers",
                                                                   "w:pBdr",
                                                                   "w:shd",
                                                                   "w:tabs",
                                                                   "w:suppressAutoHyphens",
                                                                   "w:kinsoku",
                                                                   "w:wordWrap",
                                                                   "w:overflowPunct",
                                                                   "w:topLinePunct",
                                                                   "w:autoSpaceDE",
                                                                   "w:autoSpaceDN",
                                                                   "w:bidi",
                                                                   "w:adjustRightInd",
                                                                   "w:snapToGrid",
                                                                   "w:spacing",
                                                                   "w:ind",
                                                                   "w:contextualSpacing",
                                                                   "w:mirrorIndents",
                                                                   "w:suppressOverlap",
                                                                   "w:jc",
                                                                   "w:textDirection",
                                                                   "w:textAlignment",
                                                                   "w:textboxTightWrap",
                                                                   "w:outlineLvl",
                                                                   "w:divId",
                                                                   "w:cnfStyle",
                                                                   "w:rPr",
                                                                   "w:sectPr",
                                                                   "w:pPrChange"};

// 17.6.17: children of w:sectPr.
constexpr std::array<std::string_view, 22> kSection = {
    "w:headerReference", "w:footerReference", "w:footnotePr",      "w:endnotePr",   "w:type",          "w:pgSz",
    "w:pgMar",           "w:paperSrc",        "w:pgBorders",       "w:lnNumType",   "w:pgNumType",     "w:cols",
    "w:formProt",        "w:vAlign",          "w:noEndnote",       "w:titlePg",     "w:textDirection", "w:bidi",
    "w:rtlGutter",       "w:docGrid",         "w:printerSettings", "w:sectPrChange"};

// 17.15.1.78: children of w:settings up to w:documentProtection.
constexpr std::array<std::string_view, 35> kSettings = {"w:writeProtection",
                                                        "w:view",
                                                        "w:zoom",
                                                        "w:removePersonalInformation",
                                                        "w:removeDateAndTime",
                                                        "w:doNotDisplayPageBoundaries",
                                                        "w:displayBackgroundShape",
                                                        "w:printPostScriptOverText",
                                                        "w:printFractionalCharacterWidth",
                                                        "w:printFormsData",
                                                        "w:embedTrueTypeFonts",
                                                        "w:embedSystemFonts",
                                                        "w:saveSubsetFonts",
                                                        "w:saveFormsData",
                                                        "w:mirrorMargins",
                                                        "w:alignBordersAndEdges",
                                                        "w:bordersDoNotSurroundHeader",
                                                        "w:bordersDoNotSurroundFooter",
                                                        "w:gutterAtTop",
                                                        "w:hideSpellingErrors",
                                                        "w:hideGrammaticalErrors",
                                                        "w:activeWritingStyle",
                                                        "w:proofState",
                                                        "w:formsDesign",
                                                        "w:attachedTemplate",
                                                        "w:linkStyles",
                                                        "w:stylePaneFormatFilter",
                                                        "w:stylePaneSortMethod",
                                                        "w:documentType",
                                                        "w:mailMerge",
                                                        "w:revisionView",
                                                        "w:trackRevisions",
                                                        "w:doNotTrackMoves",
                                                        "w:doNotTrackFormatting",
                                                        "w:documentProtection"};

template <std::size_t N>
bool IsOneOf(const pugi::xml_node& node, const std::array<std::string_view, N>& names) {
  return std::find(names.begin(), names.end(), std::string_view(node.name())) != names.end();
}

}  // namespace

const std::span<const std::string_view> kParagraphPropertyOrder(kParagraphProperties);
const std::span<const std::string_view> kSectionOrder(kSection);
const std::span<const std::string_view> kSettingsOrder(kSettings);

bool IsOn(const pugi::xml_attribute& value) {
  return !value || IsTrue(value.value());
}

bool HasProperty(const pugi::xml_node& parent, const char* name) {
  const pugi::xml_node child = parent.child(name);
  return child && IsOn(child.attribute("w:val"));
}

bool IsInlineWrapper(const pugi::xml_node& node) {
  static constexpr std::array<std::string_view, 9> kNames = {
      "w:hyperlink", "w:ins", "w:smartTag", "w:sdt", "w:customXml", "w:moveTo", "w:dir", "w:fldSimple", "w:bdo"};
  return IsOneOf(node, kNames);
}

bool IsBlockWrapper(const pugi::xml_node& node) {
  static constexpr std::array<std::string_view, 4> kNames = {"w:sdt", "w:customXml", "w:ins", "w:moveTo"};
  return IsOneOf(node, kNames);
}

bool IsRangeMark(const pugi::xml_node& node) {
  static constexpr std::array<std::string_view, 14> kNames = {"w:bookmarkStart",
                                                              "w:bookmarkEnd",
                                                              "w:commentRangeStart",
                                                              "w:commentRangeEnd",
                                                              "w:permStart",
                                                              "w:permEnd",
                                                              "w:moveFromRangeStart",
                                                              "w:moveFromRangeEnd",
                                                              "w:moveToRangeStart",
                                                              "w:moveToRangeEnd",
                                                              "w:customXmlInsRangeStart",
                                                              "w:customXmlInsRangeEnd",
                                                              "w:customXmlDelRangeStart",
                                                              "w:customXmlDelRangeEnd"};
  return IsOneOf(node, kNames);
}

pugi::xml_node NextBlock(const pugi::xml_node& node) {
  pugi::xml_node next = node.next_sibling();
  while (next && (next.type() != pugi::node_element || IsRangeMark(next) || Is(next, "w:proofErr"))) {
    next = next.next_sibling();
  }
  return next;
}

pugi::xml_node ContentOf(const pugi::xml_node& wrapper) {
  return Is(wrapper, "w:sdt") ? wrapper.child("w:sdtContent") : wrapper;
}

std::string TextOf(const pugi::xml_node& node) {
  std::string text;
  for (const pugi::xml_node child : node.children()) text += child.value();
  return text;
}

void SetTextOf(pugi::xml_node node, const std::string& utf8) {
  node.remove_children();
  node.append_child(pugi::node_pcdata).set_value(utf8.c_str());
  SetAttribute(node, "xml:space", "preserve");
}

}  // namespace zorkanca::word
