// The relationships of a package or of a part: which parts and outside places it refers to, under which ids.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorkanca {

/// One relationship.
struct Relationship {
  std::string id;
  std::string type;       ///< URI, in the transitional or the strict family
  std::string target;     ///< as written: relative to the source's folder, absolute ("/..."), or an outside URI
  bool external = false;  ///< TargetMode="External": an outside place, never a part

  /// True when the type is the office type of this last piece ("officeDocument", "header", "image"), transitional or
  /// strict.
  bool Is(std::string_view kind) const;
};

/// The URI of an office relationship type by its last piece: "header" gives ".../relationships/header",
/// in the transitional family: strict packages are translated while they are read.
std::string OfficeRelationshipType(std::string_view kind);

/// The part a target means: "../media/a.png" from "/word/document.xml" is "/media/a.png". Nothing when the target
/// leaves the package. A fragment ("#x") is cut off.
/// @param source  part name, or "/" for the package
std::optional<std::string> ResolveTarget(std::string_view source, std::string_view target);

/// The target that leads from a source to a part: relative, as the office writes it.
std::string RelativeTarget(std::string_view source, std::string_view part);

/// The part that holds the relationships of a source: "/word/_rels/document.xml.rels"; "/_rels/.rels" for "/".
std::string RelationshipsPartOf(std::string_view source);

/// The list of one source, in the order of the file.
class Relationships {
 public:
  /// An empty list.
  /// @param source  part name, or "/" for the package
  explicit Relationships(std::string source) : source_(std::move(source)) {}
  /// @param file  the package's path, for errors
  /// Errors: 5 for what is not such a list, and for an id that occurs twice.
  static Relationships Parse(std::string_view xml, std::string source, const std::string& file);

  const std::string& source() const { return source_; }
  const std::vector<Relationship>& all() const { return all_; }
  bool empty() const { return all_.empty(); }

  /// The relationship of an id (case counts), or null.
  const Relationship* Find(std::string_view id) const;
  /// The first relationship of an office kind, or null: `FirstOf("styles")`.
  const Relationship* FirstOf(std::string_view kind) const;
  /// The part that a relationship leads to; nothing for an external one and for a target that leaves the package.
  std::optional<std::string> PartOf(const Relationship& relationship) const;

  /// Adds a relationship to a part. @return its fresh id
  std::string Add(std::string_view type, std::string_view part);
  /// Adds a relationship to an outside place. @return its fresh id
  std::string AddExternal(std::string_view type, std::string_view target);
  /// Removes a relationship; an unknown id is no error.
  void Remove(std::string_view id);
  /// Changes where a relationship leads, within the package. Errors: 5 for an unknown id.
  void SetPart(std::string_view id, std::string_view part);

  std::string ToXml() const;

 private:
  void Append(Relationship relationship);
  std::string AddTarget(std::string_view type, std::string target, bool external);

  std::string source_;
  std::vector<Relationship> all_;
  std::size_t lastId_ = 0;  // highest number of an id "rId..." ever in the list
};

}  // namespace zorkanca
