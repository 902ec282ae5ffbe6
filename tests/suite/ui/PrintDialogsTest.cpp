#include "suite/ui/PrintDialogs.h"

#include <gmock/gmock.h>

#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <filesystem>

#include "k4cmndlg/frame/WaitCursor.h"
#include "tests/suite/printing/PdfReader.h"
#include "tests/suite/ui/ModalScript.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::PrintFont;
using k4test::ModalScript;
using testing::ElementsAre;

constexpr double kPitch = 4.5;  // points

QPushButton* ButtonOf(QPrintDialog& dialog, const char* text) {
    for (QPushButton* const button : dialog.findChildren<QPushButton*>())
        if (button->text().remove(QLatin1Char('&')).startsWith(QLatin1String(text)))
            return button;
    return nullptr;
}

/// On a machine without a printer.
class PrintDialogBox : public testing::Test {
 protected:
    static void SetUpTestSuite() { qputenv("CUPS_SERVER", "/nowhere/socket"); }

    /// Chooses a PDF file, after anything else in the dialog.
    std::unique_ptr<k4cmn::PrintSurface> ChoosePdf(
        const std::function<void(QPrintDialog&)>& before = {}) {
        const ModalScript<QPrintDialog> script([&](QPrintDialog& dialog) {
            dialog.findChild<QLineEdit*>(QStringLiteral("filename"))
                ->setText(QString::fromStdString(path));
            if (before)
                before(dialog);
            QTest::mouseClick(ButtonOf(dialog, "Print"), Qt::LeftButton);
        });
        return dialogs.Choose(nullptr);
    }
    static void Draw(k4cmn::PrintSurface& surface, const std::vector<std::string>& pages) {
        surface.StartDocument("K4FileManager");
        for (const std::string& text : pages) {
            surface.StartPage();
            surface.DrawText(40, 40, text, PrintFont::Plain);
            surface.EndPage();
        }
    }

    k4test::TempFolder folder;
    const std::string path = (folder / "report.pdf").string();
    k4suite::PrintDialogs dialogs;
    k4test::MessageQueue messages;
};

TEST_F(PrintDialogBox, CancelledYieldsNothing) {
    const std::function<void(QPrintDialog&)> kWays[] = {
        [](QPrintDialog& dialog) { QTest::mouseClick(ButtonOf(dialog, "Cancel"), Qt::LeftButton); },
        [](QPrintDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](QPrintDialog& dialog) { dialog.close(); },
    };
    for (const auto& way : kWays) {
        const ModalScript<QPrintDialog> script(way);
        EXPECT_EQ(dialogs.Choose(nullptr), nullptr);
    }
    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST_F(PrintDialogBox, OffersNoSelection) {
    const ModalScript<QPrintDialog> script([](QPrintDialog& dialog) {
        EXPECT_FALSE(dialog.testOption(QAbstractPrintDialog::PrintSelection));
        QTest::mouseClick(ButtonOf(dialog, "Options"), Qt::LeftButton);
        EXPECT_TRUE(dialog.findChild<QRadioButton*>(QStringLiteral("printAll"))->isVisible());
        EXPECT_FALSE(
            dialog.findChild<QRadioButton*>(QStringLiteral("printSelection"))->isVisible());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(dialogs.Choose(nullptr), nullptr);
}

TEST_F(PrintDialogBox, IsItsWindowsOwn) {
    QWidget window;
    window.show();
    const ModalScript<QPrintDialog> script([&](QPrintDialog& dialog) {
        EXPECT_EQ(dialog.parentWidget(), &window);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(dialogs.Choose(&window), nullptr);
}

TEST_F(PrintDialogBox, AWindowThatGoesTakesItAlong) {
    auto window = std::make_unique<QWidget>();
    window->show();
    const ModalScript<QPrintDialog> script([&](QPrintDialog&) { window.reset(); });
    EXPECT_EQ(dialogs.Choose(window.get()), nullptr);
}

TEST_F(PrintDialogBox, WithoutAPrinterThereIsAPdfFile) {
    const std::unique_ptr<k4cmn::PrintSurface> surface = ChoosePdf();
    ASSERT_NE(surface, nullptr);
    Draw(*surface, {"one two", "three"});
    EXPECT_TRUE(fs::is_empty(folder.Path())) << "nothing is there before the end";
    surface->EndDocument();
    const k4test::PdfReader reader(path);
    EXPECT_EQ(reader.Title(), "K4FileManager");
    ASSERT_EQ(reader.PageCount(), 2);
    EXPECT_THAT(reader.Lines(1, kPitch), ElementsAre("one two"));
    EXPECT_THAT(reader.Lines(2, kPitch), ElementsAre("three"));
}

TEST_F(PrintDialogBox, OnlyTheChosenPagesAreMade) {
    const std::unique_ptr<k4cmn::PrintSurface> surface = ChoosePdf([](QPrintDialog& dialog) {
        dialog.findChild<QRadioButton*>(QStringLiteral("printRange"))->setChecked(true);
        dialog.findChild<QSpinBox*>(QStringLiteral("from"))->setValue(2);
        dialog.findChild<QSpinBox*>(QStringLiteral("to"))->setValue(3);
    });
    ASSERT_NE(surface, nullptr);
    Draw(*surface, {"one", "two", "three", "four"});
    surface->EndDocument();
    const k4test::PdfReader reader(path);
    ASSERT_EQ(reader.PageCount(), 2);
    EXPECT_THAT(reader.Lines(1, kPitch), ElementsAre("two"));
    EXPECT_THAT(reader.Lines(2, kPitch), ElementsAre("three"));
}

TEST_F(PrintDialogBox, AnUnfinishedDocumentLeavesNoFile) {
    std::unique_ptr<k4cmn::PrintSurface> surface = ChoosePdf();
    ASSERT_NE(surface, nullptr);
    Draw(*surface, {"one"});
    surface.reset();
    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST_F(PrintDialogBox, AFailureIsToldWithItsReason) {
    const std::unique_ptr<k4cmn::PrintSurface> surface = ChoosePdf();
    ASSERT_NE(surface, nullptr);
    fs::create_directory(path);
    Draw(*surface, {"one"});
    messages.Expect("ERROR: Could not print to " + path + "\nIs a directory");
    surface->EndDocument();
    EXPECT_EQ(messages.Pending(), 0u);
}

TEST_F(PrintDialogBox, AFailureIsToldUnderAPlainPointer) {
    const std::unique_ptr<k4cmn::PrintSurface> surface = ChoosePdf();
    ASSERT_NE(surface, nullptr);
    fs::create_directory(path);
    Draw(*surface, {"one"});
    messages.Expect(k4cmn::PlainMessage("ERROR: Could not print to " + path + "\nIs a directory"),
                    k4cmn::MessageAnswer::Ok,
                    [] { EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor); });
    const k4cmn::WaitCursor wait;
    surface->EndDocument();
    EXPECT_EQ(messages.Pending(), 0u);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

}  // namespace
