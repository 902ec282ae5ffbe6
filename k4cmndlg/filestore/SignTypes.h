#pragma once

#include <cstdint>

/// The color technology of a sign. The value is also the index in every color technology combo box.
/// A service may report 15, which has no name.
enum tag_K4_SIGN_COLOR : std::int32_t {
    K4_SIGN_COLOR_MONO1 = 0,
    K4_SIGN_COLOR_QUAD16 = 1,
    K4_SIGN_COLOR_TRI3 = 2,
    K4_SIGN_COLOR_QUAD256 = 3,
    K4_SIGN_COLOR_MONO4 = 4,
    K4_SIGN_COLOR_QUAD64K = 5,
    K4_SIGN_COLOR_MONO16 = 6,
    K4_SIGN_COLOR_TRI256 = 7,
    K4_SIGN_COLOR_QUAD16M = 8,
    K4_SIGN_COLOR_RGB64 = 9,
    K4_SIGN_COLOR_RGB4K = 10,
    K4_SIGN_COLOR_RGB16M = 11,
    K4_SIGN_COLOR_MONO64 = 12,
    K4_SIGN_COLOR_RGB32KB = 13,
    K4_SIGN_COLOR_RGB16MB = 14,
};

/// The pixel technology of a sign. A combo box index is the value less one.
enum tag_K4_PIXEL_TECH : std::int32_t {
    K4_PIXEL_TECH_INCAND = 1,
    K4_PIXEL_TECH_REFLECT = 2,
    K4_PIXEL_TECH_LED = 3,
};

/// How a sign's output lies on its lamps. Carried by the settings, and interpreted by the sign.
enum tag_K4_OUTPUT_ORIENTATION : std::int32_t {
    K4_OUTPUT_ORIENTATION_NORMAL = 0,
    K4_OUTPUT_ORIENTATION_ROTATED = 1,
    K4_OUTPUT_ORIENTATION_MIRRORED = 2,
    K4_OUTPUT_ORIENTATION_ROTATED_MIRRORED = 3,
};
