#include "export/office_opening.h"

#include "foundation/ignore_errors.h"

namespace zorkanca {

bool TellOfOpening(const ExportContext& context, const OpeningTexts& texts, bool showsHourglass,
                   const std::function<void()>& open) {
  bool opened = false;
  try {
    context.RaiseExportState(ExportStateValue::esOpenApp, texts.opening);
    if (showsHourglass) context.platform.userInterface.SetMousePointer(MousePointer::kHourglass);
    open();
    context.RaiseExportState(ExportStateValue::esStill, texts.opened);
    opened = true;
  } catch (...) {
    const Error error = *ErrorBeingHandled();
    context.NoteCause(error);
    const Text message = Text(texts.failed).append(error.description());
    IgnoreErrors([&] { context.RaiseExportState(ExportStateValue::esStill, message); });
  }
  context.platform.userInterface.SetMousePointer(MousePointer::kDefault);
  return opened;
}

}  // namespace zorkanca
