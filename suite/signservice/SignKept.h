#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "suite/signservice/Dimming.h"
#include "suite/signservice/DisplayQueue.h"
#include "suite/signservice/PlayOrder.h"
#include "suite/signservice/Player.h"

namespace k4suite {

/// A schedule that runs: the name that was given, the file's bytes when it was started, and up to
/// when its entries have been carried out.
struct RunningSchedule {
    std::string file;
    std::vector<std::uint8_t> bytes;
    TimePoint done{};
};

/// What a sign keeps of one of its windows.
struct KeptWindow {
    std::string sign;
    bool open = false;
    std::int32_t row = 0;
    std::int32_t column = 0;
};

/// What a sign keeps over a restart.
struct SignKept {
    Dimming dimming;
    std::array<KeptWindow, K4_MAX_SIGN_WINDOWS> windows;
    std::deque<QueueEntry> queue;
    PlayOrder defaultOrder{kTestPatternFile, K4_PLAY_SEQ_CONTINUOUS, 0};
    std::optional<PlayPosition> playing;  ///< nothing: the default sequence from its beginning
    std::optional<RunningSchedule> schedule;
};

}  // namespace k4suite
