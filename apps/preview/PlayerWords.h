#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "apps/preview/TimeLine.h"

namespace preview {

/// @name What the window says, as texts.
/// @{
/// "0:03.25", minutes, seconds and hundredths; with hours "1:00:03.25".
std::string TimeText(milliseconds time);
/// "0.25 s", with as many decimals as the time has.
std::string SecondsText(milliseconds time);
/// "Frame 2 of 60", and "Frame 2 of 60 and more" while the end isn't known.
std::string PlaceText(std::size_t index, std::size_t count, bool isComplete);
/// Where a moment comes from and how long it stands: "0.25 s", with
/// "frame 3 of GOAL.SQ4" behind it for one of an included sequence.
std::string MomentText(const TimeLine& line, std::size_t index);
/// "64 x 192   RGB16M, LED", rows by columns.
std::string FactsText(const FileFacts& facts);
/// A speed of kSpeeds: "0.25x", "1x".
std::string SpeedText(std::size_t speed);
/// The name and extension of a path.
std::string NameOf(const std::string& path);
/// @}

}  // namespace preview
