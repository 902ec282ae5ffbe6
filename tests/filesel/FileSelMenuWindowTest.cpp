#include "k4cmndlg/signctl/CK4CmnDlgCreateSignFolders.h"
#include "suite/settings/PreviewRequest.h"
#include "tests/filesel/FileSelWindowFixture.h"
#include "tests/support/RecordingPrinting.h"
#include "tests/support/RecordingPrograms.h"
#include "tests/support/RecordingShell.h"

namespace k4test {
namespace {

using k4cmn::MessageAnswer;
using testing::ElementsAre;
using testing::IsEmpty;

class FileSelMenuWindow : public FileSelWindow {
 protected:
    void TearDown() override {
        if (QMenu* menu = OpenMenu())
            menu->close();
        FileSelWindow::TearDown();
    }
    /// The folder of the store that a place's files lie in.
    std::vector<std::string> In(const std::string& library) {
        return FilesIn(Lib(library).substr(0, Lib(library).size() - 1));
    }
    /// Types a name into the dialog "Create Library", and ends it, when it shows.
    void WhenAskedForALibrary(std::function<void(CDialog&)> steps) {
        auto* const timer = new QTimer(dialog.get());
        connect(timer, std::move(steps));
        timer->start(std::chrono::milliseconds(0));
    }
    static void connect(QTimer* timer, std::function<void(CDialog&)> steps) {
        QObject::connect(timer, &QTimer::timeout, timer, [timer, steps = std::move(steps)] {
            auto* const asked = qobject_cast<CDialog*>(QApplication::activeModalWidget());
            if (!asked || asked->windowTitle() != QStringLiteral("Create Library"))
                return;
            timer->stop();
            timer->deleteLater();
            steps(*asked);
        });
    }
};

// What is in the menu ----------------------------------------------------------------------------

TEST_F(FileSelMenuWindow, HasItsEntriesAndToolTexts) {
    ShowAt(At("b"));
    QMenu* const menu = MenuAt(Rows(), PlaceOf("b"));
    ASSERT_NE(menu, nullptr);
    EXPECT_THAT(TextsOf(*menu),
                ElementsAre("Pre&view", "", "Cu&t", "&Copy", "&Paste", "Re&name", "&Delete", "",
                            "Cre&ate Library...", "&Remove Library", "Create &Sign Folder...",
                            "Pr&int...", "Print &File List", "", "Pr&operties"));
    EXPECT_EQ(Entry(*menu, "Pre&view")->statusTip(), QStringLiteral("Preview the Sequence"));
    EXPECT_EQ(Entry(*menu, "Pre&view")->toolTip(), QStringLiteral("Preview the Sequence"));
    EXPECT_EQ(Entry(*menu, "Cu&t")->statusTip(), QStringLiteral("Cut selected file"));
    EXPECT_EQ(Entry(*menu, "Cu&t")->toolTip(), QStringLiteral("Cut file"));
    EXPECT_EQ(Entry(*menu, "&Copy")->statusTip(), QStringLiteral("Copy selected file"));
    EXPECT_EQ(Entry(*menu, "&Paste")->statusTip(), QStringLiteral("Paste file"));
    EXPECT_EQ(Entry(*menu, "&Paste")->toolTip(), QStringLiteral("Paste file"));
    EXPECT_EQ(Entry(*menu, "&Delete")->statusTip(), QString());
    EXPECT_TRUE(menu->toolTipsVisible());
}

TEST_F(FileSelMenuWindow, LacksThePreviewWhereThatWasTakenOut) {
    Remember(At("b"));
    New().DeletePreviewMenuItem();
    Show();
    QMenu* const menu = MenuAt(Rows(), PlaceOf("b"));
    ASSERT_NE(menu, nullptr);
    EXPECT_THAT(TextsOf(*menu), testing::Not(testing::Contains("Pre&view")));
    EXPECT_EQ(TextsOf(*menu).front(), "Cu&t") << "without its separator";
}

TEST_F(FileSelMenuWindow, EnablesWhatTheSelectionAllows) {
    ShowAt(At());
    ClickRow("b");
    EXPECT_THAT(EnabledOf(*MenuAt(Rows(), PlaceOf("b"))),
                ElementsAre("Pre&view", "Cu&t", "&Copy", "Re&name", "&Delete", "Cre&ate Library...",
                            "&Remove Library", "Create &Sign Folder...", "Pr&int...",
                            "Print &File List", "Pr&operties"));
    OpenMenu()->close();
    const auto menuAtItem = [&](const std::vector<std::string>& path) {
        const QModelIndex index = ItemAt(path);
        return EnabledOf(*MenuAt(Tree(), Tree().visualRect(index).center()));
    };
    EXPECT_THAT(menuAtItem({"A:"}),
                ElementsAre("Cre&ate Library...", "&Remove Library", "Create &Sign Folder...",
                            "Pr&int...", "Print &File List"));
    EXPECT_EQ(SelectedItem(), "A:") << "the item under the click is selected";
    OpenMenu()->close();
    EXPECT_THAT(menuAtItem({"B:", "No signs"}), ElementsAre("Create &Sign Folder..."));
    OpenMenu()->close();
    EXPECT_THAT(menuAtItem({"A:", kOtherType, "Default"}),
                ElementsAre("Cu&t", "&Copy", "Cre&ate Library...", "&Remove Library",
                            "Create &Sign Folder...", "Pr&int...", "Print &File List"));
    EXPECT_EQ(Text(kPath), Sign(kOtherType) + "Default.Lib\\");
}

TEST_F(FileSelMenuWindow, ARightClickTakesTheRowUnderIt) {
    ShowAt(At("a"));
    QTest::mouseClick(Rows().viewport(), Qt::RightButton, {}, PlaceOf("c"));
    ASSERT_NE(MenuAt(Rows(), PlaceOf("c")), nullptr);
    EXPECT_EQ(Text(kFileName), "c");
}

TEST_F(FileSelMenuWindow, OpensByKeysAtTheRowAndByCommandInTheWindow) {
    ShowAt(At("b"));
    KeyInList(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(OpenMenu(), nullptr);
    EXPECT_EQ(OpenMenu()->pos(),
              Rows().viewport()->mapToGlobal(Rows().visualRect(Rows().currentIndex()).center()));
    OpenMenu()->close();
    QContextMenuEvent request(QContextMenuEvent::Keyboard, QPoint(9, 9),
                              Rows().mapToGlobal(QPoint(9, 9)));
    QApplication::sendEvent(&Rows(), &request);
    ASSERT_NE(OpenMenu(), nullptr) << "the menu key";
    OpenMenu()->close();
    KeyInTree(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(OpenMenu(), nullptr);
    EXPECT_EQ(SelectedItem(), "Default");
    OpenMenu()->close();
    dialog->move(20, 30);
    k4cmn::PostWindowMessage(dialog.get(), 0x111, 1009);
    Settle();
    ASSERT_NE(OpenMenu(), nullptr);
    EXPECT_EQ(OpenMenu()->pos(), dialog->frameGeometry().topLeft() + QPoint(200, 200));
}

TEST_F(FileSelMenuWindow, AFieldHasItsOwnMenu) {
    ShowAt(At("b"));
    auto* const field = The<QLineEdit>(kFileName);
    QContextMenuEvent request(QContextMenuEvent::Mouse, QPoint(5, 5),
                              field->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(field, &request);
    QMenu* const menu = OpenMenu();
    ASSERT_NE(menu, nullptr);
    EXPECT_THAT(TextsOf(*menu), testing::Not(testing::Contains("Cre&ate Library...")));
}

// Cut, copy, paste, delete -----------------------------------------------------------------------

TEST_F(FileSelMenuWindow, FilesAreCopiedAndPastedThroughTheMenu) {
    ShowAt(At());
    ClickRow("a");
    ClickRow("b", Qt::ControlModifier);
    ChooseEntry("&Copy");
    ClickItem({"A:", kType, "Other"});
    ChooseEntry("&Paste");
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "o"));
    EXPECT_THAT(In("Default"), ElementsAre("a.SQ4", "b.SQ4", "c.SQ4"));
}

TEST_F(FileSelMenuWindow, FilesAreCutAndPastedByKeys) {
    ShowAt(At());
    ClickRow("a");
    KeyInList(Qt::Key_X, Qt::ControlModifier);
    EXPECT_THAT(In("Default"), ElementsAre("a.SQ4", "b.SQ4", "c.SQ4")) << "until it is pasted";
    ClickItem({"A:", kType, "Other"});
    KeyInTree(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(In("Default"), ElementsAre("b.SQ4", "c.SQ4"));
    EXPECT_THAT(In("Other"), ElementsAre("a.SQ4", "o.SQ4"));
    EXPECT_THAT(RowNames(), ElementsAre("a", "o"));
}

TEST_F(FileSelMenuWindow, ALibraryIsCopiedFromTheTree) {
    MakeFolder("B:\\" + std::string(kType) + ".Sign");
    ShowAt(At());
    KeyInTree(Qt::Key_C, Qt::ControlModifier);
    ClickItem({"B:", kType});
    const std::string target = "B:\\" + std::string(kType) + ".Sign\\Default.Lib";
    messages.Expect(Question("Create Library: \n" + target + "\\?"), MessageAnswer::Ok);
    KeyInTree(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(FilesIn(target), ElementsAre("a.SQ4", "b.SQ4", "c.SQ4"));
}

TEST_F(FileSelMenuWindow, WhatIsGreyInTheMenuHasNoKeyEither) {
    ShowAt(At());
    Type("typed");
    KeyInList(Qt::Key_V, Qt::ControlModifier);
    KeyInList(Qt::Key_Delete);
    KeyInList(Qt::Key_F2);
    KeyInList(Qt::Key_Return, Qt::AltModifier);
    EXPECT_EQ(LabelEditor(), nullptr);
    EXPECT_THAT(In("Default"), ElementsAre("a.SQ4", "b.SQ4", "c.SQ4"));
    EXPECT_EQ(Text(kFileName), "typed") << "a key doesn't take over the row";
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FileSelMenuWindow, KeysInTheFieldAreTheFields) {
    ShowAt(At("b"));
    auto* const field = The<QLineEdit>(kFileName);
    field->setFocus();
    field->selectAll();
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_V, Qt::Key_V})
        QTest::keyClick(dialog->windowHandle(), key, Qt::ControlModifier);
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Delete);
    Settle();
    EXPECT_EQ(Text(kFileName), "bb");
    EXPECT_THAT(In("Default"), ElementsAre("a.SQ4", "b.SQ4", "c.SQ4"));
}

TEST_F(FileSelMenuWindow, FilesAreDeletedByKeyAndByMenu) {
    ShowAt(At());
    ClickRow("a");
    KeyInList(Qt::Key_Delete);
    EXPECT_THAT(RowNames(), ElementsAre("b", "c"));
    ClickRow("c");
    ChooseEntry("&Delete");
    EXPECT_THAT(In("Default"), ElementsAre("b.SQ4"));
    EXPECT_EQ(ui.questions.size(), 2U);
}

// Libraries --------------------------------------------------------------------------------------

TEST_F(FileSelMenuWindow, ALibraryIsCreatedAfterAQuestion) {
    ShowAt(At());
    const std::string path = Sign(kType) + "New one.Lib";
    messages.Expect(Question("Create Library: \n" + path + "?"));
    WhenAskedForALibrary([](CDialog& asked) {
        EXPECT_EQ(TextOf(asked, 1086), std::string("A:\\") + kType);
        EXPECT_TRUE(Item<QLineEdit>(asked, 1086)->isReadOnly());
        EXPECT_EQ(TextOf(asked, 1088), "Create Library:");
        EXPECT_EQ(TextOf(asked, 1087), "");
        EXPECT_EQ(FocusedId(asked), 1087);
        TypeOver(asked, 1087, QStringLiteral("New one"));
        PressKey(asked, Qt::Key_Return);
    });
    ChooseEntry("Cre&ate Library...");
    EXPECT_TRUE(Exists(path));
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_TRUE(Below(ItemAt({"A:", kType}), "New one").isValid());
    EXPECT_EQ(SelectedItem().substr(0, 5), std::string(kType).substr(0, 5));
}

TEST_F(FileSelMenuWindow, CancelOfTheQuestionBringsTheNameBackAndCancelOfTheNameEndsAll) {
    ShowAt(At());
    const std::string path = Sign(kType) + "New.Lib";
    messages.Expect(Question("Create Library: \n" + path + "?"), MessageAnswer::Cancel);
    WhenAskedForALibrary([&](CDialog& asked) {
        TypeOver(asked, 1087, QStringLiteral("New"));
        WhenAskedForALibrary([](CDialog& again) {
            EXPECT_EQ(TextOf(again, 1087), "New");
            PressKey(again, Qt::Key_Escape);
        });
        Click(asked, IDOK);
    });
    ChooseEntry("Cre&ate Library...");
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_FALSE(Exists(path));
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FileSelMenuWindow, ALibrarysNameHasAtMost32Characters) {
    ShowAt(At());
    WhenAskedForALibrary([](CDialog& asked) {
        TypeOver(asked, 1087, QString(40, QLatin1Char('x')));
        EXPECT_EQ(TextOf(asked, 1087), std::string(32, 'x'));
        Click(asked, IDCANCEL);
    });
    ChooseEntry("Cre&ate Library...");
}

TEST_F(FileSelMenuWindow, ALibraryNeedsASignType) {
    ShowAt(At());
    ClickItem({"A:"});
    messages.Expect("Must select server and sign type to create a library.");
    ChooseEntry("Cre&ate Library...");
    messages.Expect("Must select server, sign type and the library to remove.");
    ChooseEntry("&Remove Library");
    EXPECT_EQ(messages.Pending(), 0U);
}

TEST_F(FileSelMenuWindow, ALibraryIsRemoved) {
    ShowAt(At());
    ClickItem({"A:", kType, "Other"});
    ChooseEntry("&Remove Library");
    EXPECT_FALSE(Exists(Lib("Other")));
    EXPECT_FALSE(Below(ItemAt({"A:", kType}), "Other").isValid());
    EXPECT_THAT(RowNames(), IsEmpty());
}

TEST_F(FileSelMenuWindow, MayBeDeletedWhileALibraryIsNamedOrAskedAbout) {
    for (const bool isAsked : {false, true}) {
        ShowAt(At());
        if (isAsked)
            messages.Expect(Question("Create Library: \n" + Sign(kType) + "N.Lib?"),
                            MessageAnswer::Ok, [&] { dialog.reset(); });
        WhenAskedForALibrary([&](CDialog& asked) {
            TypeOver(asked, 1087, QStringLiteral("N"));
            if (isAsked)
                Click(asked, IDOK);
            else
                dialog.reset();
        });
        ChooseEntry("Cre&ate Library...");
        EXPECT_EQ(dialog, nullptr);
    }
}

TEST_F(FileSelMenuWindow, MayBeEndedWhileALibraryIsNamedAndThenNothingIsMade) {
    ShowAt(At());
    WhenAskedForALibrary([&](CDialog& asked) {
        dialog->DestroyWindow();
        TypeOver(asked, 1087, QStringLiteral("N"));
        Click(asked, IDOK);
    });
    ChooseEntry("Cre&ate Library...");
    EXPECT_FALSE(Exists(Lib("N")));
}

TEST_F(FileSelMenuWindow, SignFoldersAreCreatedInTheirDialog) {
    ShowAt(At());
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* asked = qobject_cast<CK4CmnDlgCreateSignFolders*>(QApplication::activeModalWidget());
        if (!asked)
            return;
        timer.stop();
        EXPECT_EQ(asked->parentWidget(), dialog.get());
        PressKey(*asked, Qt::Key_Escape);
    });
    timer.start(std::chrono::milliseconds(0));
    ChooseEntry("Create &Sign Folder...");
    EXPECT_FALSE(timer.isActive());
    EXPECT_TRUE(dialog->isVisible());
}

// Preview and print ------------------------------------------------------------------------------

TEST_F(FileSelMenuWindow, ThePreviewIsStartedOnceAndToldEachTime) {
    RecordingPrograms programs;
    programs.keepsRunning = true;
    ShowAt(At());
    ClickRow("a");
    ChooseEntry("Pre&view");
    ClickRow("b");
    ChooseEntry("Pre&view");
    ASSERT_EQ(programs.started.size(), 1U);
    EXPECT_TRUE(programs.started[0].ends_with("\\K4Prevu.exe")) << programs.started[0];
    EXPECT_THAT(programs.showStates, ElementsAre(9));
    programs.keepsRunning = false;
    programs.canStart = false;
    messages.Expect("ERROR: Could not start " + programs.started[0]);
    ChooseEntry("Pre&view");
    EXPECT_EQ(programs.started.size(), 2U);
    dialog->DestroyWindow();
}

TEST_F(FileSelMenuWindow, AFileIsPrintedByTheVerb) {
    RecordingShell recorder;
    const k4cmn::ScopedProvider<k4cmn::Shell> use(recorder);
    ShowAt(At());
    ClickRow("b");
    ChooseEntry("Pr&int...");
    recorder.printCode = 31;
    messages.Expect("ERROR: Could not print " + Lib() + "b.SQ4");
    ChooseEntry("Pr&int...");
    EXPECT_THAT(recorder.calls,
                ElementsAre("print " + Lib() + "b.SQ4", "print " + Lib() + "b.SQ4"));
}

TEST_F(FileSelMenuWindow, TheListIsPrinted) {
    RecordingPrinting printing;
    for (const char* name : {"a", "b", "c"})
        MakeSequence(Lib() + name + ".SQ4");
    ShowAt(At());
    const k4cmn::RowLabelSize label = List().FirstLabelSize();
    ChooseEntry("Print &File List");
    EXPECT_EQ(printing.parent, dialog.get());
    ASSERT_EQ(printing.texts.size(), 10U);
    EXPECT_EQ(printing.texts[0], "K4FileManager");
    EXPECT_EQ(printing.texts[1], "Directory listing for " + Lib());
    EXPECT_EQ(printing.texts[2], "Friday, July 31, 2026  02:05:09 PM");
    EXPECT_EQ(printing.texts[3], "Sequences");
    EXPECT_EQ(printing.texts[5].substr(0, 16), "a               ");
    EXPECT_EQ(printing.texts[7].substr(0, 16), "c               ");
    EXPECT_EQ(printing.lines.size(), 3U);
    for (const k4cmn::PrintRectangle& line : printing.lines) {
        EXPECT_EQ(line.right, label.width + 40);
        EXPECT_EQ(line.bottom - line.top, label.height);
    }
    EXPECT_TRUE(printing.texts[8].starts_with("3 file(s)     ")) << printing.texts[8];
    EXPECT_EQ(printing.texts[9], "end");
}

TEST_F(FileSelMenuWindow, AFileThatIsNoSequenceEndsThePrinting) {
    RecordingPrinting printing;
    ShowAt(At());
    messages.Expect({"Error opening Sequence: \n" + Lib() + "a.SQ4",
                     {},
                     k4cmn::MessageButtons::Ok,
                     k4cmn::MessageIcon::Stop});
    ChooseEntry("Print &File List");
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_NE(printing.texts.back(), "end");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(FileSelMenuWindow, WithoutAPrinterNothingIsPrinted) {
    RecordingPrinting printing;
    printing.hasPrinter = false;
    ShowAt(At());
    ChooseEntry("Print &File List");
    EXPECT_EQ(printing.parent, dialog.get());
    EXPECT_THAT(printing.texts, IsEmpty());
}

TEST_F(FileSelMenuWindow, MayBeDeletedWhileAPrinterIsChosen) {
    RecordingPrinting printing;
    ShowAt(At());
    printing.onChoose = [&] { dialog.reset(); };
    ChooseEntry("Print &File List");
    EXPECT_THAT(printing.texts, IsEmpty());
}

}  // namespace
}  // namespace k4test
