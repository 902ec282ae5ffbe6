#include "k4cmndlg/search/SearchWords.h"

#include <algorithm>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/search/SearchCriteria.h"

namespace k4cmn {

namespace {

constexpr std::string_view kSeparators = "; ,\t\n";

}  // namespace

std::vector<std::string_view> WordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    std::size_t begin = text.find_first_not_of(kSeparators);
    while (begin != std::string_view::npos) {
        const std::size_t end = std::min(text.find_first_of(kSeparators, begin), text.size());
        words.push_back(text.substr(begin, end - begin));
        begin = text.find_first_not_of(kSeparators, end);
    }
    return words;
}

SearchWords::SearchWords(std::string_view keywords, int combination)
    : m_isOneEnough(combination == KEYWORDS_OR) {
    for (const std::string_view word : WordsOf(keywords))
        m_words.push_back(WithoutCase(word));
}

bool SearchWords::Match(std::string_view keywordsOfFile) const {
    const std::string folded = WithoutCase(keywordsOfFile);
    std::vector<std::string_view> there = WordsOf(folded);
    // In order, so that long lists on both sides don't multiply.
    std::sort(there.begin(), there.end());
    const auto isThere = [&](const std::string& word) {
        return std::binary_search(there.begin(), there.end(), std::string_view(word));
    };
    if (m_words.empty())
        return false;
    return m_isOneEnough ? std::any_of(m_words.begin(), m_words.end(), isThere)
                         : std::all_of(m_words.begin(), m_words.end(), isThere);
}

}  // namespace k4cmn
