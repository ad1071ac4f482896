// How copies are set apart from each other.
#pragma once

#include <pugixml.hpp>

namespace zorkanca::word {

/// Makes each copy of a body end with a section: the body's own w:sectPr goes into its last paragraph as a zk:break, or
/// into a paragraph of its own behind a table (zk:carrier). Each copy begins on a new page.
/// @param restartPages  each copy counts its pages from 1
void SeparateCopies(pugi::xml_node body, bool restartPages);

}  // namespace zorkanca::word
