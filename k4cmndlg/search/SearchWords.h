#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The words of a text: what stands between any run of ';', ',', blanks, tabs and line feeds.
/// @return views into `text`.
K4CMNCORE_EXPORT std::vector<std::string_view> WordsOf(std::string_view text);

/// The keywords of a search. Words are compared as a whole and without regard to case.
class K4CMNCORE_EXPORT SearchWords {
 public:
    /// @param combination a KeywordCombination; every number but KEYWORDS_OR is "and".
    SearchWords(std::string_view keywords, int combination);

    /// Whether a file with these keywords is found: by "and", if it has all words of the search,
    /// by "or", if it has one of them. A search without a word finds nothing.
    bool Match(std::string_view keywordsOfFile) const;

 private:
    std::vector<std::string> m_words;  ///< without case
    const bool m_isOneEnough;
};

}  // namespace k4cmn
