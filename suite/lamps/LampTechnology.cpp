#include "suite/lamps/LampTechnology.h"

namespace k4suite {

namespace {

struct Row {
    tag_K4_SIGN_COLOR color;
    LampTechnology technology;
};

constexpr Row kTechnologies[] = {
    {K4_SIGN_COLOR_MONO1, {LampFamily::Mono, 1, 1}},
    {K4_SIGN_COLOR_QUAD16, {LampFamily::Quad, 1, 1}},
    {K4_SIGN_COLOR_TRI3, {LampFamily::Tri, 1, 2}},
    {K4_SIGN_COLOR_QUAD256, {LampFamily::Quad, 2, 2}},
    {K4_SIGN_COLOR_MONO4, {LampFamily::Mono, 2, 2}},
    {K4_SIGN_COLOR_QUAD64K, {LampFamily::Quad, 4, 4}},
    {K4_SIGN_COLOR_MONO16, {LampFamily::Mono, 4, 4}},
    {K4_SIGN_COLOR_TRI256, {LampFamily::Tri, 4, 8}},
    {K4_SIGN_COLOR_QUAD16M, {LampFamily::Quad, 6, 6}},
    {K4_SIGN_COLOR_RGB64, {LampFamily::Rgb, 2, 6}},
    {K4_SIGN_COLOR_RGB4K, {LampFamily::Rgb, 4, 12}},
    {K4_SIGN_COLOR_RGB16M, {LampFamily::Rgb, 8, 24}},
    {K4_SIGN_COLOR_MONO64, {LampFamily::Mono, 6, 6}},
    {K4_SIGN_COLOR_RGB32KB, {LampFamily::Packed, 5, 16}},
    {K4_SIGN_COLOR_RGB16MB, {LampFamily::Packed, 8, 24}},
    {static_cast<tag_K4_SIGN_COLOR>(15), {LampFamily::None, 0, 0}},
};

}  // namespace

LampTechnology TechnologyOf(tag_K4_SIGN_COLOR color) {
    for (const Row& row : kTechnologies)
        if (row.color == color)
            return row.technology;
    return {};
}

Rgb MonoLight(tag_K4_PIXEL_TECH pixel) {
    switch (pixel) {
        case K4_PIXEL_TECH_REFLECT:
            return {206, 255, 26};
        case K4_PIXEL_TECH_LED:
            return {255, 160, 0};
        default:
            return {255, 214, 150};
    }
}

bool IsDimmable(tag_K4_PIXEL_TECH pixel) {
    return pixel != K4_PIXEL_TECH_REFLECT;
}

}  // namespace k4suite
