#pragma once

#include <array>
#include <cstdint>

#include "k4cmndlg/frame/SpinSteps.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// @name How a person comes to the size of a sign: what its two fields and their spins do in every
/// dialog that asks for one.
/// @{

/// The speeds of the spins.
inline constexpr std::array<SpinAccel, 3> kSignRowSpeeds{{{0, 8}, {2, 64}, {4, 128}}};
inline constexpr std::array<SpinAccel, 3> kSignColumnSpeeds{{{0, 16}, {2, 128}, {4, 256}}};

/// What rows become when their field is left: 7, or the nearest multiple of 8 (4 goes up), which is
/// 0 for small numbers. No limit is looked at.
K4CMNCORE_EXPORT std::uint32_t RoundedSignRows(std::uint32_t typed);
/// What columns become when their field is left: the nearest multiple of 16 (8 goes up).
K4CMNCORE_EXPORT std::uint32_t RoundedSignColumns(std::uint32_t typed);
/// @}

/// @name Where a click on a spin leads, always to a multiple of the step: the next one above the
/// position for a step up, the next one below it for a step down. @param step signed.
/// @{
/// @return the low 16 bits of the new position, whatever a number of more bits comes to.
K4CMNCORE_EXPORT int NextMultipleWord(int position, int step);
/// @return the new position, pinned to the ends of the signed word that a spin takes.
K4CMNCORE_EXPORT int NextMultiplePinned(int position, int step);
/// @}

}  // namespace k4cmn
