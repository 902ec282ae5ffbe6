#include "suite/signservice/PictureComposer.h"

#include <algorithm>
#include <map>
#include <utility>

#include "suite/bulbcv/BulbDecoder.h"
#include "suite/bulbcv/BulbEncoder.h"
#include "suite/signservice/BulbLight.h"
#include "suite/signservice/DibEncoder.h"
#include "suite/signservice/Machine.h"
#include "suite/signservice/NameHash.h"

namespace k4suite {

namespace {

/// How many windows lie inside one another at most.
constexpr std::size_t kDeepest = 4;

constexpr std::uint8_t kFullBrightness = 255;

using Cover = LampGrid<std::uint8_t>;
constexpr std::uint8_t kCovered = 1;

/// Paints one picture over another, as far as it lies on it.
template <class Picture>
void Paint(const Picture& from, std::int32_t row, std::int32_t column, Picture& onto) {
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

ShadePicture Dark(const k4cmn::SignSettings& sign) {
    return {TechnologyOf(sign.color), LampGrid<Shade>(sign.rows, sign.columns)};
}

bool ShowsAny(const std::vector<const Sign*>& shown) {
    return std::any_of(shown.begin(), shown.end(), [](const Sign* sign) { return sign; });
}

/// Which lamps of a sign lie under its windows.
Cover CoverOf(const Sign& sign, const std::vector<const Sign*>& shown) {
    Cover cover(sign.Settings().rows, sign.Settings().columns);
    for (std::uint32_t window = 1; window <= K4_MAX_SIGN_WINDOWS; ++window) {
        if (!shown[window - 1])
            continue;
        const k4cmn::SignSettings& other = shown[window - 1]->Settings();
        const SignWindow& place = sign.Windows().At(window);
        Cover all(other.rows, other.columns);
        std::fill(all.All().begin(), all.All().end(), kCovered);
        Paint(all, place.row, place.column, cover);
    }
    return cover;
}

/// Whether a window lies over a lamp, or over another one of its cell.
bool IsCovered(const Cover& cover, const LampTechnology& technology, std::uint32_t row,
               std::uint32_t column) {
    if (technology.family != LampFamily::Quad)
        return cover.At(row, column) == kCovered;
    for (std::uint32_t r = row & ~1U; r < std::min((row & ~1U) + 2, cover.Rows()); ++r)
        for (std::uint32_t c = column & ~1U; c < std::min((column & ~1U) + 2, cover.Columns()); ++c)
            if (cover.At(r, c) == kCovered)
                return true;
    return false;
}

/// Puts back what the lamps do that no window covers: not all of it can be told from their light.
void PutBackUncovered(const ShadePicture& own, const Cover& cover, ShadePicture& composed) {
    for (std::uint32_t row = 0; row < cover.Rows(); ++row)
        for (std::uint32_t column = 0; column < cover.Columns(); ++column)
            if (!IsCovered(cover, own.technology, row, column))
                composed.lamps.At(row, column) = own.lamps.At(row, column);
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

void PictureComposer::PaintWindows(Path& path, const std::vector<const Sign*>& shown,
                                   Lamps& picture) const {
    const Sign& sign = *path.back();
    // Several windows may show one sign: it is composed once.
    std::map<const Sign*, Lamps> pictures;
    for (std::uint32_t window = 1; window <= K4_MAX_SIGN_WINDOWS; ++window) {
        const Sign* other = shown[window - 1];
        if (!other)
            continue;
        const auto [at, isNew] = pictures.try_emplace(other);
        if (isNew) {
            path.push_back(other);
            at->second = LightOf(Compose(path), other->Settings().pixel);
            path.pop_back();
        }
        const SignWindow& place = sign.Windows().At(window);
        Paint(at->second, place.row, place.column, picture);
    }
}

ShadePicture PictureComposer::Compose(Path& path) const {
    const Sign& sign = *path.back();
    const k4cmn::SignSettings& settings = sign.Settings();
    const LampTechnology technology = TechnologyOf(settings.color);
    const std::optional<FramePicture> frame = sign.Playing().Picture(m_now);
    if (!frame)
        return Dark(settings);
    const bool isExact = !frame->light;
    ShadePicture own = isExact
                           ? DecodeBulbs(frame->bulbs, settings.rows, settings.columns, technology)
                           : Quantise(*frame->light, technology);
    const std::vector<const Sign*> shown = WindowSigns(path);
    if (!ShowsAny(shown))
        return own;
    Lamps light = isExact ? LightOf(own, settings.pixel) : *frame->light;
    PaintWindows(path, shown, light);
    ShadePicture composed = Quantise(light, technology);
    if (isExact)
        PutBackUncovered(own, CoverOf(sign, shown), composed);
    return composed;
}

std::optional<std::span<const std::uint8_t>> PictureComposer::PlainBulbs(const Sign& sign) const {
    if (ShowsAny(WindowSigns({&sign})))
        return std::nullopt;
    const std::optional<FramePicture> frame = sign.Playing().Picture(m_now);
    if (!frame || frame->light)
        return std::nullopt;
    return frame->bulbs;
}

void PictureComposer::BulbsOf(const Sign& sign, std::span<std::uint8_t> bytes) const {
    const std::uint8_t brightness = BrightnessOf(sign);
    std::vector<std::uint8_t> encoded;
    std::span<const std::uint8_t> bulbs;
    if (const auto plain = brightness == kFullBrightness ? PlainBulbs(sign) : std::nullopt) {
        bulbs = *plain;
    } else {
        Path path{&sign};
        ShadePicture shades = Compose(path);
        DimShades(shades, brightness);
        encoded = EncodeBulbs(shades);
        bulbs = encoded;
    }
    std::copy(bulbs.begin(), bulbs.end(), bytes.begin());
}

void PictureComposer::DibOf(const Sign& sign, std::span<std::uint8_t> bytes) const {
    const k4cmn::SignSettings& settings = sign.Settings();
    const std::uint8_t brightness = BrightnessOf(sign);
    if (const auto plain = PlainBulbs(sign)) {
        BulbsToDib({*plain, settings.rows, settings.columns, settings.color, settings.pixel},
                   brightness, bytes);
        return;
    }
    Path path{&sign};
    Lamps light = LightOf(Compose(path), settings.pixel);
    DimLight(light, brightness);
    EncodeDib(light, bytes);
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
