#include "k4cmndlg/filesel/FileListWidget.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "k4cmndlg/filelist/FileNamesView.h"
#include "k4cmndlg/filelist/FileReportView.h"
#include "k4cmndlg/frame/Text.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/support/FontScale.h"
#include "tests/support/StoreFixture.h"

namespace k4test {
namespace {

using k4cmn::FileListWidget;
using k4cmn::FileRows;
using testing::ElementsAre;

/// The window around the list: what reaches it.
class Around final : public QWidget {
 public:
    std::vector<int> keys;
    std::vector<QPoint> menus;

 protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
    void contextMenuEvent(QContextMenuEvent* event) override { menus.push_back(event->pos()); }
};

/// A shown list of "bee", "Cat", "dog" and "eel", of 1, 2, 3 and 4 KB, each a day younger.
class ListWidget : public StoreFixture {
 protected:
    static constexpr std::int64_t kTime = 1'785'506'709;  // 31 July 2026, 14:05 UTC

    void SetUp() override {
        StoreFixture::SetUp();
        int kilobytes = 0;
        for (const char* name : {"eel", "dog", "Cat", "bee"}) {
            MakeFile(std::string("A:\\T.Sign\\L.Lib\\") + name + ".SQ4",
                     std::string(static_cast<std::size_t>(4 - kilobytes) * 1024, 'x'),
                     kTime - kilobytes * 86400);
            ++kilobytes;
        }
        Fill();
        auto* const layout = new QVBoxLayout(&window);
        list = new FileListWidget(&window);
        layout->addWidget(list);
        tester = std::make_unique<QAbstractItemModelTester>(
            Report().model(), QAbstractItemModelTester::FailureReportingMode::Warning);
        list->SetImages(k4cmn::FileImages({"SQ4"}));
        list->SetRows(&rows);
        list->RowsChanged(true);
        QObject::connect(list, &FileListWidget::SelectionChanged, list, [this] { ++told; });
        QObject::connect(list, &FileListWidget::LabelEdited, list,
                         [this](std::size_t row, const QString& text) {
                             edited.emplace_back(row, text.toStdString());
                             if (whenEdited)
                                 whenEdited();
                         });
        window.resize(600, 400);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        list->setFocus();
    }
    void Fill() {
        rows.Fill({"A:", "T", "L", "", "SQ4"}, "K4400 Seq", 4, k4cmn::LastModifiedFilter(-1, 0));
    }

    k4cmn::FileReportView& Report() { return *list->findChild<k4cmn::FileReportView*>(); }
    k4cmn::FileNamesView& NamesView() { return *list->findChild<k4cmn::FileNamesView*>(); }
    QAbstractItemView& View() {
        if (list->ShowsDetails())
            return Report();
        return NamesView();
    }
    std::string Names() {
        std::string names;
        for (int row = 0; row < View().model()->rowCount(); ++row)
            names += Text(row, 0) + " ";
        return names;
    }
    std::string Text(int row, int column) {
        return View().model()->index(row, column).data().toString().toStdString();
    }
    QRect Place(int row, int column = 0) {
        return View().visualRect(View().model()->index(row, column));
    }
    QPoint At(int row) { return Place(row).center(); }
    void Click(int row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mouseClick(View().viewport(), Qt::LeftButton, keys, At(row));
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::keyClick(&View(), key, keys);
    }
    QLineEdit* Editor() {
        QLineEdit* open = nullptr;
        for (auto* editor : View().viewport()->findChildren<QLineEdit*>())
            open = editor->isVisible() ? editor : open;
        return open;
    }
    /// The texts of the rows that are selected, in both views the same.
    std::string SelectedNames() {
        std::string names;
        for (const std::size_t row : list->SelectedRows())
            names += rows.Rows()[row].name + " ";
        return names;
    }

    ScopedTimeZone zone{"UTC0"};
    FileRows rows;
    int told = 0;
    std::vector<std::pair<std::size_t, std::string>> edited;
    std::function<void()> whenEdited;
    Around window;
    FileListWidget* list = nullptr;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

// Columns --------------------------------------------------------------------------------------

TEST_F(ListWidget, ShowsRowsWithTheirTexts) {
    EXPECT_EQ(Names(), "bee Cat dog eel ");
    EXPECT_EQ(Text(1, 1), "    2 KB");
    EXPECT_EQ(Text(1, 2), "K4400 Seq");
    EXPECT_EQ(Text(1, 3), "07/29/26 02:05 PM");
    EXPECT_FALSE(View().model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_FALSE(View().model()->index(0, 1).data(Qt::DecorationRole).isValid());
}

TEST_F(ListWidget, HeadingsKeepTheirBlanksAndMakeTheWidths) {
    const QHeaderView& header = *Report().header();
    const char* const headings[] = {"Name                       ", "         Size",
                                    "Type                ", " Modified                 "};
    ASSERT_EQ(header.count(), 4);
    for (int column = 0; column < 4; ++column) {
        const QString heading =
            Report().model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        EXPECT_EQ(heading.toStdString(), headings[column]);
        EXPECT_EQ(header.sectionSize(column), header.fontMetrics().horizontalAdvance(heading) + 15);
        const auto alignment = static_cast<Qt::Alignment>(
            Report().model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt());
        EXPECT_EQ(alignment.testFlag(Qt::AlignRight), column == 1) << column;
        EXPECT_EQ(Report().model()->index(0, column).data(Qt::TextAlignmentRole).toInt(),
                  static_cast<int>(alignment));
    }
}

TEST_F(ListWidget, ColumnsAreMadeAnewOnlyWhenAsked) {
    Report().header()->resizeSection(0, 400);
    list->RowsChanged(false);
    EXPECT_EQ(Report().header()->sectionSize(0), 400);
    list->RowsChanged(true);
    EXPECT_LT(Report().header()->sectionSize(0), 400);
    FileListWidget fresh(nullptr);
    fresh.SetRows(&rows);
    fresh.RowsChanged(false);
    EXPECT_EQ(fresh.findChild<k4cmn::FileReportView*>()->model()->columnCount(), 0);
}

TEST_F(ListWidget, TellsAClickOnAHeading) {
    std::vector<int> clicked;
    QObject::connect(list, &FileListWidget::HeadingClicked, list,
                     [&](int column) { clicked.push_back(column); });
    const QHeaderView& header = *Report().header();
    for (const int column : {3, 0}) {
        QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier,
                          {header.sectionViewportPosition(column) + 20, header.height() / 2});
    }
    EXPECT_THAT(clicked, ElementsAre(3, 0));
    EXPECT_TRUE(Report().hasFocus());
}

// Selection ------------------------------------------------------------------------------------

TEST_F(ListWidget, SeveralRowsCanBeSelected) {
    Click(1);
    EXPECT_EQ(SelectedNames(), "Cat ");
    Click(3, Qt::ControlModifier);
    EXPECT_EQ(SelectedNames(), "Cat eel ");
    Click(2, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(SelectedNames(), "Cat dog eel ");
    EXPECT_EQ(told, 3);
    Press(Qt::Key_Home);
    EXPECT_EQ(SelectedNames(), "bee ");
    Press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(SelectedNames(), "bee Cat dog eel ");
    Press(Qt::Key_PageUp);
    EXPECT_EQ(SelectedNames(), "bee ");
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(SelectedNames(), "bee Cat dog eel ");
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, {300, 300});
    EXPECT_EQ(SelectedNames(), "") << "a click beside all rows";
}

TEST_F(ListWidget, TypingFindsARow) {
    QTest::keyClicks(&View(), QStringLiteral("do"));
    EXPECT_EQ(SelectedNames(), "dog ");
    list->ShowDetails(false);
    QTest::keyClicks(&View(), QStringLiteral("c"));
    EXPECT_EQ(SelectedNames(), "Cat ") << "from there on, and around";
}

TEST_F(ListWidget, SelectRowSelectsOneAloneAndTellsOnce) {
    Click(0);
    Click(1, Qt::ControlModifier);
    told = 0;
    list->SelectRow(3);
    EXPECT_EQ(SelectedNames(), "eel ");
    EXPECT_EQ(told, 1);
    list->SelectRow(3);
    EXPECT_EQ(told, 1) << "no news";
    list->SelectRow(4);
    EXPECT_EQ(SelectedNames(), "eel ") << "there is no such row";
    EXPECT_EQ(told, 1);
}

TEST_F(ListWidget, TheSelectionStaysAtItsPlaceWhenTheRowsAreSorted) {
    Click(1);
    Click(2, Qt::ControlModifier);
    told = 0;
    rows.Sort(FileRows::kName, false);
    list->RowsChanged(false);
    EXPECT_EQ(Names(), "eel dog Cat bee ");
    EXPECT_THAT(list->SelectedRows(), ElementsAre(1, 2));
    EXPECT_EQ(SelectedNames(), "dog Cat ");
    EXPECT_EQ(told, 0);
}

TEST_F(ListWidget, AnotherNumberOfRowsEndsTheSelectionWithoutAWord) {
    Click(1);
    told = 0;
    MakeFile("A:\\T.Sign\\L.Lib\\new.SQ4");
    Fill();
    list->RowsChanged(true);
    EXPECT_EQ(Names(), "bee Cat dog eel new ");
    EXPECT_THAT(list->SelectedRows(), ElementsAre());
    rows.Clear();
    list->RowsChanged(false);
    EXPECT_EQ(Names(), "");
    EXPECT_EQ(told, 0);
}

TEST_F(ListWidget, BothViewsShareTheSelection) {
    Click(1);
    told = 0;
    list->ShowDetails(false);
    EXPECT_FALSE(list->ShowsDetails());
    EXPECT_TRUE(NamesView().hasFocus());
    EXPECT_EQ(SelectedNames(), "Cat ");
    EXPECT_EQ(told, 0);
    Click(3, Qt::ControlModifier);
    EXPECT_EQ(SelectedNames(), "Cat eel ");
    Press(Qt::Key_Up);
    EXPECT_EQ(SelectedNames(), "dog ");
    list->ShowDetails(true);
    EXPECT_TRUE(Report().hasFocus());
    EXPECT_EQ(SelectedNames(), "dog ");
    for (int column = 0; column < 4; ++column)
        EXPECT_TRUE(Report().selectionModel()->isSelected(Report().model()->index(2, column)));
}

TEST_F(ListWidget, AClickInAnyColumnSelectsTheRow) {
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, Place(2, 3).center());
    EXPECT_EQ(SelectedNames(), "dog ");
    Press(Qt::Key_F2);
    ASSERT_TRUE(Editor()) << "the keyboard stands at the label";
    EXPECT_EQ(Editor()->text(), QStringLiteral("dog"));
}

TEST_F(ListWidget, TellsADoubleClickOfTheLeftButton) {
    std::vector<std::size_t> clicked;
    QObject::connect(list, &FileListWidget::RowDoubleClicked, list,
                     [&](std::size_t row) { clicked.push_back(row); });
    for (const bool details : {true, false}) {
        list->ShowDetails(details);
        for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
            QTest::mouseClick(View().viewport(), button, Qt::NoModifier, At(2));
            QTest::mouseDClick(View().viewport(), button, Qt::NoModifier, At(2));
        }
    }
    EXPECT_THAT(clicked, ElementsAre(2, 2));
}

// Labels ---------------------------------------------------------------------------------------

TEST_F(ListWidget, EnterEndsTheEditingAndNothingElse) {
    for (const bool details : {true, false}) {
        SCOPED_TRACE(details);
        list->ShowDetails(details);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab}) {
            edited.clear();
            list->EditRow(1);
            ASSERT_TRUE(Editor());
            EXPECT_TRUE(Editor()->hasFocus());
            EXPECT_EQ(Editor()->selectedText(), QStringLiteral("Cat"));
            QTest::keyClicks(Editor(), QStringLiteral("Lion"));
            QTest::keyClick(Editor(), key);
            EXPECT_FALSE(Editor());
            EXPECT_THAT(edited, ElementsAre(std::pair(std::size_t{1}, std::string("Lion"))));
            EXPECT_TRUE(View().hasFocus());
        }
    }
    EXPECT_THAT(window.keys, ElementsAre());
    EXPECT_EQ(Names(), "bee Cat dog eel ") << "what comes of it isn't for the list to say";
}

TEST_F(ListWidget, EscapeCancelsTheEditingAndNothingElse) {
    list->EditRow(1);
    ASSERT_TRUE(Editor());
    QTest::keyClicks(Editor(), QStringLiteral("Lion"));
    QTest::keyClick(Editor(), Qt::Key_Escape);
    EXPECT_FALSE(Editor());
    EXPECT_THAT(edited, ElementsAre());
    EXPECT_THAT(window.keys, ElementsAre());
}

TEST_F(ListWidget, AClickElsewhereEndsTheEditing) {
    list->EditRow(1);
    ASSERT_TRUE(Editor());
    QTest::keyClicks(Editor(), QStringLiteral("Lion"));
    Click(3);
    list->setFocus();
    EXPECT_FALSE(Editor());
    EXPECT_THAT(edited, ElementsAre(std::pair(std::size_t{1}, std::string("Lion"))));
}

TEST_F(ListWidget, AClickOnAHeadingEndsTheEditingFirst) {
    std::string order;
    whenEdited = [&] { order += "edited "; };
    QObject::connect(list, &FileListWidget::HeadingClicked, list, [&] { order += "clicked"; });
    list->EditRow(1);
    const QHeaderView& header = *Report().header();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, {20, header.height() / 2});
    EXPECT_EQ(order, "edited clicked");
}

TEST_F(ListWidget, OtherRowsLeaveTheLabelAsItIs) {
    list->EditRow(1);
    ASSERT_TRUE(Editor());
    QTest::keyClicks(Editor(), QStringLiteral("Lion"));
    rows.Sort(FileRows::kName, false);
    list->RowsChanged(false);
    EXPECT_FALSE(Editor());
    list->EditRow(0);
    ASSERT_TRUE(Editor());
    rows.Clear();
    list->RowsChanged(false);
    EXPECT_FALSE(Editor());
    EXPECT_THAT(edited, ElementsAre());
}

TEST_F(ListWidget, TheRowsMayChangeWhenALabelWasEdited) {
    whenEdited = [this] {
        rows.Clear();
        list->RowsChanged(false);
    };
    for (const bool withKey : {true, false}) {
        Fill();
        list->RowsChanged(true);
        list->EditRow(1);
        ASSERT_TRUE(Editor());
        if (withKey)
            QTest::keyClick(Editor(), Qt::Key_Return);
        else
            Click(3);
        list->setFocus();
        QCoreApplication::processEvents();
        EXPECT_EQ(Names(), "");
    }
    EXPECT_EQ(edited.size(), 2U);
}

TEST_F(ListWidget, ASlowSecondClickEditsTheLabel) {
    Click(1);
    Click(1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Editor() != nullptr; }));
    QTest::keyClick(Editor(), Qt::Key_Escape);
}

TEST_F(ListWidget, NoRowNoEditing) {
    list->EditRow(4);
    EXPECT_FALSE(Editor());
    rows.Clear();
    list->RowsChanged(false);
    Press(Qt::Key_F2);
    EXPECT_FALSE(Editor());
}

TEST_F(ListWidget, KeysThatAreNotTheListsGoToTheWindow) {
    Click(1);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        Press(key);
    EXPECT_THAT(window.keys, ElementsAre(Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape));
    EXPECT_FALSE(Editor());
}

TEST_F(ListWidget, RightClicksGoToTheWindow) {
    for (const bool details : {true, false}) {
        list->ShowDetails(details);
        window.menus.clear();
        const QPoint at = At(2);
        QContextMenuEvent byMouse(QContextMenuEvent::Mouse, at, View().viewport()->mapToGlobal(at));
        QApplication::sendEvent(View().viewport(), &byMouse);
        EXPECT_THAT(window.menus, ElementsAre(View().viewport()->mapTo(&window, at)));
        QTest::mouseClick(View().viewport(), Qt::RightButton, Qt::NoModifier, at);
        EXPECT_EQ(SelectedNames(), "dog ");
    }
}

// Looks ----------------------------------------------------------------------------------------

TEST_F(ListWidget, TellsTheSizeOfTheFirstLabel) {
    EXPECT_EQ(list->FirstLabelSize().height, Place(0).height());
    EXPECT_GT(list->FirstLabelSize().width, 100);
    EXPECT_LT(list->FirstLabelSize().width, Place(0).width() - 16);
    rows.Clear();
    list->RowsChanged(false);
    EXPECT_EQ(list->FirstLabelSize().height, list->fontMetrics().height());
    EXPECT_GT(list->FirstLabelSize().width, 0);
}

TEST_F(ListWidget, NamesStandBelowEachOtherInColumnsThatHaveRoomForThem) {
    const std::string longest = "a name of quite some length here";
    for (int i = 0; i < 60; ++i)
        MakeFile("A:\\T.Sign\\L.Lib\\x" + std::to_string(100 + i) + ".SQ4");
    MakeFile("A:\\T.Sign\\L.Lib\\" + longest + ".SQ4");
    Fill();
    list->RowsChanged(true);
    list->ShowDetails(false);
    EXPECT_EQ(Place(0).left(), Place(1).left());
    EXPECT_GT(Place(1).top(), Place(0).top());
    const int needed = list->fontMetrics().horizontalAdvance(k4cmn::ToQt(longest)) + 16;
    EXPECT_GT(Place(0).width(), needed);
    EXPECT_GT(Place(60).left(), Place(0).right());
}

TEST_F(ListWidget, LooksRightWithALargeFont) {
    const FontScale scale(2.0);
    QCoreApplication::sendPostedEvents();
    const QHeaderView& header = *Report().header();
    for (const bool details : {true, false}) {
        list->ShowDetails(details);
        EXPECT_GE(View().iconSize().height(), 24);
        EXPECT_GE(Place(0).height(), View().fontMetrics().height());
        EXPECT_GE(Place(0).height(), View().iconSize().height());
        EXPECT_FALSE(View().accessibleName().isEmpty());
    }
    for (int column = 0; column < 4; ++column) {
        const QString heading =
            Report().model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        EXPECT_EQ(header.sectionSize(column), header.fontMetrics().horizontalAdvance(heading) + 15);
    }
}

// Bad input and large numbers --------------------------------------------------------------------

TEST_F(ListWidget, RowsThatAreGoneBeforeItIsToldShowNothing) {
    rows.Clear();
    EXPECT_EQ(Text(0, 0), "");
    window.grab();
    list->SelectRow(2);
    list->RowsChanged(false);
    list->SetRows(nullptr);
    list->RowsChanged(true);
    EXPECT_EQ(Names(), "");
    list->SelectRow(0);
    list->EditRow(0);
    EXPECT_THAT(list->SelectedRows(), ElementsAre());
}

TEST_F(ListWidget, AHundredThousandRows) {
    const std::filesystem::path folder = Native("A:\\T.Sign\\L.Lib");
    constexpr std::size_t kCount = 100'000;
    for (std::size_t i = 0; i < kCount - 4; ++i) {
        const int file =
            creat((folder / ("s" + std::to_string(100'000 + i) + ".SQ4")).c_str(), 0600);
        ASSERT_GE(file, 0);
        close(file);
    }
    tester.reset();  // it looks at every row
    Fill();
    ASSERT_EQ(rows.Rows().size(), kCount);
    list->RowsChanged(true);
    for (const bool details : {true, false}) {
        SCOPED_TRACE(details);
        list->ShowDetails(details);
        list->SelectRow(0);
        Press(Qt::Key_End);
        EXPECT_THAT(list->SelectedRows(), ElementsAre(kCount - 1));
        EXPECT_TRUE(View().viewport()->rect().intersects(Place(kCount - 1)));
        Press(Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(list->SelectedRows().size(), kCount);
        list->SelectRow(50'000);
        EXPECT_THAT(list->SelectedRows(), ElementsAre(50'000));
        EXPECT_TRUE(View().viewport()->rect().intersects(Place(50'000)));
        QTest::keyClicks(&View(), QStringLiteral("s199"));
        EXPECT_THAT(list->SelectedRows(), ElementsAre(99'004));
        rows.Sort(FileRows::kName, false);
        list->RowsChanged(false);
        EXPECT_THAT(list->SelectedRows(), ElementsAre(99'004));
        rows.Sort(FileRows::kName, true);
        list->RowsChanged(false);
        window.grab();
    }
}

}  // namespace
}  // namespace k4test
