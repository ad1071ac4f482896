// Small steps over the tree of a part that every engine takes.
#pragma once

#include <pugixml.hpp>
#include <span>
#include <string>
#include <string_view>

#include "opc/xml_names.h"

namespace zorkanca {

/// The value of a switch: true for "1", "true" and "on".
bool IsTrue(std::string_view value);

/// Sets an attribute, adding it when it is missing.
void SetAttribute(pugi::xml_node node, const char* name, const std::string& value);

/// The child of this name, made at its place of the schema when it is missing. Names are compared as they are written;
/// children that the order doesn't know come last.
/// @param order  names of the parent's children in the order of the schema
pugi::xml_node RequireChild(pugi::xml_node parent, const char* name, std::span<const std::string_view> order);
/// The same for the local names of a vocabulary; children of others have no place and are passed over.
pugi::xml_node RequireChild(pugi::xml_node parent, const XmlNames& names, XmlSpace space, std::string_view localName,
                            std::span<const std::string_view> order);

}  // namespace zorkanca
