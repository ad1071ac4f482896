// What the business suite around the library settles: its folders, and how it writes versions.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

class SuiteEnvironment {
 public:
  virtual ~SuiteEnvironment() = default;
  /// Absolute path of the folder of the log files; it need not exist.
  virtual Text LogFolder() = 0;
  /// Folder of the list of templates to register, without a separator at its end; it need not exist.
  virtual Text SupplyFolder() = 0;
  /// Folder of the suite's own office templates, without a separator at its end; it need not exist.
  virtual Text DefaultTemplatesFolder() = 0;
  /// Whether lists of templates take the formats that came after .dot and .xlt, and documents and workbooks, too.
  virtual bool TakesAllTemplateFormats() { return false; }
  /// The version of the library, "4.1.0".
  virtual Text VersionText() = 0;
};

}  // namespace zorkanca
