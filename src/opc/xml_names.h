// Names of elements and attributes by what they mean, whatever prefix a document chose and whichever of the two
// families of namespaces (transitional, strict) it is written in.
#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace zorkanca {

/// The vocabularies of Office documents. Each stands for its transitional and its strict namespace.
enum class XmlSpace {
  kNone,                  ///< no namespace (most attributes)
  kXml,                   ///< xml:space
  kWord,                  ///< w
  kSheet,                 ///< the main one of workbooks, mostly without prefix
  kRelationships,         ///< r, in documents
  kDrawing,               ///< a
  kPicture,               ///< pic
  kWordDrawing,           ///< wp
  kSheetDrawing,          ///< xdr
  kMath,                  ///< m
  kVml,                   ///< v
  kOffice,                ///< o
  kCompatibility,         ///< mc
  kWord2010,              ///< w14
  kWordShape,             ///< wps
  kSheet2009,             ///< x14
  kContentTypes,          ///< [Content_Types].xml
  kPackageRelationships,  ///< *.rels
  kOther,                 ///< any other
};

/// The transitional namespace of a vocabulary, which all that is written is in; "" for kNone and kOther.
std::string_view NamespaceUri(XmlSpace space);
/// The vocabulary of a namespace.
XmlSpace SpaceOf(std::string_view uri);

/// The prefixes of one document, gathered once from its tree; every question is then a short comparison. A prefix that
/// means different things in different places of a document is looked up each time, so answers are always exact.
class XmlNames {
 public:
  /// @param root  a document or an element; elements outside of it are not known
  explicit XmlNames(const pugi::xml_node& root);

  /// True for an element of this vocabulary and local name: `Is(node, XmlSpace::kWord, "p")`.
  bool Is(const pugi::xml_node& node, XmlSpace space, std::string_view localName) const;
  /// Vocabulary of an element.
  XmlSpace SpaceOf(const pugi::xml_node& node) const;

  /// First child element, next sibling element of that name; null node when there is none.
  pugi::xml_node Child(const pugi::xml_node& node, XmlSpace space, std::string_view localName) const;
  pugi::xml_node NextSibling(const pugi::xml_node& node, XmlSpace space, std::string_view localName) const;
  /// Attribute of a vocabulary: `Attribute(node, XmlSpace::kWord, "val")`; kNone for one without prefix. Null attribute
  /// when there is none.
  pugi::xml_attribute Attribute(const pugi::xml_node& node, XmlSpace space, std::string_view localName) const;

  /// A name for something new in this document: "w:p", or "p" where the vocabulary is the document's default.
  /// A vocabulary that the document doesn't declare gets its usual prefix.
  std::string Qualified(XmlSpace space, std::string_view localName) const;

 private:
  struct Prefix {
    std::string name;  // "" is the default namespace
    XmlSpace space = XmlSpace::kOther;
    bool ambiguous = false;
  };

  void Gather(const pugi::xml_node& node);
  void Learn(std::string_view prefix, std::string_view uri);
  const std::string* KnownPrefix(XmlSpace space) const;
  XmlSpace SpaceOfPrefix(const pugi::xml_node& node, std::string_view prefix) const;

  std::vector<Prefix> prefixes_;
};

/// The part of a name after its prefix.
std::string_view LocalName(std::string_view qualifiedName);

}  // namespace zorkanca
