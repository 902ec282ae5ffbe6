#include "tests/search/FindSheetFixture.h"

namespace k4test {
namespace {

using k4cmn::MessageAnswer;

/// The properties sheet beside the dialog. The sequences "apple" and "cedar" can be opened, "Birch"
/// can't.
class FindSheetProperties : public FindSheet {
 protected:
    static constexpr int kSheetFile = 1201;
    static constexpr int kSheetKeywords = 1222;

    void SetUp() override {
        FindSheet::SetUp();
        for (const char* name : {"apple", "cedar"})
            MakeSequence(Lib() + name + ".SQ4");
    }
    /// Opens the sheet for a row.
    void Open(const std::string& name) {
        ShowFound(Lib());
        ChooseEntry(Lib() + name + ".SQ4", "P&roperties");
        ASSERT_NE(Sheet(), nullptr);
        ASSERT_TRUE(Sheet()->isVisible());
    }
    std::string Shown() const { return TextOf(*Sheet(), kSheetFile); }
    void TypeKeywords(const char* text) {
        Sheet()->SetActivePage(CK4CmnPSProperties::ADVANCED_PAGE);
        Settle();
        TypeOver(*Sheet(), kSheetKeywords, QString::fromUtf8(text));
    }
    std::string KeywordsIn(const std::string& name) {
        const auto file = sequences.Create();
        EXPECT_EQ(file->Open(Lib() + name + ".SQ4", K4_OPEN_READ), 1);
        return file->GetPtrToKeywords();
    }
    static k4cmn::Message CantShow(const std::string& name) {
        return {"Error opening Sequence: " + Lib() + name + ".SQ4\n",
                {},
                k4cmn::MessageButtons::Ok,
                k4cmn::MessageIcon::Stop};
    }
};

TEST_F(FindSheetProperties, AreShownInASheetOfTheDialogs) {
    Open("apple");
    EXPECT_EQ(Shown(), Lib() + "apple.SQ4");
    EXPECT_EQ(Sheet()->parentWidget(), dialog.get());
    EXPECT_FALSE(Sheet()->isModal());
}

TEST_F(FindSheetProperties, AreShownByKeyToo) {
    ShowFound(Lib());
    ClickRow(Lib() + "cedar.SQ4");
    KeyInList(Qt::Key_Return, Qt::AltModifier);
    ASSERT_NE(Sheet(), nullptr);
    EXPECT_EQ(Shown(), Lib() + "cedar.SQ4");
    EXPECT_TRUE(dialog->isVisible()) << "it isn't chosen";
}

TEST_F(FindSheetProperties, AreThoseOfSequencesAlone) {
    MakeFile(Lib() + "plan.SD4");
    Make(Lib());
    Show();
    Type(kFileName, "*");
    Press(kFind);
    ClickRow(Lib() + "plan.SD4");
    KeyInList(Qt::Key_Return, Qt::AltModifier);
    EXPECT_EQ(Sheet(), nullptr);
}

TEST_F(FindSheetProperties, AreNotShownUntilTheyAreAskedFor) {
    ShowFound(Lib());
    ClickRow(Lib() + "apple.SQ4");
    EXPECT_EQ(Sheet(), nullptr);
}

TEST_F(FindSheetProperties, FollowTheSelection) {
    MakeFile(Lib() + "plan.SD4");
    Make(Lib());
    Show();
    Type(kFileName, "*");
    Press(kFind);
    ChooseEntry(Lib() + "apple.SQ4", "P&roperties");
    const QPointer<CK4CmnDlgFileProp> sheet = Sheet();
    ClickRow(Lib() + "cedar.SQ4");
    EXPECT_EQ(Shown(), Lib() + "cedar.SQ4");
    ClickRow(Lib() + "plan.SD4");
    EXPECT_EQ(Shown(), Lib() + "cedar.SQ4") << "no sequence";
    ClickAt(Beside());
    EXPECT_EQ(Shown(), Lib() + "cedar.SQ4") << "nothing";
    ClickRow(Lib() + "apple.SQ4");
    EXPECT_EQ(Shown(), Lib() + "apple.SQ4");
    EXPECT_EQ(Sheet(), sheet);
}

TEST_F(FindSheetProperties, FollowASortToo) {
    std::filesystem::remove(Native(Lib() + "Birch.SQ4"));
    Open("apple");
    ClickHeading(0);
    EXPECT_EQ(Shown(), Lib() + "cedar.SQ4");
}

TEST_F(FindSheetProperties, OfTheFileThatIsShownAreLeftAlone) {
    Open("apple");
    TypeKeywords("unsaved");
    ClickAt(Beside());
    ClickRow(Lib() + "apple.SQ4");
    EXPECT_EQ(TextOf(*Sheet(), kSheetKeywords), "unsaved");
    EXPECT_EQ(KeywordsIn("apple"), "") << "showing it anew would have saved them";
    ChooseEntry(Lib() + "apple.SQ4", "P&roperties");
    EXPECT_EQ(TextOf(*Sheet(), kSheetKeywords), "unsaved");
    EXPECT_EQ(KeywordsIn("apple"), "");
}

TEST_F(FindSheetProperties, MovingOnSaves) {
    Open("apple");
    TypeKeywords("new, words");
    ClickRow(Lib() + "cedar.SQ4");
    EXPECT_EQ(KeywordsIn("apple"), "new; words; ");
    EXPECT_EQ(Sheet()->GetCurFilePath(), Lib() + "cedar.SQ4");
    EXPECT_EQ(dialog->GetFileSel(), "cedar");
}

TEST_F(FindSheetProperties, ApplySavesAndTheListStays) {
    Open("apple");
    MakeFile(Lib() + "new.SQ4");
    TypeKeywords("new");
    Click(*Sheet(), 3);
    Settle();
    EXPECT_EQ(KeywordsIn("apple"), "new; ");
    EXPECT_EQ(Names().size(), 3U) << "nothing is searched anew";
    EXPECT_EQ(List()->SelectedRow(), 0U);
    EXPECT_EQ(dialog->GetFileSel(), "apple");
}

TEST_F(FindSheetProperties, MayBeClosedAndAreShownAgainWhenAskedFor) {
    for (const int button : {IDOK, IDCANCEL}) {
        Open("apple");
        const QPointer<CK4CmnDlgFileProp> sheet = Sheet();
        Click(*sheet, button);
        Settle();
        EXPECT_TRUE(sheet.isNull());
        ClickRow(Lib() + "cedar.SQ4");
        EXPECT_EQ(Sheet(), nullptr);
        ChooseEntry(Lib() + "cedar.SQ4", "P&roperties");
        ASSERT_NE(Sheet(), nullptr);
        EXPECT_EQ(Shown(), Lib() + "cedar.SQ4");
        dialog->DestroyWindow();
        Settle();
    }
}

TEST_F(FindSheetProperties, StayDuringAnotherSearch) {
    Open("apple");
    Press(kFind);
    ASSERT_NE(Sheet(), nullptr);
    EXPECT_EQ(Shown(), Lib() + "apple.SQ4");
}

TEST_F(FindSheetProperties, AreSavedAndClosedWithTheDialog) {
    Open("apple");
    const QPointer<CK4CmnDlgFileProp> sheet = Sheet();
    TypeKeywords("last");
    Press(IDCANCEL);
    Settle();
    EXPECT_TRUE(sheet.isNull());
    EXPECT_EQ(KeywordsIn("apple"), "last; ");
}

TEST_F(FindSheetProperties, GoWithADialogThatIsDeleted) {
    Open("apple");
    const QPointer<CK4CmnDlgFileProp> sheet = Sheet();
    TypeKeywords("last");
    dialog.reset();
    EXPECT_TRUE(sheet.isNull());
    EXPECT_EQ(KeywordsIn("apple"), "last; ");
}

TEST_F(FindSheetProperties, ThatCantBeReadAreTold) {
    ShowFound(Lib());
    messages.Expect(CantShow("Birch"));
    ChooseEntry(Lib() + "Birch.SQ4", "P&roperties");
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_EQ(Sheet(), nullptr);
}

TEST_F(FindSheetProperties, CloseWhereTheNextFileCantBeRead) {
    Open("apple");
    messages.Expect(CantShow("Birch"));
    ClickRow(Lib() + "Birch.SQ4");
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_EQ(Sheet(), nullptr);
    ClickRow(Lib() + "apple.SQ4");
    EXPECT_EQ(Sheet(), nullptr);
}

TEST_F(FindSheetProperties, TheDialogMayBeDeletedWhileTheyTell) {
    Open("apple");
    messages.Expect(CantShow("Birch"), MessageAnswer::Ok, [&] { dialog.reset(); });
    ClickRow(Lib() + "Birch.SQ4");
    EXPECT_EQ(dialog, nullptr);
}

TEST_F(FindSheetProperties, AMessageAboutAnotherSheetIsNothing) {
    Open("apple");
    k4cmn::SendWindowMessage(dialog.get(), k4cmn::WM_PROPERTIES_GONE, 12345);
    Settle();
    EXPECT_NE(Sheet(), nullptr);
}

}  // namespace
}  // namespace k4test
