// The units that stand in a document's text for what is no character. The engine keeps them apart; clients see the
// object model's characters.
#pragma once

#include <cstdint>
#include <memory>
#include <pugixml.hpp>
#include <set>
#include <vector>

#include "runtime/text.h"

namespace zorkanca::word {

/// A place in a story: UTF-16 units and marks before it.
using Position = std::int64_t;

inline constexpr char16_t kInlinePicture = 0x01;
inline constexpr char16_t kNoteMark = 0x02;
inline constexpr char16_t kSectionEnd = 0x05;  ///< the mark of a paragraph that ends a section; clients see U+000C
inline constexpr char16_t kRowEnd = 0x06;      ///< clients see CR U+0007
inline constexpr char16_t kCellEnd = 0x07;     ///< the mark of a cell's last paragraph; clients see CR U+0007
inline constexpr char16_t kLineBreak = 0x0B;
inline constexpr char16_t kPageBreak = 0x0C;
inline constexpr char16_t kParagraphEnd = 0x0D;
inline constexpr char16_t kColumnBreak = 0x0E;

/// True for the units that end a paragraph (or a row).
constexpr bool EndsParagraph(char16_t unit) {
  return unit == kParagraphEnd || unit == kCellEnd || unit == kRowEnd || unit == kSectionEnd;
}

/// The text as clients see it.
Text ShownText(TextView units);

/// Appends what a child of a run counts for in the text: nothing, or a unit. Texts are not handled here.
/// @param child  w:tab, w:br, w:drawing, ...; not w:t
void AppendUnitOf(Text& text, const pugi::xml_node& child);
/// Appends the characters of a w:t: line ends and tabs are blanks there.
void AppendTextOf(Text& text, const pugi::xml_node& textElement);

/// The mark of a paragraph: end of a cell, a section or just the paragraph.
char16_t MarkOf(const pugi::xml_node& paragraph);

/// Whether runs belong to the text while fields open and close: codes do not, results do. Fields that never end are
/// none.
class FieldState {
 public:
  FieldState() = default;
  /// @param story  what will be passed through
  explicit FieldState(const pugi::xml_node& story);

  /// Takes note of a w:fldChar by its w:fldCharType.
  void Pass(const pugi::xml_node& fieldCharacter);
  bool InText() const { return codes_ == 0; }
  /// Fields that are open.
  std::size_t depth() const { return inCode_.size(); }

 private:
  std::shared_ptr<const std::set<pugi::xml_node>> endless_;  // w:fldChar elements that begin a field without end
  std::vector<bool> inCode_;
  std::size_t codes_ = 0;  // open fields whose code has not ended
};

}  // namespace zorkanca::word
