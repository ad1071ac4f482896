#include "word/merge/inherited_headers.h"

#include <algorithm>
#include <array>
#include <string>

#include "opc/relationships.h"
#include "opc/xml_names.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

struct Kind {
  const char* reference;
  const char* root;
  const char* relationship;
};
constexpr std::array<Kind, 2> kKinds = {
    {{"w:headerReference", "w:hdr", "header"}, {"w:footerReference", "w:ftr", "footer"}}};
constexpr std::array<const char*, 3> kTypes = {"default", "first", "even"};

pugi::xml_node ReferenceOf(const pugi::xml_node& section, const Kind& kind, std::string_view type) {
  return section.find_child([&](const pugi::xml_node& child) {
    return Is(child, kind.reference) && child.attribute("w:type").as_string("default") == type;
  });
}

// A header without anything, as low as a paragraph can be, so that it moves no text.
// @return its relationship id
std::string AddEmptyPart(WordPackage& package, const Kind& kind) {
  const std::string name(kind.relationship);
  const std::string root(kind.root);
  const std::string part = package.package().FreshPartName("/word/" + name + "#.xml");
  package.package().AddPart(part, "application/vnd.openxmlformats-officedocument.wordprocessingml." + name + "+xml",
                            "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<" + root + " xmlns:w=\"" +
                                std::string(NamespaceUri(XmlSpace::kWord)) +
                                "\"><w:p><w:pPr><w:spacing w:before=\"0\" w:after=\"0\" w:line=\"20\" "
                                "w:lineRule=\"exact\"/></w:pPr></w:p></" +
                                root + ">");
  Relationships relationships = package.package().RelationshipsOf(package.mainPart());
  const std::string id = relationships.Add(OfficeRelationshipType(name), part);
  package.package().SetRelationships(relationships);
  return id;
}

}  // namespace

void NameInheritedHeaders(WordPackage& package, const std::vector<pugi::xml_node>& sections) {
  for (const Kind& kind : kKinds) {
    std::string emptyId;  // one part serves all types
    for (const char* type : kTypes) {
      const auto named = [&](const pugi::xml_node& section) { return ReferenceOf(section, kind, type); };
      if (std::none_of(sections.begin(), sections.end(), named)) continue;
      if (!named(sections.front())) {
        if (emptyId.empty()) emptyId = AddEmptyPart(package, kind);
        pugi::xml_node reference = pugi::xml_node(sections.front()).prepend_child(kind.reference);
        SetAttribute(reference, "w:type", type);
        SetAttribute(reference, "r:id", emptyId);
      }
      for (std::size_t i = 1; i < sections.size(); ++i) {
        if (!named(sections[i])) pugi::xml_node(sections[i]).prepend_copy(named(sections[i - 1]));
      }
    }
  }
}

}  // namespace zorkanca::word
