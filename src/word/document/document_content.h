// What an open document holds, whether its tree is in memory or its copies are made when asked for.
#pragma once

#include <cstdint>

#include "word/document/word_package.h"
#include "word/text/story_text.h"

namespace zorkanca::word {

enum class HeaderKind { kHeader, kFooter };

class DocumentContent {
 public:
  virtual ~DocumentContent() = default;

  virtual StoryText& MainText() = 0;
  /// The text of a section's primary header or footer; null when it has none. Errors: 5941 for a missing section.
  /// @param section  from 1
  virtual StoryText* HeaderText(std::int32_t section, HeaderKind kind) = 0;

  /// The body's tree, or a null node for merged documents.
  virtual pugi::xml_node Body() = 0;
  /// To be called after the body's tree was changed other than through its text.
  virtual void BodyChanged() = 0;
  /// To be called after the tree of another part was changed other than through its text.
  virtual void PartChanged(const std::string& part) = 0;
  /// Another number after each change of a tree.
  virtual std::uint64_t Version() const = 0;
  /// Parts beside the main text.
  virtual WordPackage& Parts() = 0;

  /// The whole document as it is now. The package may ask this object for its text while it is written.
  virtual Package Written() = 0;
};

}  // namespace zorkanca::word
