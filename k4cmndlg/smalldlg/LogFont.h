#pragma once

#include <cstdint>
#include <string>

/// A font by its attributes, as the applications of the suite pass it around. The fields have the
/// names, units and meanings that they have had there from the beginning.
struct LOGFONT {
    /// Below 0: the height of the letters in screen dots (a size in points times the dots per inch,
    /// divided by 72), negated. Above 0: the height of a line. 0: the usual height.
    std::int32_t lfHeight = 0;
    std::int32_t lfWidth = 0;        ///< the average width of a letter in dots; 0 the face's own
    std::int32_t lfEscapement = 0;   ///< the angle of the line in tenths of a degree
    std::int32_t lfOrientation = 0;  ///< the angle of the letters in tenths of a degree
    std::int32_t lfWeight = 0;       ///< 1 to 1000, 400 for normal and 700 for bold; 0 for any
    std::uint8_t lfItalic = 0;       ///< 1 or 0, like the next two
    std::uint8_t lfUnderline = 0;
    std::uint8_t lfStrikeOut = 0;
    std::uint8_t lfCharSet = 0;
    std::uint8_t lfOutPrecision = 0;
    std::uint8_t lfClipPrecision = 0;
    std::uint8_t lfQuality = 0;
    std::uint8_t lfPitchAndFamily = 0;
    std::string lfFaceName;  ///< empty for any

    bool operator==(const LOGFONT&) const = default;
};

/// The drawing context of a printer. Nothing in the library makes one or looks into one: it stands
/// for what an application may hand on with a font.
class CDC;

/// @name Flags of a font dialog. They are those of the platform that the suite comes from, so that
/// applications can hand over the numbers that they have; only those named here have an effect.
/// @{
inline constexpr std::uint32_t CF_SCREENFONTS = 0x1;        ///< fonts for the screen: always so
inline constexpr std::uint32_t CF_EFFECTS = 0x100;          ///< strikeout, underline and color
inline constexpr std::uint32_t CF_FIXEDPITCHONLY = 0x4000;  ///< only faces of one width
inline constexpr std::uint32_t CF_SCALABLEONLY = 0x20000;   ///< only faces of any size
/// @}
