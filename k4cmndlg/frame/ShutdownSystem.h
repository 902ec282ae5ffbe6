#pragma once

#include <cstdint>

#include "k4cmndlg/k4cmndlg_export.h"

/// @name Shutting the system down, through the installed PowerControl.
/// If there is something to ask, a message box with Yes and No asks it first, and No ends the call.
/// @param reboot 0 to power down, any other value to start again.
/// @return 1 if shutdown was started, else 0.
/// Threads: the user interface thread.
///
/// Which of the operations a call means: a text or `nullptr` the one with a text; a number, a plain
/// 0 among them, the one with an id.
/// @{

/// @param prompt the question, UTF-8; null for none.
K4CMNDLG_EXPORT int k4cmnShutdownSystem(const char* prompt, int reboot);

/// @param promptId the resource number of the question (StringTable.h); 0 for none. A number that
/// nobody knows asks an empty question.
K4CMNDLG_EXPORT int k4cmnShutdownSystem(std::uint32_t promptId, int reboot);
inline int k4cmnShutdownSystem(int promptId, int reboot) {
    return k4cmnShutdownSystem(static_cast<std::uint32_t>(promptId), reboot);
}

/// @}
