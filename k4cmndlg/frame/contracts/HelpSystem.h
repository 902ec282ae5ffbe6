#pragma once

#include <cstdint>
#include <string>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmndlg_export.h"

class QWidget;

namespace k4cmn {

inline constexpr std::uint32_t HELP_CONTEXT = 1;       ///< show the topic with this id
inline constexpr std::uint32_t HELP_CONTEXTPOPUP = 8;  ///< show it in a small window at the control
inline constexpr std::uint32_t HELP_FINDER = 11;       ///< show the contents

/// The help of the platform.
/// Threads: the user interface thread. WinHelp() returns at once; what it opens stays on its own.
class K4CMNDLG_EXPORT HelpSystem {
 public:
    virtual ~HelpSystem();

    /// The help file of the application.
    virtual std::string HelpFilePath() = 0;

    /// Carries out a help command.
    /// @param window  the window that asks; a popup is shown at it.
    /// @param file    the help file, as HelpFilePath() gives it.
    /// @param command HELP_CONTEXT, HELP_CONTEXTPOPUP or HELP_FINDER.
    /// @param data    the topic's id.
    virtual void WinHelp(QWidget* window, const std::string& file, std::uint32_t command,
                         std::uint32_t data) = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNDLG_EXPORT, HelpSystem)
