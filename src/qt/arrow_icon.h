// The arrow pictures of buttons, drawn in the colours of the desktop.
#pragma once

#include <QIcon>
#include <QWidget>

#include "platform/form_controls.h"

namespace zorkanca {

/// @param widget  whose colours and resolution the picture gets
/// @return an empty icon for a button without a picture
QIcon ArrowIcon(ButtonImage image, const QWidget& widget);

}  // namespace zorkanca
