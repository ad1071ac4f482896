// The engine's own elements. They stand in trees while a template is prepared for its merge: field_fold makes the ones
// of fields and section_assembly those of sections, story_compiler turns all of them into steps and XML. No document is
// ever saved with one.
//
//   zk:field    in the place of a field's runs: all nodes from its begin to its end, fields among them as zk:field
//               again; the runs of its begin, separate and end characters are its direct children.
//               @type the field's type in upper case, @locked "1" for a field that no merge changes
//               Written as what the field gives.
//   zk:para     in a zk:field that spans paragraphs: one ends, the next begins; its w:pPr is the child.
//               Written as </w:p><w:p>
//   zk:block    there too: a paragraph ends, tables or other blocks follow, which are the children.
//               Written as </w:p> and the blocks
//   zk:open     behind a zk:block: the next paragraph begins; its w:pPr is the child. Written as <w:p>
//   zk:break    in the w:pPr of a copy's last paragraph, round the w:sectPr that ends the copy's section
//   zk:carrier  behind a table, round a paragraph that is there for such a w:sectPr alone
//               Both are written in all copies but the last, which ends in the body's own section.
#pragma once

#include <pugixml.hpp>
#include <string_view>

namespace zorkanca::word::own {

inline constexpr const char* kField = "zk:field";
inline constexpr const char* kParagraph = "zk:para";
inline constexpr const char* kBlock = "zk:block";
inline constexpr const char* kOpen = "zk:open";
inline constexpr const char* kBreak = "zk:break";
inline constexpr const char* kCarrier = "zk:carrier";

/// True for any of them.
inline bool IsOwn(const pugi::xml_node& node) {
  return std::string_view(node.name()).starts_with("zk:");
}

}  // namespace zorkanca::word::own
