// Word while an export drives it, document after document.
#pragma once

#include <optional>

#include "platform/word/word_application.h"

namespace zorkanca {

class DrivenWord {
 public:
  /// Takes Word over; it does not check the language of the documents until it is left.
  void Take(WordApplicationReference word);

  /// Null before Word was taken over.
  const WordApplicationReference& application() const { return word_; }

  /// Leaves Word to its user, the errors of each step ignored: it draws again and checks the language as before.
  /// @param shows  leave it visible and maximised
  void Leave(bool shows);

 private:
  WordApplicationReference word_;
  std::optional<bool> checkLanguage_;  // of a Word that checks it, as it was
};

}  // namespace zorkanca
