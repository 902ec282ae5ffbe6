#include <QPushButton>
#include <QTimer>
#include <functional>

#include "k4cmndlg/filelist/FileReportView.h"
#include "k4cmndlg/search/CK4CmnDlgFind.h"
#include "k4cmndlg/search/FoundListWidget.h"
#include "tests/filesel/FileSelWindowFixture.h"

namespace k4test {
namespace {

using k4cmn::MessageAnswer;
using testing::ElementsAre;

/// The search dialog over the file selection dialog.
class FileSelSearchWindow : public FileSelWindow {
 protected:
    enum : int { kFileTypeOfSearch = 1105, kLookIn = 1106, kFind = 1160 };

    /// Presses the button, and does steps in the dialog that it opens; they end that.
    template <class Steps>
    void Search(Steps steps) {
        bool isShown = false;
        QTimer whenShown;
        QObject::connect(&whenShown, &QTimer::timeout, &whenShown, [&] {
            if (isShown || !Find() || !Find()->isVisible())
                return;
            isShown = true;
            EXPECT_TRUE(QTest::qWaitForWindowActive(Find()));
            Settle();
            steps();
        });
        whenShown.start(0);
        Press(kSearch);
        EXPECT_TRUE(isShown);
    }
    CK4CmnDlgFind* Find() const { return dialog ? dialog->findChild<CK4CmnDlgFind*>() : nullptr; }
    k4cmn::FileReportView& Results() const {
        return *Find()->findChild<k4cmn::FoundListWidget*>()->findChild<k4cmn::FileReportView*>();
    }
    /// Finds what the pages say and double-clicks a row of it; null for beside all rows.
    void FindAndTake(const char* name) {
        Click(*Find(), kFind);
        Settle();
        k4cmn::FileReportView& results = Results();
        QPoint place(20, results.viewport()->height() - 3);
        for (int row = 0; name && row < results.model()->rowCount(); ++row) {
            const QModelIndex index = results.model()->index(row, 0);
            if (index.data().toString().toStdString() == name)
                place = results.visualRect(index).center();
        }
        QTest::mouseClick(results.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(results.viewport(), Qt::LeftButton, {}, place);
        Settle();
    }
};

TEST_F(FileSelSearchWindow, TheButtonIsThere) {
    ShowAt(At());
    auto* const button = The<QPushButton>(kSearch);
    EXPECT_EQ(Text(kSearch), "Advanced File &Search ...");
    EXPECT_EQ(button->accessibleName(), QStringLiteral("Advanced File Search"));
    EXPECT_FALSE(button->isDefault()) << "Enter is OK's";
    The<QComboBox>(kLastModified)->setFocus();
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Tab);
    EXPECT_EQ(FocusedId(*dialog), kSearch);
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Tab);
    EXPECT_EQ(FocusedId(*dialog), IDOK);
}

TEST_F(FileSelSearchWindow, TheSearchIsGivenPathAndType) {
    MakeFile(Lib() + "plan.SD4");
    ShowAt(At({}, "SD4"));
    Search([&] {
        EXPECT_EQ(Find()->windowTitle(), QStringLiteral("Find Files"));
        EXPECT_TRUE(Find()->isModal());
        EXPECT_EQ(TextOf(*Find(), kLookIn), Lib());
        EXPECT_EQ(Item<QComboBox>(*Find(), kFileTypeOfSearch)->currentIndex(), 1);
        Find()->EndDialog(IDCANCEL);
    });
    EXPECT_EQ(Find(), nullptr);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FileSelSearchWindow, TheSearchIsGivenTheRequestedType) {
    Remember(At());
    New().SetType(K4_FILE_TYPE_SCRIPT);
    Show();
    Search([&] {
        EXPECT_EQ(Find()->GetFileType(), 2);
        Find()->EndDialog(IDCANCEL);
    });
}

TEST_F(FileSelSearchWindow, AFoundFileIsTakenAtOnce) {
    Remember({"A:", kType, "", "", "SQ4"});
    EXPECT_EQ(Select(K4_FILE_OPEN,
                     [&] {
                         ClickItem({"A:"});
                         Search([&] { FindAndTake("o"); });
                     }),
              Lib("Other") + "o.SQ4");
    EXPECT_THAT(dialog->GetSelectedFiles(), ElementsAre(Lib("Other") + "o.SQ4"));
    EXPECT_EQ(Remembered().library, "Other");
}

TEST_F(FileSelSearchWindow, AFoundFileThatTheListHidesIsTakenToo) {
    MakeFile(Lib("Other") + "old.SQ4", "x", kNow - 90 * 86400);
    Remember(At("a"));
    EXPECT_EQ(Select(K4_FILE_OPEN,
                     [&] {
                         Choose(kLastModified, "today");
                         Type("a");
                         ClickItem({"A:"});
                         Search([&] { FindAndTake("old"); });
                     }),
              Lib("Other") + "old.SQ4");
}

TEST_F(FileSelSearchWindow, AFoundFileOfAnotherTypeIsRefused) {
    Remember(At());
    New().SetType(K4_FILE_TYPE_SCHEDULE);
    Show();
    messages.Expect("Invalid file type.\n");
    Search([&] {
        Item<QComboBox>(*Find(), kFileTypeOfSearch)->setCurrentIndex(0);
        FindAndTake("b");
    });
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(SelectedItem(), "Default");
}

TEST_F(FileSelSearchWindow, ASearchWithoutAFileAsksAsOkDoes) {
    ShowAt(At());
    messages.Expect(Question("\nFile not found.\nDo you want to create a new file?",
                             k4cmn::MessageButtons::YesNoCancel),
                    MessageAnswer::No);
    Search([&] { FindAndTake(nullptr); });
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FileSelSearchWindow, CancelFillsTheListAnew) {
    ShowAt(At());
    MakeFile(Lib() + "later.SQ4");
    Search([&] { Click(*Find(), IDCANCEL); });
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c", "later"));
    EXPECT_EQ(Text(kPath), Lib());
}

TEST_F(FileSelSearchWindow, TheWindowMayGoWhileTheSearchIsOpen) {
    ShowAt(At());
    Search([&] { dialog.reset(); });
    EXPECT_EQ(dialog, nullptr);
}

TEST_F(FileSelSearchWindow, TheDialogMayEndWhileTheSearchIsOpen) {
    ShowAt(At());
    Search([&] {
        CK4CmnDlgFind* const find = Find();
        dialog->DestroyWindow();
        if (find)
            find->EndDialog(IDOK);
    });
    EXPECT_FALSE(dialog->isVisible());
}

}  // namespace
}  // namespace k4test
