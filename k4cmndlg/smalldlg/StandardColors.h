#pragma once

#include <array>
#include <cstdint>

namespace k4cmn {

/// A color that has a name.
struct NamedColor {
    const char* name;
    std::uint32_t value;  ///< 0x00BBGGRR
};

/// The sixteen standard colors, in the order in which a person chooses from them.
inline constexpr std::array<NamedColor, 16> kStandardColors{{
    {"Black", 0x000000},
    {"Maroon", 0x000080},
    {"Green", 0x008000},
    {"Olive", 0x008080},
    {"Navy", 0x800000},
    {"Purple", 0x800080},
    {"Teal", 0x808000},
    {"Gray", 0x808080},
    {"Silver", 0xC0C0C0},
    {"Red", 0x0000FF},
    {"Lime", 0x00FF00},
    {"Yellow", 0x00FFFF},
    {"Blue", 0xFF0000},
    {"Fuchsia", 0xFF00FF},
    {"Aqua", 0xFFFF00},
    {"White", 0xFFFFFF},
}};

}  // namespace k4cmn
