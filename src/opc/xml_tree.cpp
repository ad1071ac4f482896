#include "opc/xml_tree.h"

#include <algorithm>
#include <cstddef>

namespace zorkanca {

namespace {

std::ptrdiff_t RankOf(std::span<const std::string_view> order, std::string_view name) {
  return std::find(order.begin(), order.end(), name) - order.begin();
}

// @param rankOf  of an element among its siblings, -1 for one without a place
template <typename Rank>
pugi::xml_node Insert(pugi::xml_node parent, const char* name, std::ptrdiff_t rank, Rank rankOf) {
  for (const pugi::xml_node child : parent.children()) {
    if (child.type() == pugi::node_element && rankOf(child) > rank) return parent.insert_child_before(name, child);
  }
  return parent.append_child(name);
}

}  // namespace

bool IsTrue(std::string_view value) {
  return value == "1" || value == "true" || value == "on";
}

void SetAttribute(pugi::xml_node node, const char* name, const std::string& value) {
  pugi::xml_attribute attribute = node.attribute(name);
  if (!attribute) attribute = node.append_attribute(name);
  attribute.set_value(value.c_str());
}

pugi::xml_node RequireChild(pugi::xml_node parent, const char* name, std::span<const std::string_view> order) {
  if (const pugi::xml_node found = parent.child(name)) return found;
  return Insert(parent, name, RankOf(order, name),
                [&](const pugi::xml_node& child) { return RankOf(order, child.name()); });
}

pugi::xml_node RequireChild(pugi::xml_node parent, const XmlNames& names, XmlSpace space, std::string_view localName,
                            std::span<const std::string_view> order) {
  if (const pugi::xml_node found = names.Child(parent, space, localName)) return found;
  return Insert(parent, names.Qualified(space, localName).c_str(), RankOf(order, localName),
                [&](const pugi::xml_node& child) {
                  return names.SpaceOf(child) == space ? RankOf(order, LocalName(child.name())) : -1;
                });
}

}  // namespace zorkanca
