// The dialogs that ask for a file or a folder.
#pragma once

#include "platform/user_interface.h"
#include "win32/system.h"

namespace zorkanca::win32 {

/// As `UserInterface::ChooseFile` and `ChooseFolder`, over the window `owner`, which may be null.
/// Errors: 5 when the dialog cannot be shown.
Text AskForFile(const FileDialog& dialog, HWND owner);
Text AskForFolder(TextView title, TextView startFolder, HWND owner);

}  // namespace zorkanca::win32
