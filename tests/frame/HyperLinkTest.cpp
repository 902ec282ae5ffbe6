#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QTest>
#include <new>

#include "k4cmndlg/frame/CK4CmnHyperLink.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/QtMessages.h"
#include "tests/support/RecordingShell.h"
#include "tests/support/ThrowingShell.h"

using k4cmn::ScopedProvider;
using k4cmn::Shell;
using k4test::MessageQueue;
using testing::ElementsAre;

namespace {

const QRgb kBlue = qRgb(0, 0, 190);

QRgb Highlight() {
    return QGuiApplication::palette().color(QPalette::Highlight).rgb();
}

/// A presenter that can't show its message.
class ThrowingPresenter final : public k4cmn::MessagePresenter {
 public:
    int shown = 0;

    k4cmn::MessageAnswer Show(QWidget*, const k4cmn::Message&) override {
        ++shown;
        throw std::bad_alloc();
    }
};

class HyperLink : public testing::Test {
 protected:
    HyperLink() : m_link(new CK4CmnHyperLink(&m_window)) {
        m_window.resize(400, 200);
        m_link->setGeometry(20, 30, 300, 100);
    }

    void Show() {
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    QSize TextSize() const { return QFontMetrics(m_link->font()).size(0, m_link->text()); }
    void MoveMouse(const QPoint& place) {
        QMouseEvent event(QEvent::MouseMove, place, m_link->mapToGlobal(place), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(m_link, &event);
    }

    k4test::RecordingShell m_shell;
    ScopedProvider<Shell> m_installed{m_shell};
    QWidget m_window;
    CK4CmnHyperLink* m_link;
};

}  // namespace

TEST_F(HyperLink, BeginsWithItsStartValues) {
    EXPECT_EQ(m_link->GetLinkColour(), kBlue);
    EXPECT_EQ(m_link->GetVisitedColour(), kBlue);
    EXPECT_EQ(m_link->GetHoverColour(), Highlight());
    EXPECT_EQ(m_link->IsOverControl(), 0);
    EXPECT_EQ(m_link->GetVisited(), 0);
    EXPECT_EQ(m_link->GetUnderline(), 1);
    EXPECT_EQ(m_link->GetAutoSize(), 1);
    EXPECT_EQ(m_link->GetURL(), "");
    EXPECT_EQ(m_link->GetLinkCursor().shape(), Qt::ArrowCursor);
}

TEST_F(HyperLink, WithoutATextItShowsItsUrl) {
    m_link->SetURL("http://signs");
    Show();
    EXPECT_EQ(m_link->text(), QStringLiteral("http://signs"));
    EXPECT_EQ(m_link->GetURL(), "http://signs");
}

TEST_F(HyperLink, WithoutAUrlItsTextIsTheUrl) {
    m_link->setText(QStringLiteral("http://signs/text"));
    Show();
    EXPECT_EQ(m_link->GetURL(), "http://signs/text");
    EXPECT_EQ(m_link->text(), QStringLiteral("http://signs/text"));
}

TEST_F(HyperLink, WithBothEachStays) {
    m_link->setText(QStringLiteral("Home page"));
    m_link->SetURL("http://signs");
    Show();
    EXPECT_EQ(m_link->text(), QStringLiteral("Home page"));
    EXPECT_EQ(m_link->GetURL(), "http://signs");
    EXPECT_EQ(m_link->toolTip(), QStringLiteral("http://signs"));
}

TEST_F(HyperLink, WithNeitherBothStayEmpty) {
    Show();
    EXPECT_EQ(m_link->text(), QString());
    EXPECT_EQ(m_link->GetURL(), "");
}

TEST_F(HyperLink, ToolTipFollowsTheUrl) {
    m_link->SetURL("http://before");
    Show();
    m_link->SetURL("http://after");
    EXPECT_EQ(m_link->toolTip(), QStringLiteral("http://after"));
}

TEST_F(HyperLink, TextIsUnderlinedAsAsked) {
    m_link->setText(QStringLiteral("Link"));
    Show();
    EXPECT_TRUE(m_link->font().underline());
    m_link->SetUnderline(0);
    EXPECT_FALSE(m_link->font().underline());
    EXPECT_EQ(m_link->GetUnderline(), 0);
    m_link->SetUnderline();
    EXPECT_TRUE(m_link->font().underline());
}

TEST_F(HyperLink, NotUnderlinedFromTheStartIfSetSo) {
    m_link->setText(QStringLiteral("Link"));
    m_link->SetUnderline(0);
    Show();
    EXPECT_FALSE(m_link->font().underline());
}

namespace {

struct FitRow {
    const char* name;
    Qt::Alignment alignment;
    Qt::Alignment held;  ///< which side or middle of the old rectangle stays
};

const FitRow kFits[] = {
    {"Plain", Qt::AlignLeft | Qt::AlignTop, Qt::AlignLeft | Qt::AlignTop},
    {"Centre", Qt::AlignHCenter | Qt::AlignTop, Qt::AlignHCenter | Qt::AlignTop},
    {"Right", Qt::AlignRight | Qt::AlignTop, Qt::AlignRight | Qt::AlignTop},
    {"CentreImage", Qt::AlignLeft | Qt::AlignVCenter, Qt::AlignLeft | Qt::AlignVCenter},
    {"CentreImageRight", Qt::AlignRight | Qt::AlignVCenter, Qt::AlignRight | Qt::AlignVCenter},
    {"Middle", Qt::AlignCenter, Qt::AlignCenter},
    {"Bottom", Qt::AlignLeft | Qt::AlignBottom, Qt::AlignLeft | Qt::AlignTop},
};

class HyperLinkFit : public HyperLink, public testing::WithParamInterface<FitRow> {};

}  // namespace

TEST_P(HyperLinkFit, ShrinksToItsText) {
    m_link->setText(QStringLiteral("http://signs"));
    m_link->setAlignment(GetParam().alignment);
    const QRect before = m_link->geometry();
    Show();
    const QRect after = m_link->geometry();
    const Qt::Alignment held = GetParam().held;
    EXPECT_EQ(after.size(), TextSize());
    if (held & Qt::AlignLeft) {
        EXPECT_EQ(after.left(), before.left());
    }
    if (held & Qt::AlignRight) {
        EXPECT_EQ(after.right(), before.right());
    }
    if (held & Qt::AlignHCenter) {
        EXPECT_NEAR(after.center().x(), before.center().x(), 1);
    }
    if (held & Qt::AlignTop) {
        EXPECT_EQ(after.top(), before.top());
    }
    if (held & Qt::AlignVCenter) {
        EXPECT_NEAR(after.center().y(), before.center().y(), 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, HyperLinkFit, testing::ValuesIn(kFits),
                         [](const auto& row) { return row.param.name; });

TEST_F(HyperLink, KeepsItsSizeWithoutAutoSize) {
    m_link->setText(QStringLiteral("http://signs"));
    m_link->SetAutoSize(0);
    Show();
    EXPECT_EQ(m_link->geometry(), QRect(20, 30, 300, 100));
    m_link->SetAutoSize(1);
    EXPECT_EQ(m_link->geometry(), QRect(QPoint(20, 30), TextSize()));
}

TEST_F(HyperLink, AutoSizeBeforeItIsAttachedWaits) {
    m_link->setText(QStringLiteral("http://signs"));
    m_link->SetAutoSize(1);
    EXPECT_EQ(m_link->geometry(), QRect(20, 30, 300, 100));
}

TEST_F(HyperLink, TextOfSeveralLinesIsMeasuredWhole) {
    m_link->setText(QStringLiteral("one\nand two"));
    Show();
    EXPECT_EQ(m_link->size(), TextSize());
    EXPECT_GE(m_link->height(), 2 * QFontMetrics(m_link->font()).height());
}

TEST_F(HyperLink, CursorIsAPointingHandUnlessOneIsSet) {
    Show();
    EXPECT_EQ(m_link->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(m_link->GetLinkCursor().shape(), Qt::PointingHandCursor);
    m_link->SetLinkCursor(QCursor(Qt::CrossCursor));
    EXPECT_EQ(m_link->cursor().shape(), Qt::CrossCursor);
}

TEST_F(HyperLink, CursorSetBeforeStays) {
    m_link->SetLinkCursor(QCursor(Qt::CrossCursor));
    Show();
    EXPECT_EQ(m_link->cursor().shape(), Qt::CrossCursor);
}

TEST_F(HyperLink, HoverColourMinusOneIsTheSystemsHighlight) {
    m_link->SetColours(qRgb(1, 2, 3), qRgb(4, 5, 6), qRgb(7, 8, 9));
    EXPECT_EQ(m_link->GetLinkColour(), qRgb(1, 2, 3));
    EXPECT_EQ(m_link->GetVisitedColour(), qRgb(4, 5, 6));
    EXPECT_EQ(m_link->GetHoverColour(), qRgb(7, 8, 9));
    m_link->SetColours(qRgb(1, 2, 3), qRgb(4, 5, 6), -1);
    EXPECT_EQ(m_link->GetHoverColour(), Highlight());
    m_link->SetColours(qRgb(1, 2, 3), qRgb(4, 5, 6), qRgb(255, 255, 255));
    EXPECT_EQ(m_link->GetHoverColour(), qRgb(255, 255, 255)) << "white is a colour like any other";
}

TEST_F(HyperLink, ColourTellsItsState) {
    k4test::ExpectWarning grab(QStringLiteral("grabbing the mouse"));
    m_link->setText(QStringLiteral("http://signs"));
    m_link->SetColours(qRgb(1, 2, 3), qRgb(4, 5, 6), qRgb(7, 8, 9));
    Show();
    EXPECT_EQ(m_link->TextColour(), qRgb(1, 2, 3));
    m_link->SetVisited();
    EXPECT_EQ(m_link->TextColour(), qRgb(4, 5, 6));
    MoveMouse(m_link->rect().center());
    EXPECT_EQ(m_link->TextColour(), qRgb(7, 8, 9));
    MoveMouse(QPoint(-1, -1));
    m_link->SetVisited(0);
    EXPECT_EQ(m_link->TextColour(), qRgb(1, 2, 3));
}

TEST_F(HyperLink, TextIsPaintedInThatColourOnWhatIsBehind) {
    m_link->setText(QStringLiteral("MMMM"));
    m_link->SetColours(qRgb(200, 0, 0), qRgb(0, 200, 0));
    m_link->Attach();
    const auto picture = [this] {
        QPixmap pixmap(m_link->size());
        pixmap.fill(Qt::white);
        m_link->render(&pixmap, QPoint(), QRegion(), QWidget::DrawChildren);
        return pixmap.toImage();
    };
    const auto strongest = [](const QImage& image) {
        int red = 255;
        int green = 255;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                red = std::min(red, qRed(image.pixel(x, y)));
                green = std::min(green, qGreen(image.pixel(x, y)));
            }
        }
        return std::pair(red, green);
    };
    EXPECT_EQ(strongest(picture()), std::pair(200, 0));
    m_link->SetVisited();
    EXPECT_EQ(strongest(picture()), std::pair(0, 200));
}

TEST_F(HyperLink, MouseOverItIsCapturedUntilItLeaves) {
    k4test::ExpectWarning grab(QStringLiteral("grabbing the mouse"));
    m_link->setText(QStringLiteral("http://signs"));
    Show();
    MoveMouse(m_link->rect().center());
    EXPECT_EQ(m_link->IsOverControl(), 1);
    EXPECT_EQ(QWidget::mouseGrabber(), m_link);
    MoveMouse(m_link->rect().topLeft());
    EXPECT_EQ(m_link->IsOverControl(), 1);
    MoveMouse(QPoint(m_link->width(), 0));
    EXPECT_EQ(m_link->IsOverControl(), 0);
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

TEST_F(HyperLink, HidingItGivesTheCaptureUp) {
    k4test::ExpectWarning grab(QStringLiteral("grabbing the mouse"));
    m_link->setText(QStringLiteral("http://signs"));
    Show();
    MoveMouse(m_link->rect().center());
    m_link->hide();
    EXPECT_EQ(m_link->IsOverControl(), 0);
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

TEST_F(HyperLink, ClickOpensTheUrlAndVisitsIt) {
    m_link->SetURL("http://signs");
    Show();
    Qt::CursorShape during = Qt::ArrowCursor;
    m_shell.onOpen = [&] { during = QApplication::overrideCursor()->shape(); };
    QTest::mouseClick(m_link, Qt::LeftButton);
    EXPECT_THAT(m_shell.calls, ElementsAre("open http://signs 5"));
    EXPECT_EQ(m_link->GetVisited(), 1);
    EXPECT_EQ(during, Qt::WaitCursor);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(HyperLink, OtherButtonsAndPressesDraggedAwayOpenNothing) {
    m_link->SetURL("http://signs");
    Show();
    QTest::mouseClick(m_link, Qt::RightButton);
    QTest::mousePress(m_link, Qt::LeftButton);
    QTest::mouseRelease(m_link, Qt::LeftButton, {}, QPoint(m_link->width() + 5, 5));
    QTest::mousePress(&m_window, Qt::LeftButton, {}, QPoint(1, 1));
    QTest::mouseRelease(&m_window, Qt::LeftButton, {}, QPoint(1, 1));
    EXPECT_TRUE(m_shell.calls.empty());
}

TEST_F(HyperLink, KeysOpenItToo) {
    m_link->SetURL("http://signs");
    Show();
    EXPECT_EQ(m_link->focusPolicy(), Qt::StrongFocus);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
        QTest::keyClick(m_link, key);
    QTest::keyClick(m_link, Qt::Key_A);
    EXPECT_EQ(m_shell.calls.size(), 3u);
}

TEST_F(HyperLink, FailureIsReportedAndTheLinkIsNotVisited) {
    MessageQueue messages;
    m_link->SetURL("http://signs");
    Show();
    m_shell.openCode = 2;
    bool captured = true;
    Qt::CursorShape during = Qt::WaitCursor;
    messages.Expect(k4cmn::Message{"Unable to open hyperlink:\n\nThe specified file was not found.",
                                   "", k4cmn::MessageButtons::Ok, k4cmn::MessageIcon::Exclamation},
                    k4cmn::MessageAnswer::Ok, [&] {
                        captured = QWidget::mouseGrabber() != nullptr;
                        during = QApplication::overrideCursor()->shape();
                    });
    m_link->SetVisited(1);
    QTest::mouseClick(m_link, Qt::LeftButton);
    EXPECT_EQ(m_link->GetVisited(), 0);
    EXPECT_FALSE(captured) << "a message can't be answered while the mouse is captured";
    EXPECT_EQ(during, Qt::ArrowCursor);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(HyperLink, FailureUnderTheMouseGivesTheCaptureUpFirst) {
    k4test::ExpectWarning grab(QStringLiteral("grabbing the mouse"));
    MessageQueue messages;
    m_link->SetURL("http://signs");
    Show();
    m_shell.openCode = 31;
    MoveMouse(m_link->rect().center());
    bool captured = true;
    messages.Expect(k4cmn::PlainMessage("Unable to open hyperlink:\n\nThere is no application "
                                        "associated\nwith the given filename extension."),
                    k4cmn::MessageAnswer::Ok,
                    [&] { captured = QWidget::mouseGrabber() != nullptr; });
    m_link->Click();
    EXPECT_FALSE(captured);
    EXPECT_EQ(m_link->IsOverControl(), 0);
}

TEST_F(HyperLink, CodeOf26IsUnknown) {
    MessageQueue messages;
    m_link->SetURL("http://signs");
    Show();
    m_shell.openCode = 26;
    messages.Expect("Unable to open hyperlink:\n\nUnknown Error (26) occurred.");
    QTest::mouseClick(m_link, Qt::LeftButton);
}

TEST_F(HyperLink, ProgramForHtmIsTheSecondTry) {
    m_link->SetURL("http://signs");
    Show();
    m_shell.openCode = 2;
    m_shell.openCommand = "browser \"%1\"";
    QTest::mouseClick(m_link, Qt::LeftButton);
    EXPECT_THAT(m_shell.calls,
                ElementsAre("open http://signs 5", "command .htm", "run browser  http://signs 5"));
    EXPECT_EQ(m_link->GetVisited(), 1);
}

TEST_F(HyperLink, ShellThatThrowsIsReportedAsOutOfResources) {
    k4test::ThrowingShell shell;
    const ScopedProvider<Shell> installed{shell};
    MessageQueue messages;
    m_link->SetURL("http://signs");
    Show();
    messages.Expect(
        "Unable to open hyperlink:\n\nThe operating system is out\nof memory or resources.");
    QTest::mouseClick(m_link, Qt::LeftButton);
    EXPECT_EQ(m_link->GetVisited(), 0);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(HyperLink, FailureThatCantBeShownLeavesNoWaitCursor) {
    ThrowingPresenter presenter;
    const ScopedProvider<k4cmn::MessagePresenter> installed{presenter};
    m_link->SetURL("http://signs");
    Show();
    m_shell.openCode = 2;
    EXPECT_NO_THROW(m_link->Click());
    EXPECT_EQ(presenter.shown, 1);
    EXPECT_EQ(m_link->GetVisited(), 0);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(HyperLink, LinkThatGoesWhileItOpensDoesNoHarm) {
    m_link->SetURL("http://signs");
    Show();
    m_shell.openCode = 2;
    m_shell.onOpen = [&] { delete m_link; };
    m_link->Click();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(HyperLink, IsReadOutAsALinkThatCanBePressed) {
    m_link->SetURL("http://signs");
    m_link->setText(QStringLiteral("Home page"));
    Show();
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(m_link);
    ASSERT_NE(access, nullptr);
    EXPECT_EQ(access->role(), QAccessible::Link);
    EXPECT_EQ(access->text(QAccessible::Name), QStringLiteral("Home page"));
    EXPECT_FALSE(access->state().traversed);
    access->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(m_shell.calls, ElementsAre("open http://signs 5"));
    EXPECT_TRUE(access->state().traversed);
}
