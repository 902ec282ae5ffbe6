#include "k4cmndlg/filesel/properties/KeywordText.h"

namespace k4cmn {

std::string NormalisedKeywords(std::string_view text) {
    constexpr std::string_view kDelimiters = "; ,\t\n";
    std::string keywords;
    std::size_t at = text.find_first_not_of(kDelimiters);
    while (at != std::string_view::npos) {
        const std::size_t end = text.find_first_of(kDelimiters, at);
        keywords.append(text.substr(at, end - at)).append("; ");
        at = text.find_first_not_of(kDelimiters, end);
    }
    return keywords;
}

}  // namespace k4cmn
