// Fields on their way through LibreOffice, which knows few of them and forgets most of what they say. They travel as
// plain text between characters that occur nowhere else in the document, and become fields again in what it wrote.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "runtime/text.h"

namespace zorkanca {

/// Characters that no text of the document holds.
struct FieldMarkers {
  char16_t begin = 0;
  char16_t lockedBegin = 0;  ///< of a field that is not to be updated
  char16_t separate = 0;     ///< between code and result
  char16_t end = 0;

  std::array<char16_t, 4> All() const { return {begin, lockedBegin, separate, end}; }
};

/// What was marked in a document.
struct MarkedFields {
  FieldMarkers markers;
  std::size_t count = 0;    ///< all of them
  std::size_t inBody = 0;   ///< those of the main text, which must come back
  std::size_t spoiled = 0;  ///< those that could not be marked, because they stand inside of form fields and objects
  std::map<Text, Text> englishNames{};  ///< of field types that the document names in another language, in upper case
};

/// A document with its fields marked, and what was marked.
struct MarkedText {
  std::string bytes;
  MarkedFields fields;
};

/// Raises error 5: the fields of this document cannot be marked.
/// @param reason  an English clause without full stop
[[noreturn]] void RefuseFields(std::string_view reason);

}  // namespace zorkanca
