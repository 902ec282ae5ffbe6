#pragma once

#include <vector>

#include "apps/workbench/DialogMenu.h"

namespace workbench {

/// The dialogs over the file store, in the order of the menu "Files". What a person chose in them
/// is told in the window's status bar.
const std::vector<DialogEntry>& FileDialogs();

}  // namespace workbench
