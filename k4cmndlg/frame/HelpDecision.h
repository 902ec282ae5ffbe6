#pragma once

#include <cstdint>
#include <functional>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The low 16 bits of the help id of a static control without an id of its own.
inline constexpr std::uint32_t kStaticControl = 0xFFFF;

/// What is added to a dialog's resource id to make its help id.
inline constexpr std::uint32_t kDialogHelpBase = 0x20000;

/// A command for the help system, still without the offset of the base class.
struct HelpCommand {
    std::uint32_t command;
    std::uint32_t data;

    bool operator==(const HelpCommand&) const = default;
};

/// The help of a dialog itself: its topic, or the contents where its id names none.
K4CMNCORE_EXPORT HelpCommand DialogHelp(std::uint32_t dialogId);

/// The control that follows another one in tab order.
struct NextControl {
    bool exists = false;          ///< false: there is none
    bool isSame = false;          ///< the order has led back to the control itself
    std::uint32_t contextId = 0;  ///< its help id
};

/// Looks for the control that follows. Called only where the decision needs it.
using FindNextControl = std::function<NextControl()>;

/// What a person pointed at, asking for help.
struct HelpTarget {
    bool isDialog = false;        ///< the dialog itself, and not one of its controls
    std::uint32_t contextId = 0;  ///< the control's help id
    std::uint32_t dialogId = 0;   ///< the dialog's help id
};

/// What a request for help comes to.
struct HelpDecision {
    enum class Kind : std::uint8_t {
        Platform,  ///< the platform's own handling
        Dialog,    ///< the help of the dialog itself, which ends the handling of the request
        Popup,     ///< the topic of an id in a small window
    };

    Kind kind = Kind::Platform;
    std::uint32_t contextId = 0;  ///< the id that the request ends with
    bool onNext = false;          ///< a popup goes out on the control that follows

    bool operator==(const HelpDecision&) const = default;
};

/// The F1 key and the question mark tool. A label's help is that of the control behind it, shown at
/// the label.
K4CMNCORE_EXPORT HelpDecision DecideHelpInfo(const HelpTarget& target, const FindNextControl& next);

/// A right click. A label's help is that of the control behind it, shown at that control. The
/// asymmetry with DecideHelpInfo() is meant, and so is that an id equal to the dialog's own is
/// taken as it stands here.
K4CMNCORE_EXPORT HelpDecision DecideContextMenu(bool enabled, const HelpTarget& target,
                                                const FindNextControl& next);

}  // namespace k4cmn
