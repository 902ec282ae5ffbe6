#pragma once

#include <cstdint>
#include <string>

#include "k4cmndlg/clients/SignServiceTypes.h"

namespace k4ctl {

// How the words of the command line become values. Each gives 1 and the value, or 0 with `problem`
// saying what is wrong and what would be right; a value that can't be read stays as it was.

/// A whole number in decimal digits, with an optional sign, from `least` to `most`.
int ParseNumber(const std::string& text, std::int64_t least, std::int64_t most, std::int64_t& value,
                std::string& problem);

/// A play mode by its name (case doesn't count, and a hyphen stands for a blank) or by its number,
/// 0 to 12.
int ParseMode(const std::string& text, tag_K4_PLAY_SEQ_MODE& mode, std::string& problem);

/// A mode of dimming, with the value that accompanies it.
struct Dimming {
    tag_K4_SIGN_DIM_MODE mode = K4_SIGN_DIM_MANUAL;
    std::int32_t value = 0;  ///< manual: the level; photocell: the offset; else 0
};

/// "manual" with a level of 0 to 255, "photocell" with an offset of -64 to 64, "remote" and
/// "scheduled" with nothing. Case doesn't count.
/// @param value the empty text where none was given.
int ParseDimming(const std::string& mode, const std::string& value, Dimming& dimming,
                 std::string& problem);

/// A place on a sign, counted from 1.
struct Place {
    std::int32_t row = 0;
    std::int32_t column = 0;
};

/// "ROW,COLUMN", both 1 or more.
int ParsePlace(const std::string& text, Place& place, std::string& problem);

/// "open" or "close", case not counting. `open` becomes 1 or 0.
int ParseOpen(const std::string& text, std::int32_t& open, std::string& problem);

}  // namespace k4ctl
