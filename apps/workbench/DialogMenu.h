#pragma once

#include <string>
#include <vector>

class QWidget;

namespace workbench {

/// One dialog of the library, as the menu offers it.
struct DialogEntry {
    const char* text;  ///< of the menu entry, with its key
    const char* name;  ///< of the class that opens
    bool needsSign;    ///< only with a sign chosen
    /// Runs the dialog and returns when it has ended.
    int (*run)(const std::string& service, const std::string& sign, QWidget* parent);
};

/// Every dialog of the library, in the order of the menu.
const std::vector<DialogEntry>& Dialogs();

}  // namespace workbench
