#include <climits>
#include <ctime>

#include "tests/search/SearchTroubleFixture.h"

// The search with texts of any bytes and any length, and with numbers out of every range.

namespace {

using k4cmn::SearchCriteria;
using k4cmn::SearchEngine;
using k4cmn::SearchMode;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kLong = 65'536;

std::string Repeated(const std::string& piece, std::size_t bytes = kLong) {
    std::string text;
    while (text.size() < bytes)
        text += piece;
    return text;
}

/// Texts that nobody types, and some that somebody pastes.
const std::vector<std::string> kOddTexts{
    std::string(1, '\0'),
    std::string("*\0", 2),
    std::string("a\0b", 3),
    std::string("\0*.SQ4", 6),
    "\xff",
    "*\xff*",
    "\xc3",
    "\xed\xa0\x80",
    "\xf4\x90\x80\x80",
    "\xc0\xaf",
    "\\",
    "/",
    "..",
    "..\\..\\..\\..\\*",
    "../../../../etc/*",
    "\\\\",
    "A:",
    "A:\\*",
    "\\\\HOST\\SHARE\\*",
    "%s%n%d",
    "\n",
    "\r\n\t ",
    "\"'`$(rm)",
    "\u202egnp",
    "\U0001f600",
    "e\u0301*",
    Repeated("a"),
    Repeated("?"),
    Repeated("a*"),
    Repeated("*?"),
    Repeated("\\"),
    Repeated("..\\"),
    Repeated("x\\"),
    Repeated("\xff"),
    Repeated("\u00e4"),
    Repeated(std::string(1, '\0')),
    Repeated("a;"),
    Repeated(";"),
};

class SearchOddInput : public k4test::SearchTroubleFixture {
 protected:
    void SetUp() override {
        SearchTroubleFixture::SetUp();
        MakeSequence(kLib + "a.SQ4", "a b");
        MakeSequence(kLib + "b.SQ4", "\xff");
        MakeFile(kLib + "aab\u00e4.SD4");
        MakeFile(kLib + "no extension");
        MakeFile(kLib + "Sub\\below.SQ4");
        ConfigureLocal({"A:"});
        Find(Everything());
        m_all = list.rows;
        ASSERT_EQ(m_all.size(), 4U);
    }
    /// What is listed are files of the store, whatever was looked for.
    void ExpectRealRows(const std::string& what) {
        for (const k4cmn::FoundFileRow& row : list.rows) {
            const bool isReal =
                std::any_of(m_all.begin(), m_all.end(), [&](const k4cmn::FoundFileRow& one) {
                    return one.path == row.path && one.size == row.size &&
                           one.modified == row.modified && one.type == row.type;
                });
            EXPECT_TRUE(isReal) << row.path << " by " << what.substr(0, 40);
        }
        EXPECT_LE(list.rows.size(), m_all.size());
        EXPECT_THAT(Told(), IsEmpty());
    }
    void FindInBothModes(const SearchCriteria& criteria, const std::string& what) {
        Find(criteria);
        ExpectRealRows(what);
        list.rows = m_all;
        Find(criteria, SearchMode::Previous);
        ExpectRealRows(what);
    }

    const std::string kLib = Folder("A:", "Default");
    std::vector<k4cmn::FoundFileRow> m_all;
};

TEST_F(SearchOddInput, AnyNameFindsFilesOrNone) {
    for (const std::string& text : kOddTexts) {
        SearchCriteria criteria = Everything();
        criteria.fileName = text;
        FindInBothModes(criteria, text);
        criteria.place.server = "A:";
        FindInBothModes(criteria, text);
    }
}

TEST_F(SearchOddInput, AnyKeywordsFindFilesOrNone) {
    for (const std::string& text : kOddTexts) {
        for (const int combination : {0, 1, 2, -1}) {
            SearchCriteria criteria = Everything();
            criteria.keywords = text;
            criteria.keywordCombination = combination;
            FindInBothModes(criteria, text);
        }
    }
}

TEST_F(SearchOddInput, AnyPlaceFindsFilesOrNone) {
    for (const std::string& text : kOddTexts) {
        for (std::string k4cmn::SearchPlace::*piece :
             {&k4cmn::SearchPlace::server, &k4cmn::SearchPlace::signType,
              &k4cmn::SearchPlace::library}) {
            SearchCriteria criteria = Everything("A:");
            criteria.place.signType = k4test::kType;
            criteria.place.library = "Default";
            criteria.place.*piece = text;
            list.rows = m_all;
            Find(criteria, SearchMode::Previous);
            ExpectRealRows(text);
            Find(criteria);
            // A place out of the way may lead to the same library by another text.
            for (const k4cmn::FoundFileRow& row : list.rows)
                EXPECT_TRUE(Exists(row.path)) << row.path;
            EXPECT_THAT(Told(), IsEmpty());
        }
    }
}

TEST_F(SearchOddInput, LongPatternsOfWildcardsMeanWhatShortOnesDo) {
    SearchCriteria criteria = Everything();
    criteria.fileName = Repeated("*");
    FindInBothModes(criteria, "stars");
    EXPECT_EQ(list.rows.size(), m_all.size());
    Find(criteria);
    EXPECT_EQ(list.rows.size(), m_all.size());
    criteria.fileName = Repeated("?");
    Find(criteria);
    EXPECT_THAT(Found(), IsEmpty());
    list.rows = m_all;
    Find(criteria, SearchMode::Previous);
    EXPECT_EQ(list.rows.size(), m_all.size()) << "a question mark counts for nothing here";
    criteria.fileName = "a" + Repeated("*") + "4";
    Find(criteria);
    EXPECT_THAT(Found(), ElementsAre(kLib + "a.SQ4", kLib + "aab\u00e4.SD4"));
    criteria.fileName = "AA" + Repeated("?*") + "B" + Repeated("*") + "4";
    Find(criteria, SearchMode::Previous);
    EXPECT_THAT(Found(), ElementsAre(kLib + "aab\u00e4.SD4"));
}

TEST_F(SearchOddInput, AKeywordOfAnyBytesIsFoundByTheSameBytes) {
    SearchCriteria criteria = Everything();
    criteria.keywords = "\xff";
    Find(criteria);
    EXPECT_THAT(Found(),
                ElementsAre(kLib + "aab\u00e4.SD4", kLib + "b.SQ4", kLib + "no extension"));
    criteria.keywords = "\xfe";
    Find(criteria);
    EXPECT_THAT(Found(), ElementsAre(kLib + "aab\u00e4.SD4", kLib + "no extension"));
}

/// Every number of the criteria, set to one value.
void SetAll(SearchCriteria& criteria, int value) {
    criteria.keywordCombination = value;
    criteria.fileType = value;
    criteria.isSignSearchEnabled = value;
    criteria.rows = static_cast<std::uint32_t>(value);
    criteria.columns = static_cast<std::uint32_t>(value);
    criteria.color = static_cast<tag_K4_SIGN_COLOR>(value);
    criteria.pixel = static_cast<tag_K4_PIXEL_TECH>(value);
    criteria.sizeRelation = value;
    criteria.size = value;
    criteria.dateFilter = value;
    criteria.dateMode = value;
    criteria.days = value;
    criteria.months = value;
    criteria.firstDate = {value, value, value};
    criteria.lastDate = {value, value, value};
}

TEST_F(SearchOddInput, NumbersOutOfEveryRangeFindFilesOrNone) {
    constexpr int kNumbers[] = {INT_MIN, INT_MIN + 1, -1'000'000, -2, -1,        0,      1,
                                2,       3,           4,          99, 1'000'000, INT_MAX};
    for (const int all : kNumbers) {
        for (const std::string name : {"", "*", "a"}) {
            SearchCriteria criteria;
            SetAll(criteria, all);
            criteria.fileName = name;
            criteria.place.server = "A:";
            FindInBothModes(criteria, std::to_string(all));
            // Each mode of the date, with those numbers.
            for (const int mode : {0, 1, 2, 3}) {
                SearchCriteria dated = Everything();
                dated.fileName = name;
                dated.dateFilter = k4cmn::DATE_MODIFIED;
                dated.dateMode = mode;
                dated.days = dated.months = all;
                dated.firstDate = {1, 1, all};
                dated.lastDate = {all, all, 2026};
                FindInBothModes(dated, std::to_string(all));
            }
        }
    }
}

TEST_F(SearchOddInput, AnUnknownFileTypeShortensNoNameOutOfBounds) {
    for (const int type : {-1, 4, 99, INT_MAX, INT_MIN}) {
        SearchCriteria criteria = Everything();
        criteria.fileType = type;
        Find(criteria);
        EXPECT_EQ(list.rows.size(), m_all.size()) << type;
        ExpectRealRows(std::to_string(type));
    }
}

TEST_F(SearchOddInput, HugeListsOfKeywordsAreDoneAtOnce) {
    std::string words;
    for (int i = 0; i < 400; ++i)
        words += "w" + std::to_string(i % 90) + " ";
    for (int i = 0; i < 20; ++i)
        MakeSequence(Folder("A:", "Many") + std::to_string(i) + ".SQ4", words.substr(0, 1023));
    SearchCriteria criteria = Everything();
    criteria.place.library = "Many";
    criteria.place.signType = k4test::kType;
    criteria.place.server = "A:";
    for (int i = 0; i < 100'000; ++i)
        criteria.keywords += "w" + std::to_string(i % 89) + ";";
    const std::clock_t start = std::clock();
    Find(criteria);
    EXPECT_EQ(list.rows.size(), 20U);
    criteria.keywordCombination = k4cmn::KEYWORDS_OR;
    criteria.keywords = "or;";
    for (int i = 0; i < 100'000; ++i)
        criteria.keywords += "x" + std::to_string(i) + ",";
    Find(criteria);
    EXPECT_THAT(Found(), IsEmpty());
    EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC) << "of the processor's time";
}

TEST(SearchRoughMatch, TakesTextsOfAnyLength) {
    EXPECT_TRUE(SearchEngine::MatchesRoughly("", ""));
    EXPECT_TRUE(SearchEngine::MatchesRoughly(Repeated("*?"), ""));
    EXPECT_FALSE(SearchEngine::MatchesRoughly("a", ""));
    EXPECT_TRUE(SearchEngine::MatchesRoughly(Repeated("A*"), Repeated("A")));
    EXPECT_FALSE(SearchEngine::MatchesRoughly(Repeated("A*", kLong + 2), Repeated("A", kLong / 2)));
    EXPECT_FALSE(SearchEngine::MatchesRoughly(Repeated("A") + "B", Repeated("A")));
    EXPECT_TRUE(SearchEngine::MatchesRoughly("AA*AA*AA", "AAAA")) << "pieces may overlap";
    EXPECT_FALSE(SearchEngine::MatchesRoughly("AA*AA*AA", "AAA"));
    EXPECT_TRUE(SearchEngine::MatchesRoughly("\xff*\xfe",
                                             "a\xff"
                                             "b\xfe"));
    EXPECT_TRUE(SearchEngine::MatchesRoughly(std::string("\0*\0", 3), std::string("\0\0", 2)));
    EXPECT_FALSE(SearchEngine::MatchesRoughly(std::string("\0*\0", 3), std::string("\0", 1)));
}

}  // namespace
