#include "k4cmndlg/search/FoundListWidget.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/filelist/FileReportView.h"
#include "k4cmndlg/search/FoundRows.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/support/FontScale.h"

namespace k4test {
namespace {

using k4cmn::FoundFileRow;
using k4cmn::FoundListWidget;
using k4cmn::FoundRows;
using testing::ElementsAre;

/// The window around the list: what reaches it.
class Around final : public QWidget {
 public:
    std::vector<int> keys;
    int menus = 0;

 protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
    void contextMenuEvent(QContextMenuEvent*) override { ++menus; }
};

/// A shown list of "bee", "Cat", "dog" and "eel", of 1, 2, 3 and 4 KB, each a day younger, and each
/// of another type.
class FoundList : public testing::Test {
 protected:
    static constexpr std::int64_t kTime = 1'785'506'709;  // 31 July 2026, 14:05 UTC

    void SetUp() override {
        int number = 0;
        for (const char* name : {"bee", "Cat", "dog", "eel"}) {
            ++number;
            rows.Add({File(name, static_cast<std::uint64_t>(number) * 1024,
                           kTime + (number - 4) * 86400, number - 2)});
        }
        auto* const layout = new QVBoxLayout(&window);
        list = new FoundListWidget(&window);
        layout->addWidget(list);
        tester = std::make_unique<QAbstractItemModelTester>(
            View().model(), QAbstractItemModelTester::FailureReportingMode::Warning);
        list->SetRows(&rows);
        QObject::connect(list, &FoundListWidget::SelectionChanged, list, [this] { ++told; });
        QObject::connect(list, &FoundListWidget::DoubleClicked, list,
                         [this] { doubleClicked.push_back(Selected()); });
        QObject::connect(list, &FoundListWidget::Chosen, list,
                         [this] { chosen.push_back(Selected()); });
        QObject::connect(list, &FoundListWidget::MenuRequested, list,
                         [this](const QPoint& place) { menus.emplace_back(Selected(), place); });
        window.resize(700, 400);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        list->setFocus();
    }
    static FoundFileRow File(const std::string& name, std::uint64_t size, std::int64_t time,
                             int type) {
        return {name, "A:\\T.Sign\\L.Lib\\" + name + ".SQ4", size, time, type};
    }

    k4cmn::FileReportView& View() { return *list->findChild<k4cmn::FileReportView*>(); }
    std::string Text(int row, int column) {
        return View().model()->index(row, column).data().toString().toStdString();
    }
    std::string Names() {
        std::string names;
        for (int row = 0; row < View().model()->rowCount(); ++row)
            names += Text(row, 0) + " ";
        return names;
    }
    QRect Place(int row, int column = 0) {
        return View().visualRect(View().model()->index(row, column));
    }
    QPoint At(int row) { return Place(row).center(); }
    void Click(const QPoint& place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(View().viewport(), button, Qt::NoModifier, place);
    }
    void DoubleClick(const QPoint& place, Qt::MouseButton button = Qt::LeftButton) {
        Click(place, button);
        QTest::mouseDClick(View().viewport(), button, Qt::NoModifier, place);
        QCoreApplication::processEvents();
    }
    void ClickHeading(int column, Qt::MouseButton button = Qt::LeftButton) {
        const QHeaderView& header = *View().header();
        QTest::mouseClick(header.viewport(), button, Qt::NoModifier,
                          {header.sectionViewportPosition(column) + 20, header.height() / 2});
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::keyClick(&View(), key, keys);
        QCoreApplication::processEvents();
    }
    /// A right click, as a platform tells of it.
    void RightClick(QWidget* widget, const QPoint& place) {
        QTest::mouseClick(widget, Qt::RightButton, Qt::NoModifier, place);
        QContextMenuEvent request(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
        QApplication::sendEvent(widget, &request);
    }
    /// The menu key, as a platform tells of it.
    void MenuKey() {
        const QPoint somewhere(3, 3);
        QContextMenuEvent request(QContextMenuEvent::Keyboard, somewhere,
                                  View().mapToGlobal(somewhere));
        QApplication::sendEvent(&View(), &request);
    }
    QPoint BesideRows() { return {20, View().viewport()->height() - 5}; }
    /// The selected row; -1 for none.
    int Selected() const {
        const auto row = list->SelectedRow();
        return row ? static_cast<int>(*row) : -1;
    }

    ScopedTimeZone zone{"UTC0"};
    FoundRows rows;
    int told = 0;
    std::vector<int> doubleClicked;  ///< with the row that was selected then
    std::vector<int> chosen;
    std::vector<std::pair<int, QPoint>> menus;
    Around window;
    FoundListWidget* list = nullptr;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

// Columns --------------------------------------------------------------------------------------

TEST_F(FoundList, ShowsRowsWithTheirTexts) {
    EXPECT_EQ(Names(), "bee Cat dog eel ");
    EXPECT_EQ(Text(1, 1), "A:\\T.Sign\\L.Lib\\Cat.SQ4");
    EXPECT_EQ(Text(1, 2), "    2 KB");
    EXPECT_EQ(Text(1, 3), "K4400 Seq");
    EXPECT_EQ(Text(1, 4), "07/29/26 02:05 PM");
    for (int column = 1; column < 5; ++column)
        EXPECT_FALSE(View().model()->index(0, column).data(Qt::DecorationRole).isValid());
}

TEST_F(FoundList, HeadingsKeepTheirBlanksAndMakeTheWidths) {
    const QHeaderView& header = *View().header();
    const char* const headings[] = {"Name                       ", " In Folder                 ",
                                    "         Size", "Type                ",
                                    " Modified                 "};
    ASSERT_EQ(header.count(), 5);
    for (int column = 0; column < 5; ++column) {
        const QString heading =
            View().model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        EXPECT_EQ(heading.toStdString(), headings[column]);
        EXPECT_EQ(header.sectionSize(column), header.fontMetrics().horizontalAdvance(heading) + 15);
        const auto alignment = static_cast<Qt::Alignment>(
            View().model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt());
        EXPECT_EQ(alignment.testFlag(Qt::AlignRight), column == 2) << column;
        EXPECT_EQ(View().model()->index(0, column).data(Qt::TextAlignmentRole).toInt(),
                  static_cast<int>(alignment));
    }
}

/// A picture of an icon, to compare.
QImage Picture(const QIcon& icon) {
    return icon.pixmap(16, 16).toImage();
}

TEST_F(FoundList, EachTypeHasItsImageAndAnUnknownOneThatOfALibrary) {
    const k4cmn::FileImages images({"SQ4", "SD4", "SC4", "SEQ"});
    for (int row = 0; row < 4; ++row) {
        const auto icon = View().model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
        ASSERT_FALSE(icon.isNull());
        EXPECT_EQ(Picture(icon), Picture(images.At(3 + row))) << row;
    }
    EXPECT_EQ(View().iconSize(), QSize(16, 16));
}

TEST_F(FoundList, ImagesStayWhenTextsMove) {
    std::vector<QImage> before;
    for (int row = 0; row < 4; ++row)
        before.push_back(
            Picture(View().model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>()));
    rows.SortColumn(FoundRows::kName);
    list->RowsChanged();
    EXPECT_EQ(Names(), "eel dog Cat bee ");
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(Picture(View().model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>()),
                  before[static_cast<std::size_t>(row)]);
}

TEST_F(FoundList, TellsAClickOnAHeading) {
    std::vector<int> clicked;
    QObject::connect(list, &FoundListWidget::HeadingClicked, list,
                     [&](int column) { clicked.push_back(column); });
    for (const int column : {4, 0, 0})
        ClickHeading(column);
    ClickHeading(1, Qt::RightButton);
    EXPECT_THAT(clicked, ElementsAre(4, 0, 0));
    EXPECT_TRUE(View().hasFocus());
}

// Selection ------------------------------------------------------------------------------------

TEST_F(FoundList, OneRowCanBeSelected) {
    EXPECT_EQ(Selected(), -1);
    Click(At(1));
    EXPECT_EQ(Selected(), 1);
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::ShiftModifier, At(3));
    EXPECT_EQ(Selected(), 3);
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::ControlModifier, At(2));
    EXPECT_EQ(Selected(), 2);
    EXPECT_EQ(View().selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(told, 3);
    Press(Qt::Key_Home);
    EXPECT_EQ(Selected(), 0);
    Press(Qt::Key_Down);
    EXPECT_EQ(Selected(), 1);
    Press(Qt::Key_End);
    EXPECT_EQ(Selected(), 3);
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(View().selectionModel()->selectedRows().size(), 1);
}

TEST_F(FoundList, AClickInAnyColumnSelectsTheRow) {
    Click(Place(2, 4).center());
    EXPECT_EQ(Selected(), 2);
    for (int column = 0; column < 5; ++column)
        EXPECT_TRUE(View().selectionModel()->isSelected(View().model()->index(2, column)));
}

TEST_F(FoundList, AClickBesideAllRowsEndsTheSelection) {
    for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
        Click(At(1));
        told = 0;
        Click(BesideRows(), button);
        EXPECT_EQ(Selected(), -1);
        EXPECT_EQ(told, 1);
    }
}

TEST_F(FoundList, TypingFindsARow) {
    QTest::keyClicks(&View(), QStringLiteral("do"));
    EXPECT_EQ(Selected(), 2);
}

TEST_F(FoundList, SelectRowSelectsAndTellsOnce) {
    list->SelectRow(3);
    EXPECT_EQ(Selected(), 3);
    EXPECT_EQ(told, 1);
    list->SelectRow(3);
    EXPECT_EQ(told, 1) << "no news";
    list->SelectRow(4);
    list->SelectRow(~std::size_t{0});
    EXPECT_EQ(Selected(), 3) << "there is no such row";
    EXPECT_EQ(told, 1);
}

TEST_F(FoundList, TheSelectionStaysAtItsPlaceWhenTheRowsAreSorted) {
    Click(At(1));
    told = 0;
    rows.SortColumn(FoundRows::kName);
    list->RowsChanged();
    EXPECT_EQ(Names(), "eel dog Cat bee ");
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(told, 0);
}

TEST_F(FoundList, AnotherNumberOfRowsEndsTheSelectionWithoutAWord) {
    Click(At(1));
    told = 0;
    rows.Add({File("new", 0, kTime, 0)});
    list->RowsChanged();
    EXPECT_EQ(Names(), "bee Cat dog eel new ");
    EXPECT_EQ(Selected(), -1);
    rows.Clear();
    list->RowsChanged();
    EXPECT_EQ(Names(), "");
    EXPECT_EQ(told, 0);
}

TEST_F(FoundList, WhereARowHasGoneTheArrowKeysGoOn) {
    list->SelectRow(2);
    rows.RemoveDeleted({"A:\\dog.SQ4"});
    list->RowsChanged();
    ASSERT_EQ(Names(), "bee Cat eel ");
    EXPECT_EQ(Selected(), -1);
    Press(Qt::Key_Down);
    EXPECT_EQ(Selected(), 2) << "the one that came there";
    Press(Qt::Key_Up);
    EXPECT_EQ(Selected(), 1);
    rows.RemoveDeleted({"A:\\Cat.SQ4"});
    list->RowsChanged();
    rows.RemoveDeleted({"A:\\eel.SQ4"});
    list->RowsChanged();
    EXPECT_EQ(Names(), "bee ");
    Press(Qt::Key_Down);
    EXPECT_EQ(Selected(), 0);
    rows.Clear();
    list->RowsChanged();
    Press(Qt::Key_Down);
    EXPECT_EQ(Selected(), -1);
}

TEST_F(FoundList, WhatIsToldOfASelectionMayChangeTheRows) {
    QObject::connect(list, &FoundListWidget::SelectionChanged, list, [this] {
        rows.Clear();
        list->RowsChanged();
    });
    Click(At(1));
    EXPECT_EQ(Names(), "");
    EXPECT_EQ(Selected(), -1);
}

TEST_F(FoundList, NothingIsEdited) {
    Click(At(1));
    Press(Qt::Key_F2);
    EXPECT_FALSE(View().model()->index(1, 0).flags().testFlag(Qt::ItemIsEditable));
    EXPECT_EQ(View().viewport()->findChildren<QWidget*>().size(), 0);
}

// Double clicks and Enter ------------------------------------------------------------------------

TEST_F(FoundList, TellsADoubleClickOfTheLeftButtonAnywhere) {
    DoubleClick(At(2));
    EXPECT_THAT(doubleClicked, ElementsAre(2));
    DoubleClick(Place(1, 3).center());
    EXPECT_THAT(doubleClicked, ElementsAre(2, 1));
    DoubleClick(At(3), Qt::RightButton);
    EXPECT_EQ(Selected(), 3);
    DoubleClick(At(0), Qt::MiddleButton);
    EXPECT_EQ(doubleClicked.size(), 2u);
    Click(At(2));
    DoubleClick(BesideRows());
    EXPECT_THAT(doubleClicked, ElementsAre(2, 1, -1)) << "nothing is selected by then";
    rows.Clear();
    list->RowsChanged();
    DoubleClick({20, 20});
    EXPECT_THAT(doubleClicked, ElementsAre(2, 1, -1, -1));
}

TEST_F(FoundList, ADoubleClickOnAHeadingIsNone) {
    const QHeaderView& header = *View().header();
    QTest::mouseDClick(header.viewport(), Qt::LeftButton, Qt::NoModifier,
                       {20, header.height() / 2});
    QCoreApplication::processEvents();
    EXPECT_THAT(doubleClicked, ElementsAre());
}

TEST_F(FoundList, EnterChoosesTheSelectedRow) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        Click(At(2));
        Press(key);
    }
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_THAT(chosen, ElementsAre(2, 2, 2));
    EXPECT_THAT(window.keys, ElementsAre());
}

TEST_F(FoundList, EnterWithoutASelectedRowGoesToTheWindow) {
    Click(At(2));
    Click(BesideRows());
    Press(Qt::Key_Return);
    EXPECT_THAT(chosen, ElementsAre());
    EXPECT_THAT(window.keys, ElementsAre(Qt::Key_Return));
}

TEST_F(FoundList, KeysThatAreNotTheListsGoToTheWindow) {
    Click(At(1));
    Press(Qt::Key_Delete);
    Press(Qt::Key_Return, Qt::AltModifier);
    Press(Qt::Key_Escape);
    EXPECT_THAT(window.keys,
                ElementsAre(Qt::Key_Delete, Qt::Key_Alt, Qt::Key_Return, Qt::Key_Escape));
    EXPECT_THAT(chosen, ElementsAre());
}

TEST_F(FoundList, AKeyThatIsHeldDownChoosesOnce) {
    Click(At(1));
    for (const bool isRepeated : {false, true, true}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, isRepeated);
        QApplication::sendEvent(&View(), &event);
    }
    QCoreApplication::processEvents();
    EXPECT_THAT(chosen, ElementsAre(1));
    EXPECT_THAT(window.keys, ElementsAre());
}

TEST_F(FoundList, TheListMayGoWhenARowWasChosen) {
    QObject::connect(list, &FoundListWidget::Chosen, list, [this] { delete list; });
    tester.reset();
    Click(At(1));
    Press(Qt::Key_Return);
    EXPECT_TRUE(window.findChildren<FoundListWidget*>().isEmpty());
}

TEST_F(FoundList, TheListMayGoWithADoubleClick) {
    QObject::connect(list, &FoundListWidget::DoubleClicked, list, [this] { delete list; });
    tester.reset();
    Click(At(1));
    QTest::mouseDClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, At(1));
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.findChildren<FoundListWidget*>().isEmpty());
}

// The context menu -------------------------------------------------------------------------------

TEST_F(FoundList, AsksForTheMenuOverARowWhichIsSelected) {
    RightClick(View().viewport(), At(2));
    ASSERT_EQ(menus.size(), 1u);
    EXPECT_EQ(menus[0].first, 2);
    EXPECT_EQ(menus[0].second, View().viewport()->mapToGlobal(At(2)));
    // Where the click isn't told of before.
    QContextMenuEvent request(QContextMenuEvent::Mouse, At(0),
                              View().viewport()->mapToGlobal(At(0)));
    QApplication::sendEvent(View().viewport(), &request);
    ASSERT_EQ(menus.size(), 2u);
    EXPECT_EQ(menus[1].first, 0);
    EXPECT_EQ(window.menus, 0) << "it is the list's";
}

TEST_F(FoundList, AsksForNoMenuBesideTheRows) {
    Click(At(1));
    RightClick(View().viewport(), BesideRows());
    RightClick(View().header()->viewport(), {20, 5});
    EXPECT_TRUE(menus.empty());
    EXPECT_EQ(window.menus, 0);
}

TEST_F(FoundList, AsksForTheMenuOfTheSelectedRowByKey) {
    MenuKey();
    Press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(menus.empty()) << "no row";
    Click(At(1));
    MenuKey();
    Press(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_EQ(menus.size(), 2u);
    for (const auto& [row, place] : menus) {
        EXPECT_EQ(row, 1);
        EXPECT_EQ(place, View().viewport()->mapToGlobal(At(1)));
    }
    Press(Qt::Key_F10);
    EXPECT_EQ(menus.size(), 2u);
}

TEST_F(FoundList, BringsARowIntoViewWhoseMenuIsAskedForByKey) {
    std::vector<FoundFileRow> more;
    for (int i = 0; i < 200; ++i)
        more.push_back(File("s" + std::to_string(1000 + i), 0, kTime, 0));
    rows.Add(more);
    list->RowsChanged();
    list->SelectRow(150);
    View().verticalScrollBar()->setValue(0);
    MenuKey();
    ASSERT_EQ(menus.size(), 1u);
    const QRect shown(View().viewport()->mapToGlobal(QPoint(0, 0)), View().viewport()->size());
    EXPECT_TRUE(shown.contains(menus[0].second));
}

// Looks ----------------------------------------------------------------------------------------

TEST_F(FoundList, HasAName) {
    EXPECT_EQ(View().accessibleName(), QStringLiteral("Found files"));
    EXPECT_EQ(list->focusProxy(), &View());
}

TEST_F(FoundList, TheEndOfAPathIsSeenInANarrowColumn) {
    EXPECT_EQ(View().textElideMode(), Qt::ElideMiddle);
}

TEST_F(FoundList, TellsTheSizeOfTheFirstLabel) {
    const k4cmn::RowLabelSize label = list->FirstLabelSize();
    EXPECT_EQ(label.height, Place(0).height());
    EXPECT_GT(label.width, 50);
    EXPECT_LT(label.width, Place(0).width() - 16);
    View().header()->resizeSection(0, 400);
    EXPECT_GT(list->FirstLabelSize().width, label.width);
    rows.Clear();
    list->RowsChanged();
    const k4cmn::RowLabelSize none = list->FirstLabelSize();
    EXPECT_EQ(none.height, View().fontMetrics().height());
    EXPECT_GT(none.width, 0);
}

TEST_F(FoundList, LooksRightWithALargeFont) {
    const FontScale scale(2.0);
    QCoreApplication::sendPostedEvents();
    EXPECT_GE(View().iconSize().height(), 24);
    EXPECT_GE(Place(0).height(), View().fontMetrics().height());
    EXPECT_GE(Place(0).height(), View().iconSize().height());
    const QHeaderView& header = *View().header();
    for (int column = 0; column < 5; ++column) {
        const QString heading =
            View().model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        EXPECT_EQ(header.sectionSize(column), header.fontMetrics().horizontalAdvance(heading) + 15);
    }
}

// Bad input and large numbers --------------------------------------------------------------------

TEST_F(FoundList, RowsThatAreGoneBeforeItIsToldShowNothing) {
    rows.Clear();
    EXPECT_EQ(Text(0, 0), "");
    window.grab();
    list->SelectRow(2);
    list->RowsChanged();
    list->SetRows(nullptr);
    list->RowsChanged();
    EXPECT_EQ(Names(), "");
    list->SelectRow(0);
    EXPECT_EQ(Selected(), -1);
}

TEST_F(FoundList, AHundredThousandRows) {
    constexpr int kCount = 100'000;
    std::vector<FoundFileRow> more;
    for (int i = 0; i < kCount - 4; ++i)
        more.push_back(
            File("s" + std::to_string(100'000 + i), static_cast<std::uint64_t>(i), kTime, i % 4));
    tester.reset();  // it looks at every row
    rows.Add(std::move(more));
    list->RowsChanged();
    list->SelectRow(0);
    Press(Qt::Key_End);
    EXPECT_EQ(Selected(), kCount - 1);
    EXPECT_TRUE(View().viewport()->rect().intersects(Place(kCount - 1)));
    list->SelectRow(50'000);
    EXPECT_EQ(Selected(), 50'000);
    EXPECT_TRUE(View().viewport()->rect().intersects(Place(50'000)));
    QTest::keyClicks(&View(), QStringLiteral("s199"));
    EXPECT_EQ(Selected(), 99'004);
    for (int column = 0; column < FoundRows::kColumnCount; ++column) {
        rows.SortColumn(column);
        list->RowsChanged();
        EXPECT_EQ(Selected(), 99'004);
        window.grab();
    }
}

}  // namespace
}  // namespace k4test
