// XML parts: a strict gate before the tree, because whoever made a template may have made it to hurt.
#pragma once

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "opc/part_sink.h"

namespace zorkanca {

/// Where XML comes from, for errors.
struct XmlSource {
  std::string file;  ///< path of the package
  std::string part;  ///< name of the part
};

/// What a part may ask of us.
struct XmlLimits {
  std::uint32_t depth = 256;        ///< elements inside each other
  std::uint64_t attributes = 4096;  ///< of an element and of all around it: what resolving a prefix may have to look at
  std::uint64_t nodes = 4'000'000;  ///< elements, attributes and texts of a tree: some 60 bytes each
};

/// Makes sure that bytes are well-formed XML in UTF-8 or UTF-16, with all prefixes declared, without document type
/// declaration, within the limits. Needs no memory to speak of.
/// Errors: 5, naming file, part, line and reason.
void RequireSoundXml(std::string_view bytes, const XmlSource& source, const XmlLimits& limits = {});

/// The tree of a part after that check. Blanks of texts are kept ("<w:t> </w:t>"), comments and processing instructions
/// too. Errors: as above.
pugi::xml_document ParseXml(std::string_view bytes, const XmlSource& source, const XmlLimits& limits = {});

/// Writes a tree as UTF-8 without any layout of its own.
void WriteXml(const pugi::xml_node& node, PartSink& sink);
/// The same as a text; with the XML declaration when the node is a document.
std::string XmlBytes(const pugi::xml_node& node);

}  // namespace zorkanca
