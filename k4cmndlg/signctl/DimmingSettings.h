#pragma once

#include <cstdint>
#include <optional>

#include "k4cmndlg/clients/SignServiceTypes.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// What governs a sign's brightness, as a person chooses it: one of four ways, with a slider each
/// for two of them. A slider that the chosen way doesn't use keeps its position for a later switch.
///
/// A plain value. Threads: as any value.
struct K4CMNCORE_EXPORT DimmingSettings {
    /// The four ways, in the order of their radio buttons.
    enum : int {
        kManual = 0,
        kPhotocell = 1,
        kRemotePhotocell = 2,
        kScheduled = 3,
    };

    int radio = -1;           ///< one of the four ways; -1 until a sign has been read
    std::int32_t level = 0;   ///< position of the manual slider, 0 to 255
    std::int32_t offset = 0;  ///< position of the offset slider, -64 to 64

    /// What the sign service is told.
    struct Command {
        tag_K4_SIGN_DIM_MODE mode;
        std::int32_t value;

        bool operator==(const Command&) const = default;
    };

    /// The settings of a sign, of which a client has read mode, level and offset. A mode that has
    /// no way of its own gives none.
    static DimmingSettings FromSign(tag_K4_SIGN_DIM_MODE mode, std::int32_t level,
                                    std::int32_t offset);

    /// What to send for these settings. Nothing is sent where the radio index plus one is not
    /// within 0 to 5; without a way chosen, mode 0 is sent with the value 0.
    std::optional<Command> ModeAndValue() const;
};

}  // namespace k4cmn
