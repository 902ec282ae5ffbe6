#include "suite/signservice/TimeOfDay.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <numbers>

#include "suite/signservice/NameHash.h"

namespace k4suite {

namespace {

constexpr std::uint32_t kHour = 60;
constexpr double kNightLight = 6;
constexpr double kDayLight = 250;

constexpr std::uint8_t kNight = 48;
constexpr std::uint8_t kDusk = 128;
constexpr std::uint8_t kDay = 255;

constexpr std::uint8_t kScheduledLevels[24] = {
    kNight, kNight, kNight, kNight, kNight, kNight, kDusk, kDusk, kDay,  kDay,  kDay,   kDay,
    kDay,   kDay,   kDay,   kDay,   kDay,   kDay,   kDusk, kDusk, kDusk, kDusk, kNight, kNight,
};

/// How far a day has come up, 0 to 1.
double Daytime(std::uint32_t minute) {
    constexpr double from = 5.0 * kHour;
    constexpr double length = 4.0 * kHour;
    const double hoursFromNight =
        std::min(static_cast<double>(minute) - from, 21.0 * kHour - static_cast<double>(minute));
    return std::clamp(hoursFromNight / length, 0.0, 1.0);
}

}  // namespace

std::uint32_t MinuteOfDay(TimePoint now) {
    const std::time_t seconds =
        std::chrono::floor<std::chrono::seconds>(now).time_since_epoch().count();
    std::tm local{};
    if (!localtime_r(&seconds, &local))
        return 0;
    return static_cast<std::uint32_t>(local.tm_hour * 60 + local.tm_min);
}

std::uint8_t Daylight(std::uint32_t minuteOfDay, std::uint32_t shade) {
    const double up = (1 - std::cos(Daytime(minuteOfDay) * std::numbers::pi)) / 2;
    const double light = kNightLight + (kDayLight - shade - kNightLight) * up;
    return static_cast<std::uint8_t>(std::lround(light));
}

std::uint32_t ShadeOfPlace(std::string_view sign) {
    return static_cast<std::uint32_t>(NameHash(sign) >> 16 & 63U);
}

std::uint8_t ScheduledLevel(std::uint32_t minuteOfDay) {
    return kScheduledLevels[minuteOfDay / kHour % 24];
}

std::uint32_t TemperatureFrequency(std::uint32_t sensor, std::uint32_t minuteOfDay) {
    constexpr double meanKelvin = 288.0;
    constexpr double swing = 8.0;
    constexpr double warmest = 17.0 * kHour;
    const double turn = 2 * std::numbers::pi * (minuteOfDay - warmest) / kMinutesOfDay;
    const double kelvin = meanKelvin + 4.0 * sensor + swing * std::cos(turn);
    return static_cast<std::uint32_t>(std::lround(10 * kelvin));
}

}  // namespace k4suite
