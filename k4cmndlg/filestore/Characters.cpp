#include "k4cmndlg/filestore/Characters.h"

#include <algorithm>

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

constexpr char LowerLetter(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
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

std::string WithoutCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), LowerLetter);
    return lower;
}

bool IsSameWithoutCase(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return LowerLetter(a) == LowerLetter(b); });
}

bool IsLessWithoutCase(std::string_view one, std::string_view other) {
    return std::lexicographical_compare(one.begin(), one.end(), other.begin(), other.end(),
                                        [](char a, char b) {
                                            return static_cast<unsigned char>(LowerLetter(a)) <
                                                   static_cast<unsigned char>(LowerLetter(b));
                                        });
}

}  // namespace k4cmn
