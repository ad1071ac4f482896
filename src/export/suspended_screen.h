// Word while it does not draw: a document that is seen would be redrawn at each step of the work on it.
#pragma once

#include "foundation/ignore_errors.h"
#include "platform/word/word_application.h"

namespace zorkanca {

/// Switches the drawing off and, when the work has ended, well or not, to what it shall be.
class SuspendedScreen {
 public:
  /// @param afterwards  whether Word draws when this object is gone
  SuspendedScreen(WordApplication& word, bool afterwards) : word_(word), afterwards_(afterwards) {
    word_.ScreenUpdating(false);
  }
  /// Word then draws as it did before.
  explicit SuspendedScreen(WordApplication& word) : SuspendedScreen(word, word.ScreenUpdating()) {}
  ~SuspendedScreen() {
    IgnoreErrors([&] { word_.ScreenUpdating(afterwards_); });
  }
  SuspendedScreen(const SuspendedScreen&) = delete;
  SuspendedScreen& operator=(const SuspendedScreen&) = delete;

 private:
  WordApplication& word_;
  bool afterwards_;
};

}  // namespace zorkanca
