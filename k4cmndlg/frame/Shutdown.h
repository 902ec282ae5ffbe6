#pragma once

#include <optional>
#include <string>

#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// Shuts the system down through the installed PowerControl, after asking a person if there is
/// something to ask.
/// @param question what is asked, with Yes and No; nothing to go on without asking. No ends it.
/// @param reboot   0 to power down, any other value to start again.
/// @return 1 if the end of the system was started, else 0; also where a step or the prompt throws.
///         The privilege is then given back, too.
/// Threads: one caller at a time, on a thread that the prompt allows. It returns when the platform
/// has answered.
K4CMNCORE_EXPORT int ShutdownSystem(Prompt& prompt, const std::optional<std::string>& question,
                                    int reboot);

}  // namespace k4cmn
