#include "export/office_opening.h"

namespace zorkanca {

bool TellOfOpening(const ExportContext& context, const OpeningTexts& texts, bool showsHourglass,
                   const std::function<void()>& open) {
  UserInterface& user = context.platform.userInterface;
  context.RaiseExportState(ExportStateValue::esOpenApp, texts.opening);
  if (showsHourglass) user.SetMousePointer(MousePointer::kHourglass);
  Text message(texts.opened);
  bool opened = true;
  try {
    open();
  } catch (...) {
    const Error error = *ErrorBeingHandled();
    context.NoteCause(error);
    message = Text(texts.failed).append(error.description());
    opened = false;
  }
  context.RaiseExportState(ExportStateValue::esStill, message);
  user.SetMousePointer(MousePointer::kDefault);
  return opened;
}

}  // namespace zorkanca
