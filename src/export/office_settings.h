// The installation settings that steer how the exports drive the office applications.
#pragma once

#include "platform/registry.h"

namespace zorkanca {

struct OfficeSettings {
  bool ExcelVisibleWithinDataProcess = false;
  bool WordVisibleWithinDataProcess = false;
  bool XlPasteFormulasNoClipboard = false;  ///< Excel templates are filled without the clipboard
};

/// Reads the settings of the installation. Each is a text whose leading number tells, non-zero is true; a missing or
/// unreadable value is false.
OfficeSettings ReadOfficeSettings(Registry& registry);

}  // namespace zorkanca
