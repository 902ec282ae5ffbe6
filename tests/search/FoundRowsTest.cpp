#include "k4cmndlg/search/FoundRows.h"

#include <gmock/gmock.h>

#include <ctime>
#include <numeric>
#include <random>
#include <sstream>

#include "k4cmndlg/filelist/RowOrder.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/frame/LibraryStrings.h"
#include "tests/filesel/ScopedTimeZone.h"

namespace {

using k4cmn::FoundFileRow;
using k4cmn::FoundRows;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

constexpr std::int64_t kTime = 1'785'506'709;  // 31 July 2026, 14:05:09 UTC

FoundFileRow Named(const std::string& name, const std::string& folder = "A:\\", int type = 0) {
    return {name, folder + name + ".SQ4", 0, kTime, type};
}
std::vector<FoundFileRow> AllNamed(const Texts& names) {
    std::vector<FoundFileRow> rows;
    for (const std::string& name : names)
        rows.push_back(Named(name));
    return rows;
}
Texts ColumnOf(const FoundRows& rows, int column) {
    Texts texts;
    for (std::size_t row = 0; row < rows.Count(); ++row)
        texts.push_back(rows.Text(row, column));
    return texts;
}
Texts Names(const FoundRows& rows) {
    return ColumnOf(rows, FoundRows::kName);
}
std::vector<int> Images(const FoundRows& rows) {
    std::vector<int> images;
    for (std::size_t row = 0; row < rows.Count(); ++row)
        images.push_back(rows.Image(row));
    return images;
}

// Columns and texts ------------------------------------------------------------------------------

TEST(FoundColumns, AreThoseOfTheResource) {
    const k4cmn::ResourceScope scope(k4cmn::LibraryStrings());
    const std::vector<k4cmn::FileColumn> columns{{"Name                       ", false},
                                                 {" In Folder                 ", false},
                                                 {"         Size", true},
                                                 {"Type                ", false},
                                                 {" Modified                 ", false}};
    EXPECT_EQ(k4cmn::FoundColumns(), columns);
}

TEST(FoundTexts, AreThoseOfTheFile) {
    const k4test::ScopedTimeZone zone("UTC0");
    FoundRows rows;
    rows.Add({{"shown", "B:\\T.Sign\\L.Lib\\real.SQ4", 2047, kTime, 0}});
    EXPECT_EQ(rows.Text(0, FoundRows::kName), "shown");
    EXPECT_EQ(rows.Text(0, FoundRows::kFolder), "B:\\T.Sign\\L.Lib\\real.SQ4");
    EXPECT_EQ(rows.Text(0, FoundRows::kSize), "    1 KB");
    EXPECT_EQ(rows.Text(0, FoundRows::kType), "K4400 Seq");
    EXPECT_EQ(rows.Text(0, FoundRows::kModified), "07/31/26 02:05 PM");
    EXPECT_EQ(rows.Text(0, -1), "");
    EXPECT_EQ(rows.Text(0, 5), "");
}

TEST(FoundTexts, OfTimesAreLocal) {
    const k4test::ScopedTimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    FoundRows rows;
    rows.Add({Named("a")});
    EXPECT_EQ(rows.Text(0, FoundRows::kModified), "07/31/26 04:05 PM");
}

TEST(FoundTexts, OfEachTypeWithItsImage) {
    struct TypeRow {
        int type;
        const char* text;
        int image;
    };
    constexpr TypeRow kRows[] = {{0, "K4400 Seq", 4},
                                 {1, "K4400 Sched", 5},
                                 {2, "K4400 Script", 6},
                                 {3, "K3300 Seq", 7},
                                 {-1, "Unknown", 3}};
    for (const TypeRow& row : kRows) {
        FoundRows rows;
        rows.Add({Named("a", "A:\\", row.type)});
        EXPECT_EQ(rows.Text(0, FoundRows::kType), row.text);
        EXPECT_EQ(rows.Image(0), row.image) << row.text;
    }
}

TEST(FoundTexts, OfOddValuesAreNoTrouble) {
    FoundRows rows;
    rows.Add({{"", "", ~std::uint64_t{0}, std::numeric_limits<std::int64_t>::max(), 99},
              {std::string("\0\xff", 2), "\xc3", 0, std::numeric_limits<std::int64_t>::min(), -7}});
    for (int click = 0; click < 2; ++click) {
        for (int column = 0; column < FoundRows::kColumnCount; ++column) {
            rows.SortColumn(column);
            EXPECT_EQ(ColumnOf(rows, column).size(), 2u);
        }
    }
    EXPECT_THAT(ColumnOf(rows, FoundRows::kSize),
                testing::UnorderedElementsAre("18014398509481983 KB", "    0 KB"));
    EXPECT_THAT(ColumnOf(rows, FoundRows::kType), ElementsAre("Unknown", "Unknown"));
}

// Adding -----------------------------------------------------------------------------------------

TEST(FoundAdding, KeepsTheOrderOfTheNamesWhateverTheCase) {
    FoundRows rows;
    rows.Add(AllNamed({"dog", "Cat"}));
    EXPECT_THAT(Names(rows), ElementsAre("Cat", "dog"));
    rows.Add(AllNamed({"eel", "bee", "\xc3\x9f", "\xc3\x84", "\xc3\xa3"}));
    EXPECT_THAT(Names(rows),
                ElementsAre("bee", "Cat", "dog", "eel", "\xc3\x9f", "\xc3\xa3", "\xc3\x84"));
    rows.Add({});
    EXPECT_EQ(rows.Count(), 7u);
}

TEST(FoundAdding, EqualNamesStandInTheOrderOfTheirAdding) {
    FoundRows rows;
    rows.Add({Named("A", "1\\"), Named("b", "2\\"), Named("a", "3\\")});
    EXPECT_EQ(rows.Count(), 3u);
    rows.Add({Named("a", "4\\"), Named("A", "5\\"), Named("B", "6\\")});
    EXPECT_THAT(rows.Paths(), ElementsAre("1\\A.SQ4", "3\\a.SQ4", "4\\a.SQ4", "5\\A.SQ4",
                                          "2\\b.SQ4", "6\\B.SQ4"));
}

TEST(FoundAdding, BringsEachRowsImageAlong) {
    FoundRows rows;
    rows.Add({Named("d", "A:\\", 0), Named("b", "A:\\", 1)});
    EXPECT_THAT(Images(rows), ElementsAre(5, 4));
    rows.Add({Named("c", "A:\\", 3), Named("a", "A:\\", -1)});
    EXPECT_THAT(Names(rows), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(Images(rows), ElementsAre(3, 5, 7, 4));
}

TEST(FoundAdding, PutsSortedRowsBackInTheOrderOfTheirNames) {
    FoundRows rows;
    rows.Add(AllNamed({"a", "b", "c"}));
    rows.SortColumn(FoundRows::kName);
    EXPECT_THAT(Names(rows), ElementsAre("c", "b", "a"));
    rows.Add({});
    EXPECT_THAT(Names(rows), ElementsAre("c", "b", "a")) << "nothing came";
    rows.Add(AllNamed({"bb"}));
    EXPECT_THAT(Names(rows), ElementsAre("a", "b", "bb", "c"));
}

TEST(FoundAdding, OneByOneIsTheSameAsAtOnce) {
    std::mt19937 random(1);
    std::vector<FoundFileRow> all;
    for (int i = 0; i < 500; ++i) {
        const std::string name(1, "abAB"[random() % 4]);
        all.push_back(Named(name, std::to_string(i) + "\\", static_cast<int>(random() % 5) - 1));
    }
    FoundRows atOnce;
    atOnce.Add(all);
    FoundRows oneByOne;
    FoundRows looking;
    for (const FoundFileRow& row : all) {
        oneByOne.Add({row});
        looking.Add({row});
        EXPECT_GE(looking.Image(0), 3);
    }
    EXPECT_EQ(oneByOne.Paths(), atOnce.Paths());
    EXPECT_EQ(looking.Paths(), atOnce.Paths());
    EXPECT_EQ(Images(oneByOne), Images(atOnce));
    EXPECT_EQ(Images(looking), Images(atOnce));
}

TEST(FoundAdding, ClearTakesAllRowsAndLeavesTheDirection) {
    FoundRows rows;
    rows.Add(AllNamed({"a", "b"}));
    rows.SortColumn(FoundRows::kName);
    rows.Clear();
    EXPECT_EQ(rows.Count(), 0u);
    EXPECT_THAT(rows.Paths(), ElementsAre());
    EXPECT_EQ(rows.SortAscending(), 0);
    rows.Add(AllNamed({"b", "a"}));
    EXPECT_THAT(Names(rows), ElementsAre("a", "b"));
}

TEST(FoundAdding, AHundredBatchesCostLittleMoreThanOneSort) {
    std::vector<std::vector<FoundFileRow>> batches(100);
    Texts names;
    for (int i = 0; i < 100'000; ++i) {
        const std::string name = "s" + std::to_string((i * 7919) % 100'000);
        batches[static_cast<std::size_t>(i / 1000)].push_back(Named(name));
        names.push_back(name);
    }
    const std::clock_t begin = std::clock();
    EXPECT_EQ(k4cmn::OrderByText(names, true).size(), names.size());
    const std::clock_t oneSort = std::clock() - begin;
    FoundRows rows;
    const std::clock_t beginOfBatches = std::clock();
    for (std::vector<FoundFileRow>& batch : batches)
        rows.Add(std::move(batch));
    EXPECT_EQ(rows.Row(0).name, "s0");
    EXPECT_LT(std::clock() - beginOfBatches, 10 * oneSort);
    EXPECT_EQ(rows.Count(), 100'000u);
}

// Sorting ----------------------------------------------------------------------------------------

TEST(FoundSorting, TheFirstClickOfAllSortsDescending) {
    for (int column = 0; column < FoundRows::kColumnCount; ++column) {
        FoundRows rows;
        rows.Add(AllNamed({"a", "b"}));
        EXPECT_EQ(rows.SortAscending(), 1);
        rows.SortColumn(column);
        EXPECT_EQ(rows.SortAscending(), 0) << column;
        rows.SortColumn((column + 1) % FoundRows::kColumnCount);
        EXPECT_EQ(rows.SortAscending(), 1) << "one direction for all columns";
    }
}

TEST(FoundSorting, MovesTextsAndLeavesImages) {
    FoundRows rows;
    rows.Add({Named("a", "A:\\", 0), Named("b", "A:\\", 1), Named("c", "A:\\", -1)});
    rows.SortColumn(FoundRows::kName);
    EXPECT_THAT(Names(rows), ElementsAre("c", "b", "a"));
    EXPECT_THAT(ColumnOf(rows, FoundRows::kType),
                ElementsAre("Unknown", "K4400 Sched", "K4400 Seq"));
    EXPECT_THAT(rows.Paths(), ElementsAre("A:\\c.SQ4", "A:\\b.SQ4", "A:\\a.SQ4"));
    EXPECT_THAT(Images(rows), ElementsAre(4, 5, 3));
    rows.SortColumn(FoundRows::kModified);
    rows.SortColumn(FoundRows::kModified);
    EXPECT_THAT(Names(rows), ElementsAre("a", "b", "c"));
    EXPECT_THAT(Images(rows), ElementsAre(4, 5, 3));
}

TEST(FoundSorting, SizesComeByTheirTexts) {
    FoundRows rows;
    std::vector<FoundFileRow> files = AllNamed({"a", "b", "c", "d"});
    const std::uint64_t kilobytes[] = {9, 100'000, 99'999, 10};
    for (std::size_t i = 0; i < files.size(); ++i)
        files[i].size = kilobytes[i] * 1024;
    rows.Add(files);
    rows.SortColumn(FoundRows::kSize);
    EXPECT_THAT(ColumnOf(rows, FoundRows::kSize),
                ElementsAre("99999 KB", "100000 KB", "   10 KB", "    9 KB"));
    rows.SortColumn(FoundRows::kSize);
    EXPECT_THAT(ColumnOf(rows, FoundRows::kSize),
                ElementsAre("    9 KB", "   10 KB", "100000 KB", "99999 KB"));
}

TEST(FoundSorting, TheHalfOfTheDayCountsForNothing) {
    const k4test::ScopedTimeZone zone("UTC0");
    FoundRows rows;
    std::vector<FoundFileRow> files = AllNamed({"two", "one"});
    files[0].modified = kTime - 12 * 3600;  // 02:05 AM
    files[1].modified = kTime - 3600;       // 01:05 PM
    rows.Add(files);
    rows.SortColumn(FoundRows::kModified);
    rows.SortColumn(FoundRows::kModified);
    EXPECT_THAT(ColumnOf(rows, FoundRows::kModified),
                ElementsAre("07/31/26 01:05 PM", "07/31/26 02:05 AM"));
}

TEST(FoundSorting, EveryYearIsOfThe1900s) {
    const k4test::ScopedTimeZone zone("UTC0");
    FoundRows rows;
    std::vector<FoundFileRow> files = AllNamed({"a", "b"});
    files[0].modified = 915'148'800;    // 1 January 1999
    files[1].modified = 1'041'379'200;  // 1 January 2003
    rows.Add(files);
    rows.SortColumn(FoundRows::kName);
    rows.SortColumn(FoundRows::kModified);
    EXPECT_THAT(Names(rows), ElementsAre("b", "a"));
}

TEST(FoundSorting, DescendingDatesReverseWhateverThereIs) {
    FoundRows rows;
    rows.Add(AllNamed({"a", "b", "c"}));
    rows.SortColumn(FoundRows::kModified);
    EXPECT_THAT(Names(rows), ElementsAre("c", "b", "a")) << "all of one time";
}

TEST(FoundSorting, OfNoColumnDoesNothing) {
    FoundRows rows;
    rows.Add(AllNamed({"a", "b"}));
    for (const int column : {-1, 5, 99}) {
        rows.SortColumn(column);
        EXPECT_EQ(rows.SortAscending(), 1);
        EXPECT_THAT(Names(rows), ElementsAre("a", "b"));
    }
    FoundRows none;
    none.SortColumn(FoundRows::kModified);
    EXPECT_EQ(none.Count(), 0u);
}

// Against the list as it has always been sorted --------------------------------------------------

/// The list as texts: what a click on a heading does to them, step by step.
class PlainList {
 public:
    explicit PlainList(const FoundRows& rows) {
        for (int column = 0; column < FoundRows::kColumnCount; ++column)
            m_columns.push_back(ColumnOf(rows, column));
    }
    void Click(int column) {
        m_ascending = m_ascending ? 0 : 1;
        const Texts texts = m_columns[static_cast<std::size_t>(column)];
        const std::vector<std::size_t> order = Order(texts, column, m_ascending);
        for (Texts& all : m_columns) {
            Texts inOrder;
            for (const std::size_t row : order)
                inOrder.push_back(all[row]);
            all = inOrder;
        }
    }
    const Texts& Column(int column) const { return m_columns[static_cast<std::size_t>(column)]; }

    static std::vector<std::size_t> Order(const Texts& texts, int column, int ascending) {
        std::vector<std::size_t> order(texts.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        for (std::size_t last = order.size(); last > 1; --last) {
            for (std::size_t at = 0; at + 1 < last; ++at) {
                const std::string& first = texts[order[at]];
                const std::string& second = texts[order[at + 1]];
                if (column == FoundRows::kModified ? AreDatesSwapped(first, second, ascending)
                                                   : AreTextsSwapped(first, second, ascending))
                    std::swap(order[at], order[at + 1]);
            }
        }
        return order;
    }

 private:
    static bool AreTextsSwapped(const std::string& first, const std::string& second,
                                int ascending) {
        const int compared = k4cmn::WithoutCase(first).compare(k4cmn::WithoutCase(second));
        return ascending ? compared > 0 : compared < 0;
    }
    static bool AreDatesSwapped(const std::string& first, const std::string& second,
                                int ascending) {
        return !ascending || Date(first, 1) > Date(second, 2);
    }
    /// Year, month, day, hour, minute.
    static std::vector<int> Date(std::string text, int missing) {
        for (char& byte : text)
            byte = byte == '/' || byte == ':' ? ' ' : byte;
        std::istringstream in(text);
        int pieces[5] = {missing, missing, missing, missing, missing};
        int count = 0;
        for (std::string piece; count < 5 && in >> piece; ++count)
            pieces[count] = std::atoi(piece.c_str());
        return {pieces[2] + 1900, pieces[0], pieces[1], pieces[3], pieces[4]};
    }

    std::vector<Texts> m_columns;
    int m_ascending = 1;
};

class FoundAgainstPlainList : public testing::TestWithParam<unsigned> {
 protected:
    int Number(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(m_random);
    }
    std::string Text(int longest) {
        static const std::vector<std::string> kPieces{
            "a",  "A",        "b",        "B",    "z",
            " ",  "_",        ".",        "1",    "10",
            "\\", "\xc3\xa4", "\xc3\x84", "\xff", std::string(1, '\0')};
        std::string text;
        for (int length = Number(0, longest); length > 0; --length)
            text += kPieces[static_cast<std::size_t>(Number(0, 14))];
        return text;
    }
    std::int64_t Time() {
        constexpr std::int64_t kYear = 31'556'952;
        const std::int64_t spread[] = {60, 86'400, kYear, 40 * kYear};
        const auto range = static_cast<double>(spread[Number(0, 3)]);
        return kTime + static_cast<std::int64_t>(range * Number(-1000, 1000) / 1000);
    }
    FoundRows Rows() {
        std::vector<FoundFileRow> files(static_cast<std::size_t>(Number(0, 40)));
        for (FoundFileRow& file : files) {
            const std::uint64_t most = ~std::uint64_t{0} >> Number(0, 63);
            file = {Text(3), Text(6), most / static_cast<std::uint64_t>(Number(1, 9)), Time(),
                    Number(-1, 4)};
        }
        FoundRows rows;
        rows.Add(files);
        return rows;
    }

 private:
    std::mt19937 m_random{GetParam()};
};

TEST_P(FoundAgainstPlainList, ChainsOfClicksComeOutTheSame) {
    const k4test::ScopedTimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    for (int round = 0; round < 25; ++round) {
        FoundRows rows = Rows();
        PlainList plain(rows);
        const std::vector<int> images = Images(rows);
        for (int click = 0; click < 8; ++click) {
            const int column = Number(0, FoundRows::kColumnCount - 1);
            rows.SortColumn(column);
            plain.Click(column);
            for (int each = 0; each < FoundRows::kColumnCount; ++each)
                ASSERT_EQ(ColumnOf(rows, each), plain.Column(each)) << column << " " << each;
        }
        ASSERT_EQ(Images(rows), images);
    }
}

TEST_P(FoundAgainstPlainList, OddTextsComeOutTheSame) {
    for (int round = 0; round < 60; ++round) {
        Texts texts(static_cast<std::size_t>(Number(0, 25)));
        Texts dates(texts.size());
        for (std::size_t i = 0; i < texts.size(); ++i) {
            texts[i] = Text(4);
            for (int length = Number(0, 6); length > 0; --length)
                dates[i] += std::to_string(Number(1, 12)) + "/ :"[Number(0, 2)];
        }
        for (const int ascending : {0, 1}) {
            ASSERT_EQ(k4cmn::OrderByText(texts, ascending != 0),
                      PlainList::Order(texts, FoundRows::kName, ascending));
            ASSERT_EQ(k4cmn::OrderByDate(dates, ascending != 0),
                      PlainList::Order(dates, FoundRows::kModified, ascending));
        }
    }
}

TEST_P(FoundAgainstPlainList, LongTextsThatBeginAlikeComeOutTheSame) {
    for (int round = 0; round < 60; ++round) {
        Texts texts(static_cast<std::size_t>(Number(0, 25)));
        for (std::string& text : texts) {
            text.assign(static_cast<std::size_t>(Number(0, 20)), "x\0"[Number(0, 1)]);
            text += Text(2) + std::string(static_cast<std::size_t>(Number(0, 10)), 'X') + Text(1);
        }
        for (const int ascending : {0, 1})
            ASSERT_EQ(k4cmn::OrderByText(texts, ascending != 0),
                      PlainList::Order(texts, FoundRows::kName, ascending));
    }
}

TEST(FoundSorting, LongTextsAreNoTrouble) {
    const std::string text(1'000'000, 'x');
    FoundRows rows;
    rows.Add({{text + "b", "", 0, 0, 0}, {text, "", 0, 0, 0}, {text + "A", "", 0, 0, 0}});
    EXPECT_EQ(rows.Row(0).name.back(), 'x');
    EXPECT_EQ(rows.Row(1).name.back(), 'A');
    EXPECT_EQ(rows.Row(2).name.back(), 'b');
}

INSTANTIATE_TEST_SUITE_P(Seeds, FoundAgainstPlainList, testing::Range(1u, 9u));

// Deleting ---------------------------------------------------------------------------------------

struct DeletedRow {
    const char* what;
    Texts names;
    Texts deleted;
    Texts left;
};

TEST(FoundDeleting, GoesByTheNamesAlone) {
    const DeletedRow kRows[] = {
        {"one", {"a", "b", "c"}, {"A:\\T.Sign\\L.Lib\\b.SQ4"}, {"a", "c"}},
        {"case doesn't count", {"\xc3\x84rger", "b"}, {"A:\\\xc3\xa4RGER.sq4"}, {"b"}},
        {"none", {"a", "b"}, {"A:\\c.SQ4"}, {"a", "b"}},
        {"nothing deleted", {"a", "b"}, {}, {"a", "b"}},
        {"the row behind is passed over", {"a", "a", "a", "a", "a"}, {"A:\\a.SQ4"}, {"a", "a"}},
        {"whatever it is", {"a", "b", "c"}, {"A:\\a.SQ4", "A:\\b.SQ4"}, {"b", "c"}},
        {"the one after that isn't", {"a", "b", "c"}, {"A:\\a.SQ4", "A:\\c.SQ4"}, {"b"}},
        {"the last", {"a", "b"}, {"A:\\b.SQ4"}, {"a"}},
        {"the only one", {"a"}, {"A:\\a.SQ4"}, {}},
        {"no row", {}, {"A:\\a.SQ4"}, {}},
        {"a piece of a name", {"ab", "abc"}, {"A:\\b.SQ4"}, {"ab", "abc"}},
        {"without a folder", {"a", "b"}, {"a.SQ4"}, {"b"}},
        {"no backslash but a slash", {"a", "A:/a"}, {"A:/a.SQ4"}, {"a"}},
        {"the last 4 characters are the extension, whatever they are",
         {"a", "ab", "abc"},
         {"A:\\abcdef."},
         {"ab", "a"}},
        {"a short one is an empty name", {"", "a"}, {"A:\\.SQ"}, {"a"}},
        {"characters are more than bytes",
         {"a", "b"},
         {"A:\\a\xc3\xa4\xc3\xb6\xc3\xbc\xc3\x9f"},
         {"b"}},
        {"an empty path", {"", "a"}, {""}, {"a"}},
    };
    for (const DeletedRow& row : kRows) {
        FoundRows rows;
        rows.Add(AllNamed(row.names));
        rows.RemoveDeleted(row.deleted);
        EXPECT_THAT(Names(rows), testing::UnorderedElementsAreArray(row.left)) << row.what;
    }
}

TEST(FoundDeleting, TakesAFileOfThatNameInAnotherLibrary) {
    FoundRows rows;
    rows.Add({Named("a", "1\\"), Named("b", "1\\"), Named("A", "2\\"), Named("a", "3\\")});
    rows.RemoveDeleted({"1\\a.SQ4"});
    EXPECT_THAT(rows.Paths(), ElementsAre("2\\A.SQ4", "1\\b.SQ4"));
}

TEST(FoundDeleting, GoesThroughTheRowsAsTheyStand) {
    FoundRows rows;
    rows.Add({Named("a", "1\\"), Named("a", "2\\"), Named("b", "1\\")});
    rows.SortColumn(FoundRows::kFolder);  // descending
    EXPECT_THAT(rows.Paths(), ElementsAre("2\\a.SQ4", "1\\b.SQ4", "1\\a.SQ4"));
    rows.RemoveDeleted({"1\\a.SQ4"});
    EXPECT_THAT(rows.Paths(), ElementsAre("1\\b.SQ4"));
}

TEST(FoundDeleting, ARowTakesItsImageAlong) {
    FoundRows rows;
    rows.Add({Named("a", "A:\\", 0), Named("b", "A:\\", 1), Named("c", "A:\\", 2)});
    rows.SortColumn(FoundRows::kName);
    rows.RemoveDeleted({"A:\\c.SC4"});
    EXPECT_THAT(Names(rows), ElementsAre("b", "a"));
    EXPECT_THAT(Images(rows), ElementsAre(5, 6));
}

TEST(FoundDeleting, LeavesTheOrderAndTheDirection) {
    FoundRows rows;
    rows.Add(AllNamed({"a", "b", "c"}));
    rows.SortColumn(FoundRows::kName);
    rows.RemoveDeleted({"A:\\b.SQ4"});
    EXPECT_THAT(Names(rows), ElementsAre("c", "a"));
    EXPECT_EQ(rows.SortAscending(), 0);
}

}  // namespace
