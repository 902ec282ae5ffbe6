#pragma once

#include <string>
#include <vector>

namespace k4test {

/// Texts as a slow reader would look at them: the letters that the generated stores use, one after
/// another, and nothing borrowed from the library.

/// The characters of a text; nothing if it isn't UTF-8.
bool Characters(const std::string& text, std::vector<std::string>& characters);

/// A text with its ASCII letters, and those of kLetterPairs, in upper case.
std::string InUpperCase(const std::string& text);

/// Whether a pattern with '*' and '?' matches a whole name, case not counting; "*.*" matches every
/// name. Neither matches if it isn't UTF-8.
bool MatchesPattern(const std::string& pattern, const std::string& name);

/// The tokens of a text between ';', blanks, ',', tabs and line feeds.
std::vector<std::string> Tokens(const std::string& text);

/// The letters beyond ASCII that have two cases, the small one first.
struct LetterPair {
    const char* small;
    const char* capital;
};
inline constexpr LetterPair kLetterPairs[] = {
    {"\u00e4", "\u00c4"}, {"\u00f6", "\u00d6"}, {"\u00fc", "\u00dc"}, {"\u00e9", "\u00c9"},
    {"\u0436", "\u0416"}, {"\u0443", "\u0423"}, {"\u043a", "\u041a"}, {"\u03c9", "\u03a9"},
};

}  // namespace k4test
