#pragma once

#include <cstdint>
#include <string>

#include "k4cmndlg/clients/SignServiceTypes.h"

namespace CLI {
class App;
}  // namespace CLI

namespace k4ctl {

/// How a sequence is to be played: the options --mode and --param of several commands. Without them
/// Continuous and 0.
struct PlayHow {
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_CONTINUOUS;
    std::uint32_t param = 0;

    bool given = false;  ///< one of the two options was

    /// Declares the two options.
    void AddTo(CLI::App& app);
};

}  // namespace k4ctl
