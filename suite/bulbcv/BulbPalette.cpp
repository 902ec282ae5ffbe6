#include "suite/bulbcv/BulbPalette.h"

#include "suite/lamps/Shades.h"

namespace k4suite {

namespace {

constexpr Rgb kWhite = {255, 255, 255};

RGBQUAD ToEntry(const Rgb& color) {
    return {color.blue, color.green, color.red, 0};
}

Rgb LightOfIndex(std::uint32_t index, const LampTechnology& technology, const Rgb& mono) {
    const auto shade = [&](std::uint32_t channel) {
        return static_cast<std::uint8_t>(index >> (channel * technology.bits) &
                                         technology.BrightestShade());
    };
    if (technology.family == LampFamily::Quad)
        return LightOfCell({shade(0), shade(1), shade(2), shade(3)}, technology);
    return LightOfPlace({shade(0), shade(1), shade(2)}, technology, mono);
}

}  // namespace

std::uint32_t IndexBits(const LampTechnology& technology) {
    constexpr std::uint32_t lampsOfCell = 4;
    return technology.family == LampFamily::Quad ? lampsOfCell * technology.bits
                                                 : technology.planes;
}

BulbPalette IndexPalette(const LampTechnology& technology, tag_K4_PIXEL_TECH pixel) {
    const Rgb mono = MonoLight(pixel);
    BulbPalette palette;
    palette.used = 1U << IndexBits(technology);
    for (std::uint32_t index = 0; index < palette.used; ++index)
        palette.colors[index] = ToEntry(LightOfIndex(index, technology, mono));
    return palette;
}

BulbPalette BitPalette(const LampTechnology& technology, tag_K4_PIXEL_TECH pixel) {
    BulbPalette palette;
    palette.used = 2;
    palette.colors[1] = ToEntry(technology.family == LampFamily::Mono ? MonoLight(pixel) : kWhite);
    return palette;
}

}  // namespace k4suite
