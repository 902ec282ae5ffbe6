#include "k4cmndlg/filestore/Characters.h"

#include <algorithm>

#include "k4cmndlg/filestore/CaseFolding.h"

namespace k4cmn {

namespace {

constexpr bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// How many bytes a character takes that begins with this one.
constexpr std::size_t CharacterLength(char byte) {
    const auto first = static_cast<unsigned char>(byte);
    return first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

/// Where the character ends that begins at a byte.
std::size_t CharacterEnd(std::string_view text, std::size_t at) {
    const std::size_t end = std::min(at + CharacterLength(text[at]), text.size());
    do
        ++at;
    while (at < end && ContinuesCharacter(text[at]));
    return at;
}

/// Malformed bytes count as characters of their own, from here on.
constexpr char32_t kBytes = 0x110000;

/// Reads the next character without its case.
char32_t NextFolded(std::string_view text, std::size_t& at) {
    const std::size_t begin = at;
    const char32_t character = NextCharacter(text, at);
    if (character != kMalformed)
        return FoldedCharacter(character);
    at = begin + 1;
    return kBytes + static_cast<unsigned char>(text[begin]);
}

void Append(std::string& text, char32_t character) {
    const auto add = [&](char32_t bits) { text.push_back(static_cast<char>(bits)); };
    const auto addRest = [&](int shift) { add(0x80 | (character >> shift & 0x3F)); };
    if (character >= kBytes) {
        add(character - kBytes);
    } else if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | character >> 6);
        addRest(0);
    } else if (character < 0x10000) {
        add(0xE0 | character >> 12);
        addRest(6);
        addRest(0);
    } else {
        add(0xF0 | character >> 18);
        addRest(12);
        addRest(6);
        addRest(0);
    }
}

}  // namespace

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count)
        at = CharacterEnd(text, at);
    return count;
}

std::string FirstCharacters(std::string_view text, std::size_t most) {
    std::size_t end = 0;
    for (std::size_t count = 0; count < most && end < text.size(); ++count)
        end = CharacterEnd(text, end);
    return std::string(text.substr(0, end));
}

std::string WithoutLastCharacters(std::string_view text, std::size_t count) {
    const std::size_t all = CharacterCount(text);
    return FirstCharacters(text, all - std::min(all, count));
}

std::string WithoutCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
        Append(folded, NextFolded(text, at));
    return folded;
}

bool IsSameWithoutCase(std::string_view one, std::string_view other) {
    std::size_t inOne = 0;
    std::size_t inOther = 0;
    while (inOne < one.size() && inOther < other.size()) {
        if (NextFolded(one, inOne) != NextFolded(other, inOther))
            return false;
    }
    return inOne == one.size() && inOther == other.size();
}

bool IsLessWithoutCase(std::string_view one, std::string_view other) {
    std::size_t inOne = 0;
    std::size_t inOther = 0;
    while (inOne < one.size() && inOther < other.size()) {
        const char32_t a = NextFolded(one, inOne);
        const char32_t b = NextFolded(other, inOther);
        if (a != b)
            return a < b;
    }
    return inOne == one.size() && inOther < other.size();
}

}  // namespace k4cmn
