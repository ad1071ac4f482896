// The main text of a merged document: the copies, with what was deleted taken out of them.
#pragma once

#include <optional>

#include "opc/part_sink.h"
#include "word/merge/copy_lengths.h"
#include "word/merge/lost_bookmarks.h"
#include "word/merge/merged_copies.h"
#include "word/text/story_edit.h"
#include "word/text/story_text.h"

namespace zorkanca::word {

class MergedStory final : public StoryText {
 public:
  /// What deletions have to look at a copy's tree for.
  struct Features {
    bool anchors = false;  ///< floating pictures
    bool tables = false;
  };
  /// @param bookmarks  of the template
  /// @param warn       told in English of references that lost their bookmarks; may be empty
  MergedStory(const MergedCopies& copies, const Features& features, std::vector<NameStep> bookmarks,
              std::function<void(TextView)> warn)
      : copies_(copies), features_(features), bookmarks_(std::move(bookmarks)), warn_(std::move(warn)) {}

  Position Length() override { return Lengths().Total(); }
  TextChunk ChunkAt(Position position) override;
  void Delete(Interval range) override;
  /// Not supported. Errors: 438.
  void ReplaceAll(const std::vector<Interval>& ranges, TextView replacement) override;

  /// Writes the copies without what was deleted. @return false when nothing was written
  bool WriteXml(PartSink& sink) const;

 private:
  CopyLengths& Lengths();
  const Text& TextOfCopy(std::size_t copy);
  char16_t UnitBefore(Position position);
  Position FirstMark(Interval range);
  void DeleteInCopy(std::size_t copy, Interval range, const DeletionSurroundings& around);
  PositionSet Plan(std::size_t copy, Interval range, const DeletionSurroundings& around);
  bool BeginsWithTable(std::size_t copy);
  pugi::xml_document CurrentTree(std::size_t copy) const;
  std::set<std::string> LostIn(std::size_t copy) const;
  std::string EditedXml(std::size_t copy, LeftOver& leftOver, const std::string& xml, BookmarkKeepers* keepers) const;

  const MergedCopies& copies_;
  Features features_;
  std::vector<NameStep> bookmarks_;
  std::function<void(TextView)> warn_;
  std::optional<CopyLengths> lengths_;
  std::vector<PositionSet> gone_;  // by copy, in positions of the copy as merged; empty before the first deletion
  std::size_t cachedCopy_ = static_cast<std::size_t>(-1);
  Text cached_;
};

}  // namespace zorkanca::word
