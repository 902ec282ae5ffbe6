#pragma once

#include <cstdint>
#include <string_view>

namespace k4suite {

/// Copies one text into a caller's buffer, with a zero behind it. A text that doesn't fit is cut,
/// not inside a character.
/// @param buffer   may be null; then nothing is written.
/// @param capacity bytes of the buffer, with the zero. 0: nothing is written.
/// @param length   gets the bytes written, without the zero; may be null.
void PutText(std::string_view text, char* buffer, std::uint32_t capacity, std::uint32_t* length);

/// The same for lines that each end with a newline: what doesn't fit is cut behind a whole line.
void PutLines(std::string_view lines, char* buffer, std::uint32_t capacity, std::uint32_t* length);

/// Puts a number where it is wanted.
template <class Number, class Value>
void PutNumber(Number* to, Value value) {
    if (to)
        *to = static_cast<Number>(value);
}

}  // namespace k4suite
