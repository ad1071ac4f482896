// What a person did to a text, told by the text before and after it: boxes of a screen report the whole text only.
#pragma once

#include <cstddef>

#include "runtime/text.h"

namespace zorkanca {

/// One edit that turns a text into another: a part replaced by characters.
struct TextEdit {
  std::size_t start = 0;
  std::size_t removed = 0;
  TextView inserted{};  ///< a part of the text after the edit
};

/// @param cursor  where the cursor stands after the edit: at the end of what was inserted
TextEdit EditBetween(TextView before, TextView after, std::size_t cursor);

}  // namespace zorkanca
