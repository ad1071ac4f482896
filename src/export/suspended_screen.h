// An office application while it does not draw: what is seen would be redrawn at each step of the work on it.
#pragma once

#include "foundation/ignore_errors.h"

namespace zorkanca {

/// Switches the drawing off and, when the work has ended, well or not, to what it shall be.
/// @tparam Application  Word's or Excel's
template <typename Application>
class SuspendedScreen {
 public:
  /// @param afterwards  whether the application draws when this object is gone
  SuspendedScreen(Application& application, bool afterwards) : application_(application), afterwards_(afterwards) {
    application_.ScreenUpdating(false);
  }
  /// The application then draws as it did before.
  explicit SuspendedScreen(Application& application) : SuspendedScreen(application, application.ScreenUpdating()) {}
  ~SuspendedScreen() {
    IgnoreErrors([&] { application_.ScreenUpdating(afterwards_); });
  }
  SuspendedScreen(const SuspendedScreen&) = delete;
  SuspendedScreen& operator=(const SuspendedScreen&) = delete;

 private:
  Application& application_;
  bool afterwards_;
};

}  // namespace zorkanca
