#include <gmock/gmock.h>

#include <QPrintDialog>
#include <QPushButton>
#include <QTest>

#include "suite/ui/PrintDialogs.h"
#include "tests/suite/platform/PrivateCups.h"
#include "tests/suite/printing/PdfReader.h"
#include "tests/suite/ui/ModalScript.h"
#include "tests/support/MessageQueue.h"

namespace {

using k4cmn::PrintFont;
using testing::ElementsAre;

constexpr double kPitch = 4.5;  // points

/// A machine with a printer, which is the one that is chosen. It is the same one for all tests:
/// the library of CUPS asks once a process where the scheduler is.
class Printer : public testing::Test {
 protected:
    static void SetUpTestSuite() { cups = std::make_unique<k4test::PrivateCups>(); }
    static void TearDownTestSuite() { cups.reset(); }
    void SetUp() override { ASSERT_TRUE(cups->IsRunning()); }

    std::unique_ptr<k4cmn::PrintSurface> Choose() {
        const k4test::ModalScript<QPrintDialog> script([](QPrintDialog& dialog) {
            for (QPushButton* const button : dialog.findChildren<QPushButton*>())
                if (button->text().remove(QLatin1Char('&')) == QLatin1String("Print"))
                    return QTest::mouseClick(button, Qt::LeftButton);
            ADD_FAILURE() << "no button";
            dialog.reject();
        });
        return k4suite::PrintDialogs().Choose(nullptr);
    }
    static void Draw(k4cmn::PrintSurface& surface) {
        surface.StartDocument("K4FileManager");
        surface.StartPage();
        surface.DrawText(40, 40, "one two", PrintFont::Plain);
        surface.DrawText(40, 120, "under", PrintFont::Underlined);
        surface.EndPage();
    }

    static std::unique_ptr<k4test::PrivateCups> cups;
    k4test::MessageQueue messages;
};

std::unique_ptr<k4test::PrivateCups> Printer::cups;

TEST_F(Printer, GetsTheDocumentWhenItEnds) {
    const std::size_t before = cups->Documents().size();
    const std::unique_ptr<k4cmn::PrintSurface> surface = Choose();
    ASSERT_NE(surface, nullptr);
    Draw(*surface);
    EXPECT_EQ(cups->Documents().size(), before);
    surface->EndDocument();
    ASSERT_EQ(cups->Documents().size(), before + 1);
    const k4test::PdfReader reader(cups->Documents().back());
    EXPECT_THAT(reader.Lines(1, kPitch), ElementsAre("one two", "under"));
    EXPECT_EQ(reader.Title(), "K4FileManager");
}

TEST_F(Printer, NeverSeesAnUnfinishedDocument) {
    const std::size_t before = cups->Documents().size();
    std::unique_ptr<k4cmn::PrintSurface> surface = Choose();
    ASSERT_NE(surface, nullptr);
    Draw(*surface);
    surface.reset();
    EXPECT_EQ(cups->Documents().size(), before);
}

}  // namespace
