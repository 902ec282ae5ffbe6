#include "k4cmndlg/signctl/SizeRules.h"

#include <algorithm>
#include <limits>

namespace k4cmn {

namespace {

/// The nearest multiple, half of it going up; the last one that fits is the highest.
constexpr std::uint32_t Rounded(std::uint32_t number, std::uint32_t multiple) {
    constexpr std::uint64_t most = std::numeric_limits<std::uint32_t>::max();
    const std::uint64_t nearest = (std::uint64_t{number} + multiple / 2) / multiple;
    return static_cast<std::uint32_t>(std::min(nearest, most / multiple) * multiple);
}

std::int64_t NextMultiple(int position, int step) {
    const std::int64_t wide = position;
    if (step == 0)
        return wide;
    return step > 0 ? (wide + step) / step * step : (wide - 1) / step * step;
}

}  // namespace

std::uint32_t RoundedSignRows(std::uint32_t typed) {
    return typed == 7 ? typed : Rounded(typed, 8);
}

std::uint32_t RoundedSignColumns(std::uint32_t typed) {
    return Rounded(typed, 16);
}

int NextMultipleWord(int position, int step) {
    return static_cast<int>(NextMultiple(position, step) & 0xFFFF);
}

int NextMultiplePinned(int position, int step) {
    using Word = std::numeric_limits<std::int16_t>;
    return static_cast<int>(
        std::clamp<std::int64_t>(NextMultiple(position, step), Word::min(), Word::max()));
}

}  // namespace k4cmn
