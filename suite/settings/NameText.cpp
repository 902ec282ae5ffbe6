#include "suite/settings/NameText.h"

namespace k4suite {

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
