#include "k4cmndlg/frame/WindowPlacement.h"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <limits>

#include "k4cmndlg/frame/FieldNumber.h"
#include "k4cmndlg/frame/Format.h"

namespace k4cmn {

namespace {

constexpr std::size_t kFields = 10;

std::int32_t Signed(std::int64_t number) {
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(number, std::numeric_limits<std::int32_t>::min(),
                                 std::numeric_limits<std::int32_t>::max()));
}

std::uint32_t Unsigned(std::int64_t number) {
    return static_cast<std::uint32_t>(
        std::clamp<std::int64_t>(number, 0, std::numeric_limits<std::uint32_t>::max()));
}

std::int64_t Width(const PixelRect& rect) {
    return std::int64_t{rect.right} - rect.left;
}

std::int64_t Height(const PixelRect& rect) {
    return std::int64_t{rect.bottom} - rect.top;
}

/// The area that two rectangles share. A number that can't overflow, whatever was saved.
double Shared(const PixelRect& a, const PixelRect& b) {
    const double width = double{1} * std::min(a.right, b.right) - std::max(a.left, b.left);
    const double height = double{1} * std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
    return width > 0 && height > 0 ? width * height : 0;
}

/// The area of a rectangle that lies on any screen; mirrored screens count once.
double Shown(const PixelRect& rect, std::span<const PixelRect> screens) {
    double shown = 0;
    for (auto screen = screens.begin(); screen != screens.end(); ++screen) {
        const bool isNew = std::none_of(screens.begin(), screen, [&](const PixelRect& earlier) {
            return Shared(earlier, *screen) > 0;
        });
        if (isNew)
            shown += Shared(rect, *screen);
    }
    return shown;
}

/// How far a place lies outside of a stretch.
std::int64_t Outside(std::int64_t place, std::int64_t from, std::int64_t to) {
    return std::max<std::int64_t>({from - place, place - to, 0});
}

/// How far the middle of a rectangle is from a screen, as the way along both axes.
std::int64_t Distance(const PixelRect& rect, const PixelRect& screen) {
    return Outside(std::int64_t{rect.left} + Width(rect) / 2, screen.left, screen.right) +
           Outside(std::int64_t{rect.top} + Height(rect) / 2, screen.top, screen.bottom);
}

/// The start of a stretch of a length, moved inside; one that is too long starts where they start.
std::int64_t Held(std::int64_t start, std::int64_t length, std::int64_t from, std::int64_t to) {
    return std::max(std::min(start, to - length), from);
}

/// A start that leaves room for a length below the highest number.
std::int32_t Start(std::int64_t start, std::int64_t length) {
    return Signed(std::min(start, std::numeric_limits<std::int32_t>::max() - length));
}

PixelRect Placed(std::int64_t left, std::int64_t top, const PixelRect& size) {
    const std::int32_t x = Start(left, Width(size));
    const std::int32_t y = Start(top, Height(size));
    return {x, y, Signed(x + Width(size)), Signed(y + Height(size))};
}

}  // namespace

std::string PlacementSection(const std::string& title) {
    return Format("Dialogs\\%s", title.c_str());
}

std::string FormatPlacement(const WindowPlacement& placement) {
    return Format("%" PRIu32 ",%" PRIu32 ",%" PRId32 ",%" PRId32 ",%" PRId32 ",%" PRId32 ",%" PRId32
                  ",%" PRId32 ",%" PRId32 ",%" PRId32,
                  placement.flags, placement.showState, placement.minimizedX, placement.minimizedY,
                  placement.maximizedX, placement.maximizedY, placement.normal.left,
                  placement.normal.top, placement.normal.right, placement.normal.bottom);
}

std::optional<WindowPlacement> ParsePlacement(std::string_view text) {
    std::array<std::int64_t, kFields> fields{};
    for (std::size_t index = 0; index < kFields; ++index) {
        if (index > 0) {
            if (!text.starts_with(','))
                return std::nullopt;
            text.remove_prefix(1);
        }
        const auto number = TakeNumber(text);
        if (!number)
            return std::nullopt;
        fields[index] = *number;
    }
    return WindowPlacement{
        Unsigned(fields[0]),
        Unsigned(fields[1]),
        Signed(fields[2]),
        Signed(fields[3]),
        Signed(fields[4]),
        Signed(fields[5]),
        {Signed(fields[6]), Signed(fields[7]), Signed(fields[8]), Signed(fields[9])}};
}

PixelRect RestoredRect(const PixelRect& saved, const PixelRect& present) {
    return Placed(saved.left, saved.top, present);
}

PixelRect ClampToScreens(const PixelRect& rect, std::span<const PixelRect> screens) {
    const double area = static_cast<double>(Width(rect)) * static_cast<double>(Height(rect));
    if (screens.empty() || (area > 0 && Shown(rect, screens) >= area))
        return rect;
    const auto isWorse = [&rect](const PixelRect& a, const PixelRect& b) {
        const double shownOfA = Shared(rect, a);
        const double shownOfB = Shared(rect, b);
        return shownOfA < shownOfB ||
               (shownOfA == shownOfB && Distance(rect, a) > Distance(rect, b));
    };
    const PixelRect& best = *std::max_element(screens.begin(), screens.end(), isWorse);
    return Placed(Held(rect.left, Width(rect), best.left, best.right),
                  Held(rect.top, Height(rect), best.top, best.bottom), rect);
}

}  // namespace k4cmn
