#pragma once

#include <cstdint>
#include <string>

#include "k4cmndlg/clients/SignServiceTypes.h"

namespace k4suite {

/// The longest name of a sequence or a schedule, in bytes: what the replies have room for.
inline constexpr std::size_t kLongestFileName = 260;

/// The sequence that every sign has, without a file.
inline constexpr char kTestPatternFile[] = "Test Pattern.SQ4";

/// What to play, and how.
struct PlayOrder {
    std::string sequence;  ///< as it was given
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_CONTINUOUS;
    std::uint32_t param = 0;

    bool operator==(const PlayOrder&) const = default;
};

}  // namespace k4suite
