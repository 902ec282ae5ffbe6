#pragma once

#include <string>
#include <vector>

class QWidget;

namespace workbench {

/// One dialog of the library, or program beside it, as the menu offers it. What shows a sequence
/// shows the one that belongs to the chosen sign (SequenceOfSign).
struct DialogEntry {
    const char* text;  ///< of the menu entry, with its key
    const char* name;  ///< of the class that opens, or of the program
    bool needsSign;    ///< only with a sign chosen
    /// Runs the dialog and returns when it has ended; a modeless one, and a program, stays.
    int (*run)(const std::string& service, const std::string& sign, QWidget* parent);
};

/// All of them, in the order of the menu.
const std::vector<DialogEntry>& Dialogs();

}  // namespace workbench
