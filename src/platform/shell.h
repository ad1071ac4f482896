// What the desktop does for the product.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

class Shell {
 public:
  virtual ~Shell() = default;
  /// Starts the program that the system associates with the file, on that file, and does not wait for its end.
  /// Errors: 53 when the file or the program is missing, 5 when it could not be started.
  virtual void OpenDocument(TextView path) = 0;
};

}  // namespace zorkanca
