#include <algorithm>

#include "k4cmndlg/frame/StringTable.h"
#include "tests/search/FindSheetFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;

class FindSheetList : public FindSheet {
 protected:
    /// What the dialog has taken over: place, file and type.
    std::vector<std::string> Taken() const {
        return {dialog->GetServer(), dialog->GetSignType(), dialog->GetLibrary(),
                dialog->GetFileSel(), std::to_string(dialog->GetFileType())};
    }
    auto IsTaken(const std::string& library, const std::string& file, int type = 0) const {
        return ElementsAre("A:", kType, library, file, std::to_string(type));
    }
    std::vector<qint64> Images() const {
        std::vector<qint64> images;
        for (int row = 0; row < Rows().model()->rowCount(); ++row) {
            const QVariant icon = Rows().model()->index(row, 0).data(Qt::DecorationRole);
            images.push_back(icon.value<QIcon>().cacheKey());
        }
        return images;
    }
};

// Before it runs -----------------------------------------------------------------------------

TEST_F(FindSheetList, BeginsEmpty) {
    const CK4CmnDlgFind sheet("Find Files", nullptr);
    EXPECT_EQ(sheet.GetServer(), "");
    EXPECT_EQ(sheet.GetSignType(), "");
    EXPECT_EQ(sheet.GetLibrary(), "");
    EXPECT_EQ(sheet.GetFileSel(), "");
    EXPECT_EQ(sheet.GetFileType(), 0);
    EXPECT_EQ(sheet.GetSearchPath(), "");
}

TEST_F(FindSheetList, ASearchPathIsTakenApart) {
    Make(Lib() + "cedar.SC4");
    EXPECT_THAT(Taken(), IsTaken("Default", "cedar", 2));
    EXPECT_EQ(dialog->GetSearchPath(), Lib());
    dialog->SetSearchPath(Lib("Other"));
    EXPECT_THAT(Taken(), IsTaken("Other", "", 2)) << "the type that was there before";
    dialog->SetSearchPath("");
    EXPECT_THAT(Taken(), ElementsAre("", "", "", "", "2"));
}

TEST_F(FindSheetList, TheSearchPathIsComposedAsFarAsThePlaceGoes) {
    CK4CmnDlgFind sheet("Find Files", nullptr);
    sheet.SetLibrary("Default");
    EXPECT_EQ(sheet.GetSearchPath(), "");
    sheet.SetServer("A:");
    EXPECT_EQ(sheet.GetSearchPath(), "A:\\");
    sheet.SetSignType(kType);
    EXPECT_EQ(sheet.GetSearchPath(), Lib());
    sheet.SetLibrary("");
    EXPECT_EQ(sheet.GetSearchPath(), std::string("A:\\") + kType + ".Sign\\");
}

// Selecting ----------------------------------------------------------------------------------

TEST_F(FindSheetList, EachSelectionIsTakenOver) {
    MakeFile(Lib() + "film.AVI");
    Make();
    Show();
    Type(kFileName, "*");
    Press(kFind);
    ClickRow(Lib("Other") + "apple.SQ4");
    EXPECT_THAT(Taken(), IsTaken("Other", "apple"));
    EXPECT_EQ(dialog->GetSearchPath(), Lib("Other"));
    ClickRow(Lib() + "film.AVI");
    EXPECT_THAT(Taken(), IsTaken("Default", "", -1));
    KeyInList(Qt::Key_Home);
    EXPECT_EQ(dialog->GetFileSel(), "apple");
    EXPECT_EQ(dialog->GetFileType(), 0);
    ClickAt(Beside());
    EXPECT_THAT(Taken(), ElementsAre("", "", "", "", "-1"));
}

TEST_F(FindSheetList, WhatIsSelectedIsNotWhereTheNextSearchLooks) {
    ShowFound();
    ClickRow(Lib("Other") + "oak.SQ4");
    Press(kFind);
    EXPECT_EQ(Names().size(), 5U);
    EXPECT_THAT(Taken(), IsTaken("Other", "oak"));
}

TEST_F(FindSheetList, AMessageTakesTheSelectedRowOverAgain) {
    Make();
    EXPECT_EQ(k4cmn::SendWindowMessage(dialog.get(), k4cmn::WM_GET_LIST_FILE), 0);
    Show();
    Press(kFind);
    EXPECT_EQ(k4cmn::SendWindowMessage(dialog.get(), k4cmn::WM_GET_LIST_FILE), 0);
    EXPECT_EQ(dialog->GetServer(), "A:") << "without a row nothing changes";
    ClickRow(Lib() + "Birch.SQ4");
    EXPECT_EQ(k4cmn::SendWindowMessage(dialog.get(), k4cmn::WM_GET_LIST_FILE), 1);
    EXPECT_EQ(k4cmn::SendWindowMessage(dialog.get(), k4cmn::WM_SHOW_FILES_LIST), 0);
    EXPECT_EQ(List()->SelectedRow(), 2U);
}

// Choosing -----------------------------------------------------------------------------------

TEST_F(FindSheetList, ADoubleClickChoosesTheRow) {
    Make();
    const int result = Run([&] {
        Press(kFind);
        DoubleClickAt(PlaceOf(RowOf(Lib("Other") + "oak.SQ4")));
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_THAT(Taken(), IsTaken("Other", "oak"));
    EXPECT_EQ(dialog->GetSearchPath(), Lib("Other"));
}

TEST_F(FindSheetList, ADoubleClickBesideTheRowsEndsWithNothing) {
    for (const bool isRowSelected : {false, true}) {
        Make();
        const int result = Run([&] {
            Press(kFind);
            if (isRowSelected)
                ClickRow(Lib() + "cedar.SQ4");
            DoubleClickAt(Beside());
        });
        EXPECT_EQ(result, IDOK);
        EXPECT_EQ(dialog->GetFileSel(), "");
        EXPECT_EQ(dialog->GetFileType(), -1);
        EXPECT_EQ(dialog->GetSearchPath(), "");
    }
}

TEST_F(FindSheetList, EnterOnARowChoosesIt) {
    Make();
    const int result = Run([&] {
        Press(kFind);
        ClickRow(Lib() + "Birch.SQ4");
        KeyInList(Qt::Key_Return);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_THAT(Taken(), IsTaken("Default", "Birch"));
}

TEST_F(FindSheetList, EnterWithoutARowFinds) {
    ShowFound();
    MakeFile(Lib() + "new.SQ4");
    KeyInList(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(Names().size(), 6U);
}

TEST_F(FindSheetList, ChoosingReadsNoPage) {
    Make();
    const int result = Run([&] {
        Press(kFind);
        dialog->SetActivePage(kSignPage);
        Click(*dialog, 1111);
        Type(kRows, "2048");
        Type(kColumns, "16384");
        DoubleClickAt(PlaceOf(0));
    });
    EXPECT_EQ(result, IDOK);
}

TEST_F(FindSheetList, CancelEscapeAndTheCloseButtonEndWithoutAChoice) {
    Make();
    const std::function<void()> ways[] = {
        [&] { Press(IDCANCEL); }, [&] { KeyInList(Qt::Key_Escape); }, [&] { dialog->close(); }};
    for (const auto& way : ways) {
        const int result = Run([&] {
            Press(kFind);
            ClickRow(Lib() + "Birch.SQ4");
            way();
        });
        EXPECT_EQ(result, IDCANCEL);
    }
}

// Sorting ------------------------------------------------------------------------------------

TEST_F(FindSheetList, ItsHeadingsAreTheLibrarysWhateverTheApplicationCallsByTheirNumber) {
    static constexpr k4cmn::StringRow kOfTheApplication[] = {{103, "One,Two,Three,Four,Five"}};
    k4cmn::SetApplicationStrings(kOfTheApplication);
    Make();
    const int result = Run([&] {
        Press(kFind);
        EXPECT_EQ(Rows().model()->headerData(1, Qt::Horizontal).toString(),
                  QStringLiteral(" In Folder                 "));
        Press(IDCANCEL);
    });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(k4cmn::LoadString(103), "One,Two,Three,Four,Five") << "the application's again";
    k4cmn::SetApplicationStrings({});
}

TEST_F(FindSheetList, HeadingsSortFirstDescendingAndForAllColumnsAlike) {
    ShowFound();
    ClickHeading(0);
    EXPECT_THAT(Names(), ElementsAre("oak", "cedar", "Birch", "apple", "apple"));
    ClickHeading(1);
    EXPECT_THAT(Paths(), ElementsAre(Lib() + "apple.SQ4", Lib() + "Birch.SQ4", Lib() + "cedar.SQ4",
                                     Lib("Other") + "apple.SQ4", Lib("Other") + "oak.SQ4"));
    ClickHeading(4);
    EXPECT_EQ(Names().front(), "oak") << "the reverse of what is on the screen";
    Press(kFind);
    EXPECT_THAT(Names(), ElementsAre("apple", "apple", "Birch", "cedar", "oak"));
    ClickHeading(0);
    EXPECT_EQ(Names().front(), "apple") << "the direction goes on from search to search";
}

TEST_F(FindSheetList, TheDirectionGoesOnWhenTheDialogRunsAgain) {
    Make();
    for (const char* first : {"oak", "apple", "oak"}) {
        Run([&] {
            Press(kFind);
            ClickHeading(0);
            EXPECT_EQ(Names().front(), first);
            Press(IDCANCEL);
        });
    }
}

TEST_F(FindSheetList, IconsStayWhereTheyAre) {
    MakeFile(Lib() + "zebra.SD4");
    Make(Lib());
    Show();
    Type(kFileName, "*");
    Press(kFind);
    ASSERT_THAT(Names(), ElementsAre("apple", "Birch", "cedar", "zebra"));
    const std::vector<qint64> before = Images();
    EXPECT_NE(before.front(), before.back());
    ClickHeading(0);
    EXPECT_EQ(Names().front(), "zebra");
    EXPECT_EQ(Cell(0, 3), "K4400 Sched");
    EXPECT_EQ(Images(), before);
}

TEST_F(FindSheetList, ASortLeavesTheSelectionAndTakesOverWhatComesThere) {
    ShowFound(Lib());
    ClickRow(Lib() + "apple.SQ4");
    ClickHeading(0);
    EXPECT_EQ(List()->SelectedRow(), 0U);
    EXPECT_THAT(Taken(), IsTaken("Default", "cedar"));
}

TEST_F(FindSheetList, ASortWithoutASelectionTakesNothing) {
    ShowFound(Lib());
    ClickHeading(0);
    EXPECT_EQ(dialog->GetServer(), "A:");
    EXPECT_EQ(dialog->GetFileType(), 0);
}

}  // namespace
}  // namespace k4test
