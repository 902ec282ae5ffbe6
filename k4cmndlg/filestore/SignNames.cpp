#include "k4cmndlg/filestore/SignNames.h"

#include <array>
#include <iterator>

#include "k4cmndlg/frame/Format.h"

namespace k4cmn {

namespace {

// One bit a pixel technology.
enum Pixels : unsigned { kIncand = 1, kReflect = 2, kLed = 4 };

struct ColorRow {
    tag_K4_SIGN_COLOR value;
    std::string_view shortName;
    std::string_view longName;
    std::string_view searchName;
    unsigned pixels;  ///< the pixel technologies that it is made with
};

// clang-format off
constexpr std::array<ColorRow, kSignColorCount> kColors{{
    {K4_SIGN_COLOR_MONO1,   "Mono1",   "Monochrome",                     "Monochrome",                     kIncand | kReflect | kLed},
    {K4_SIGN_COLOR_QUAD16,  "Quad16",  "Quad Color",                     "Quad Color 16 Shades",           kIncand},
    {K4_SIGN_COLOR_TRI3,    "Tri3",    "Tri Color (RG LED)",             "Tri Color (RG LED)",             kLed},
    {K4_SIGN_COLOR_QUAD256, "Quad256", "Quad Color 256 Shades",          "Quad Color 256 Shades",          kIncand},
    {K4_SIGN_COLOR_MONO4,   "Mono4",   "Monochrome 4 Shades",            "Monochrome 4 Shades",            kIncand | kLed},
    {K4_SIGN_COLOR_QUAD64K, "Quad64K", "Quad Color 65,000 Shades",       "Quad Color 65535 Shades",        kIncand},
    {K4_SIGN_COLOR_MONO16,  "Mono16",  "Monochrome 16 Shades",           "Monochrome 16 Shades",           kIncand | kLed},
    {K4_SIGN_COLOR_TRI256,  "Tri256",  "Tri color (RG LED) 256 Shades",  "Tri Color (RG LED) 256 Shades",  kLed},
    {K4_SIGN_COLOR_QUAD16M, "Quad16M", "Quad Color 16 Million Shades",   "Quad Color 16 Million Shades",   kIncand},
    {K4_SIGN_COLOR_RGB64,   "RGB64",   "RGB LED 64 Shades",              "RGB LED 64 Shades",              kLed},
    {K4_SIGN_COLOR_RGB4K,   "RGB4K",   "RGB LED 4096 Shades",            "RGB LED 4096 Shades",            kLed},
    {K4_SIGN_COLOR_RGB16M,  "RGB16M",  "RGB LED 16 Million Shades",      "RGB LED 16,777,216 Shades",      kLed},
    {K4_SIGN_COLOR_MONO64,  "Mono64",  "Monochrome 64 Shades",           "Monochrome 64 Shades",           kIncand | kLed},
    {K4_SIGN_COLOR_RGB32KB, "RGB32KB", "RGB LED 32,768 Shades (DIB)",    "RGB LED 32,768 Shades (DIB)",    kLed},
    {K4_SIGN_COLOR_RGB16MB, "RGB16MB", "RGB LED 16 Million Shades (DIB)", "RGB LED 16 Million Shades (DIB)", kLed},
}};

struct PixelRow {
    tag_K4_PIXEL_TECH value;
    std::string_view shortName;
    std::string_view longName;
    unsigned bit;
};

constexpr std::array<PixelRow, kPixelTechCount> kPixels{{
    {K4_PIXEL_TECH_INCAND,  "Incand",  "Incandescent", kIncand},
    {K4_PIXEL_TECH_REFLECT, "Reflect", "Reflective",   kReflect},
    {K4_PIXEL_TECH_LED,     "LED",     "LED",          kLed},
}};
// clang-format on

template <class Rows, class Value>
constexpr auto Find(const Rows& rows, Value value) -> decltype(std::data(rows)) {
    for (const auto& row : rows) {
        if (row.value == value)
            return &row;
    }
    return nullptr;
}

std::string ColorName(tag_K4_SIGN_COLOR color) {
    return std::string(ColorShortName(color));
}

}  // namespace

std::string_view ColorShortName(tag_K4_SIGN_COLOR color) {
    const ColorRow* row = Find(kColors, color);
    return row ? row->shortName : std::string_view();
}

std::string_view ColorLongName(tag_K4_SIGN_COLOR color) {
    const ColorRow* row = Find(kColors, color);
    return row ? row->longName : std::string_view();
}

std::string_view ColorSearchName(tag_K4_SIGN_COLOR color) {
    const ColorRow* row = Find(kColors, color);
    return row ? row->searchName : std::string_view();
}

std::string_view PixelShortName(tag_K4_PIXEL_TECH pixel) {
    const PixelRow* row = Find(kPixels, pixel);
    return row ? row->shortName : std::string_view();
}

std::string_view PixelLongName(tag_K4_PIXEL_TECH pixel) {
    const PixelRow* row = Find(kPixels, pixel);
    return row ? row->longName : std::string_view();
}

bool IsColorAndPixelTechValid(tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel) {
    const ColorRow* colorRow = Find(kColors, color);
    const PixelRow* pixelRow = Find(kPixels, pixel);
    return colorRow && pixelRow && (colorRow->pixels & pixelRow->bit) != 0;
}

std::string TechnologiesDontFitText(tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel) {
    return Format("%s pixel technology is not valid for %s color technology.",
                  std::string(PixelLongName(pixel)).c_str(), ColorName(color).c_str());
}

std::string SignSizeText(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color) {
    return Format("%dx%d  %s", static_cast<int>(rows), static_cast<int>(columns),
                  ColorName(color).c_str());
}

std::string SignTypeLabel(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color) {
    return Format("Sign Type : %dx%d  %s", static_cast<int>(rows), static_cast<int>(columns),
                  ColorName(color).c_str());
}

}  // namespace k4cmn
