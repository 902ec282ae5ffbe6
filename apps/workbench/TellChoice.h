#pragma once

#include <string>

class QWidget;

namespace workbench {

/// Tells in the status bar of the main window what a person chose in a dialog.
/// @param window where a dialog was run from. @param choice empty: nothing was chosen.
void TellChoice(QWidget* window, const std::string& choice);

}  // namespace workbench
