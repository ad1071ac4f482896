// Headers and footers with merge fields in form letters: each text that occurs makes one part, whatever number of
// copies show it.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "opc/package.h"
#include "word/merge/merged_copies.h"
#include "word/text/tree_story.h"

namespace zorkanca::word {

class VaryingHeaders final : public HeaderIds {
 public:
  /// Adds a header; its index is its place among those added.
  /// @param id       of the main part's relationship to it
  /// @param program  of the whole part
  std::size_t Add(std::string id, std::string part, Program program);
  bool empty() const { return headers_.empty(); }
  const std::map<std::string, std::size_t>& byId() const { return byId_; }

  /// Finds out which copies share a text.
  void Distribute(const MergedCopies& copies);
  std::string IdOf(std::size_t header, std::size_t copy) const override;

  /// The text of a header as a copy shows it; changes hold for all copies that share it.
  StoryText& StoryOf(std::size_t header, std::size_t copy, const MergedCopies& copies);

  /// Adds the parts to a package that has the template's.
  /// @param copies  is asked for the texts while the package is written
  void AddTo(Package& package, const std::string& mainPart, const MergedCopies& copies);

 private:
  struct Header {
    std::string id;
    std::string part;
    Program program;
    std::vector<std::uint32_t> textOfCopy;
    std::vector<std::size_t> firstCopy;  // by text: a copy that shows it
    std::vector<std::string> ids;        // by text: relationship ids
  };
  struct Edited {
    pugi::xml_document document;
    std::unique_ptr<TreeStory> story;
  };

  void Distribute(Header& header, const MergedCopies& copies);
  PartContent ContentOf(std::size_t header, std::size_t text, const MergedCopies& copies) const;

  std::vector<Header> headers_;
  std::map<std::string, std::size_t> byId_;
  std::map<std::pair<std::size_t, std::size_t>, Edited> edited_;  // by header and text
};

}  // namespace zorkanca::word
