// The part [Content_Types].xml: which kind of content each part is.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zorkanca {

/// The list of kinds. A part's own entry (Override) counts before the one of its extension (Default). Part names and
/// extensions are compared ignoring the case of A to Z.
class ContentTypes {
 public:
  ContentTypes() = default;
  /// @param xml   the bytes of the part
  /// @param file  the package's path, for errors
  /// Errors: 5 for what is not such a list.
  static ContentTypes Parse(std::string_view xml, const std::string& file);

  /// The type of a part, "" when the list has none.
  std::string TypeOf(std::string_view part) const;
  /// Gives a part its own entry; an existing one is changed in place.
  void SetOverride(std::string_view part, std::string_view type);
  /// Gives an extension ("png", without point) its type, unless it has one.
  void AddDefault(std::string_view extension, std::string_view type);
  /// Drops a part's own entry. Its extension's stays.
  void RemoveOverride(std::string_view part);

  std::string ToXml() const;

 private:
  using Entry = std::pair<std::string, std::string>;  // extension or part, type

  std::vector<Entry> defaults_;
  std::vector<Entry> overrides_;
};

}  // namespace zorkanca
