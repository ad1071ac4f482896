// The dialogs that ask for a file or a folder.
#pragma once

#include <QStringList>
#include <QWidget>

#include "platform/user_interface.h"

namespace zorkanca {

/// "name|pattern|…" in the form that the library of windows takes: "name (pattern pattern)".
QStringList NameFilters(TextView filter);

/// As `UserInterface::ChooseFile` and `ChooseFolder`, over the window `owner`, which may be null.
Text AskForFile(const FileDialog& dialog, QWidget* owner);
Text AskForFolder(TextView title, TextView startFolder, QWidget* owner);

}  // namespace zorkanca
