#pragma once

#include <cstdint>
#include <string_view>

#include "k4cmndlg/frame/contracts/Clock.h"

namespace k4suite {

using TimePoint = k4cmn::Clock::TimePoint;

inline constexpr std::uint32_t kMinutesOfDay = 24 * 60;

/// The minute of the day, 0 to 1439, in this machine's time zone.
std::uint32_t MinuteOfDay(TimePoint now);

/// The light that a photocell sees, 0 to 255: dark at night, rising from five to nine, falling from
/// five in the afternoon to nine.
/// @param shade what is taken off by day for the place where the cell hangs, 0 to 63.
std::uint8_t Daylight(std::uint32_t minuteOfDay, std::uint32_t shade);

/// The shade that a sign's own photocell hangs in; it goes with the name.
std::uint32_t ShadeOfPlace(std::string_view sign);

/// The dimming level that the scheduled mode has at a time of day, hour by hour.
std::uint8_t ScheduledLevel(std::uint32_t minuteOfDay);

/// The sensors of GetTemperatureFreq(): 0 to 3.
inline constexpr std::uint32_t kTemperatureSensors = 4;

/// A temperature sensor's frequency in hertz: ten for each kelvin. Coldest at five in the morning,
/// warmest at five in the afternoon; the sensors differ by some degrees.
std::uint32_t TemperatureFrequency(std::uint32_t sensor, std::uint32_t minuteOfDay);

}  // namespace k4suite
