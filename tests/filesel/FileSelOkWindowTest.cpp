#include "tests/filesel/FileSelWindowFixture.h"
#include "tests/support/RecordingShell.h"

namespace k4test {
namespace {

using k4cmn::MessageAnswer;
using k4cmn::MessageButtons;
using testing::ElementsAre;
using testing::IsEmpty;

// OK, by mode and file ---------------------------------------------------------------------------

enum class Asked { Nothing, Exists, NotFound };

struct OkRow {
    const char* what;
    tag_K4_FILE_MODE mode;
    const char* file;
    Asked asked;
    MessageAnswer answer;
    bool ends;
    const char* result;    ///< in the library
    const char* selected;  ///< of GetSelectedFiles(), in the library; "-" for the empty text
};

class OkInWindow : public FileSelWindow, public testing::WithParamInterface<OkRow> {};

TEST_P(OkInWindow, DoesWhatItsModeSays) {
    const OkRow& row = GetParam();
    Remember(At("c"));
    const std::string path = Lib() + row.file + ".SQ4";
    if (row.asked == Asked::Exists)
        messages.Expect(Question(AlreadyExists(path), MessageButtons::YesNoCancel), row.answer);
    if (row.asked == Asked::NotFound)
        messages.Expect(Question(NotFound(path), MessageButtons::YesNoCancel), row.answer);
    const std::string result = Select(row.mode, [&] {
        Type(row.file);
        Press(IDOK);
        EXPECT_EQ(dialog->isVisible(), !row.ends);
        if (!row.ends)
            Press(IDCANCEL);
    });
    EXPECT_EQ(result, *row.result ? Lib() + row.result + ".SQ4" : std::string());
    std::vector<std::string> selected;
    if (std::string(row.selected) == "-")
        selected = {""};
    else if (*row.selected)
        selected = {Lib() + row.selected + ".SQ4"};
    // The row "c" stays selected behind what is typed.
    if (row.asked == Asked::Nothing && !selected.empty() && std::string(row.file) != "c")
        selected.push_back(Lib() + "c.SQ4");
    EXPECT_EQ(dialog->GetSelectedFiles(), selected);
}

constexpr auto kYes = MessageAnswer::Yes;
constexpr auto kNo = MessageAnswer::No;
constexpr auto kNever = MessageAnswer::Cancel;

INSTANTIATE_TEST_SUITE_P(
    FileSel, OkInWindow,
    testing::Values(
        OkRow{"OpenExists", K4_FILE_OPEN, "a", Asked::Nothing, kYes, true, "a", "a"},
        OkRow{"OpenMissingYes", K4_FILE_OPEN, "x", Asked::NotFound, kYes, true, "x", "x"},
        OkRow{"OpenMissingNo", K4_FILE_OPEN, "x", Asked::NotFound, kNo, false, "", ""},
        OkRow{"OpenMissingCancel", K4_FILE_OPEN, "x", Asked::NotFound, kNever, true, "", "-"},
        OkRow{"NewExistsYes", K4_FILE_NEW, "a", Asked::Exists, kYes, true, "a", ""},
        OkRow{"NewExistsNo", K4_FILE_NEW, "a", Asked::Exists, kNo, false, "", ""},
        OkRow{"NewExistsCancel", K4_FILE_NEW, "a", Asked::Exists, kNever, true, "", ""},
        OkRow{"NewMissing", K4_FILE_NEW, "x", Asked::Nothing, kYes, true, "x", ""},
        OkRow{"SaveExistsYes", K4_FILE_SAVE_AS, "a", Asked::Exists, kYes, true, "a", ""},
        OkRow{"SaveExistsNo", K4_FILE_SAVE_AS, "a", Asked::Exists, kNo, false, "", ""},
        OkRow{"SaveExistsCancel", K4_FILE_SAVE_AS, "a", Asked::Exists, kNever, true, "", ""},
        OkRow{"SaveMissing", K4_FILE_SAVE_AS, "x", Asked::Nothing, kYes, true, "x", ""},
        OkRow{"ManagerMissing", K4_FILE_MANAGER, "x", Asked::Nothing, kYes, true, "x", ""},
        OkRow{"PickExists", K4_FILE_PICK, "a", Asked::Nothing, kYes, true, "a", "a"},
        OkRow{"PickMissingYes", K4_FILE_PICK, "x", Asked::NotFound, kYes, true, "x", "x"},
        OkRow{"PickMissingNo", K4_FILE_PICK, "x", Asked::NotFound, kNo, false, "", ""},
        OkRow{"PickMissingCancel", K4_FILE_PICK, "x", Asked::NotFound, kNever, true, "", "-"}),
    [](const auto& row) { return std::string(row.param.what); });

TEST_F(FileSelWindow, TheFileManagerOpensFilesAndStays) {
    RecordingShell recorder;
    const k4cmn::ScopedProvider<k4cmn::Shell> use(recorder);
    Remember(At("a"));
    const std::string path = Lib() + "a.SQ4";
    EXPECT_EQ(Select(K4_FILE_MANAGER,
                     [&] {
                         Press(IDOK);
                         EXPECT_TRUE(dialog->isVisible());
                         recorder.openCode = 2;
                         messages.Expect("ERROR: Could not edit " + path);
                         DoubleClickRow("a");
                         EXPECT_TRUE(dialog->isVisible());
                         Press(IDCANCEL);
                     }),
              "");
    EXPECT_THAT(recorder.calls, ElementsAre("open " + path + " 5", "open " + path + " 5"));
}

struct FolderRow {
    std::vector<std::string> item;
    const char* result;
};

TEST_F(FileSelWindow, PickingWithoutAFileGivesTheFolder) {
    const FolderRow rows[] = {{{"A:"}, "A:"},
                              {{"A:", kType}, "A:\\16x80.Mono1.LED.Sign"},
                              {{"A:", kType, "Default"}, "A:\\16x80.Mono1.LED.Sign\\Default.Lib"}};
    for (const FolderRow& row : rows) {
        Remember(At());
        EXPECT_EQ(Select(K4_FILE_PICK,
                         [&] {
                             ClickItem(row.item);
                             Type("");
                             Press(IDOK);
                         }),
                  row.result);
        EXPECT_EQ(Remembered(), At()) << "a folder isn't kept as the last place";
    }
}

TEST_F(FileSelWindow, SeveralRowsAreAllTaken) {
    Remember(At("a"));
    EXPECT_EQ(Select(K4_FILE_OPEN,
                     [&] {
                         ClickRow("a");
                         ClickRow("c", Qt::ControlModifier);
                         EXPECT_EQ(Text(kFileName), "a");
                         Press(IDOK);
                     }),
              Lib() + "a.SQ4");
    EXPECT_THAT(dialog->GetSelectedFiles(), ElementsAre(Lib() + "a.SQ4", Lib() + "c.SQ4"));
}

TEST_F(FileSelWindow, WhatIsTakenIsTheLastPlaceNextTime) {
    Remember(At("a"));
    Select(K4_FILE_OPEN, [&] {
        ClickItem({"A:", kType, "Other"});
        ClickRow("o");
        Press(IDOK);
    });
    EXPECT_EQ(Remembered(), (FileLocation{"A:", kType, "Other", "o", "SQ4"}));
    New();
    Show();
    EXPECT_EQ(Text(kPath), Lib("Other"));
    EXPECT_THAT(SelectedNames(), ElementsAre("o"));
}

// Double-click -----------------------------------------------------------------------------------

TEST_F(FileSelWindow, ADoubleClickIsOkWhereAFileIsToBeOpened) {
    for (const auto mode : {K4_FILE_OPEN, K4_FILE_PICK}) {
        Remember(At());
        EXPECT_EQ(Select(mode, [&] { DoubleClickRow("b"); }), Lib() + "b.SQ4");
    }
}

TEST_F(FileSelWindow, ADoubleClickIsNothingWhereAFileIsToBeNamed) {
    for (const auto mode : {K4_FILE_NEW, K4_FILE_SAVE_AS}) {
        Remember(At());
        EXPECT_EQ(Select(mode,
                         [&] {
                             DoubleClickRow("b");
                             EXPECT_TRUE(dialog->isVisible());
                             EXPECT_EQ(Text(kFileName), "b");
                             Press(IDCANCEL);
                         }),
                  "");
    }
}

// Ways to cancel ---------------------------------------------------------------------------------

TEST_F(FileSelWindow, EachWayToCancelGivesNothing) {
    const std::function<void()> ways[] = {
        [&] { Press(IDCANCEL); }, [&] { KeyInTree(Qt::Key_Escape); },
        [&] { KeyInList(Qt::Key_Escape); }, [&] { dialog->close(); }};
    for (const auto& way : ways) {
        Remember(At("a"));
        EXPECT_EQ(Select(K4_FILE_OPEN, way), "");
        EXPECT_THAT(dialog->GetSelectedFiles(), IsEmpty());
        EXPECT_EQ(Remembered(), At("a"));
    }
}

TEST_F(FileSelWindow, EnterIsOkInTreeListAndField) {
    for (const int id : {kTree, kList, kFileName}) {
        Remember(At("b"));
        EXPECT_EQ(Select(K4_FILE_OPEN,
                         [&] {
                             The<QWidget>(id)->setFocus();
                             QTest::keyClick(dialog->windowHandle(), Qt::Key_Return);
                         }),
                  Lib() + "b.SQ4")
            << id;
    }
}

TEST_F(FileSelWindow, CanBeUsedByTheKeyboardAlone) {
    ConfigureLocal({"A:"});
    const auto keys = [&](std::initializer_list<Qt::Key> all) {
        for (const Qt::Key key : all) {
            QTest::keyClick(dialog->windowHandle(), key);
            Settle();
        }
    };
    EXPECT_EQ(
        Select(K4_FILE_OPEN,
               [&] {
                   ASSERT_TRUE(Tree().hasFocus());
                   // A:, opened; its first sign type, opened; the first library; the list.
                   keys({Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right});
                   EXPECT_EQ(SelectedItem(), "Default");
                   keys({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_C});
                   EXPECT_EQ(Text(kFileName), "c");
                   keys({Qt::Key_Return});
               }),
        Lib() + "c.SQ4");
}

// The file's name --------------------------------------------------------------------------------

const std::string k32 = "abcdefghijklmnopqrstuvwxyz123456";

TEST_F(FileSelWindow, TheFieldTakes32CharactersAndNoMore) {
    ShowAt(At());
    Type((k32 + "7").c_str());
    EXPECT_EQ(Text(kFileName), k32);
    Type("");
    QApplication::clipboard()->setText(QString::fromStdString(k32 + "789"));
    QTest::keyClick(The<QWidget>(kFileName), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(kFileName), k32);
}

TEST_F(FileSelWindow, ALongerTextThatTheProgramSetsIsRefused) {
    MakeFile(Lib() + k32 + "7.SQ4");
    ShowAt(At("a"));
    messages.Expect("Enter no more than 32 characters.");
    ClickRow(k32 + "7");
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_EQ(Text(kFileName), k32 + "7");
    EXPECT_TRUE(The<QWidget>(kFileName)->hasFocus());
    EXPECT_EQ(The<QLineEdit>(kFileName)->selectedText().toStdString(), k32 + "7");

    messages.Expect("Enter no more than 32 characters.");
    Press(IDOK);
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_TRUE(dialog->isVisible());
    // Another row puts it right.
    dialog->ShowFilesList();
    messages.Expect("Enter no more than 32 characters.");
    Settle();
    Type("b");
    EXPECT_EQ(dialog->ShowFilesList(), 1);
    EXPECT_THAT(SelectedNames(), ElementsAre("b"));
}

TEST_F(FileSelWindow, ALongerTextCanBeShortenedAndNotMadeLongerAgain) {
    const std::string longer = k32 + "78";
    MakeFile(Lib() + longer + ".SQ4");
    ShowAt(At("a"));
    messages.Expect("Enter no more than 32 characters.");
    ClickRow(longer);
    auto* field = The<QLineEdit>(kFileName);
    field->setCursorPosition(2);
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(field, Qt::Key_Backspace);
    EXPECT_EQ(Text(kFileName), longer.substr(2));
    EXPECT_EQ(field->cursorPosition(), 0);
    QTest::keyClicks(field, QStringLiteral("zz"));
    EXPECT_EQ(Text(kFileName), longer.substr(2));
}

TEST_F(FileSelWindow, ALongNameOfTheLastPlaceIsRefusedOnce) {
    Remember(At(k32 + "7"));
    messages.Expect("Enter no more than 32 characters.");
    New();
    Show();
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_THAT(RowNames(), IsEmpty());
}

TEST_F(FileSelWindow, AForbiddenCharacterIsToldWhenOkIsPressed) {
    ShowAt(At("a"));
    for (const char bad : std::string("\\/:;*?\"<>|#%")) {
        Type((std::string("x") + bad).c_str());
        messages.Expect(
            {"A filename cannot contain any of the following characters:\n\t"
             "\\ / : ; * ? \" < > | # %",
             "Invalid Filename", MessageButtons::Ok, k4cmn::MessageIcon::Stop});
        Press(IDOK);
        EXPECT_EQ(messages.Pending(), 0U) << bad;
        EXPECT_TRUE(dialog->isVisible());
    }
}

TEST_F(FileSelWindow, ANameOfHyphensAloneIsNotFoundUnderTheEmptyPath) {
    ShowAt(At("a"));
    Type("---");
    messages.Expect(Question(NotFound(""), MessageButtons::YesNoCancel), MessageAnswer::No);
    Press(IDOK);
    EXPECT_TRUE(dialog->isVisible());
}

// What messages may do ---------------------------------------------------------------------------

TEST_F(FileSelWindow, MayBeDeletedWhileAQuestionStands) {
    Remember(At("a"));
    for (const auto answer : {MessageAnswer::Yes, MessageAnswer::No, MessageAnswer::Cancel}) {
        auto* const doomed = new CK4CmnDlgFileSel;
        QPointer<CK4CmnDlgFileSel> watch(doomed);
        messages.Expect(Question(NotFound(Lib() + "x.SQ4"), MessageButtons::YesNoCancel), answer,
                        [&] { delete doomed; });
        EXPECT_EQ(RunModalBy(
                      *doomed, [&] { return doomed->DoFileSelection(); },
                      [&] {
                          Settle();
                          TypeOver(*doomed, kFileName, QStringLiteral("x"));
                          Click(*doomed, IDOK);
                      }),
                  "");
        EXPECT_TRUE(watch.isNull());
    }
}

TEST_F(FileSelWindow, MayBeEndedWhileAQuestionStands) {
    Remember(At("a"));
    messages.Expect(Question(NotFound(Lib() + "x.SQ4"), MessageButtons::YesNoCancel),
                    MessageAnswer::Yes, [&] { dialog->close(); });
    EXPECT_EQ(Select(K4_FILE_OPEN,
                     [&] {
                         Type("x");
                         Press(IDOK);
                     }),
              "")
        << "the dialog was cancelled before the answer came";
}

TEST_F(FileSelWindow, MayBeDeletedWhileADoubleClickAsks) {
    Remember(At());
    auto* const doomed = new CK4CmnDlgFileSel;
    dialog.reset(doomed);
    Show();
    std::filesystem::remove(Native(Lib() + "b.SQ4"));
    messages.Expect(Question(NotFound(Lib() + "b.SQ4"), MessageButtons::YesNoCancel),
                    MessageAnswer::Yes, [&] { dialog.reset(); });
    QTest::mouseClick(Rows().viewport(), Qt::LeftButton, {}, PlaceOf("b"));
    QTest::mouseDClick(Rows().viewport(), Qt::LeftButton, {}, PlaceOf("b"));
    Settle();
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_EQ(dialog, nullptr);
}

}  // namespace
}  // namespace k4test
