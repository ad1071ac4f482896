// How the product gets at the office applications of the computer.
#pragma once

#include "platform/word/word_application.h"
#include "runtime/text.h"

namespace zorkanca {

class OfficeApplications {
 public:
  virtual ~OfficeApplications() = default;
  /// The running Word. Errors: 429 when none runs.
  virtual WordApplicationReference AttachWord() = 0;
  /// Starts Word; it stays running and invisible until it is shown. Errors: 429 when it cannot be started.
  virtual WordApplicationReference StartWord() = 0;
};

}  // namespace zorkanca
