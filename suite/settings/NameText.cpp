#include "suite/settings/NameText.h"

#include <QChar>

namespace k4suite {

char32_t NextCharacter(std::string_view bytes, std::size_t& at) {
    const auto first = static_cast<unsigned char>(bytes[at++]);
    if (first < 0x80)
        return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4)
        return kMalformed;
    char32_t character = first & (0x3Fu >> more);
    for (int i = 0; i < more; ++i) {
        if (at == bytes.size() || (static_cast<unsigned char>(bytes[at]) & 0xC0) != 0x80)
            return kMalformed;
        character = character << 6 | (static_cast<unsigned char>(bytes[at++]) & 0x3Fu);
    }
    constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < smallest[more] || character > 0x10FFFF || isSurrogate)
        return kMalformed;
    return character;
}

char32_t FoldedCharacter(char32_t character) {
    if (character < 0x80)
        return static_cast<char32_t>(LowerAscii(static_cast<char>(character)));
    return QChar::toCaseFolded(character);
}

bool IsUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        if (IsAscii(bytes[at]))
            ++at;
        else if (NextCharacter(bytes, at) == kMalformed)
            return false;
    }
    return true;
}

bool IsSameName(std::string_view one, std::string_view other) {
    std::size_t inOne = 0;
    std::size_t inOther = 0;
    while (inOne < one.size() && inOther < other.size()) {
        const char32_t a = NextCharacter(one, inOne);
        const char32_t b = NextCharacter(other, inOther);
        if (a == kMalformed || b == kMalformed)
            return one == other;
        if (FoldedCharacter(a) != FoldedCharacter(b))
            return false;
    }
    return inOne == one.size() && inOther == other.size();
}

}  // namespace k4suite
