#include "apps/k4ctl/TerminalText.h"

#include <algorithm>
#include <array>

#include "k4cmndlg/frame/Format.h"

namespace k4ctl {
namespace {

/// One character of a UTF-8 text, or one byte of it that belongs to none.
struct Character {
    char32_t point = 0;
    std::size_t length = 1;
    bool valid = false;
};

std::size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

Character CharacterAt(std::string_view text, std::size_t position) {
    const auto byte = [&](std::size_t index) {
        return static_cast<unsigned char>(text[position + index]);
    };
    Character result;
    const std::size_t length = SequenceLength(byte(0));
    if (length == 0 || length > text.size() - position) {
        result.point = byte(0);
        return result;
    }
    char32_t point = length == 1 ? byte(0) : byte(0) & (0x7Fu >> length);
    for (std::size_t index = 1; index < length; ++index) {
        if ((byte(index) & 0xC0u) != 0x80u) {
            result.point = byte(0);
            return result;
        }
        point = (point << 6) | (byte(index) & 0x3Fu);
    }
    constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
    if (point < kLeast[length] || surrogate || point > 0x10FFFF) {
        result.point = byte(0);
        return result;
    }
    return {point, length, true};
}

struct Range {
    char32_t first;
    char32_t last;
};

template <std::size_t Count>
bool IsIn(const std::array<Range, Count>& ranges, char32_t point) {
    return std::any_of(ranges.begin(), ranges.end(), [point](const Range& range) {
        return point >= range.first && point <= range.last;
    });
}

// What a terminal acts upon beyond ASCII: controls, line separators, marks of direction.
constexpr std::array<Range, 5> kActedUpon = {{
    {0x80, 0x9F},
    {0x200E, 0x200F},
    {0x2028, 0x202E},
    {0x2066, 0x2069},
    {0xFEFF, 0xFEFF},
}};

constexpr std::array<Range, 6> kCombining = {{
    {0x0300, 0x036F},
    {0x0483, 0x0489},
    {0x1AB0, 0x1AFF},
    {0x200B, 0x200D},
    {0x20D0, 0x20FF},
    {0xFE00, 0xFE0F},
}};

constexpr std::array<Range, 9> kWide = {{
    {0x1100, 0x115F},
    {0x2E80, 0xA4CF},
    {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F},
    {0xFF00, 0xFF60},
    {0xFFE0, 0xFFE6},
    {0x1F300, 0x1FAFF},
    {0x20000, 0x3FFFD},
}};

std::string EscapedByte(char32_t point) {
    switch (point) {
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            return k4cmn::Format("\\x%02x", static_cast<unsigned>(point));
    }
}

}  // namespace

std::string Escaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const Character character = CharacterAt(text, position);
        if (!character.valid || character.point < 0x20 || character.point == 0x7F) {
            result += EscapedByte(character.point);
        } else if (IsIn(kActedUpon, character.point)) {
            result += k4cmn::Format("\\u%04x", static_cast<unsigned>(character.point));
        } else {
            result += text.substr(position, character.length);
        }
        position += character.length;
    }
    return result;
}

std::size_t DisplayWidth(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t position = 0; position < text.size();) {
        const Character character = CharacterAt(text, position);
        if (IsIn(kWide, character.point)) {
            width += 2;
        } else if (!IsIn(kCombining, character.point)) {
            width += 1;
        }
        position += character.length;
    }
    return width;
}

std::string EscapedJson(std::string_view document) {
    std::string result;
    result.reserve(document.size());
    for (std::size_t position = 0; position < document.size();) {
        const Character character = CharacterAt(document, position);
        if (character.valid && character.point >= 0x7F && character.point <= 0x9F) {
            result += k4cmn::Format("\\u%04x", static_cast<unsigned>(character.point));
        } else {
            result += document.substr(position, character.length);
        }
        position += character.length;
    }
    return result;
}

}  // namespace k4ctl
