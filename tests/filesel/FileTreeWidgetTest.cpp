#include "k4cmndlg/filesel/FileTreeWidget.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QContextMenuEvent>
#include <QImage>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <functional>
#include <memory>

#include "k4cmndlg/frame/Text.h"
#include "tests/support/FontScale.h"
#include "tests/support/StoreFixture.h"

namespace k4test {
namespace {

using k4cmn::FileTree;
using k4cmn::FileTreeItem;
using k4cmn::FileTreeWidget;

/// Passes on what the tree tells, as the dialog does, and then does what a test wants.
class Watch final : public k4cmn::FileTreeView {
 public:
    FileTreeWidget* widget = nullptr;
    std::function<void()> afterSelection;
    int selections = 0;

    void AboutToChange(const FileTreeItem& parent) override { widget->AboutToChange(parent); }
    void Changed(const FileTreeItem& parent) override { widget->Changed(parent); }
    void SelectionChanged() override {
        widget->SelectionChanged();
        ++selections;
        if (afterSelection)
            std::exchange(afterSelection, {})();
    }
    void MarkChanged() override { widget->MarkChanged(); }
    const FileTreeItem* FirstVisible() const override { return widget->FirstVisible(); }
};

/// The window around the tree: what reaches it.
class Around final : public QWidget {
 public:
    std::vector<int> keys;
    std::vector<QPoint> menus;

 protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
    void contextMenuEvent(QContextMenuEvent* event) override { menus.push_back(event->pos()); }
};

/// A shown tree over a real store: A: with two sign types, the first with two libraries, and B:
/// with nothing.
class TreeWidget : public StoreFixture {
 protected:
    void SetUp() override {
        StoreFixture::SetUp();
        ConfigureLocal({"A:", "B:"});
        for (const char* folder :
             {"A:\\48x160.Quad16.Incand.Sign\\One.Lib", "A:\\16x80.Mono1.LED.Sign\\Zoo.Lib",
              "A:\\16x80.Mono1.LED.Sign\\art.Lib", "B:\\"})
            MakeFolder(folder);
        auto* const layout = new QVBoxLayout(&window);
        widget = new FileTreeWidget(&window);
        layout->addWidget(widget);
        watch.widget = widget;
        tester = std::make_unique<QAbstractItemModelTester>(
            widget->model(), QAbstractItemModelTester::FailureReportingMode::Warning);
        tree.SetView(&watch);
        widget->SetTree(&tree);
        widget->SetImages(k4cmn::FileImages());
        tree.AddAllServerItems();
        window.resize(300, 300);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        widget->setFocus();
    }
    void TearDown() override {
        widget->SetTree(nullptr);
        tree.SetView(nullptr);
    }

    /// What can be seen, an item a line: blanks for its level, "-" where it is open, "+" where it
    /// can be opened, its text.
    std::string Shown() const {
        std::string text;
        for (QModelIndex at = widget->model()->index(0, 0); at.isValid();
             at = widget->indexBelow(at)) {
            for (QModelIndex above = at.parent(); above.isValid(); above = above.parent())
                text += " ";
            if (widget->model()->hasChildren(at))
                text += widget->isExpanded(at) ? "-" : "+";
            text += at.data().toString().toStdString() + "\n";
        }
        return text;
    }
    /// The place of what has a text, among what can be seen.
    QModelIndex Find(const char* text) const {
        for (QModelIndex at = widget->model()->index(0, 0); at.isValid();
             at = widget->indexBelow(at)) {
            if (at.data().toString() == QLatin1String(text))
                return at;
        }
        ADD_FAILURE() << "not shown: " << text;
        return {};
    }
    QPoint Middle(const char* text) const { return widget->visualRect(Find(text)).center(); }
    void Click(const char* text, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mouseClick(widget->viewport(), Qt::LeftButton, keys, Middle(text));
    }
    /// Clicks the mark that opens and closes an item.
    void ClickMark(const char* text) {
        const QRect place = widget->visualRect(Find(text));
        QTest::mouseClick(widget->viewport(), Qt::LeftButton, Qt::NoModifier,
                          {place.left() - widget->indentation() / 2, place.center().y()});
    }
    /// Items are laid out when their places are asked for.
    void LayOut() const { static_cast<void>(widget->ItemAt({})); }
    void Press(Qt::Key key) { QTest::keyClick(widget, key); }
    std::string Selected() const { return tree.Selected() ? tree.Selected()->Text() : "none"; }
    /// What the widget shows as selected.
    std::string ShownSelected() const {
        std::string text;
        for (const QModelIndex& index : widget->selectionModel()->selectedIndexes())
            text += index.data().toString().toStdString();
        EXPECT_EQ(text, widget->currentIndex().data().toString().toStdString());
        return text;
    }
    FileTreeItem& Server(std::size_t at) { return *tree.Root().Children().at(at); }
    FileTreeItem& SignType(std::size_t at) { return *Server(0).Children().at(at); }

    FileTree tree;
    Watch watch;
    Around window;
    FileTreeWidget* widget = nullptr;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

// Opening and closing --------------------------------------------------------------------------

constexpr char kClosed[] = "+A:\n+B:\n";
constexpr char kOpened[] =
    "-A:\n"
    " +16x80.Mono1.LED\n"
    " +48x160.Quad16.Incand\n"
    "+B:\n";
constexpr char kAllOpened[] =
    "-A:\n"
    " -16x80.Mono1.LED\n"
    "  art\n"
    "  Zoo\n"
    " +48x160.Quad16.Incand\n"
    "+B:\n";

TEST_F(TreeWidget, ShowsServersThatCanBeOpened) {
    EXPECT_EQ(Shown(), kClosed);
    EXPECT_EQ(Selected(), "none");
}

TEST_F(TreeWidget, AClickOnTheMarkOpensAndCloses) {
    ClickMark("A:");
    EXPECT_EQ(Shown(), kOpened);
    EXPECT_TRUE(Server(0).IsExpanded());
    ClickMark("16x80.Mono1.LED");
    EXPECT_EQ(Shown(), kAllOpened);
    ClickMark("A:");
    EXPECT_EQ(Shown(), kClosed);
    EXPECT_FALSE(Server(0).IsExpanded());
}

TEST_F(TreeWidget, ADoubleClickOpens) {
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, Qt::NoModifier, Middle("A:"));
    QTest::mouseDClick(widget->viewport(), Qt::LeftButton, Qt::NoModifier, Middle("A:"));
    EXPECT_EQ(Shown(), kOpened);
    EXPECT_EQ(Selected(), "A:");
}

TEST_F(TreeWidget, KeysOpenAndClose) {
    for (const auto& [open, close] :
         {std::pair(Qt::Key_Right, Qt::Key_Left), std::pair(Qt::Key_Plus, Qt::Key_Minus)}) {
        Click("A:");
        Press(open);
        EXPECT_EQ(Shown(), kOpened);
        Press(close);
        EXPECT_EQ(Shown(), kClosed);
    }
}

TEST_F(TreeWidget, TheAsteriskOpensAllThatIsBelow) {
    Click("A:");
    Press(Qt::Key_Asterisk);
    EXPECT_EQ(Shown(),
              "-A:\n -16x80.Mono1.LED\n  art\n  Zoo\n -48x160.Quad16.Incand\n  One\n+B:\n");
    EXPECT_TRUE(SignType(1).IsExpanded());
}

TEST_F(TreeWidget, OpeningReadsTheDiskAnew) {
    ClickMark("A:");
    ClickMark("A:");
    MakeFolder("A:\\8x16.Mono4.LED.Sign");
    MakeFolder("A:\\100x16.Mono4.LED.Sign");
    EXPECT_EQ(Shown(), kClosed);
    ClickMark("A:");
    EXPECT_EQ(Shown(),
              "-A:\n +100x16.Mono4.LED\n +16x80.Mono1.LED\n +48x160.Quad16.Incand\n"
              " +8x16.Mono4.LED\n+B:\n");
}

TEST_F(TreeWidget, OpeningAndClosingSortWhatIsBesideAndBelow) {
    ClickMark("A:");
    tree.AddSignTypeItem(Server(0), "1x1.Late");
    EXPECT_EQ(Find("1x1.Late").row(), 2) << "at the end";
    ClickMark("16x80.Mono1.LED");
    EXPECT_EQ(Find("1x1.Late").row(), 1) << "sorted";
    tree.AddLibraryItem(SignType(0), "bee");
    tree.AddSignTypeItem(Server(0), "0x0.Later");
    ClickMark("16x80.Mono1.LED");
    EXPECT_EQ(Shown(),
              "-A:\n 0x0.Later\n +16x80.Mono1.LED\n 1x1.Late\n +48x160.Quad16.Incand\n+B:\n");
    EXPECT_EQ(SignType(1).Children().at(1)->Text(), "bee");
}

TEST_F(TreeWidget, NoticesCantBeOpenedButSelected) {
    ClickMark("B:");
    EXPECT_EQ(Shown(), "+A:\n-B:\n No signs\n");
    Click("No signs");
    Press(Qt::Key_Right);
    QTest::mouseDClick(widget->viewport(), Qt::LeftButton, Qt::NoModifier, Middle("No signs"));
    EXPECT_EQ(Shown(), "+A:\n-B:\n No signs\n");
    EXPECT_EQ(Selected(), "No signs");
    ConfigureLocal({});
    tree.AddAllServerItems();
    EXPECT_EQ(Shown(), "No Servers\n");
}

TEST_F(TreeWidget, WhatTheTreeOpensIsShownOpen) {
    tree.Expand(Server(0));
    tree.Expand(SignType(0));
    EXPECT_EQ(Shown(), kAllOpened);
    tree.AddSignTypeItem(Server(0), "1x1.Late");
    EXPECT_EQ(Find("Zoo").row(), 1) << "still open, though its server has changed";
    tree.Expand(Server(0));
    EXPECT_EQ(Shown(), kOpened) << "opened anew, with closed sign types";
}

// Selection ------------------------------------------------------------------------------------

TEST_F(TreeWidget, AClickSelectsAndIsToldOnce) {
    ClickMark("A:");
    EXPECT_EQ(watch.selections, 0);
    Click("48x160.Quad16.Incand");
    EXPECT_EQ(Selected(), "48x160.Quad16.Incand");
    EXPECT_EQ(watch.selections, 1);
    Click("48x160.Quad16.Incand");
    EXPECT_EQ(watch.selections, 1) << "no news";
}

TEST_F(TreeWidget, KeysSelectWhereTheyGo) {
    Click("A:");
    Press(Qt::Key_Right);
    Press(Qt::Key_Down);
    EXPECT_EQ(Selected(), "16x80.Mono1.LED");
    Press(Qt::Key_End);
    EXPECT_EQ(Selected(), "B:");
    Press(Qt::Key_Home);
    EXPECT_EQ(Selected(), "A:");
    QTest::keyClick(widget, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(Selected(), "16x80.Mono1.LED");
    EXPECT_EQ(ShownSelected(), "16x80.Mono1.LED");
    QTest::keyClicks(widget, QStringLiteral("48"));
    EXPECT_EQ(Selected(), "48x160.Quad16.Incand") << "by its first letters";
    Press(Qt::Key_Left);
    EXPECT_EQ(Selected(), "A:") << "to the item above";
}

TEST_F(TreeWidget, NothingTakesTheSelectionAwayButAnotherItem) {
    Click("B:");
    Click("B:", Qt::ControlModifier);
    EXPECT_EQ(ShownSelected(), "B:");
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, Qt::NoModifier,
                      widget->viewport()->rect().bottomRight() - QPoint(5, 5));
    Press(Qt::Key_Escape);
    EXPECT_EQ(ShownSelected(), "B:");
    EXPECT_EQ(Selected(), "B:");
}

TEST_F(TreeWidget, WhatTheTreeSelectsIsShownAndScrolledIntoView) {
    for (int i = 0; i < 50; ++i)
        MakeFolder("B:\\" + std::to_string(100 + i) + "x16.Mono4.LED.Sign");
    tree.Expand(Server(1));
    FileTreeItem* const last = Server(1).Children().back().get();
    tree.Select(last);
    EXPECT_EQ(ShownSelected(), "149x16.Mono4.LED");
    EXPECT_TRUE(widget->viewport()->rect().contains(Middle("149x16.Mono4.LED")));
    EXPECT_EQ(watch.selections, 1);
    widget->ShowItem(Server(0));
    EXPECT_TRUE(widget->viewport()->rect().contains(Middle("A:")));
    tree.Select(nullptr);
    EXPECT_EQ(ShownSelected(), "");
}

TEST_F(TreeWidget, WhatIsClosedIsntOpenedForTheSakeOfTheSelection) {
    tree.Select(Server(0).Children().front().get());
    widget->ShowItem(*Server(0).Children().front());
    EXPECT_EQ(Shown(), kClosed);
    EXPECT_FALSE(Server(0).IsExpanded());
}

TEST_F(TreeWidget, ClosingAnItemSelectsItInsteadOfWhatIsBelow) {
    ClickMark("A:");
    ClickMark("16x80.Mono1.LED");
    Click("Zoo");
    watch.selections = 0;
    ClickMark("A:");
    EXPECT_EQ(Selected(), "A:");
    EXPECT_EQ(ShownSelected(), "A:");
    EXPECT_EQ(watch.selections, 1);
    EXPECT_EQ(Shown(), kClosed);
    Click("B:");
    ClickMark("A:");
    EXPECT_EQ(Selected(), "B:") << "what is elsewhere stays selected";
}

TEST_F(TreeWidget, WhatIsDeletedWhileSelectedHandsTheSelectionUp) {
    ClickMark("A:");
    ClickMark("16x80.Mono1.LED");
    Click("Zoo");
    std::filesystem::remove(Native("A:\\16x80.Mono1.LED.Sign\\Zoo.Lib"));
    tree.RefillLibraries(SignType(0));
    EXPECT_EQ(Shown(), "-A:\n -16x80.Mono1.LED\n  art\n +48x160.Quad16.Incand\n+B:\n");
    EXPECT_EQ(ShownSelected(), "16x80.Mono1.LED");
    tree.DeleteAllChildItems(Server(0));
    EXPECT_EQ(Shown(), "A:\n+B:\n");
    EXPECT_EQ(ShownSelected(), "A:");
    tree.AddAllServerItems();
    EXPECT_EQ(ShownSelected(), "");
    EXPECT_EQ(Selected(), "none");
}

// The tree changes while it is told ------------------------------------------------------------

TEST_F(TreeWidget, MayBeRebuiltWhileItTellsWhatIsSelected) {
    const auto rebuild = [this] {
        tree.AddAllServerItems();
        tree.Expand(Server(0));
        tree.Select(&SignType(1));
    };
    ClickMark("A:");
    for (const bool withKeys : {false, true}) {
        Click("A:");
        watch.afterSelection = rebuild;
        if (withKeys)
            Press(Qt::Key_Down);
        else
            Click("16x80.Mono1.LED");
        EXPECT_EQ(Shown(), kOpened);
        EXPECT_EQ(Selected(), "48x160.Quad16.Incand");
        EXPECT_EQ(ShownSelected(), "48x160.Quad16.Incand");
    }
}

TEST_F(TreeWidget, MayBeEmptiedWhileItTellsWhatIsSelected) {
    ConfigureLocal({});
    for (const bool withKeys : {false, true}) {
        watch.afterSelection = [this] { tree.AddAllServerItems(); };
        if (withKeys)
            Press(Qt::Key_Down);
        else
            Click("A:");
        EXPECT_EQ(Shown(), "No Servers\n");
        EXPECT_EQ(ShownSelected(), "");
        tree.AddServerItem(0, "A:");
        Click("No Servers");
    }
}

TEST_F(TreeWidget, MayBeRebuiltWhileAnItemIsClosed) {
    ClickMark("A:");
    Click("16x80.Mono1.LED");
    watch.afterSelection = [this] { tree.AddAllServerItems(); };
    ClickMark("A:");
    EXPECT_EQ(Shown(), kClosed);
    EXPECT_EQ(Selected(), "none");
}

TEST_F(TreeWidget, MayBeRebuiltWhenItGetsTheFocus) {
    QObject::connect(widget, &FileTreeWidget::FocusTaken, widget, [this] {
        tree.AddAllServerItems();
        tree.Expand(Server(0));
    });
    widget->clearFocus();
    widget->setFocus(Qt::TabFocusReason);
    Click("B:");
    EXPECT_EQ(Shown(), kOpened);
    EXPECT_NE(tree.Selected(), nullptr);
    EXPECT_EQ(Selected(), ShownSelected());
}

TEST_F(TreeWidget, MayLoseItsTree) {
    ClickMark("A:");
    Click("16x80.Mono1.LED");
    widget->SetTree(nullptr);
    EXPECT_EQ(widget->model()->rowCount(), 0);
    EXPECT_EQ(widget->FirstVisible(), nullptr);
    widget->SelectionChanged();
    widget->MarkChanged();
    widget->SetTree(&tree);
    EXPECT_EQ(Shown(), kOpened);
    EXPECT_EQ(ShownSelected(), "16x80.Mono1.LED");
}

TEST_F(TreeWidget, AnIndexOfWhatIsGoneLeadsToNothing) {
    ClickMark("A:");
    const QModelIndex gone = Find("16x80.Mono1.LED");
    tree.AddAllServerItems();
    const QAbstractItemModel& model = *widget->model();
    EXPECT_FALSE(model.parent(gone).isValid());
    EXPECT_EQ(model.rowCount(gone), 0);
    EXPECT_FALSE(gone.data().isValid());
}

// What the tree and the dialog ask ---------------------------------------------------------------

TEST_F(TreeWidget, TellsTheItemAtAPoint) {
    ClickMark("A:");
    EXPECT_EQ(widget->ItemAt(Middle("48x160.Quad16.Incand")), &SignType(1));
    EXPECT_EQ(widget->ItemAt({5, 5}), &Server(0));
    EXPECT_EQ(widget->ItemAt(widget->viewport()->rect().bottomLeft()), nullptr);
}

TEST_F(TreeWidget, TheFirstVisibleItemIsTheTopmostOne) {
    for (int i = 0; i < 50; ++i)
        MakeFolder("A:\\" + std::to_string(100 + i) + "x16.Mono4.LED.Sign");
    EXPECT_EQ(widget->FirstVisible(), &Server(0));
    tree.Expand(Server(0));
    LayOut();
    widget->verticalScrollBar()->setValue(widget->verticalScrollBar()->maximum() / 2);
    const FileTreeItem* const first = widget->FirstVisible();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->Parent(), &Server(0));
    EXPECT_NE(tree.AddServerItem(7, "A:"), nullptr) << "the first one is out of sight";
}

TEST_F(TreeWidget, KeepsItsPlaceWhenWhatIsBelowAnItemIsRefilled) {
    for (int i = 0; i < 60; ++i)
        MakeFolder("A:\\16x80.Mono1.LED.Sign\\" + std::to_string(100 + i) + ".Lib");
    tree.Expand(Server(0));
    tree.Expand(SignType(0));
    tree.Select(SignType(0).Children().at(50).get());
    LayOut();
    const int place = widget->verticalScrollBar()->value();
    EXPECT_GT(place, 0);
    const std::string selected = Selected();
    tree.RefillLibraries(SignType(0));
    tree.Select(SignType(0).Children().at(50).get());
    EXPECT_EQ(Selected(), selected);
    EXPECT_TRUE(widget->viewport()->rect().contains(Middle(selected.c_str())));
}

TEST_F(TreeWidget, TheMarkedItemIsDrawnSelectedAndHighlighted) {
    ClickMark("A:");
    const auto picture = [this] {
        return widget->viewport()->grab(widget->visualRect(Find("A:"))).toImage();
    };
    const auto background = [](const QImage& image) {
        return image.pixelColor(image.width() - 5, image.height() / 2);
    };
    Click("A:");
    const QImage withFocus = picture();
    Click("16x80.Mono1.LED");
    auto* const other = new QWidget(&window);
    other->setFocusPolicy(Qt::StrongFocus);
    window.layout()->addWidget(other);
    other->setFocus();
    const QImage plain = picture();
    tree.Up();
    ASSERT_EQ(Selected(), "A:");
    const QImage marked = picture();
    tree.ClearMark();
    const QImage selected = picture();
    EXPECT_EQ(background(marked), background(withFocus));
    EXPECT_NE(background(marked), background(plain));
    EXPECT_NE(marked, selected);
    const QColor line = widget->palette().color(QPalette::WindowText);
    EXPECT_EQ(marked.pixelColor(0, 0), line);
    EXPECT_NE(selected.pixelColor(0, 0), line);
}

TEST_F(TreeWidget, TheMarkedItemIsScrolledIntoView) {
    for (int i = 0; i < 50; ++i)
        MakeFolder("A:\\" + std::to_string(100 + i) + "x16.Mono4.LED.Sign");
    tree.Expand(Server(0));
    tree.Select(Server(0).Children().back().get());
    tree.Up();
    EXPECT_TRUE(widget->viewport()->rect().contains(Middle("A:")));
}

TEST_F(TreeWidget, TellsThatItHasGotTheFocus) {
    widget->clearFocus();
    int taken = 0;
    QObject::connect(widget, &FileTreeWidget::FocusTaken, widget, [&] { ++taken; });
    widget->setFocus();
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(Selected(), "none") << "the focus selects nothing";
}

TEST_F(TreeWidget, TellsOfTheFocusOrOfTheSelectionAfterAClickAndOfNoMenu) {
    int taken = 0;
    QObject::connect(widget, &FileTreeWidget::FocusTaken, widget, [&] { ++taken; });
    const auto clickFromElsewhere = [&] {
        widget->clearFocus();
        const QRect place = widget->visualRect(widget->model()->index(1, 0));
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                          widget->viewport()->mapTo(&window, place.center()));
        QCoreApplication::processEvents();
        EXPECT_TRUE(widget->hasFocus());
    };
    clickFromElsewhere();
    EXPECT_EQ(Selected(), "B:");
    EXPECT_EQ(taken, 0);
    clickFromElsewhere();
    EXPECT_EQ(taken, 1) << "B: is selected already";
    QFocusEvent menuIsClosed(QEvent::FocusIn, Qt::PopupFocusReason);
    QApplication::sendEvent(widget, &menuIsClosed);
    EXPECT_EQ(taken, 1);
}

TEST_F(TreeWidget, EnterGoesToTheWindow) {
    Click("A:");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        Press(key);
    EXPECT_THAT(window.keys, testing::ElementsAre(Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape));
}

TEST_F(TreeWidget, RightClicksGoToTheWindow) {
    ClickMark("A:");
    const QPoint at = Middle("48x160.Quad16.Incand");
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, at, widget->viewport()->mapToGlobal(at));
    QApplication::sendEvent(widget->viewport(), &byMouse);
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, window.pos());
    QApplication::sendEvent(widget, &byKey);
    ASSERT_EQ(window.menus.size(), 2U);
    EXPECT_EQ(window.menus.front(), widget->viewport()->mapTo(&window, at));
    QTest::mouseClick(widget->viewport(), Qt::RightButton, Qt::NoModifier, at);
    EXPECT_EQ(Selected(), "48x160.Quad16.Incand");
}

// Looks ----------------------------------------------------------------------------------------

TEST_F(TreeWidget, ItemsHaveTheirImagesAndALongTextHasRoom) {
    EXPECT_FALSE(Find("A:").data(Qt::DecorationRole).value<QIcon>().isNull());
    tree.AddSignTypeItem(Server(0), "16x80.Mono1.LED , (Main Street) , (Town Hall and Station)");
    tree.Expand(Server(0));
    tree.AddSignTypeItem(Server(0), "16x80.Mono1.LED , (Main Street) , (Town Hall and Station)");
    QCoreApplication::sendPostedEvents();
    LayOut();
    EXPECT_GT(widget->horizontalScrollBar()->maximum(), 0);
    EXPECT_FALSE(widget->accessibleName().isEmpty());
}

TEST_F(TreeWidget, GrowsWithTheFont) {
    EXPECT_EQ(widget->iconSize(), QSize(16, 16));
    const FontScale scale(2.0);
    QCoreApplication::sendPostedEvents();
    EXPECT_GE(widget->iconSize().height(), 24);
    EXPECT_EQ(widget->iconSize().height() % 8, 0);
    EXPECT_GE(widget->visualRect(Find("A:")).height(), widget->fontMetrics().height());
}

TEST_F(TreeWidget, TheSelectionReachesFromEdgeToEdge) {
    tree.Expand(*tree.FindServer("A:"));
    for (const int width : {400, 700, 250}) {
        window.resize(width, 300);
        QCoreApplication::processEvents();
        EXPECT_EQ(widget->visualRect(Find("16x80.Mono1.LED")).right(),
                  widget->viewport()->rect().right())
            << width;
        EXPECT_EQ(widget->horizontalScrollBar()->maximum(), 0) << width;
    }
    window.resize(100, 300);
    QCoreApplication::processEvents();
    EXPECT_GT(widget->horizontalScrollBar()->maximum(), 0) << "a long text is scrolled to";
}

}  // namespace
}  // namespace k4test
