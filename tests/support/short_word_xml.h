// WordprocessingML in a line: tables of trees before and after something was done to them.
//
//   (ab)            a run with this text             <w:r><w:t>ab</w:t></w:r>
//   {PAGE}          a run of a field's code          <w:r><w:instrText>PAGE</w:instrText></w:r>
//   [b] [s] [e]     the characters of a field        <w:r><w:fldChar w:fldCharType="begin"/></w:r> ...
//   <p id="1">      elements and attributes without their prefix "w:"
//
// Blanks of texts are always kept, so that xml:space does not show.
#pragma once

#include <regex>
#include <string>

#include "opc/xml_document.h"

namespace zorkanca::testing {

inline std::string FromShortXml(std::string xml) {
  const auto replace = [&](const char* pattern, const char* by) {
    xml = std::regex_replace(xml, std::regex(pattern), by);
  };
  replace(R"(\(([^)]*)\))", R"(<r><t>$1</t></r>)");
  replace(R"(\{([^}]*)\})", R"(<r><instrText>$1</instrText></r>)");
  replace(R"(\[b\])", R"(<r><fldChar fldCharType="begin"/></r>)");
  replace(R"(\[s\])", R"(<r><fldChar fldCharType="separate"/></r>)");
  replace(R"(\[e\])", R"(<r><fldChar fldCharType="end"/></r>)");
  replace(R"( (\w+)=")", R"( w:$1=")");
  replace(R"((</?)(\w+)(?![\w:]))", R"($1w:$2)");
  replace(R"(<w:(t|instrText)>)", R"(<w:$1 xml:space="preserve">)");
  return xml;
}

inline std::string ToShortXml(std::string xml) {
  const auto replace = [&](const char* pattern, const char* by) {
    xml = std::regex_replace(xml, std::regex(pattern), by);
  };
  replace(R"( xml:space="preserve")", "");
  replace(R"((</?| )w:)", "$1");
  replace(R"(<r><t>([^<]*)</t></r>)", "($1)");
  replace(R"(<r><instrText>([^<]*)</instrText></r>)", "{$1}");
  replace(R"(<r><fldChar fldCharType="(.)\w*"/></r>)", "[$1]");
  return xml;
}

/// The tree of a body, or of another element of the vocabulary.
inline pugi::xml_document ShortXmlTree(const std::string& inside, const std::string& root = "body") {
  const std::string tag = "w:" + root;
  return ParseXml("<" + tag +
                      " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\""
                      " xmlns:w14=\"http://schemas.microsoft.com/office/word/2010/wordml\">" +
                      FromShortXml(inside) + "</" + tag + ">",
                  {"row", "tree"});
}

/// The inside of the root.
inline std::string InsideOf(const pugi::xml_document& document) {
  std::string xml;
  for (const pugi::xml_node child : document.document_element().children()) xml += XmlBytes(child);
  return ToShortXml(xml);
}

}  // namespace zorkanca::testing
