#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "suite/lamps/Shades.h"

namespace k4suite {

/// Bulb data: what each lamp of a sign does, packed the way signs take it.
///
/// A line holds the grid's columns, rounded up to a multiple of 16; there are as many lines as
/// rows, rounded up to even. What lies beyond the grid is 0.
///
/// Planes. A plane has one bit a lamp: lines of 16-bit words, each word low byte first, with the
/// leftmost lamp of a word in its highest bit. Plane 0 holds the lowest bit of a shade.
/// - Mono, Quad: all planes are one shade, that of the lamp at the place.
/// - Tri: the first half of the planes is the red shade, the second half the green one.
/// - Rgb: thirds, red, green and blue.
///
/// Packed pixels, line by line, low byte first:
/// - 5 bits a lamp: a 16-bit word, blue in bits 0 to 4, green in 5 to 9, red in 10 to 14.
/// - 8 bits a lamp: three bytes, blue, green, red.
///
/// A worked example for each family. A grid of 1 row and 3 columns has lines of one word and two
/// lines, the second one empty. A word is written here as its value, lines with a comma between.
/// - Mono of 2 bits with the shades 1, 2, 3: plane 0 is A000h, 0; plane 1 is 6000h, 0.
/// - Tri of 1 bit, red, green, both: red is A000h, 0; green is 6000h, 0.
/// - Rgb of 2 bits, full red, dark, shade 1 of blue: red is 8000h, 0 and again 8000h, 0; green is
///   four empty words; blue is 2000h, 0 and 0, 0.
/// - Quad of 1 bit, a grid of 2 by 2, a red and a white lamp lit: 8000h, 4000h.
/// - Packed of 5 bits, red, green, blue: the words 7C00h, 03E0h, 001Fh and 13 empty ones, and an
///   empty line. Packed of 8 bits, red alone: the bytes 0, 0, FFh.

/// The bytes of a grid's bulb data.
std::size_t BulbBytes(std::uint32_t rows, std::uint32_t columns, const LampTechnology& technology);

/// Packs a picture; the result has BulbBytes().
std::vector<std::uint8_t> EncodeBulbs(const ShadePicture& picture);

}  // namespace k4suite
