// The types of fields, and which of them LibreOffice does better than marks would.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

enum class FieldCare {
  kMark,    ///< its code would be lost or changed
  kLeave,   ///< LibreOffice has it itself: page numbers, links, indexes
  kObject,  ///< it holds a form field or an object, which text could not carry
};

/// The care for a type, by its number in binary documents or by the first word of a code. Unknown ones are marked.
FieldCare CareOf(std::uint8_t type);
FieldCare CareOf(TextView word);

/// The English name of a type where the document has another word for it, in upper case; else nothing.
std::optional<Text> EnglishNameFor(std::uint8_t type, TextView word);

/// A field among the others of its document, in the order of their beginnings.
struct FieldPlace {
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  FieldCare care = FieldCare::kMark;
  std::size_t parent = kNone;  ///< the one around it, which comes before it
  bool marked = false;         ///< the outcome of `ChooseFields`
};

/// Which fields are marked: those that need it, none inside an object, and those around marked ones.
/// @return the number of those that would need it and stand inside an object
std::size_t ChooseFields(std::vector<FieldPlace>& fields);

}  // namespace zorkanca
