// Whether a bookmark has lost its text is found in one walk through the tree in step with the pieces of its text: the
// bookmark spans the pieces between its two marks.
#include "word/merge/lost_bookmarks.h"

#include <algorithm>

#include "runtime/utf8.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

struct Marks {
  pugi::xml_node start;
  pugi::xml_node end;
};

class Finder {
 public:
  Finder(const StoryMap& map, const PositionSet& gone) : map_(map), gone_(gone) {}

  std::vector<Marks> Find(const pugi::xml_node& body) {
    Visit(body);
    return std::move(found_);
  }

 private:
  struct Open {
    pugi::xml_node start;
    std::size_t piece = 0;  // the first one inside
  };

  void Visit(const pugi::xml_node& node) {
    if (piece_ < map_.pieces().size() && node == map_.pieces()[piece_].node) {
      if (!gone_.Covers(map_.pieces()[piece_].range)) lastKept_ = piece_ + 1;
      ++piece_;
    } else if (Is(node, "w:bookmarkStart")) {
      open_[node.attribute("w:id").value()] = {node, piece_};
    } else if (Is(node, "w:bookmarkEnd")) {
      Close(node);
    }
    for (const pugi::xml_node child : node.children()) Visit(child);
  }

  void Close(const pugi::xml_node& end) {
    const auto open = open_.find(end.attribute("w:id").value());
    if (open == open_.end()) return;
    const bool allGone = open->second.piece < piece_ && lastKept_ <= open->second.piece;
    if (allGone) found_.push_back({open->second.start, end});
    open_.erase(open);
  }

  const StoryMap& map_;
  const PositionSet& gone_;
  std::map<std::string, Open> open_;  // by w:id
  std::size_t piece_ = 0;             // the next one
  std::size_t lastKept_ = 0;          // behind the last one that stays
  std::vector<Marks> found_;
};

std::string NameOf(const Marks& marks) {
  return marks.start.attribute("w:name").value();
}

// @return whether anything changed
bool RenameInCode(std::string& code, const std::map<std::string, std::string>& names) {
  constexpr std::string_view kEnds = " \"\\";
  std::string renamed;
  bool changed = false;
  for (std::size_t start = 0; start < code.size();) {
    const std::size_t word = std::min(code.find_first_not_of(kEnds, start), code.size());
    const std::size_t end = std::min(code.find_first_of(kEnds, word), code.size());
    const std::string name = code.substr(word, end - word);
    const auto other = names.find(name);
    renamed.append(code, start, word - start).append(other == names.end() ? name : other->second);
    changed = changed || other != names.end();
    start = end;
  }
  if (changed) code = std::move(renamed);
  return changed;
}

}  // namespace

std::set<std::string> LostBookmarks(const pugi::xml_node& body, const StoryMap& map, const PositionSet& gone) {
  std::set<std::string> names;
  for (const Marks& marks : Finder(map, gone).Find(body)) names.insert(NameOf(marks));
  return names;
}

std::set<std::string> RemoveLostBookmarks(pugi::xml_node body, const StoryMap& map, const PositionSet& gone) {
  std::set<std::string> names;
  for (const Marks& marks : Finder(map, gone).Find(body)) {
    names.insert(NameOf(marks));
    marks.start.parent().remove_child(marks.start);
    marks.end.parent().remove_child(marks.end);
  }
  return names;
}

void RenameReferences(pugi::xml_node tree, const std::map<std::string, std::string>& names) {
  if (names.empty()) return;
  if (Is(tree, "w:instrText")) {
    std::string code = TextOf(tree);
    if (RenameInCode(code, names)) SetTextOf(tree, code);
    return;
  }
  if (pugi::xml_attribute anchor = tree.attribute("w:anchor")) {
    if (const auto other = names.find(anchor.value()); other != names.end()) anchor.set_value(other->second.c_str());
  }
  for (const pugi::xml_node child : tree.children()) RenameReferences(child, names);
}

BookmarkKeepers::BookmarkKeepers(const std::vector<NameStep>& bookmarks, std::size_t copies,
                                 std::function<std::set<std::string>(std::size_t)> lostIn,
                                 const std::function<void(TextView)>& warn)
    : bookmarks_(bookmarks), copies_(copies), lostIn_(std::move(lostIn)), warn_(warn) {}

bool BookmarkKeepers::Keeps(std::size_t copy, const NameStep& bookmark) {
  const auto [known, isNew] = lost_.try_emplace(copy);
  if (isNew) known->second = lostIn_(copy);
  return known->second.count(NameInCopy(bookmark, copy)) == 0;
}

std::map<std::string, std::string> BookmarkKeepers::NamesFor(std::size_t copy, const std::set<std::string>& lost) {
  std::map<std::string, std::string> names;
  if (lost.empty()) return names;
  for (const NameStep& bookmark : bookmarks_) {
    const std::string own = NameInCopy(bookmark, copy);
    if (lost.count(own) == 0) continue;
    const std::size_t last = copies_ - 1;
    if (Keeps(0, bookmark)) {
      names.emplace(own, NameInCopy(bookmark, 0));
    } else if (Keeps(last, bookmark)) {
      names.emplace(own, NameInCopy(bookmark, last));
    } else if (warn_ && warned_.insert(bookmark.name).second) {
      warn_(u"No copy kept the text of the bookmark " + FromUtf8(bookmark.name) + u"; references to it lead nowhere.");
    }
  }
  return names;
}

}  // namespace zorkanca::word
