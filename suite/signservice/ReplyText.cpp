#include "suite/signservice/ReplyText.h"

#include <algorithm>

namespace k4suite {

namespace {

/// How many bytes of text the buffer has room for.
std::size_t RoomOf(const char* buffer, std::uint32_t capacity) {
    return buffer && capacity ? capacity - 1 : 0;
}

void Put(std::string_view text, char* buffer, std::uint32_t capacity, std::uint32_t* length) {
    if (buffer && capacity) {
        std::copy(text.begin(), text.end(), buffer);
        buffer[text.size()] = '\0';
    }
    PutNumber(length, text.size());
}

bool IsInsideCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

void PutText(std::string_view text, char* buffer, std::uint32_t capacity, std::uint32_t* length) {
    std::size_t size = std::min(text.size(), RoomOf(buffer, capacity));
    while (size > 0 && size < text.size() && IsInsideCharacter(text[size]))
        --size;
    Put(text.substr(0, size), buffer, capacity, length);
}

void PutLines(std::string_view lines, char* buffer, std::uint32_t capacity, std::uint32_t* length) {
    std::size_t size = std::min(lines.size(), RoomOf(buffer, capacity));
    while (size > 0 && lines[size - 1] != '\n')
        --size;
    Put(lines.substr(0, size), buffer, capacity, length);
}

}  // namespace k4suite
