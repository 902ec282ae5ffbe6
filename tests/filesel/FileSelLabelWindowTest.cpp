#include "tests/filesel/FileSelWindowFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;

/// The editing of labels in the window, and which file it reaches.
class FileSelLabelWindow : public FileSelWindow {
 protected:
    void SetUp() override {
        FileSelWindow::SetUp();
        MakeFile(Lib() + "b.SQ4", "of Default");
        MakeFile(Lib("Other") + "b.SQ4", "of Other");
    }
    /// Begins to edit a row's label, and replaces the text in it.
    void EditLabel(const std::string& row, const char* text) {
        ClickRow(row);
        KeyInList(Qt::Key_F2);
        ASSERT_NE(LabelEditor(), nullptr);
        LabelEditor()->setText(QString::fromUtf8(text));
    }
};

TEST_F(FileSelLabelWindow, ALabelLeftForAnotherLibraryIsThatOfItsOwnFile) {
    ShowAt(At());
    const QModelIndex other = ItemAt({"A:", kType, "Other"});
    EditLabel("b", "new");
    const QRect place = Tree().visualRect(other);
    // A real click: the focus moves to the tree before the tree sees the button.
    QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, {},
                      Tree().viewport()->mapTo(dialog.get(), place.center()));
    Settle();
    EXPECT_EQ(SelectedItem(), "Other");
    EXPECT_EQ(Content(Lib() + "new.SQ4"), "of Default");
    EXPECT_EQ(Content(Lib("Other") + "b.SQ4"), "of Other");
    EXPECT_THAT(RowNames(), ElementsAre("b", "o"));
}

TEST_F(FileSelLabelWindow, ALabelLeftForAnotherTypeIsThatOfItsOwnFile) {
    MakeFile(Lib() + "b.SD4", "a schedule");
    ShowAt(At());
    EditLabel("b", "new");
    // The focus moves and the type changes before anything that was posted.
    The<QWidget>(kFileTypes)->setFocus();
    The<QComboBox>(kFileTypes)->setCurrentText(QStringLiteral("Schedules"));
    Settle();
    EXPECT_EQ(Content(Lib() + "new.SQ4"), "of Default");
    EXPECT_EQ(Content(Lib() + "b.SD4"), "a schedule");
}

TEST_F(FileSelLabelWindow, ALabelLeftWhenTheListIsFilledAnewIsThatOfItsOwnFile) {
    ShowAt(At());
    EditLabel("b", "new");
    // In the list that comes with the focus another file stands in that row.
    MakeFile(Lib() + "aa.SQ4", "another one");
    Tree().setFocus();
    Settle();
    EXPECT_EQ(Content(Lib() + "new.SQ4"), "of Default");
    EXPECT_EQ(Content(Lib() + "aa.SQ4"), "another one");
    EXPECT_THAT(RowNames(), ElementsAre("a", "aa", "c", "new"));
}

TEST_F(FileSelLabelWindow, RowsThatComeMeanwhileCancelTheEditing) {
    ShowAt(At());
    EditLabel("b", "new");
    MakeFile(Lib() + "aa.SQ4");
    k4cmn::PostWindowMessage(dialog.get(), 1034);
    Settle();
    EXPECT_EQ(LabelEditor(), nullptr);
    EXPECT_THAT(RowNames(), ElementsAre("a", "aa", "b", "c"));
}

TEST_F(FileSelLabelWindow, F2RightAfterAClickOnTheSelectedRowEditsAtOnce) {
    ShowAt(At());
    for (const int button : {kDetails, kListView}) {
        Press(button);
        ClickRow("b");
        ClickRow("b");
        KeyInList(Qt::Key_F2);
        ASSERT_NE(LabelEditor(), nullptr) << button;
        QTest::keyClick(LabelEditor(), Qt::Key_Escape);
        Settle();
        EXPECT_EQ(LabelEditor(), nullptr);
    }
}

TEST_F(FileSelLabelWindow, AnotherViewEndsTheEditingAndRenames) {
    ShowAt(At());
    EditLabel("b", "new");
    Press(kListView);
    EXPECT_EQ(LabelEditor(), nullptr);
    EXPECT_EQ(Content(Lib() + "new.SQ4"), "of Default");
    EXPECT_THAT(RowNames(), ElementsAre("a", "c", "new"));
}

TEST_F(FileSelLabelWindow, TheFirstOfSeveralRowsIsTheOneThatIsRenamed) {
    ShowAt(At());
    ClickRow("c");
    ClickRow("b", Qt::ControlModifier);
    KeyInList(Qt::Key_F2);
    ASSERT_NE(LabelEditor(), nullptr);
    EXPECT_EQ(LabelEditor()->text().toStdString(), "b");
    LabelEditor()->setText(QStringLiteral("new"));
    QTest::keyClick(LabelEditor(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(Content(Lib() + "new.SQ4"), "of Default");
    EXPECT_THAT(RowNames(), ElementsAre("a", "c", "new"));
}

// Odd names --------------------------------------------------------------------------------------

const std::vector<std::string> kOdd{"two\nlines", "t\tab", " in front",  "q'uo`te", "-rf",
                                    "a.b.SQ4",    "&amp;", "\xC3\xBC 1", "<b>bold"};

class FileSelOddNames : public FileSelLabelWindow, public testing::WithParamInterface<std::string> {
 protected:
    void SetUp() override {
        FileSelLabelWindow::SetUp();
        MakeFile(Lib() + GetParam() + ".SQ4", GetParam());
        ShowAt(At());
        ClickRow(GetParam());
        ASSERT_THAT(SelectedNames(), ElementsAre(GetParam()));
    }
};

TEST_P(FileSelOddNames, AreRenamedUnderWhatIsTyped) {
    KeyInList(Qt::Key_F2);
    ASSERT_NE(LabelEditor(), nullptr);
    // Enter alone changes nothing.
    QTest::keyClick(LabelEditor(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(Content(Lib() + GetParam() + ".SQ4"), GetParam());
    EditLabel(GetParam(), "new");
    QTest::keyClick(LabelEditor(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(Content(Lib() + "new.SQ4"), GetParam());
    EXPECT_FALSE(Exists(Lib() + GetParam() + ".SQ4"));
}

TEST_P(FileSelOddNames, AreCopiedAndPasted) {
    KeyInList(Qt::Key_C, Qt::ControlModifier);
    ClickItem({"A:", kType, "Other"});
    KeyInTree(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Content(Lib("Other") + GetParam() + ".SQ4"), GetParam());
}

TEST_P(FileSelOddNames, AreTakenByOk) {
    const bool isForbidden = GetParam().find_first_of("\\/:;*?\"<>|#%") != std::string::npos;
    if (isForbidden)
        messages.Expect(
            {"A filename cannot contain any of the following characters:\n\t"
             "\\ / : ; * ? \" < > | # %",
             "Invalid Filename", k4cmn::MessageButtons::Ok, k4cmn::MessageIcon::Stop});
    Press(IDOK);
    EXPECT_EQ(dialog->isVisible(), isForbidden);
    if (!isForbidden) {
        EXPECT_THAT(dialog->GetSelectedFiles(), ElementsAre(Lib() + GetParam() + ".SQ4"));
    }
}

INSTANTIATE_TEST_SUITE_P(FileSel, FileSelOddNames, testing::ValuesIn(kOdd),
                         [](const auto& row) { return "Name" + std::to_string(row.index); });

}  // namespace
}  // namespace k4test
