#include "suite/store/NamePattern.h"

#include <algorithm>

#include "suite/settings/NameText.h"

namespace k4suite {

namespace {

bool Fold(std::string_view bytes, std::u32string& folded) {
    folded.clear();
    for (std::size_t at = 0; at < bytes.size();) {
        const char32_t character = NextCharacter(bytes, at);
        if (character == kMalformed)
            return false;
        folded.push_back(FoldedCharacter(character));
    }
    return true;
}

}  // namespace

NamePattern::NamePattern(std::string_view pattern) {
    const bool isPlainEnding = pattern.size() > 1 && pattern.front() == '*' &&
                               pattern.find_first_of("*?", 1) == std::string_view::npos &&
                               std::all_of(pattern.begin(), pattern.end(), IsAscii);
    if (pattern == "*.*" || pattern == "*") {
        m_kind = Kind::Every;
    } else if (isPlainEnding) {
        // By far the most asked for ("*.SQ4", "*.Lib"), and a long folder shows it.
        m_kind = Kind::Ending;
        m_ending = pattern.substr(1);
        std::transform(m_ending.begin(), m_ending.end(), m_ending.begin(), LowerAscii);
    } else if (!Fold(pattern, m_wanted)) {
        m_kind = Kind::None;
    }
}

bool NamePattern::Matches(std::string_view name) {
    switch (m_kind) {
        case Kind::Every:
            return IsUtf8(name);
        case Kind::Ending:
            return name.size() >= m_ending.size() &&
                   std::equal(m_ending.begin(), m_ending.end(),
                              name.end() - static_cast<std::ptrdiff_t>(m_ending.size()),
                              [](char want, char have) { return want == LowerAscii(have); }) &&
                   IsUtf8(name);
        case Kind::Any:
            return Fold(name, m_name) && MatchesFolded();
        case Kind::None:
            break;
    }
    return false;
}

bool NamePattern::MatchesFolded() const {
    constexpr std::size_t none = std::u32string::npos;
    std::size_t want = 0;
    std::size_t have = 0;
    std::size_t star = none;       // the last '*' met,
    std::size_t afterStar = none;  // and where the name went on behind what it stands for
    while (have < m_name.size()) {
        if (want < m_wanted.size() && m_wanted[want] == U'*') {
            star = want++;
            afterStar = have;
        } else if (want < m_wanted.size() &&
                   (m_wanted[want] == U'?' || m_wanted[want] == m_name[have])) {
            ++want;
            ++have;
        } else if (star != none) {
            want = star + 1;
            have = ++afterStar;
        } else {
            return false;
        }
    }
    return m_wanted.find_first_not_of(U'*', want) == none;
}

}  // namespace k4suite
