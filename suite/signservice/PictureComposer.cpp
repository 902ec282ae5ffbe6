#include "suite/signservice/PictureComposer.h"

#include <algorithm>
#include <map>
#include <utility>

#include "suite/signservice/Machine.h"
#include "suite/signservice/NameHash.h"

namespace k4suite {

namespace {

/// How many windows lie inside one another at most.
constexpr std::size_t kDeepest = 4;

/// Paints one picture over another, as far as it lies on it.
void Paint(const Lamps& from, std::int32_t row, std::int32_t column, Lamps& onto) {
    const auto last = [](std::int32_t at, std::uint32_t size, std::uint32_t limit) {
        return std::min<std::int64_t>(std::int64_t{at} + size, limit);
    };
    const std::int64_t endRow = last(row, from.Rows(), onto.Rows());
    const std::int64_t endColumn = last(column, from.Columns(), onto.Columns());
    for (std::int64_t r = std::max(row, 0); r < endRow; ++r)
        for (std::int64_t c = std::max(column, 0); c < endColumn; ++c)
            onto.At(static_cast<std::uint32_t>(r), static_cast<std::uint32_t>(c)) = from.At(
                static_cast<std::uint32_t>(r - row), static_cast<std::uint32_t>(c - column));
}

bool IsBlank(const Sign& sign) {
    return sign.Playing().Position().state == PlayState::Blank;
}

}  // namespace

PictureComposer::PictureComposer(const Machine& machine, TimePoint now)
    : m_machine(machine), m_now(now), m_minute(MinuteOfDay(now)) {}

std::vector<const Sign*> PictureComposer::WindowSigns(const Path& path) const {
    std::vector<const Sign*> signs(K4_MAX_SIGN_WINDOWS);
    if (path.size() > kDeepest || IsBlank(*path.back()))
        return signs;
    for (std::uint32_t window = 1; window <= K4_MAX_SIGN_WINDOWS; ++window) {
        const SignWindow& at = path.back()->Windows().At(window);
        const Sign* sign = at.open ? m_machine.Find(at.sign) : nullptr;
        if (sign && std::find(path.begin(), path.end(), sign) == path.end())
            signs[window - 1] = sign;
    }
    return signs;
}

void PictureComposer::PaintWindows(Path& path, Lamps& picture) const {
    const Sign& sign = *path.back();
    const std::vector<const Sign*> shown = WindowSigns(path);
    // Several windows may show one sign: it is composed once.
    std::map<const Sign*, Lamps> pictures;
    for (std::uint32_t window = 1; window <= K4_MAX_SIGN_WINDOWS; ++window) {
        const Sign* other = shown[window - 1];
        if (!other)
            continue;
        const auto [at, isNew] = pictures.try_emplace(other);
        if (isNew) {
            path.push_back(other);
            at->second = k4suite::LightOf(Compose(path), other->Settings().pixel);
            path.pop_back();
        }
        const SignWindow& place = sign.Windows().At(window);
        Paint(at->second, place.row, place.column, picture);
    }
}

ShadePicture PictureComposer::Compose(Path& path) const {
    const Sign& sign = *path.back();
    const k4cmn::SignSettings& settings = sign.Settings();
    Lamps picture =
        Resized(sign.Playing().Picture(m_now).value_or(Lamps()), settings.rows, settings.columns);
    PaintWindows(path, picture);
    return Quantise(picture, TechnologyOf(settings.color));
}

ShadePicture PictureComposer::ShadesOf(const Sign& sign) const {
    Path path{&sign};
    ShadePicture shades = Compose(path);
    DimShades(shades, BrightnessOf(sign));
    return shades;
}

Lamps PictureComposer::LightOf(const Sign& sign) const {
    Path path{&sign};
    Lamps light = k4suite::LightOf(Compose(path), sign.Settings().pixel);
    DimLight(light, BrightnessOf(sign));
    return light;
}

std::uint8_t PictureComposer::PhotocellOf(const Sign& sign) const {
    return Daylight(m_minute, ShadeOfPlace(sign.Name()));
}

std::uint8_t PictureComposer::BrightnessOf(const Sign& sign) const {
    if (!IsDimmable(sign.Settings().pixel))
        return 255;
    const Dimming::Surroundings surroundings{PhotocellOf(sign), Daylight(m_minute, 0),
                                             ScheduledLevel(m_minute)};
    return BrightnessOfLevel(sign.Dimmer().LevelNow(surroundings));
}

// A frame that comes up twice in a row under one number would hide a change; so the sign's own
// count of changes goes in, which moves with each start.
std::uint64_t PictureComposer::HashOf(Path& path, std::uint64_t hash) const {
    const Sign& sign = *path.back();
    hash = NameHash(sign.Name(), hash);
    hash = NumberHash(sign.Changes(), hash);
    hash = NumberHash(sign.Playing().FramesShown(m_now), hash);
    std::vector<const Sign*> shown = WindowSigns(path);
    std::sort(shown.begin(), shown.end());
    shown.erase(std::unique(shown.begin(), shown.end()), shown.end());
    for (const Sign* other : shown) {
        if (!other)
            continue;
        path.push_back(other);
        hash = HashOf(path, hash);
        path.pop_back();
    }
    return hash;
}

std::uint64_t PictureComposer::LookOf(const Sign& sign) const {
    Path path{&sign};
    return HashOf(path, NumberHash(BrightnessOf(sign), NameHash("look")));
}

}  // namespace k4suite
