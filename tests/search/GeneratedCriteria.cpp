#include "tests/search/GeneratedCriteria.h"

#include <algorithm>
#include <climits>
#include <ctime>
#include <sstream>

#include "tests/search/PlainText.h"

namespace k4test {

namespace {

std::string InLowerCase(std::string text) {
    for (char& byte : text) {
        if (byte >= 'A' && byte <= 'Z')
            byte = static_cast<char>(byte - 'A' + 'a');
    }
    for (const LetterPair& pair : kLetterPairs) {
        const std::string capital = pair.capital;
        for (std::size_t at = text.find(capital); at != std::string::npos;
             at = text.find(capital, at))
            text.replace(at, capital.size(), pair.small);
    }
    return text;
}

std::string DayText(const k4cmn::CalendarDay& day) {
    return std::to_string(day.year) + "-" + std::to_string(day.month) + "-" +
           std::to_string(day.day);
}

}  // namespace

k4cmn::SearchCriteria GeneratedCriteria::Next() {
    k4cmn::SearchCriteria criteria;
    criteria.place = Place();
    criteria.fileName = OneOf(3) ? "" : OneOf(2) ? "*" : FileName();
    AddRest(criteria);
    return criteria;
}

k4cmn::SearchCriteria GeneratedCriteria::NextToNarrow() {
    k4cmn::SearchCriteria criteria;
    criteria.place = OneOf(2) ? Place() : k4cmn::SearchPlace{"File Servers", "", ""};
    switch (Pick(6)) {
        case 0:
            criteria.fileName = FileName();
            break;
        case 1:
            criteria.fileName = Piece();
            break;
        case 2:
        case 3:
            criteria.fileName = OverlappingPieces();
            break;
        case 4:
            criteria.fileName = "*";
            break;
    }
    AddRest(criteria);
    return criteria;
}

void GeneratedCriteria::AddRest(k4cmn::SearchCriteria& criteria) {
    criteria.fileType = OneOf(3) ? static_cast<int>(Pick(4)) : 0;
    criteria.keywordCombination = static_cast<int>(Pick(2));
    // Seldom all at once: little would be left to compare.
    if (OneOf(3))
        criteria.keywords = Keywords();
    if (OneOf(6))
        AddSign(criteria);
    if (OneOf(4))
        AddSize(criteria);
    if (OneOf(3))
        AddDate(criteria);
}

k4cmn::SearchPlace GeneratedCriteria::Place() {
    static const char* const kOdd[] = {"",  "Q:", "file servers", "Nowhere", "a:", "A:\\",
                                       "A", "\\"};
    k4cmn::SearchPlace place = Any(m_store.places);
    if (OneOf(2))
        place.library.clear();
    if (OneOf(2))
        place.signType.clear();
    switch (Pick(16)) {
        case 0:
            place.server = Any(kOdd);
            break;
        case 1:
            place.signType = "No.such.type";
            break;
        case 2:
            place.library = "None";
            break;
        case 3:
        case 4:
            place.server = "File Servers";
            break;
        case 5:
        case 6:
        case 7:
        case 8:
            place = {"File Servers", "", ""};
            break;
    }
    return place;
}

std::string GeneratedCriteria::OtherCase(const std::string& text) {
    return OneOf(3) ? InUpperCase(text) : OneOf(2) ? InLowerCase(text) : text;
}

std::string GeneratedCriteria::Piece() {
    std::vector<std::string> characters;
    if (!Characters(Any(m_store.files), characters) || characters.empty())
        return "a";
    const std::size_t from = Pick(characters.size());
    std::string piece;
    for (std::size_t i = from; i < std::min(characters.size(), from + 1 + Pick(5)); ++i)
        piece += characters[i];
    return OtherCase(piece);
}

std::string GeneratedCriteria::OverlappingPieces() {
    std::vector<std::string> characters;
    if (!Characters(Any(m_store.files), characters))
        return "a*a";
    std::string pattern;
    for (std::size_t begin = 0; begin < std::min<std::size_t>(characters.size(), 12);
         begin += 1 + Pick(3)) {
        for (std::size_t i = begin; i < std::min(characters.size(), begin + 1 + Pick(3)); ++i)
            pattern += characters[i];
        pattern += OneOf(2) ? "*" : "?";
    }
    return OtherCase(pattern);
}

std::string GeneratedCriteria::FileName() {
    static const char* const kPatterns[] = {"*.*",
                                            "*",
                                            "?*",
                                            "*.sq4",
                                            "*.SD4",
                                            "*.?q4",
                                            "????",
                                            "*a*",
                                            "a*",
                                            "*.",
                                            "**",
                                            "?",
                                            "*ab*a",
                                            "ab?b*",
                                            "*.*4",
                                            "*.x.*",
                                            "bad\xff",
                                            "*\xff*",
                                            "..\\Default.Lib\\*",
                                            "Folder.SQ4\\*",
                                            "*4",
                                            "*a*b*a",
                                            "./*"};
    if (OneOf(2))
        return Any(kPatterns);
    const std::string name = OtherCase(Any(m_store.files));
    std::vector<std::string> characters;
    if (OneOf(4) || !Characters(name, characters))
        return name;
    std::string pattern = OneOf(2) ? "*" : "";
    for (const std::string& character : characters) {
        const std::size_t what = Pick(8);
        pattern += what == 0 ? "?" : what == 1 ? "*" : character;
    }
    return OneOf(2) ? pattern + "*" : pattern;
}

std::string GeneratedCriteria::Keywords() {
    if (OneOf(12))
        return "; ,";
    std::string keywords = GeneratedStore::SomeKeywords(m_random);
    if (!m_store.keywords.empty() && OneOf(2)) {
        const auto any = std::next(m_store.keywords.begin(),
                                   static_cast<std::ptrdiff_t>(Pick(m_store.keywords.size())));
        keywords = any->second;
    }
    return OtherCase(keywords);
}

void GeneratedCriteria::AddSign(k4cmn::SearchCriteria& criteria) {
    criteria.isSignSearchEnabled = 1;
    if (OneOf(4))
        return;  // the smallest sign
    criteria.rows = 16;
    criteria.columns = 80;
    criteria.pixel = K4_PIXEL_TECH_LED;
    if (OneOf(6)) {
        criteria.rows = 48;
        criteria.columns = 160;
        criteria.color = K4_SIGN_COLOR_QUAD16;
        criteria.pixel = K4_PIXEL_TECH_INCAND;
    }
}

void GeneratedCriteria::AddSize(k4cmn::SearchCriteria& criteria) {
    static constexpr int kRelations[] = {0, 1, 1, 1, 2, 2, 2, 3, -1, 100};
    static constexpr int kKilobytes[] = {0,  1,     2,     3,     4,       5,       6,
                                         -1, 32766, 32767, 32768, 2097152, INT_MAX, INT_MIN};
    criteria.sizeRelation = Any(kRelations);
    criteria.size = Any(kKilobytes);
}

k4cmn::CalendarDay GeneratedCriteria::Day() {
    static constexpr k4cmn::CalendarDay kFar[] = {
        {1, 1, 1970}, {31, 12, 1969}, {19, 1, 2038}, {1, 1, 1900}, {31, 12, 2200}};
    if (OneOf(5) || m_store.times.empty())
        return Any(kFar);
    const std::time_t time = Any(m_store.times);
    std::tm local{};
    localtime_r(&time, &local);
    return {local.tm_mday, local.tm_mon + 1, local.tm_year + 1900};
}

void GeneratedCriteria::AddDate(k4cmn::SearchCriteria& criteria) {
    static constexpr int kModes[] = {0, 0, 0, 0, 1, 1, 1, 2, 2, 2, 3, -1};
    static constexpr int kMonths[] = {1, 1, 2, 2, 3, 4, 5, 12, 13, 14, 999, 0, -1, -2, 100'000};
    static constexpr int kDays[] = {1, 2, 3, 7, 30, 31, 90, 365, 999, 0, -1, -2, 100'000};
    criteria.dateFilter = 1;
    criteria.dateMode = Any(kModes);
    criteria.months = Any(kMonths);
    criteria.days = Any(kDays);
    criteria.firstDate = Day();
    criteria.lastDate = Day();
    const auto key = [](const k4cmn::CalendarDay& day) {
        return day.year * 10'000 + day.month * 100 + day.day;
    };
    if (key(criteria.lastDate) < key(criteria.firstDate) && !OneOf(8))
        std::swap(criteria.firstDate, criteria.lastDate);
}

std::string CriteriaText(const k4cmn::SearchCriteria& criteria) {
    std::ostringstream text;
    text << "in \"" << criteria.place.server << "\" \"" << criteria.place.signType << "\" \""
         << criteria.place.library << "\"\nname \"" << criteria.fileName << "\" type "
         << criteria.fileType << " keywords \"" << criteria.keywords << "\" "
         << (criteria.keywordCombination ? "or" : "and");
    if (criteria.isSignSearchEnabled)
        text << "\nsign " << criteria.rows << " " << criteria.columns << " " << criteria.color
             << " " << criteria.pixel;
    if (criteria.sizeRelation)
        text << "\nsize relation " << criteria.sizeRelation << ", " << criteria.size << " KB";
    if (criteria.dateFilter)
        text << "\ndate mode " << criteria.dateMode << ", " << criteria.months << " months, "
             << criteria.days << " days, " << DayText(criteria.firstDate) << " to "
             << DayText(criteria.lastDate);
    return text.str();
}

}  // namespace k4test
