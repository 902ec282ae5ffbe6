#include "tests/filesel/FileSelWindowFixture.h"

namespace k4test {
namespace {

using k4cmn::MessageAnswer;
using testing::ElementsAre;

/// The properties sheet beside the dialog.
class FileSelSheetWindow : public FileSelWindow {
 protected:
    static constexpr int kSheetFile = 1201;
    static constexpr int kKeywords = 1222;

    void SetUp() override {
        FileSelWindow::SetUp();
        for (const char* name : {"a", "b"})
            MakeSequence(Lib() + name + ".SQ4");
    }
    /// Opens the sheet for a row.
    void Open(const char* name) {
        ShowAt(At());
        ClickRow(name);
        Press(kProperties);
        ASSERT_NE(Sheet(), nullptr);
        ASSERT_TRUE(Sheet()->isVisible());
    }
    void TypeKeywords(const char* text) {
        Sheet()->SetActivePage(CK4CmnPSProperties::ADVANCED_PAGE);
        Settle();
        TypeOver(*Sheet(), kKeywords, QString::fromUtf8(text));
    }
    std::string KeywordsIn(const std::string& name) {
        const auto file = sequences.Create();
        EXPECT_EQ(file->Open(Lib() + name + ".SQ4", K4_OPEN_READ), 1);
        return file->GetPtrToKeywords();
    }
    k4cmn::Message CantOpen(const std::string& name) {
        return {"Error opening Sequence: " + Lib() + name + ".SQ4\n",
                {},
                k4cmn::MessageButtons::Ok,
                k4cmn::MessageIcon::Stop};
    }
};

TEST_F(FileSelSheetWindow, OpensForTheSequenceAndTheButtonComesBackOut) {
    Open("a");
    EXPECT_EQ(TextOf(*Sheet(), kSheetFile), Lib() + "a.SQ4");
    EXPECT_FALSE(Sheet()->isModal());
    EXPECT_EQ(Sheet()->parentWidget(), dialog.get());
    EXPECT_FALSE(IsPressed(kProperties));
}

TEST_F(FileSelSheetWindow, OpensByMenuAndByKey) {
    ShowAt(At());
    ClickRow("b");
    ChooseEntry("Pr&operties");
    ASSERT_NE(Sheet(), nullptr);
    Click(*Sheet(), IDCANCEL);
    Settle();
    EXPECT_EQ(Sheet(), nullptr);
    dialog->activateWindow();
    KeyInList(Qt::Key_Return, Qt::AltModifier);
    ASSERT_NE(Sheet(), nullptr);
    EXPECT_EQ(TextOf(*Sheet(), kSheetFile), Lib() + "b.SQ4");
}

TEST_F(FileSelSheetWindow, DoesntOpenWithoutASequence) {
    MakeFile(Lib() + "plan.SD4");
    ShowAt(At());
    Press(kProperties);
    EXPECT_EQ(Sheet(), nullptr) << "no file";
    Choose(kFileTypes, "Schedules");
    ClickRow("plan");
    Press(kProperties);
    EXPECT_EQ(Sheet(), nullptr) << "no sequence";
    EXPECT_FALSE(IsPressed(kProperties));
}

TEST_F(FileSelSheetWindow, FollowsTheList) {
    Open("a");
    const QPointer<CK4CmnDlgFileProp> sheet = Sheet();
    ClickRow("b");
    EXPECT_EQ(Sheet(), sheet);
    EXPECT_EQ(TextOf(*Sheet(), kSheetFile), Lib() + "b.SQ4");
    Press(kProperties);
    EXPECT_EQ(Sheet(), sheet) << "the one that is open";
    EXPECT_TRUE(sheet->isVisible());
}

TEST_F(FileSelSheetWindow, MovingOnSavesAndFillsTheList) {
    Open("a");
    TypeKeywords("new, words");
    ClickRow("b");
    EXPECT_EQ(KeywordsIn("a"), "new; words; ");
    EXPECT_EQ(Sheet()->GetCurFilePath(), Lib() + "b.SQ4");
    EXPECT_THAT(SelectedNames(), ElementsAre("b"));
}

TEST_F(FileSelSheetWindow, ApplySavesAndTheSheetStays) {
    Open("a");
    MakeFile(Lib() + "d.SQ4");
    TypeKeywords("new");
    Click(*Sheet(), 3);
    Settle();
    EXPECT_EQ(KeywordsIn("a"), "new; ");
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c", "d")) << "1034 has come";
    ASSERT_NE(Sheet(), nullptr);
    EXPECT_EQ(Sheet()->GetCurFilePath(), Lib() + "a.SQ4");
}

TEST_F(FileSelSheetWindow, APersonMayCloseItAndOpenItAgain) {
    for (const int button : {IDOK, IDCANCEL}) {
        Open("a");
        const QPointer<CK4CmnDlgFileProp> sheet = Sheet();
        Click(*sheet, button);
        Settle();
        EXPECT_TRUE(sheet.isNull());
        ClickRow("b");
        EXPECT_EQ(Sheet(), nullptr);
        Press(kProperties);
        ASSERT_NE(Sheet(), nullptr);
        EXPECT_EQ(TextOf(*Sheet(), kSheetFile), Lib() + "b.SQ4");
        dialog->DestroyWindow();
    }
}

TEST_F(FileSelSheetWindow, IsClosedWithTheDialogAndSaves) {
    Open("a");
    const QPointer<CK4CmnDlgFileProp> sheet = Sheet();
    TypeKeywords("last");
    Press(IDCANCEL);
    dialog->DestroyWindow();
    Settle();
    EXPECT_TRUE(sheet.isNull());
    EXPECT_EQ(KeywordsIn("a"), "last; ");
}

TEST_F(FileSelSheetWindow, ThatCantSaveWhenTheDialogEndsSaysSo) {
    Open("a");
    const QPointer<CK4CmnDlgFileProp> sheet = Sheet();
    TypeKeywords("last");
    std::filesystem::remove(Native(Lib() + "a.SQ4"));
    messages.Expect(CantOpen("a"));
    dialog->DestroyWindow();
    Settle();
    EXPECT_TRUE(sheet.isNull());
    EXPECT_EQ(messages.Pending(), 0U);
}

TEST_F(FileSelSheetWindow, GoesWithADialogThatIsDeleted) {
    Open("a");
    const QPointer<CK4CmnDlgFileProp> sheet = Sheet();
    dialog.reset();
    EXPECT_TRUE(sheet.isNull());
}

TEST_F(FileSelSheetWindow, OfAFileThatCantBeOpenedIsTold) {
    ShowAt(At());
    ClickRow("c");
    messages.Expect(CantOpen("c"));
    Press(kProperties);
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_EQ(Sheet(), nullptr);
    EXPECT_FALSE(IsPressed(kProperties));
}

TEST_F(FileSelSheetWindow, ClosesWhereTheNextFileCantBeOpened) {
    Open("a");
    messages.Expect(CantOpen("c"));
    ClickRow("c");
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_EQ(Sheet(), nullptr);
    ClickRow("a");
    EXPECT_EQ(Sheet(), nullptr);
}

TEST_F(FileSelSheetWindow, SavedChangesAndAFileThatCantBeOpenedGiveOneMessage) {
    Open("a");
    TypeKeywords("new");
    messages.Expect(CantOpen("c"), MessageAnswer::Ok, [] { Settle(); });
    ClickRow("c");
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_EQ(KeywordsIn("a"), "new; ");
}

TEST_F(FileSelSheetWindow, TheDialogMayBeDeletedWhileTheSheetAsksOrTells) {
    Open("a");
    messages.Expect(CantOpen("c"), MessageAnswer::Ok, [&] { dialog.reset(); });
    QTest::mouseClick(Rows().viewport(), Qt::LeftButton, {}, PlaceOf("c"));
    Settle();
    EXPECT_EQ(dialog, nullptr);
}

TEST_F(FileSelSheetWindow, ThePaneOpensItAsTheButtonDoes) {
    ShowAt(At());
    ClickRow("a");
    static_cast<k4cmn::FileListOwner&>(*dialog).PropertiesButtonPressed();
    EXPECT_NE(Sheet(), nullptr);
}

TEST_F(FileSelSheetWindow, AMessageAboutAnotherSheetIsNothing) {
    Open("a");
    k4cmn::SendWindowMessage(dialog.get(), 1124, 12345);
    Settle();
    EXPECT_NE(Sheet(), nullptr);
}

}  // namespace
}  // namespace k4test
