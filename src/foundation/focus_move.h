// Moving the focus through a dialog by code.
#pragma once

#include "platform/forms.h"

namespace zorkanca {

/// Moves the focus from the active control to the next tab stop, behind the last one to the first; text boxes that
/// Enter leaves call it.
/// @return false when no control is active or none can take the focus
/// Errors: `ArgumentErrorCode` for no form.
bool sf_NextCtr(Form* frm);

}  // namespace zorkanca
