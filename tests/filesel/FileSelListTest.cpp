#include <gmock/gmock.h>

#include <numeric>
#include <random>
#include <sstream>

#include "tests/filesel/SelectorFixture.h"

namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

const std::string kType = k4test::kType;
const std::string kLib = "A:\\" + kType + ".Sign\\Default.Lib\\";

class FileSelList : public k4test::SelectorFixture {
 protected:
    void SetUp() override {
        SelectorFixture::SetUp();
        MakeFile(kLib + "a.SQ4", std::string(5000, 'x'), kNow);
        MakeFile(kLib + "b.SQ4", std::string(1000, 'x'), kNow - 86400);
        MakeFile(kLib + "c.SQ4", std::string(3000, 'x'), kNow - 2 * 86400);
        MakeFile("A:\\run.SC4");
    }
};

// Opening again ----------------------------------------------------------------------------------

TEST_F(FileSelList, EachOpeningBeginsWithAnyTime) {
    OpenAt({"A:", kType, "Default", "", "SQ4"});
    view.lastModified = 0;
    selector->ShowFilesList();
    EXPECT_THAT(Names(), ElementsAre("a"));
    Open();
    EXPECT_EQ(view.lastModified, k4cmn::kAnyTime);
    EXPECT_THAT(Names(), ElementsAre("a", "b", "c"));
}

TEST_F(FileSelList, EachOpeningShowsTheSignTypesOfItsFileType) {
    OpenAt({"A:", kType, "Default", "", "SQ4"});
    view.typeIndex = 5;
    selector->FileTypeChanged();
    EXPECT_TRUE(selector->Tree().filter.palettes);
    Open();
    EXPECT_EQ(view.typeIndex, 0);
    EXPECT_FALSE(selector->Tree().filter.palettes);
    EXPECT_THAT(Names(), ElementsAre("a", "b", "c"));
    MakeFile("A:\\" + kType + ".Palette.Sign\\Default.Lib\\p.SP4");
    selector->SetPath("A:\\" + kType + ".Palette.Sign\\Default.Lib\\p.SP4");
    Open();
    EXPECT_EQ(view.typeIndex, 5);
    EXPECT_TRUE(selector->Tree().filter.palettes);
    EXPECT_THAT(Names(), ElementsAre("p"));
}

// Reading the place ------------------------------------------------------------------------------

TEST_F(FileSelList, ADialogOfScriptsListsThemOnceAServerIsSelected) {
    for (const auto type : {K4_FILE_TYPE_SCRIPT, K4_FILE_TYPE_DOWNLOAD}) {
        MakeFile("A:\\list.DL4");
        Remember({});
        Make().SetType(type);
        selector->SetPath(type == K4_FILE_TYPE_SCRIPT ? "A:\\run.SC4" : "A:\\list.DL4");
        Open();
        EXPECT_EQ(selector->ShowFilesList(), 0) << "the tree takes the focus";
        Select(Server("A:"));
        EXPECT_THAT(Names(), ElementsAre(type == K4_FILE_TYPE_SCRIPT ? "run" : "list"));
    }
}

TEST_F(FileSelList, AFailedListingReadsTheFileTypeAllTheSame) {
    OpenAt({"A:", kType, "Default", "", "SQ4"});
    selector->Tree().Select(nullptr);
    view.typeIndex = 1;
    EXPECT_EQ(selector->ShowFilesList(), 0);
    EXPECT_EQ(selector->Place().fileExtension, "SD4");
}

TEST_F(FileSelList, ANameIsCutWhateverTheFileType) {
    OpenAt({"A:", kType, "Default", "", "SQ4"});
    view.typeIndex = -1;
    view.name = "x \t";
    EXPECT_EQ(selector->GetFileSelection(), 0);
    EXPECT_EQ(selector->Place().file, "x");
    EXPECT_EQ(selector->FileWithExtension(), "");
}

TEST_F(FileSelList, ARowWithALongNameIsShownButRefusedAsAName) {
    const std::string longName(40, 'n');
    MakeFile(kLib + longName + ".SQ4");
    OpenAt({"A:", kType, "Default", "", "SQ4"});
    EXPECT_THAT(Names(), ElementsAre("a", "b", "c", longName));
    SelectRows({longName});
    EXPECT_EQ(selector->Place().file, longName);
    EXPECT_EQ(view.name, longName);
    EXPECT_GT(view.refused, 0);
    EXPECT_EQ(selector->FileWithExtension(), "");
}

// Sorting ----------------------------------------------------------------------------------------

TEST_F(FileSelList, AfterASortTheFileIsThatOfTheSelectedRow) {
    OpenAt({"A:", kType, "Default", "", "SQ4"});
    SelectRows({"a"});
    selector->ClickColumn(0);
    EXPECT_THAT(Names(), ElementsAre("c", "b", "a"));
    EXPECT_THAT(view.selected, ElementsAre(0u)) << "the selection stays at the row position";
    EXPECT_EQ(view.name, "c");
    EXPECT_EQ(selector->Place().file, "c");
    EXPECT_EQ(selector->FileWithExtension(), "c.SQ4");
    // So that a new name goes to the file that is seen.
    selector->StartRename();
    const std::string text = "new";
    selector->Renamed(selector->Place(), text, prompt);
    EXPECT_THAT(Names(), ElementsAre("a", "b", "new"));
}

TEST_F(FileSelList, ASortLeavesATypedName) {
    OpenAt({"A:", kType, "Default", "", "SQ4"}, K4_FILE_SAVE_AS);
    view.name = "typed";
    selector->ClickColumn(1);
    EXPECT_EQ(view.name, "typed");
}

TEST_F(FileSelList, AFillingAnewIsInTheOrderOfNames) {
    OpenAt({"A:", kType, "Default", "", "SQ4"});
    selector->ClickColumn(0);
    selector->ShowFilesList();
    EXPECT_THAT(Names(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(selector->SortAscending(), 0);
    selector->ClickColumn(0);
    EXPECT_THAT(Names(), ElementsAre("a", "b", "c")) << "the direction goes on from where it was";
}

/// The list as a table of texts, sorted literally: neighbour by neighbour.
class LiteralList {
 public:
    explicit LiteralList(const k4cmn::FileRows& rows) {
        for (std::size_t row = 0; row < rows.Rows().size(); ++row) {
            Texts cells;
            for (int column = 0; column < 4; ++column)
                cells.push_back(rows.Text(row, column));
            m_rows.push_back(cells);
        }
    }

    void Click(int column) {
        m_ascending = !m_ascending;
        std::vector<std::size_t> order(m_rows.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        for (std::size_t pass = 0; pass < order.size(); ++pass) {
            for (std::size_t at = 0; at + pass + 1 < order.size(); ++at) {
                const std::string& first = m_rows[order[at]][static_cast<std::size_t>(column)];
                const std::string& second = m_rows[order[at + 1]][static_cast<std::size_t>(column)];
                if (column == 3 ? SwapsDates(first, second) : SwapsTexts(first, second))
                    std::swap(order[at], order[at + 1]);
            }
        }
        const std::vector<Texts> old = m_rows;
        for (std::size_t column4 = 0; column4 < 4; ++column4) {
            for (std::size_t row = 0; row < order.size(); ++row)
                m_rows[row][column4] = old[order[row]][column4];
        }
    }
    const std::vector<Texts>& Rows() const { return m_rows; }

 private:
    bool SwapsTexts(const std::string& first, const std::string& second) const {
        const int compared = k4cmn::WithoutCase(first).compare(k4cmn::WithoutCase(second));
        return m_ascending ? compared > 0 : compared < 0;
    }
    static std::vector<int> Date(std::string text, int missing) {
        std::replace(text.begin(), text.end(), '/', ' ');
        std::replace(text.begin(), text.end(), ':', ' ');
        std::istringstream in(text);
        std::vector<int> pieces(5, missing);
        for (int& piece : pieces) {
            if (!(in >> piece))
                break;
        }
        return {pieces[2] + 1900, pieces[0], pieces[1], pieces[3], pieces[4]};
    }
    bool SwapsDates(const std::string& first, const std::string& second) const {
        return !m_ascending || Date(first, 1) > Date(second, 2);
    }

    std::vector<Texts> m_rows;
    bool m_ascending = true;
};

TEST_F(FileSelList, AnyRowOfClicksGivesWhatExchangingNeighboursGives) {
    std::mt19937 random(7);
    const auto number = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    const Texts letters{"a", "A", "b", "B", "\u00e4", "\u00c4", "_", " ", "\u4e2d", "~"};
    for (int round = 0; round < 6; ++round) {
        std::filesystem::remove_all(Native(kLib));
        MakeFolder(kLib);
        for (int i = number(0, 60); i > 0; --i) {
            std::string name;
            for (int length = number(0, 4); length > 0; --length)
                name += letters[static_cast<std::size_t>(number(0, 9))];
            MakeFile(kLib + name + ".SQ4",
                     std::string(static_cast<std::size_t>(number(0, 4000)), 'x'),
                     kNow - number(0, 3) * 3600 * 6 - number(0, 2) * 86400 * 200);
        }
        OpenAt({"A:", kType, "Default", "", "SQ4"});
        LiteralList literal(selector->Rows());
        for (int click = 0; click < 40; ++click) {
            const int column = number(0, 3);
            literal.Click(column);
            selector->ClickColumn(column);
            ASSERT_EQ(LiteralList(selector->Rows()).Rows(), literal.Rows())
                << "click " << click << " on " << column;
        }
    }
}

}  // namespace
