#pragma once

#include <memory>

#include "k4cmndlg/filesel/FileSelView.h"
#include "k4cmndlg/filesel/FileSelector.h"
#include "k4cmndlg/filesel/properties/PropertiesLink.h"
#include "k4cmndlg/frame/DialogPrompt.h"

namespace Ui {
class FileSelectionDialog;
}

namespace k4cmn {

/// What the file selection dialog is made of. The dialog shares it with each of its handlers while
/// that runs: a message may end the dialog, and the handler still comes to its end.
struct FileSelParts {
    /// Sets up the controls of a dialog. @param path as FileSelector takes it.
    FileSelParts(CDialog& dialog, const char* path);
    ~FileSelParts();

    std::unique_ptr<Ui::FileSelectionDialog> ui;  ///< valid as long as the dialog
    FileSelView view;
    DialogPrompt prompt;
    FileSelector selector;
    PropertiesLink properties;
};

}  // namespace k4cmn
