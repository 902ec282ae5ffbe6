#include "suite/ui/HelpViewer.h"

#include <gtest/gtest.h>

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>
#include <QWindow>
#include <memory>

#include "k4cmndlg/frame/Text.h"
#include "suite/ui/HelpPopup.h"
#include "suite/ui/HelpWindow.h"
#include "tests/suite/ui/ModalScript.h"

using k4cmn::HELP_CONTEXT;
using k4cmn::HELP_CONTEXTPOPUP;
using k4cmn::HELP_FINDER;
using k4suite::HelpPopup;
using k4suite::HelpViewer;
using k4suite::HelpWindow;

namespace {

constexpr std::uint32_t kDimming = 0x10200B0;
constexpr std::uint32_t kOffsetSlider = 0x1000000 + (176u << 16 | 1116u);

template <class Window>
Window* Shown() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        auto* const wanted = qobject_cast<Window*>(window);
        if (wanted && wanted->isVisible())
            return wanted;
    }
    return nullptr;
}

class HelpViewerTest : public testing::Test {
 protected:
    void Help(std::uint32_t command, std::uint32_t data, QWidget* window = nullptr) {
        viewer.WinHelp(window, viewer.HelpFilePath(), command, data);
    }
    /// The help window, which has to be there.
    template <class Child>
    Child* In(const char* name = nullptr) {
        return Shown<HelpWindow>()->findChild<Child*>(name ? QLatin1String(name) : QString());
    }
    QString Page() { return In<QTextBrowser>()->toPlainText(); }
    QString Source() { return In<QTextBrowser>()->source().toString(); }
    QTreeWidgetItem* Item(const QString& text) {
        return In<QTreeWidget>()->findItems(text, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    QStringList VisibleItems() {
        QStringList texts;
        for (QTreeWidgetItemIterator at(In<QTreeWidget>(), QTreeWidgetItemIterator::NotHidden); *at;
             ++at)
            texts.append((*at)->text(0));
        return texts;
    }

    HelpViewer viewer;
};

TEST_F(HelpViewerTest, ContextOpensTheTopic) {
    Help(HELP_CONTEXT, kDimming);
    ASSERT_NE(Shown<HelpWindow>(), nullptr);
    EXPECT_EQ(Source(), QStringLiteral("help:dimming.md"));
    EXPECT_TRUE(Page().startsWith(QStringLiteral("Dimming\nThis dialog sets")))
        << Page().toStdString();
}

TEST_F(HelpViewerTest, ContextOfAControlScrollsToItsSection) {
    Help(HELP_CONTEXT, kOffsetSlider);
    ASSERT_NE(Shown<HelpWindow>(), nullptr);
    auto* const browser = In<QTextBrowser>();
    const auto isSectionShown = [browser] {
        const QTextCursor heading = browser->document()->find(QStringLiteral("Photocell offset"), 0,
                                                              QTextDocument::FindCaseSensitively);
        return heading.block().blockFormat().headingLevel() == 2 &&
               browser->viewport()->rect().contains(browser->cursorRect(heading).center());
    };
    EXPECT_TRUE(k4test::Until(isSectionShown));
    EXPECT_GT(browser->verticalScrollBar()->value(), 0);
}

TEST_F(HelpViewerTest, FinderShowsTheContentsReadyToSearch) {
    Help(HELP_FINDER, 0x1000000);
    ASSERT_NE(Shown<HelpWindow>(), nullptr);
    EXPECT_EQ(Source(), QStringLiteral("help:contents.md"));
    for (const char* topic : {"Dimming", "Photocell offset", "Window Control", "Row", "Column"})
        EXPECT_TRUE(Page().contains(QLatin1String(topic))) << topic;
    EXPECT_TRUE(k4test::Until([this] { return In<QLineEdit>("filter")->hasFocus(); }));
}

TEST_F(HelpViewerTest, UnknownTopicShowsTheContents) {
    Help(HELP_CONTEXT, kDimming);
    Help(HELP_CONTEXT, 0x1099999);
    EXPECT_EQ(Source(), QStringLiteral("help:contents.md"));
}

TEST_F(HelpViewerTest, UnknownCommandDoesNothing) {
    Help(2, kDimming);
    EXPECT_EQ(Shown<HelpWindow>(), nullptr);
}

TEST_F(HelpViewerTest, LinksOfTheContentsLeadToTheirTopics) {
    Help(HELP_FINDER, 0);
    auto* const browser = In<QTextBrowser>();
    const QTextCursor link = browser->document()->find(QStringLiteral("Photocell offset"));
    ASSERT_FALSE(link.isNull());
    const QPoint place = browser->cursorRect(link).center() - QPoint(4, 0);
    QTest::mouseClick(browser->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Source(), QStringLiteral("help:dimming.md#photocell-offset"));
}

TEST_F(HelpViewerTest, LinksThatLeadElsewhereDoNothing) {
    Help(HELP_CONTEXT, kDimming);
    for (const char* link : {"http://kelda.example", "file:///etc/passwd", "help:gone.md", ""})
        In<QTextBrowser>()->setSource(QUrl(QLatin1String(link)));
    EXPECT_EQ(Source(), QStringLiteral("help:dimming.md"));
}

TEST_F(HelpViewerTest, FilterNarrowsTheTopicsToThoseWithTheText) {
    Help(HELP_FINDER, 0);
    const qsizetype all = VisibleItems().size();
    QTest::keyClicks(In<QLineEdit>("filter"), QStringLiteral("LEFT EDGE"));
    EXPECT_EQ(VisibleItems(),
              (QStringList{QStringLiteral("Window Control"), QStringLiteral("Column")}));
    EXPECT_FALSE(In<QLabel>("nothing")->isVisible());
    In<QLineEdit>("filter")->clear();
    QTest::keyClicks(In<QLineEdit>("filter"), QStringLiteral("no such text"));
    EXPECT_TRUE(VisibleItems().isEmpty());
    EXPECT_TRUE(In<QLabel>("nothing")->isVisible());
    QTest::keyClick(In<QLineEdit>("filter"), Qt::Key_Return);
    EXPECT_EQ(Source(), QStringLiteral("help:contents.md"));
    In<QLineEdit>("filter")->clear();
    EXPECT_EQ(VisibleItems().size(), all);
}

TEST_F(HelpViewerTest, EnterInTheFilterOpensTheTopicOfThatTitle) {
    Help(HELP_FINDER, 0);
    QTest::keyClicks(In<QLineEdit>("filter"), QStringLiteral("photocell o"));
    QTest::keyClick(In<QLineEdit>("filter"), Qt::Key_Return);
    EXPECT_EQ(Source(), QStringLiteral("help:dimming.md#photocell-offset"));
    In<QLineEdit>("filter")->clear();
    QTest::keyClicks(In<QLineEdit>("filter"), QStringLiteral("light sensor elsewhere"));
    QTest::keyClick(In<QLineEdit>("filter"), Qt::Key_Return);
    EXPECT_EQ(Source(), QStringLiteral("help:dimming.md#remote-photocell"));
}

TEST_F(HelpViewerTest, TopicsOpenByMouseAndKeyboardAndBackGoesBack) {
    Help(HELP_FINDER, 0);
    auto* const tree = In<QTreeWidget>();
    auto* const back = In<QPushButton>("back");
    EXPECT_FALSE(back->isEnabled());
    tree->scrollToItem(Item(QStringLiteral("Column")));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      tree->visualItemRect(Item(QStringLiteral("Column"))).center());
    EXPECT_EQ(Source(), QStringLiteral("help:window-control.md#column"));
    QTest::keyClick(tree, Qt::Key_Up);
    QTest::keyClick(tree, Qt::Key_Return);
    EXPECT_EQ(Source(), QStringLiteral("help:window-control.md#row"));
    QTest::mouseClick(back, Qt::LeftButton);
    EXPECT_EQ(Source(), QStringLiteral("help:window-control.md#column"));
    QTest::mouseClick(In<QPushButton>("contents"), Qt::LeftButton);
    EXPECT_EQ(Source(), QStringLiteral("help:contents.md"));
}

TEST_F(HelpViewerTest, EscapeAndCloseCloseItAndItOpensAgain) {
    Help(HELP_FINDER, 0);
    QTest::mouseClick(In<QPushButton>("close"), Qt::LeftButton);
    EXPECT_EQ(Shown<HelpWindow>(), nullptr);
    Help(HELP_CONTEXT, kDimming);
    ASSERT_NE(Shown<HelpWindow>(), nullptr);
    ASSERT_TRUE(k4test::Until([] { return QApplication::activeWindow() == Shown<HelpWindow>(); }));
    QTest::keyClick(In<QTextBrowser>(), Qt::Key_Escape);
    EXPECT_EQ(Shown<HelpWindow>(), nullptr);
}

TEST_F(HelpViewerTest, WindowIsUsableBesideTheModalDialogThatAskedAndOutlivesIt) {
    {
        QDialog dialog;
        dialog.setModal(true);
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
        Help(HELP_CONTEXT, kDimming, &dialog);
        HelpWindow* const help = Shown<HelpWindow>();
        ASSERT_NE(help, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(help));
        // Through the window system, which keeps events from blocked windows.
        auto* const contents = In<QPushButton>("contents");
        QTest::mouseClick(help->windowHandle(), Qt::LeftButton, {},
                          contents->mapTo(help, contents->rect().center()));
        EXPECT_TRUE(
            k4test::Until([this] { return Source() == QStringLiteral("help:contents.md"); }));
    }
    ASSERT_NE(Shown<HelpWindow>(), nullptr);
    Help(HELP_CONTEXT, kDimming);
    EXPECT_EQ(Source(), QStringLiteral("help:dimming.md"));
}

class HelpPopupTest : public HelpViewerTest {
 protected:
    HelpPopupTest() {
        auto* const rows = new QVBoxLayout(&window);
        rows->addWidget(&control);
        window.move(100, 100);
        window.show();
    }
    ~HelpPopupTest() override {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QString Text() { return Shown<HelpPopup>()->findChild<QLabel*>()->text(); }

    QWidget window;
    QLineEdit control;
};

TEST_F(HelpPopupTest, ShowsTheFirstParagraphBelowTheControl) {
    Help(HELP_CONTEXTPOPUP, kOffsetSlider, &control);
    HelpPopup* const popup = Shown<HelpPopup>();
    ASSERT_NE(popup, nullptr);
    EXPECT_TRUE(Text().startsWith(QStringLiteral("How much brighter or darker")));
    EXPECT_FALSE(Text().contains(QStringLiteral("Change it by a little"))) << "the second one";
    EXPECT_NEAR(popup->x(), control.mapToGlobal(QPoint(0, 0)).x(), 4);
    EXPECT_GT(popup->y(), control.mapToGlobal(control.rect().bottomLeft()).y());
    EXPECT_GT(popup->width(), popup->height());
    EXPECT_LE(popup->width(), 400);
    EXPECT_EQ(Shown<HelpWindow>(), nullptr);
    popup->close();
}

TEST_F(HelpPopupTest, UnknownControlGetsAWordThatThereIsNothing) {
    Help(HELP_CONTEXTPOPUP, 0x1099999, &control);
    ASSERT_NE(Shown<HelpPopup>(), nullptr);
    EXPECT_EQ(Text(), QStringLiteral("No help for this control."));
    Shown<HelpPopup>()->close();
}

TEST_F(HelpPopupTest, AnyKeyClosesIt) {
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_A}) {
        Help(HELP_CONTEXTPOPUP, kOffsetSlider, &control);
        ASSERT_NE(Shown<HelpPopup>(), nullptr);
        QTest::keyClick(Shown<HelpPopup>(), key);
        EXPECT_EQ(Shown<HelpPopup>(), nullptr);
        EXPECT_EQ(control.text(), QString());
    }
}

TEST_F(HelpPopupTest, ClickClosesItInsideAndOutside) {
    for (const QPoint place : {QPoint(5, 5), QPoint(-50, -50)}) {
        Help(HELP_CONTEXTPOPUP, kOffsetSlider, &control);
        ASSERT_NE(Shown<HelpPopup>(), nullptr);
        QTest::mouseClick(Shown<HelpPopup>(), Qt::LeftButton, {}, place);
        EXPECT_EQ(Shown<HelpPopup>(), nullptr);
    }
}

TEST_F(HelpPopupTest, StaysOnTheScreen) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    window.move(screen.right() - window.width(), screen.bottom() - window.height());
    Help(HELP_CONTEXTPOPUP, kOffsetSlider, &control);
    ASSERT_NE(Shown<HelpPopup>(), nullptr);
    EXPECT_EQ(screen.united(Shown<HelpPopup>()->geometry()), screen);
    EXPECT_LT(Shown<HelpPopup>()->y(), control.mapToGlobal(QPoint(0, 0)).y());
    Shown<HelpPopup>()->close();
}

TEST_F(HelpPopupTest, GoesWithItsWindow) {
    auto other = std::make_unique<QWidget>();
    other->show();
    Help(HELP_CONTEXTPOPUP, kOffsetSlider, other.get());
    ASSERT_NE(Shown<HelpPopup>(), nullptr);
    other.reset();
    EXPECT_EQ(Shown<HelpPopup>(), nullptr);
}

TEST_F(HelpPopupTest, WithoutAControlItIsAtTheMouse) {
    Help(HELP_CONTEXTPOPUP, kOffsetSlider, nullptr);
    ASSERT_NE(Shown<HelpPopup>(), nullptr);
    Shown<HelpPopup>()->close();
}

}  // namespace
