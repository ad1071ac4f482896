// The desktop of a user who wants to see nothing, or has no display.
#pragma once

#include "platform/shell.h"

namespace zorkanca::cli {

/// Opens nothing: the user said so with --no-open, or there is no display to open anything on.
class QuietShell final : public Shell {
 public:
  void OpenDocument(TextView) override {}
};

}  // namespace zorkanca::cli
