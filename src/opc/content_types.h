// The part [Content_Types].xml: which kind of content each part is.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
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
  /// @return true when that changed the list
  bool AddDefault(std::string_view extension, std::string_view type);
  /// Drops a part's own entry. Its extension's stays. @return true when that changed the list
  bool RemoveOverride(std::string_view part);

  std::string ToXml() const;

 private:
  // Types by extension or by part, in the order of the file. A removed entry has no type.
  struct List {
    struct Entry {
      std::string key;
      std::string type;
    };
    const Entry* Find(std::string_view key) const;
    void Set(std::string_view key, std::string_view type);

    std::vector<Entry> entries;
    std::unordered_map<std::string, std::size_t> index;  // lower-case key -> entry
  };

  List defaults_;
  List overrides_;
};

}  // namespace zorkanca
