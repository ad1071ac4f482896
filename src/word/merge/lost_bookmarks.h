// Bookmarks that went with deleted text, and what refers to them. When a block is to stand in one copy alone, the
// others lose its bookmarks; what refers to them there means those of the copy that kept the block.
#pragma once

#include <functional>
#include <map>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <vector>

#include "word/merge/program.h"
#include "word/text/position_set.h"
#include "word/text/story_map.h"

namespace zorkanca::word {

/// The bookmarks of a tree whose text, of which there is some, is among the positions, by name.
std::set<std::string> LostBookmarks(const pugi::xml_node& body, const StoryMap& map, const PositionSet& gone);
/// The same; takes their marks out of the tree.
std::set<std::string> RemoveLostBookmarks(pugi::xml_node body, const StoryMap& map, const PositionSet& gone);

/// Gives the codes of fields and the links of a tree other names of bookmarks.
/// @param names  new ones by old ones
void RenameReferences(pugi::xml_node tree, const std::map<std::string, std::string>& names);

/// Where the bookmarks that copies lost are kept: in the first copy or in the last one.
class BookmarkKeepers {
 public:
  /// @param lostIn  the names of the bookmarks that a copy lost
  /// @param warn    told in English of bookmarks that nobody kept; may be empty
  BookmarkKeepers(const std::vector<NameStep>& bookmarks, std::size_t copies,
                  std::function<std::set<std::string>(std::size_t)> lostIn, const std::function<void(TextView)>& warn);

  /// New names for references in a copy that lost bookmarks.
  std::map<std::string, std::string> NamesFor(std::size_t copy, const std::set<std::string>& lost);

 private:
  bool Keeps(std::size_t copy, const NameStep& bookmark);

  const std::vector<NameStep>& bookmarks_;
  std::size_t copies_;
  std::function<std::set<std::string>(std::size_t)> lostIn_;
  const std::function<void(TextView)>& warn_;
  std::map<std::size_t, std::set<std::string>> lost_;  // of the first and the last copy
  std::set<std::string> warned_;
};

}  // namespace zorkanca::word
