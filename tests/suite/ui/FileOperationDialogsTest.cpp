#include "suite/ui/FileOperationDialogs.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <thread>

#include "suite/platform/CopyOperation.h"
#include "suite/platform/FileOperationResult.h"
#include "tests/suite/ui/ModalScript.h"
#include "tests/support/TempFolder.h"

using k4suite::FileAnswer;
using k4suite::FileOperationDialogs;
using k4suite::FileQuestion;
using k4test::ModalScript;

namespace {

constexpr std::chrono::milliseconds kAtOnce{0};
constexpr std::chrono::milliseconds kNever = std::chrono::hours(1);

FileAnswer AskAnd(const FileQuestion& question, std::function<void(QMessageBox&)> action) {
    const ModalScript<QMessageBox> script(std::move(action));
    return FileOperationDialogs().Confirm(question);
}

QProgressDialog* ShownProgress() {
    return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
}

TEST(FileQuestionBox, ShowsTitleAndTextAsTheyAre) {
    AskAnd({"Delete", "Delete '<i>&a</i>'?", false, false}, [](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Delete"));
        EXPECT_EQ(box.text(), QStringLiteral("Delete '<i>&a</i>'?"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
}

TEST(FileQuestionBox, LongNamesDontMakeItWiderThanAScreen) {
    AskAnd({"Delete", "Delete '" + std::string(255, 'x') + "'?", false, false},
           [](QMessageBox& box) {
               EXPECT_LE(box.width(), 800);
               EXPECT_EQ(box.text().count(QLatin1Char('x')), 255);
               QTest::keyClick(&box, Qt::Key_Escape);
           });
}

struct AnswerRow {
    const char* what;
    QMessageBox::StandardButton button;
    FileAnswer answer;
};

class FileAnswers : public testing::TestWithParam<AnswerRow> {};

TEST_P(FileAnswers, ComeByTheMouse) {
    EXPECT_EQ(AskAnd({"Copy", "Replace it?", true, true},
                     [](QMessageBox& box) {
                         ASSERT_NE(box.button(GetParam().button), nullptr);
                         QTest::mouseClick(box.button(GetParam().button), Qt::LeftButton);
                     }),
              GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FileAnswers,
    testing::Values(AnswerRow{"Yes", QMessageBox::Yes, FileAnswer::Yes},
                    AnswerRow{"YesToAll", QMessageBox::YesToAll, FileAnswer::YesToAll},
                    AnswerRow{"No", QMessageBox::No, FileAnswer::No},
                    AnswerRow{"NoToAll", QMessageBox::NoToAll, FileAnswer::NoToAll},
                    AnswerRow{"Cancel", QMessageBox::Cancel, FileAnswer::Cancel}),
    [](const auto& row) { return row.param.what; });

TEST(FileQuestionBox, AnswersForAllAreOnlyThereForSeveral) {
    AskAnd({"Copy", "Replace it?", false, true}, [](QMessageBox& box) {
        EXPECT_EQ(box.buttons().size(), 3);
        EXPECT_EQ(box.button(QMessageBox::YesToAll), nullptr);
        EXPECT_EQ(box.button(QMessageBox::NoToAll), nullptr);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
}

TEST(FileQuestionBox, EnterIsYesUnlessItCannotBeUndone) {
    const auto pressEnter = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); };
    EXPECT_EQ(AskAnd({"Delete", "?", false, false}, pressEnter), FileAnswer::Yes);
    EXPECT_EQ(AskAnd({"Delete", "?", false, true}, pressEnter), FileAnswer::No);
}

TEST(FileQuestionBox, EscapeAndClosingCancel) {
    EXPECT_EQ(AskAnd({"Delete", "?", true, false},
                     [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              FileAnswer::Cancel);
    EXPECT_EQ(AskAnd({"Delete", "?", false, true}, [](QMessageBox& box) { box.close(); }),
              FileAnswer::Cancel);
}

TEST(FileQuestionBox, MayBeAskedFromAnotherThread) {
    const ModalScript<QMessageBox> script(
        [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton); });
    FileOperationDialogs dialogs(kAtOnce);
    FileAnswer answer = FileAnswer::Cancel;
    bool wentOn = false;
    std::atomic<bool> isDone{false};
    std::thread worker([&] {
        answer = dialogs.Confirm({"Delete", "?", false, false});
        dialogs.Begin("Delete");
        wentOn = dialogs.Progress(1, 2, "a");
        dialogs.End();
        isDone = true;
    });
    EXPECT_TRUE(k4test::Until([&] { return isDone.load(); }));
    worker.join();
    EXPECT_EQ(answer, FileAnswer::Yes);
    EXPECT_TRUE(wentOn);
}

TEST(FileProgress, ShowsTheNameAndTheShare) {
    FileOperationDialogs dialogs(kAtOnce);
    dialogs.Begin("Copy");
    EXPECT_TRUE(dialogs.Progress(1'000'000'000'000, 4'000'000'000'000, "<b>&a</b>"));
    QProgressDialog* const progress = ShownProgress();
    ASSERT_NE(progress, nullptr);
    EXPECT_EQ(progress->windowTitle(), QStringLiteral("Copy"));
    EXPECT_EQ(progress->labelText(), QStringLiteral("<b>&a</b>"));
    EXPECT_EQ(progress->findChild<QLabel*>()->textFormat(), Qt::PlainText);
    EXPECT_EQ(progress->value(), progress->maximum() / 4);
    EXPECT_TRUE(dialogs.Progress(4, 4, std::string(255, 'x')));
    EXPECT_TRUE(progress->isVisible()) << "the end of one file isn't the end";
    EXPECT_LE(progress->width(), 800);
    EXPECT_TRUE(dialogs.Progress(0, 0, "empty"));
    dialogs.End();
    EXPECT_EQ(ShownProgress(), nullptr);
}

TEST(FileProgress, CancelEndsItByMouseAndByKey) {
    const std::function<void(QProgressDialog&)> kWays[] = {
        [](QProgressDialog& progress) {
            QTest::mouseClick(progress.findChild<QPushButton*>(), Qt::LeftButton);
        },
        [](QProgressDialog& progress) { QTest::keyClick(&progress, Qt::Key_Escape); },
        [](QProgressDialog& progress) { progress.close(); },
    };
    for (const auto& way : kWays) {
        FileOperationDialogs dialogs(kAtOnce);
        dialogs.Begin("Copy");
        ASSERT_TRUE(dialogs.Progress(1, 4, "a"));
        ASSERT_NE(ShownProgress(), nullptr);
        way(*ShownProgress());
        EXPECT_FALSE(dialogs.Progress(2, 4, "a"));
        dialogs.End();
    }
}

TEST(FileProgress, QuickOperationsShowNothing) {
    FileOperationDialogs dialogs(kNever);
    dialogs.Begin("Copy");
    for (std::uint64_t done = 0; done <= 10; ++done)
        EXPECT_TRUE(dialogs.Progress(done, 10, "a"));
    EXPECT_EQ(ShownProgress(), nullptr);
    dialogs.End();
    dialogs.End();  // once too often does no harm
}

TEST(FileProgress, QuestionInBetweenBelongsToIt) {
    FileOperationDialogs dialogs(kAtOnce);
    dialogs.Begin("Copy");
    ASSERT_TRUE(dialogs.Progress(1, 4, "a"));
    QProgressDialog* const progress = ShownProgress();
    ASSERT_NE(progress, nullptr);
    const ModalScript<QMessageBox> script([progress](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), progress);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.Confirm({"Copy", "Replace it?", true, false}), FileAnswer::Yes);
    EXPECT_TRUE(dialogs.Progress(2, 4, "a"));
    dialogs.End();
}

TEST(FileProgress, WindowThatGoesTakesItAlongAndCancels) {
    auto window = std::make_unique<QWidget>();
    window->show();
    window->activateWindow();
    ASSERT_TRUE(k4test::Until([&] { return QApplication::activeWindow() == window.get(); }));
    FileOperationDialogs dialogs(kAtOnce);
    dialogs.Begin("Copy");
    ASSERT_TRUE(dialogs.Progress(1, 4, "a"));
    window.reset();
    EXPECT_FALSE(dialogs.Progress(2, 4, "a"));
    dialogs.End();
}

TEST(FileProgress, RealCopyIsCancelledInTheMiddleOfAFile) {
    const k4test::TempFolder folder;
    folder.Write("a", std::string(8 << 20, 'x'));
    std::filesystem::create_directory(folder / "to");
    FileOperationDialogs dialogs(kAtOnce);
    const ModalScript<QProgressDialog> script(
        [](QProgressDialog& progress) { QTest::keyClick(&progress, Qt::Key_Escape); });
    EXPECT_EQ(k4suite::CopyFiles({(folder / "a").string()}, (folder / "to").string(), 0, dialogs),
              k4suite::kFileOperationCancelled);
    EXPECT_TRUE(std::filesystem::is_empty(folder / "to"));
}

}  // namespace
