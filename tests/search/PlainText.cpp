#include "tests/search/PlainText.h"

#include <string_view>

namespace k4test {

namespace {

/// How many bytes a character has by its first one; 0 for a byte that begins none.
std::size_t LengthByFirst(unsigned char byte) {
    if (byte < 0x80)
        return 1;
    if (byte >= 0xc2 && byte < 0xe0)
        return 2;
    if (byte >= 0xe0 && byte < 0xf0)
        return 3;
    return byte >= 0xf0 && byte < 0xf5 ? 4 : 0;
}

}  // namespace

bool Characters(const std::string& text, std::vector<std::string>& characters) {
    characters.clear();
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = LengthByFirst(static_cast<unsigned char>(text[at]));
        if (length == 0 || at + length > text.size())
            return false;
        for (std::size_t i = 1; i < length; ++i) {
            if ((static_cast<unsigned char>(text[at + i]) & 0xc0) != 0x80)
                return false;
        }
        characters.push_back(text.substr(at, length));
        at += length;
    }
    return true;
}

std::string InUpperCase(const std::string& text) {
    std::string upper;
    for (std::size_t at = 0; at < text.size();) {
        std::string next(1, text[at]);
        std::size_t length = 1;
        if (text[at] >= 'a' && text[at] <= 'z')
            next[0] = static_cast<char>(text[at] - 'a' + 'A');
        for (const LetterPair& pair : kLetterPairs) {
            const std::string small = pair.small;
            if (text.compare(at, small.size(), small) == 0) {
                next = pair.capital;
                length = small.size();
            }
        }
        upper += next;
        at += length;
    }
    return upper;
}

bool MatchesPattern(const std::string& pattern, const std::string& name) {
    std::vector<std::string> want;
    std::vector<std::string> have;
    if (!Characters(InUpperCase(pattern), want) || !Characters(InUpperCase(name), have))
        return false;
    if (pattern == "*.*")
        return true;
    // matches[i][j]: the first i characters of the pattern match the first j of the name.
    std::vector<std::vector<bool>> matches(want.size() + 1, std::vector<bool>(have.size() + 1));
    matches[0][0] = true;
    for (std::size_t i = 1; i <= want.size(); ++i) {
        for (std::size_t j = 0; j <= have.size(); ++j) {
            if (want[i - 1] == "*")
                matches[i][j] = matches[i - 1][j] || (j > 0 && matches[i][j - 1]);
            else if (j > 0 && (want[i - 1] == "?" || want[i - 1] == have[j - 1]))
                matches[i][j] = matches[i - 1][j - 1];
        }
    }
    return matches[want.size()][have.size()];
}

std::vector<std::string> Tokens(const std::string& text) {
    std::vector<std::string> tokens;
    std::string token;
    for (const char byte : text + ";") {
        if (std::string_view("; ,\t\n").find(byte) == std::string_view::npos) {
            token += byte;
        } else if (!token.empty()) {
            tokens.push_back(token);
            token.clear();
        }
    }
    return tokens;
}

}  // namespace k4test
