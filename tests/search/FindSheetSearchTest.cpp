#include <QComboBox>
#include <fstream>

#include "tests/search/FindSheetFixture.h"

namespace k4test {
namespace {

using k4cmn::MessageAnswer;
using testing::ElementsAre;
using testing::IsEmpty;

class FindSheetSearch : public FindSheet {
 protected:
    /// The sequences of A:, as the file system gives their folders and names.
    std::vector<std::string> InTheOrderOfTheSearch() {
        const std::string signType = std::string("A:\\") + kType + ".Sign\\";
        std::vector<std::string> libraries;
        files.FindFiles(libraries, signType + "*.Lib", 1);
        std::vector<std::string> paths;
        for (const std::string& library : libraries) {
            std::vector<std::string> names;
            files.FindFiles(names, signType + library + "\\*.SQ4", 0);
            for (const std::string& name : names)
                paths.push_back(signType + library + "\\" + name);
        }
        return paths;
    }
};

// What is looked for -------------------------------------------------------------------------

TEST_F(FindSheetSearch, FindsTheFilesOfTheServerInTheOrderOfTheirNames) {
    ShowFound();
    EXPECT_THAT(Names(), ElementsAre("apple", "apple", "Birch", "cedar", "oak"));
    EXPECT_EQ(Paths()[2], Lib() + "Birch.SQ4");
    EXPECT_EQ(Cell(2, 3), "K4400 Seq");
    EXPECT_EQ(Count(), "5 files");
    EXPECT_FALSE(List()->SelectedRow());
}

TEST_F(FindSheetSearch, LooksWhereTheSearchPathSays) {
    ShowFound(Lib("Other"));
    EXPECT_EQ(TextOf(*dialog, kLookIn), Lib("Other"));
    EXPECT_THAT(Paths(), ElementsAre(Lib("Other") + "apple.SQ4", Lib("Other") + "oak.SQ4"));
}

TEST_F(FindSheetSearch, LooksWhereServerSignTypeAndLibrarySay) {
    dialog = std::make_unique<CK4CmnDlgFind>("Find Files", nullptr);
    dialog->SetServer("B:");
    dialog->SetSignType(kOtherType);
    dialog->SetLibrary("Far");
    EXPECT_EQ(dialog->GetSearchPath(), Far());
    Show();
    EXPECT_EQ(TextOf(*dialog, kLookIn), "") << "the search path is another matter";
    Press(kFind);
    EXPECT_THAT(Paths(), ElementsAre(Far() + "willow.SQ4"));
}

TEST_F(FindSheetSearch, BeginsWithTheFileTypeThatWasSet) {
    MakeFile(Lib() + "plan.SD4");
    Make();
    dialog->SetFileType(1);
    Show();
    EXPECT_EQ(The<QComboBox>(kFileType)->currentText(), QStringLiteral("Schedules"));
    Press(kFind);
    EXPECT_THAT(Names(), ElementsAre("plan"));
    EXPECT_EQ(Count(), "1 file");
}

TEST_F(FindSheetSearch, WithoutAServerFindsNothingAndSaysSo) {
    ShowFound("");
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(Count(), "No files found");
}

TEST_F(FindSheetSearch, FileServersAreAllOfThisSystem) {
    MakeFile(std::string("C:\\") + kType + ".Sign\\Default.Lib\\hidden.SQ4");
    dialog = std::make_unique<CK4CmnDlgFind>("Find Files", nullptr);
    dialog->SetServer("File Servers");
    Show();
    Press(kFind);
    EXPECT_THAT(Names(), ElementsAre("apple", "apple", "Birch", "cedar", "oak", "willow"));
}

TEST_F(FindSheetSearch, FileServersThatCantBeListedEndTheSearchWithAnEmptyList) {
    dialog = std::make_unique<CK4CmnDlgFind>("Find Files", nullptr);
    dialog->SetServer("File Servers");
    Show();
    Press(kFind);
    ASSERT_EQ(Names().size(), 6U);
    using Registry = k4cmn::Provided<k4cmn::RegistryProvider>;
    k4cmn::RegistryProvider* const before = Registry::Install(nullptr);
    Press(kFind);
    Registry::Install(before);
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(FindSheetSearch, ReadsThePageInFrontAndKeepsWhatTheOthersWereReadAs) {
    Make();
    Show();
    Type(kFileName, "b*");
    // No way for a person, who can't leave a page with this: it isn't read again.
    The<QLineEdit>(kRows)->setText(QStringLiteral("9"));
    Press(kFind);
    EXPECT_THAT(Names(), ElementsAre("Birch"));
    EXPECT_EQ(messages.Pending(), 0U);
}

TEST_F(FindSheetSearch, TakesAllThreePages) {
    MakeFile(Lib() + "large.SQ4", std::string(3000, 'x'));
    Make();
    Show();
    dialog->SetActivePage(kSizePage);
    The<QComboBox>(1121)->setFocus();
    The<QComboBox>(1121)->setCurrentIndex(1);
    Type(1122, "2");
    dialog->SetActivePage(kNamePage);
    Press(kFind);
    EXPECT_THAT(Names(), ElementsAre("large"));
    dialog->SetActivePage(kSignPage);
    Click(*dialog, 1111);
    Press(kFind);
    EXPECT_THAT(Names(), IsEmpty()) << "7x16 is no sign type of this store";
}

TEST_F(FindSheetSearch, LeavesTheFieldsAsTheyWereTyped) {
    MakeSequence(Lib() + "cedar.SQ4", "forest; ");
    Make(Lib());
    Show();
    Type(kFileName, "ced*.sq4");
    Type(kKeywords, "Forest");
    Press(kFind);
    EXPECT_THAT(Names(), ElementsAre("cedar"));
    Click(*dialog, kPrevious);
    Press(kFind);
    EXPECT_THAT(Names(), ElementsAre("cedar"));
    EXPECT_EQ(TextOf(*dialog, kFileName), "ced*.sq4");
    EXPECT_EQ(TextOf(*dialog, kKeywords), "Forest");
}

// New and Previous ---------------------------------------------------------------------------

TEST_F(FindSheetSearch, ANewSearchReplacesWhatIsListed) {
    ShowFound();
    MakeFile(Lib() + "new.SQ4");
    std::filesystem::remove(Native(Lib() + "cedar.SQ4"));
    Press(kFind);
    EXPECT_THAT(Names(), ElementsAre("apple", "apple", "Birch", "new", "oak"));
}

TEST_F(FindSheetSearch, APreviousSearchNarrowsWhatIsListed) {
    ShowFound();
    MakeFile(Lib() + "avocado.SQ4");
    Type(kFileName, "A");
    Click(*dialog, kPrevious);
    Press(kFind);
    EXPECT_THAT(Names(), ElementsAre("apple", "apple", "cedar", "oak"))
        << "with an A in the name; the new file isn't looked for";
    Type(kFileName, "");
    Press(kFind);
    EXPECT_EQ(Names().size(), 4U);
    EXPECT_EQ(Count(), "4 files");
}

TEST_F(FindSheetSearch, APreviousSearchAtFirstFindsNothing) {
    Make();
    Show();
    Click(*dialog, kPrevious);
    Press(kFind);
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(Count(), "No files found");
}

TEST_F(FindSheetSearch, ASearchEndsTheSelectionEvenWhereAsManyAreFound) {
    ShowFound();
    ClickRow(Lib() + "cedar.SQ4");
    Press(kFind);
    EXPECT_FALSE(List()->SelectedRow());
    ClickRow(Lib() + "cedar.SQ4");
    Click(*dialog, kPrevious);
    Press(kFind);
    EXPECT_FALSE(List()->SelectedRow());
    EXPECT_EQ(dialog->GetFileSel(), "cedar") << "what was taken over stays";
}

// What is refused ----------------------------------------------------------------------------

TEST_F(FindSheetSearch, APageInFrontThatIsRefusedChangesNothing) {
    ShowFound();
    ClickRow(Lib() + "cedar.SQ4");
    dialog->SetActivePage(kSignPage);
    Click(*dialog, 1111);
    Type(kRows, "2048");
    Type(kColumns, "16384");
    MakeFile(Lib() + "new.SQ4");
    messages.Expect("Rows x Cols cannot be > 8388608");
    Press(kFind);
    EXPECT_EQ(Names().size(), 5U);
    EXPECT_EQ(List()->SelectedRow(), 3U);
    EXPECT_EQ(Count(), "5 files");
    EXPECT_EQ(dialog->GetActiveIndex(), +kSignPage);
    Type(kRows, "8");
    Type(kColumns, "16");
    Click(*dialog, 1111);
    Press(kFind);
    EXPECT_EQ(Names().size(), 6U);
}

TEST_F(FindSheetSearch, RefusedAtTheFirstPressTheListIsThereAndEmpty) {
    Make();
    Show();
    const int before = dialog->height();
    dialog->SetActivePage(kSignPage);
    Click(*dialog, 1111);
    Type(kRows, "2048");
    Type(kColumns, "16384");
    messages.Expect("Rows x Cols cannot be > 8388608");
    Press(kFind);
    EXPECT_EQ(dialog->height(), before + 150);
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(Count(), "") << "nothing was searched";
}

TEST_F(FindSheetSearch, TheDialogMayBeDeletedWhileAPageRefuses) {
    Make();
    Show();
    dialog->SetActivePage(kSignPage);
    Click(*dialog, 1111);
    Type(kRows, "2048");
    Type(kColumns, "16384");
    messages.Expect(k4cmn::PlainMessage("Rows x Cols cannot be > 8388608"), MessageAnswer::Ok,
                    [&] { dialog.reset(); });
    k4cmn::SendWindowMessage(dialog.get(), k4cmn::WM_COMMAND, kFind);
    Settle();
    EXPECT_EQ(dialog, nullptr);
}

// Keys and messages --------------------------------------------------------------------------

TEST_F(FindSheetSearch, EnterInAPageFindsOnce) {
    MakeSequence(Lib() + "cedar.SQ4", "forest; ");
    Make(Lib());
    Show();
    Type(kFileName, "apple.SQ4");
    Type(kKeywords, "forest");
    messages.Expect(CantSearch(Lib() + "apple.SQ4"));
    PressKey(*dialog, Qt::Key_Return);
    Settle();
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_TRUE(dialog->isVisible());
    ASSERT_NE(List(), nullptr);
    messages.Expect(CantSearch(Lib() + "apple.SQ4"));
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Enter, Qt::KeypadModifier);
    Settle();
    EXPECT_EQ(messages.Pending(), 0U);
}

TEST_F(FindSheetSearch, EnterBesideThePagesFindsOnceToo) {
    Make(Lib());
    Show();
    Type(kFileName, "apple.SQ4");
    Type(kKeywords, "forest");
    for (const int id : {+kFind, +kNew}) {
        The<QWidget>(id)->setFocus();
        messages.Expect(CantSearch(Lib() + "apple.SQ4"));
        PressKey(*dialog, Qt::Key_Return);
        Settle();
        EXPECT_EQ(messages.Pending(), 0U) << id;
    }
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FindSheetSearch, OnlyTheFindCommandFinds) {
    Make();
    k4cmn::SendWindowMessage(dialog.get(), k4cmn::WM_COMMAND, kFind);
    EXPECT_EQ(dialog->GetDlgItem(kResults), nullptr) << "without a window";
    Show();
    k4cmn::SendWindowMessage(dialog.get(), k4cmn::WM_COMMAND, kNew);
    EXPECT_EQ(dialog->GetDlgItem(kResults), nullptr);
    k4cmn::SendWindowMessage(dialog.get(), k4cmn::WM_COMMAND, kFind);
    EXPECT_EQ(Names().size(), 5U);
}

TEST_F(FindSheetSearch, TheFocusStaysWhereItWas) {
    Make();
    Show();
    Type(kFileName, "*");
    PressKey(*dialog, Qt::Key_Return);
    Settle();
    EXPECT_EQ(FocusedId(*dialog), +kFileName);
    Press(kFind);
    EXPECT_EQ(FocusedId(*dialog), +kFind);
}

TEST_F(FindSheetSearch, ASequenceThatCantBeOpenedIsToldAndTheSearchGoesOn) {
    MakeSequence(Lib() + "cedar.SQ4", "forest; ");
    MakeSequence(Lib("Other") + "oak.SQ4", "forest; ");
    Make();
    Show();
    Type(kFileName, "*k.*");
    Type(kKeywords, "forest");
    Press(kFind);
    ASSERT_THAT(Names(), ElementsAre("oak"));
    Type(kFileName, "");
    for (const std::string& path : InTheOrderOfTheSearch()) {
        if (path.ends_with("cedar.SQ4") || path.ends_with("oak.SQ4"))
            continue;
        messages.Expect(CantSearch(path), MessageAnswer::Ok, [&] {
            EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
            EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        });
    }
    Press(kFind);
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_THAT(Names(), ElementsAre("cedar", "oak"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(FindSheetSearch, WhatIsFoundSoFarIsShownBehindAMessage) {
    MakeSequence(Lib() + "cedar.SQ4", "forest; ");
    for (const char* name : {"apple", "Birch"})
        std::filesystem::remove(Native(Lib() + name + ".SQ4"));
    for (const char* name : {"apple", "oak"})
        std::filesystem::remove(Native(Lib("Other") + name + ".SQ4"));
    dialog = std::make_unique<CK4CmnDlgFind>("Find Files", nullptr);
    dialog->SetServer("File Servers");
    Show();
    Type(kKeywords, "forest");
    messages.Expect(CantSearch(Far() + "willow.SQ4"), MessageAnswer::Ok, [&] {
        EXPECT_THAT(Names(), ElementsAre("cedar"));
        EXPECT_EQ(Count(), "1 file");
    });
    Press(kFind);
    EXPECT_THAT(Names(), ElementsAre("cedar"));
}

TEST_F(FindSheetSearch, FindPressedWhileAMessageStandsDoesNothing) {
    Make(Lib());
    Show();
    Type(kFileName, "apple.SQ4");
    Type(kKeywords, "forest");
    messages.Expect(CantSearch(Lib() + "apple.SQ4"), MessageAnswer::Ok, [&] {
        k4cmn::SendWindowMessage(dialog.get(), k4cmn::WM_COMMAND, kFind);
        Press(kFind);
    });
    Press(kFind);
    EXPECT_EQ(messages.Pending(), 0U);
    messages.Expect(CantSearch(Lib() + "apple.SQ4"));
    Press(kFind);
}

TEST_F(FindSheetSearch, TheDialogMayBeDeletedWhileAMessageStands) {
    Make();
    Show();
    Type(kKeywords, "forest");
    // One message of five: a search without a window asks nobody.
    messages.Expect(CantSearch(InTheOrderOfTheSearch().front()), MessageAnswer::Ok,
                    [&] { dialog.reset(); });
    QTest::mouseClick(The<QPushButton>(kFind), Qt::LeftButton);
    Settle();
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(FindSheetSearch, TheDialogMayEndWhileAMessageStands) {
    Make();
    const int result = Run([&] {
        Type(kKeywords, "forest");
        messages.Expect(CantSearch(InTheOrderOfTheSearch().front()), MessageAnswer::Ok,
                        [&] { dialog->EndDialog(77); });
        Press(kFind);
    });
    EXPECT_EQ(result, 77);
    EXPECT_EQ(messages.Pending(), 0U);
}

// Much ---------------------------------------------------------------------------------------

TEST_F(FindSheetSearch, ThousandsOfRowsAreFoundSortedAndNarrowed) {
    constexpr int kFiles = 5000;
    MakeFolder(Lib("Big"));
    const std::filesystem::path big = Native(Lib("Big"));
    for (int i = 0; i < kFiles; ++i)
        std::ofstream(big / ("file" + std::to_string(i) + ".SQ4")) << 'x';
    Make(Lib("Big"));
    Show();
    Press(kFind);
    EXPECT_EQ(Rows().model()->rowCount(), kFiles);
    EXPECT_EQ(Count(), "5000 files");
    ClickHeading(0);
    EXPECT_EQ(Cell(0, 0), "file999");
    Type(kFileName, "file49");
    Click(*dialog, kPrevious);
    Press(kFind);
    EXPECT_EQ(Rows().model()->rowCount(), 111);
    EXPECT_EQ(Cell(0, 0), "file49");
}

}  // namespace
}  // namespace k4test
