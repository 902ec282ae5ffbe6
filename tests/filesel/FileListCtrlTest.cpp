#include "k4cmndlg/filesel/CK4CmnDlgFileListCtrl.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QActionGroup>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/filelist/FileNamesView.h"
#include "k4cmndlg/filelist/FileReportView.h"
#include "k4cmndlg/filestore/contracts/FileKinds.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/support/FontScale.h"
#include "tests/support/StoreFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;

/// Knows names that end in ".txt", and no icon theme has the icon that it names.
class Kinds final : public k4cmn::FileKinds {
 public:
    std::string TypeName(const std::string& path) override {
        return path.ends_with(".txt") ? "Text" : std::string();
    }
    std::string IconName(const std::string& path) override {
        asked.push_back(path);
        return path.ends_with(".txt") ? "no-theme-has-this" : std::string();
    }
    std::vector<std::string> asked;
};

/// The control with its protected members.
class Control final : public CK4CmnDlgFileListCtrl {
 public:
    using CK4CmnDlgFileListCtrl::AddColumns;
    using CK4CmnDlgFileListCtrl::AddItem;
    using CK4CmnDlgFileListCtrl::CK4CmnDlgFileListCtrl;
    using CK4CmnDlgFileListCtrl::GetIconIndex;
    using CK4CmnDlgFileListCtrl::IsValidExt;
    using CK4CmnDlgFileListCtrl::m_largeImages;
    using CK4CmnDlgFileListCtrl::m_popupMenu;
    using CK4CmnDlgFileListCtrl::m_smallImages;
    using CK4CmnDlgFileListCtrl::m_viewMenu;
    using CK4CmnDlgFileListCtrl::OnColumnclick;
    using CK4CmnDlgFileListCtrl::OnContextMenu;
    using CK4CmnDlgFileListCtrl::OnPopupRefresh;
    using CK4CmnDlgFileListCtrl::OnPopupViewDetails;
    using CK4CmnDlgFileListCtrl::OnPopupViewLargeIcon;
    using CK4CmnDlgFileListCtrl::OnPopupViewList;
    using CK4CmnDlgFileListCtrl::OnPopupViewSmallIcon;
    using CK4CmnDlgFileListCtrl::ShowFileDetails;
    using CK4CmnDlgFileListCtrl::SortColumnEx;
};

/// The window around the control: right clicks that reach it.
class Around final : public QWidget {
 public:
    int menus = 0;

 protected:
    void contextMenuEvent(QContextMenuEvent*) override { ++menus; }
};

/// A shown control and a folder "A:" with "a.SQ4" of 1023 bytes, "B.txt" of 9 KB, "c.sd4" of 2 KB
/// and "d" of 3 KB, each a day older.
class FileListCtrl : public StoreFixture {
 protected:
    static constexpr std::int64_t kTime = 1'785'506'709;  // 31 July 2026, 14:05 UTC

    void SetUp() override {
        StoreFixture::SetUp();
        const std::pair<const char*, std::size_t> made[] = {
            {"a.SQ4", 1023}, {"B.txt", 9 * 1024}, {"c.sd4", 2 * 1024}, {"d", 3 * 1024}};
        std::int64_t time = kTime;
        for (const auto& [name, size] : made) {
            MakeFile(std::string("A:\\") + name, std::string(size, 'x'), time);
            time -= 86400;
        }
        MakeFolder("A:\\folder.SQ4");
        layout = new QVBoxLayout(&window);
        layout->setContentsMargins({});
        window.resize(600, 400);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    /// Makes a control that isn't initialised yet.
    Control& Make(int mode) {
        delete control;
        control = new Control(mode, &window);
        layout->addWidget(control);
        control->show();
        QCoreApplication::sendPostedEvents();
        layout->activate();
        tester = std::make_unique<QAbstractItemModelTester>(
            View().model(), QAbstractItemModelTester::FailureReportingMode::Warning);
        return *control;
    }
    /// Makes a control that shows all files of A:.
    Control& Fill(int mode) {
        Make(mode);
        EXPECT_EQ(control->InitializeListCtrl(), 1);
        EXPECT_EQ(control->Refresh("A:", "*"), 1);
        return *control;
    }
    QAbstractItemView& View() const {
        return *qobject_cast<QAbstractItemView*>(control->currentWidget());
    }
    k4cmn::FileReportView& Report() const { return *control->findChild<k4cmn::FileReportView*>(); }
    k4cmn::FileNamesView& NamesView() const { return *control->findChild<k4cmn::FileNamesView*>(); }
    bool ShowsReport() const { return control->currentWidget() == &Report(); }
    /// What the view shows in a column.
    std::string Shown(int column = 0) const {
        std::string texts;
        for (int row = 0; row < View().model()->rowCount(); ++row) {
            const QModelIndex index = View().model()->index(row, column);
            EXPECT_EQ(index.data(Qt::UserRole).toInt(), row);
            EXPECT_EQ(control->GetItemText(row, column), index.data().toString().toStdString());
            texts += index.data().toString().toStdString() + "|";
        }
        return texts;
    }
    QPoint At(int row) const { return View().visualRect(View().model()->index(row, 0)).center(); }
    void ClickHeading(int column) {
        const QHeaderView& header = *Report().header();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier,
                          {header.sectionViewportPosition(column) + 20, header.height() / 2});
    }
    void RightClick(const QPoint& point) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, point,
                                View().viewport()->mapToGlobal(point));
        QApplication::sendEvent(View().viewport(), &event);
    }
    QPoint Beside() const { return View().viewport()->rect().bottomRight() - QPoint(3, 3); }
    bool IsMenuOpen() const { return control->m_popupMenu && control->m_popupMenu->isVisible(); }
    std::string Checked() const {
        std::string texts;
        for (const QAction* action : control->m_viewMenu->actions())
            texts += action->isChecked() ? action->text().toStdString() : std::string();
        return texts;
    }
    /// Chooses an entry of the open menu by its command.
    void Choose(int command) {
        for (QMenu* menu : {control->m_viewMenu, control->m_popupMenu.get()}) {
            for (QAction* action : menu->actions()) {
                if (action->data().toInt() == command)
                    action->trigger();
            }
        }
        control->m_popupMenu->close();
    }

    ScopedTimeZone zone{"UTC0"};
    Kinds kinds;
    k4cmn::ScopedProvider<k4cmn::FileKinds> useKinds{kinds};
    Around window;
    QVBoxLayout* layout = nullptr;
    Control* control = nullptr;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

// Initialising ---------------------------------------------------------------------------------

TEST_F(FileListCtrl, BeginsAscendingByName) {
    Make(0);
    EXPECT_EQ(control->GetSortColumn(), 0);
    EXPECT_EQ(control->GetSortAscending(), 1);
    EXPECT_EQ(control->GetItemCount(), 0);
    EXPECT_EQ(control->m_popupMenu, nullptr);
    EXPECT_TRUE(Report().header()->isHidden());
}

TEST_F(FileListCtrl, ItsColumnsAreAQuarterOfItsWidthEach) {
    Make(0).InitializeListCtrl();
    const QHeaderView& header = *Report().header();
    ASSERT_TRUE(header.isVisible());
    ASSERT_EQ(header.count(), 4);
    const char* const headings[] = {"Name", "Size", "Type", "Modified"};
    for (int column = 0; column < 4; ++column) {
        EXPECT_EQ(View().model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
                  QLatin1String(headings[column]));
        EXPECT_EQ(header.sectionSize(column), Report().viewport()->width() / 4);
        for (const QVariant& alignment :
             {View().model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole)})
            EXPECT_EQ(alignment.toInt() & Qt::AlignRight, column == 1 ? Qt::AlignRight : 0);
    }
}

TEST_F(FileListCtrl, WithoutIconsInitialisingDoesNothing) {
    for (const bool small : {true, false}) {
        Make(0);
        (small ? control->m_smallImages : control->m_largeImages).reset();
        EXPECT_EQ(control->InitializeListCtrl(), 1);
        EXPECT_EQ(control->m_popupMenu, nullptr);
        EXPECT_TRUE(Report().header()->isHidden());
        RightClick(Beside());
        control->OnContextMenu({});
        EXPECT_EQ(control->Refresh("A:", "*"), 1);
        EXPECT_EQ(control->GetItemCount(), 4);
        EXPECT_FALSE(View().model()->index(0, 0).data(Qt::DecorationRole).isValid());
    }
}

// Filling --------------------------------------------------------------------------------------

TEST_F(FileListCtrl, ShowsTheDetailsOfEachFile) {
    Fill(0);
    EXPECT_EQ(Shown(0), "a.SQ4|B.txt|c.sd4|d|");
    EXPECT_EQ(Shown(1), "    0 KB|    9 KB|    2 KB|    3 KB|");
    EXPECT_EQ(Shown(2), "SQ4 File|Text|SD4 File|File|");
    EXPECT_EQ(Shown(3), "7/31/26 14:05|7/30/26 14:05|7/29/26 14:05|7/28/26 14:05|");
}

TEST_F(FileListCtrl, AdmitsTheExtensionsThatItIsGiven) {
    Make(0).InitializeListCtrl();
    const std::pair<const char*, const char*> rows[] = {{"*", "a.SQ4|B.txt|c.sd4|d|"},
                                                        {"SQ4;SD4", "a.SQ4|c.sd4|"},
                                                        {"sq4", "a.SQ4|"},
                                                        {"*;SQ4", "a.SQ4|B.txt|c.sd4|d|"},
                                                        {"", ""},
                                                        {";", ""},
                                                        {"AVI", ""}};
    for (const auto& [extensions, names] : rows) {
        EXPECT_EQ(control->Refresh("A:", extensions), 1);
        EXPECT_EQ(Shown(), names) << extensions;
    }
    EXPECT_EQ(control->Refresh("A:", nullptr), 1);
    EXPECT_EQ(Shown(), "");
}

TEST_F(FileListCtrl, AFolderThatCantBeReadLeavesTheListEmpty) {
    Fill(0);
    EXPECT_EQ(control->Refresh("A:\\none", "*"), 0);
    EXPECT_EQ(control->GetItemCount(), 0);
    EXPECT_EQ(Shown(), "");
    MakeFile("A:\\none\\now.SQ4");
    control->OnPopupRefresh();
    EXPECT_EQ(Shown(), "now.SQ4|") << "both arguments are remembered";
    EXPECT_EQ(control->Refresh(nullptr, "*"), 0);
}

TEST_F(FileListCtrl, IsEmptiedAndRemembersItsFolder) {
    Fill(0);
    control->DeleteAllItems();
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(control->GetItemText(0), "");
    control->OnPopupRefresh();
    EXPECT_EQ(control->GetItemCount(), 4);
}

TEST_F(FileListCtrl, AddsItemsAtTheEnd) {
    Fill(0);
    MakeFile("A:\\folder.SQ4\\A1.SQ4", std::string(5000, 'x'), kTime);
    EXPECT_EQ(control->AddItem("A:\\folder.SQ4\\A1.SQ4"), 4);
    EXPECT_EQ(control->AddItem("A:\\folder.SQ4\\none.SQ4"), -1);
    EXPECT_EQ(Shown(0), "a.SQ4|B.txt|c.sd4|d|A1.SQ4|");
    EXPECT_EQ(control->GetItemText(4, 1), "    4 KB");
    control->ShowFileDetails("A:\\folder.SQ4\\A1.SQ4", {false, 10240, kTime}, 4);
    EXPECT_EQ(control->GetItemText(4, 1), "   10 KB");
    for (const int row : {-1, 5})
        control->ShowFileDetails("A:\\x", {}, row);
}

TEST_F(FileListCtrl, ItemsHaveNoDetailsInTheOtherViewsAndStandByName) {
    for (const int mode : {1, 2, 3, 4, -1}) {
        SCOPED_TRACE(mode);
        Fill(mode);
        MakeFile("A:\\folder.SQ4\\A1.SQ4");
        EXPECT_EQ(control->AddItem("A:\\folder.SQ4\\A1.SQ4"), 1);
        EXPECT_EQ(Shown(0), "a.SQ4|A1.SQ4|B.txt|c.sd4|d|");
        EXPECT_EQ(Shown(1), "|||||");
        control->ShowFileDetails("A:\\folder.SQ4\\A1.SQ4", {false, 10240, kTime}, 1);
        EXPECT_EQ(control->GetItemText(1, 1), "   10 KB");
    }
}

TEST_F(FileListCtrl, KnowsWhichExtensionsAreAdmitted) {
    Make(0);
    EXPECT_EQ(control->IsValidExt("sq4", {"AVI", "SQ4"}), 1);
    EXPECT_EQ(control->IsValidExt("", {"*"}), 1);
    EXPECT_EQ(control->IsValidExt("", {"SQ4"}), 0);
    EXPECT_EQ(control->IsValidExt("SQ4", {}), 0);
}

// Sorting --------------------------------------------------------------------------------------

TEST_F(FileListCtrl, TheFirstClickOnAnyColumnSortsDescending) {
    for (int column = 0; column < 4; ++column) {
        Fill(0);
        ClickHeading(column);
        EXPECT_EQ(control->GetSortColumn(), column);
        EXPECT_EQ(control->GetSortAscending(), 0);
        EXPECT_EQ(Report().header()->sortIndicatorSection(), column);
        EXPECT_EQ(Report().header()->sortIndicatorOrder(), Qt::DescendingOrder);
    }
}

TEST_F(FileListCtrl, ClicksTurnTheDirectionAndGoOnWithIt) {
    Fill(0);
    ClickHeading(1);
    EXPECT_EQ(Shown(), "B.txt|d|c.sd4|a.SQ4|");
    ClickHeading(1);
    EXPECT_EQ(Shown(), "a.SQ4|c.sd4|d|B.txt|");
    EXPECT_EQ(Report().header()->sortIndicatorOrder(), Qt::AscendingOrder);
    ClickHeading(2);
    EXPECT_EQ(Shown(), "B.txt|a.SQ4|c.sd4|d|") << "descending, since it was ascending";
    control->SortColumnEx(3);
    EXPECT_EQ(Shown(), "a.SQ4|B.txt|c.sd4|d|");
    control->OnColumnclick(0);
    EXPECT_EQ(Shown(), "a.SQ4|B.txt|c.sd4|d|");
    MakeFile("A:\\Aa");
    control->OnColumnclick(0);
    control->OnPopupRefresh();
    EXPECT_EQ(Shown(), "d|c.sd4|B.txt|Aa|a.SQ4|") << "filled anew in the same order";
}

TEST_F(FileListCtrl, ASortKeepsWhatIsSelected) {
    Fill(0);
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, At(0));
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::ControlModifier, At(1));
    EXPECT_THAT(control->GetSelectedPaths(), ElementsAre("A:\\a.SQ4", "A:\\B.txt"));
    ClickHeading(0);
    EXPECT_EQ(Shown(), "d|c.sd4|B.txt|a.SQ4|");
    EXPECT_THAT(control->GetSelectedPaths(), ElementsAre("A:\\B.txt", "A:\\a.SQ4"));
    control->OnPopupRefresh();
    EXPECT_THAT(control->GetSelectedPaths(), ElementsAre());
}

// Views ----------------------------------------------------------------------------------------

TEST_F(FileListCtrl, EachModeHasItsView) {
    using Form = k4cmn::FileNamesView::Form;
    const std::pair<int, Form> forms[] = {
        {1, Form::Columns}, {2, Form::Rows}, {3, Form::LargeImages}, {4, Form::LargeImages}};
    Fill(0);
    EXPECT_TRUE(ShowsReport());
    for (const auto& [mode, form] : forms) {
        control->ChangeViewMode(mode);
        EXPECT_FALSE(ShowsReport());
        EXPECT_EQ(NamesView().ShownForm(), form) << mode;
        EXPECT_EQ(NamesView().iconSize().width(), mode >= 3 ? 32 : 16);
    }
    control->ChangeViewMode(0);
    EXPECT_TRUE(ShowsReport());
}

TEST_F(FileListCtrl, ItsHandlersChangeTheView) {
    using Form = k4cmn::FileNamesView::Form;
    Fill(0);
    control->OnPopupViewLargeIcon();
    EXPECT_EQ(NamesView().ShownForm(), Form::LargeImages);
    control->OnPopupViewSmallIcon();
    EXPECT_EQ(NamesView().ShownForm(), Form::Rows);
    control->OnPopupViewList();
    EXPECT_EQ(NamesView().ShownForm(), Form::Columns);
    EXPECT_FALSE(ShowsReport());
    control->OnPopupViewDetails();
    EXPECT_TRUE(ShowsReport());
}

TEST_F(FileListCtrl, ViewsWithoutDetailsStandInTheOrderOfNames) {
    Fill(0);
    ClickHeading(0);
    EXPECT_EQ(Shown(), "d|c.sd4|B.txt|a.SQ4|");
    for (const int mode : {1, 2, 3}) {
        control->ChangeViewMode(mode);
        EXPECT_EQ(Shown(), "a.SQ4|B.txt|c.sd4|d|");
        control->OnPopupRefresh();
        EXPECT_EQ(Shown(), "a.SQ4|B.txt|c.sd4|d|");
        EXPECT_EQ(control->GetSortAscending(), 0) << "what was sorted last isn't forgotten";
    }
    control->ChangeViewMode(0);
    control->OnPopupRefresh();
    EXPECT_EQ(Shown(), "d|c.sd4|B.txt|a.SQ4|");
}

TEST_F(FileListCtrl, WhatBeginsWithoutDetailsGetsColumnsWhenItFirstShowsThem) {
    Fill(1);
    EXPECT_EQ(Shown(1), "||||");
    control->ChangeViewMode(0);
    EXPECT_TRUE(Report().header()->isVisible());
    EXPECT_EQ(Report().header()->sectionSize(3), Report().viewport()->width() / 4);
    EXPECT_EQ(Shown(1), "||||") << "rows that were added before have no details";
    control->OnPopupRefresh();
    EXPECT_EQ(Shown(1), "    0 KB|    9 KB|    2 KB|    3 KB|");
}

TEST_F(FileListCtrl, TheViewsShareSelectionAndFocus) {
    Fill(0);
    control->setFocus();
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, At(2));
    for (const int mode : {1, 2, 3, 0}) {
        control->ChangeViewMode(mode);
        EXPECT_TRUE(View().hasFocus());
        EXPECT_THAT(control->GetSelectedPaths(), ElementsAre("A:\\c.sd4")) << mode;
    }
    std::vector<std::string> opened;
    QObject::connect(control, &CK4CmnDlgFileListCtrl::FileDoubleClicked, control,
                     [&](const std::string& path) { opened.push_back(path); });
    for (const int mode : {0, 3}) {
        control->ChangeViewMode(mode);
        QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, At(1));
        QTest::mouseDClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, At(1));
    }
    EXPECT_THAT(opened, ElementsAre("A:\\B.txt", "A:\\B.txt"));
}

// The menu -------------------------------------------------------------------------------------

TEST_F(FileListCtrl, ItsMenuHasItsEntries) {
    Fill(0);
    std::string entries;
    for (const QAction* action : control->m_viewMenu->actions()) {
        entries +=
            action->text().toStdString() + " " + std::to_string(action->data().toInt()) + "|";
        EXPECT_TRUE(action->isCheckable());
        EXPECT_TRUE(action->actionGroup() && action->actionGroup()->isExclusive());
    }
    EXPECT_EQ(entries, "Lar&ge Icon 1176|&Small Icon 1177|&List 1178|&Details 1179|");
    const QList<QAction*> top = control->m_popupMenu->actions();
    ASSERT_EQ(top.size(), 3);
    EXPECT_EQ(top[0]->text(), QStringLiteral("&View"));
    EXPECT_EQ(top[0]->menu(), control->m_viewMenu);
    EXPECT_TRUE(top[1]->isSeparator());
    EXPECT_EQ(top[2]->text(), QStringLiteral("&Refresh"));
    EXPECT_EQ(top[2]->data().toInt(), 1175);
}

TEST_F(FileListCtrl, TheMenuOpensBesideAllRowsOnly) {
    for (const int mode : {0, 1, 2, 3}) {
        SCOPED_TRACE(mode);
        Fill(mode);
        window.menus = 0;
        RightClick(At(1));
        EXPECT_FALSE(IsMenuOpen());
        EXPECT_EQ(window.menus, 1) << "it goes on";
        RightClick(Beside());
        EXPECT_TRUE(IsMenuOpen());
        EXPECT_EQ(window.menus, 1);
        control->m_popupMenu->close();
    }
    Fill(0);
    const QHeaderView& header = *Report().header();
    const QPoint heading(20, header.height() / 2);
    QContextMenuEvent event(QContextMenuEvent::Mouse, heading,
                            header.viewport()->mapToGlobal(heading));
    QApplication::sendEvent(header.viewport(), &event);
    EXPECT_FALSE(IsMenuOpen()) << "a heading isn't beside the rows";
}

TEST_F(FileListCtrl, TheMenuKeyOpensTheMenuInsideTheControl) {
    Fill(0);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&View(), &event);
    ASSERT_TRUE(IsMenuOpen());
    EXPECT_TRUE(window.geometry().contains(control->m_popupMenu->pos()));
    control->m_popupMenu->close();
}

TEST_F(FileListCtrl, TheEntryOfThePresentViewIsChecked) {
    const std::pair<int, const char*> rows[] = {{0, "&Details"},    {1, "&List"},
                                                {2, "&Small Icon"}, {3, "Lar&ge Icon"},
                                                {4, "&Details"},    {-1, "&Details"}};
    for (const auto& [mode, text] : rows) {
        Fill(mode);
        RightClick(Beside());
        EXPECT_EQ(Checked(), text) << mode;
        control->m_popupMenu->close();
    }
}

TEST_F(FileListCtrl, TheEntriesDoWhatTheySay) {
    using Form = k4cmn::FileNamesView::Form;
    Fill(0);
    const std::pair<int, Form> rows[] = {
        {1176, Form::LargeImages}, {1177, Form::Rows}, {1178, Form::Columns}};
    for (const auto& [command, form] : rows) {
        RightClick(Beside());
        Choose(command);
        EXPECT_FALSE(ShowsReport());
        EXPECT_EQ(NamesView().ShownForm(), form);
    }
    RightClick(Beside());
    Choose(1179);
    EXPECT_TRUE(ShowsReport());
    MakeFile("A:\\new.SQ4");
    RightClick(Beside());
    Choose(1175);
    EXPECT_EQ(control->GetItemCount(), 5);
}

// Icons ----------------------------------------------------------------------------------------

TEST_F(FileListCtrl, FilesOfOneKindHaveOneIcon) {
    Fill(0);
    EXPECT_EQ(control->GetIconIndex("A:\\a.SQ4"), control->GetIconIndex("B:\\x\\b.sq4"));
    EXPECT_NE(control->GetIconIndex("A:\\a.SQ4"), control->GetIconIndex("A:\\a.SD4"));
    const auto picture = [](const QIcon& icon) { return icon.pixmap(QSize(32, 32)).toImage(); };
    const auto shown = [&](int row) {
        return picture(View().model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>());
    };
    EXPECT_EQ(shown(0), picture(k4cmn::FileImages::OfExtension("SQ4")));
    EXPECT_EQ(shown(1), picture(k4cmn::FileImages::OfExtension("txt"))) << "no theme has it";
    EXPECT_EQ(shown(2), picture(k4cmn::FileImages::OfExtension("SD4")));
    EXPECT_EQ(shown(3), picture(k4cmn::FileImages::OfExtension("")));
    EXPECT_THAT(kinds.asked, testing::Contains("A:\\B.txt"));
    EXPECT_TRUE(control->m_smallImages->At(-1).isNull());
    EXPECT_TRUE(control->m_smallImages->At(1000).isNull());
}

// Looks ----------------------------------------------------------------------------------------

TEST_F(FileListCtrl, LooksRightWithALargeFont) {
    const FontScale scale(2.0);
    Fill(0);
    for (const int mode : {0, 1, 2, 3}) {
        control->ChangeViewMode(mode);
        const QRect place = View().visualRect(View().model()->index(1, 0));
        EXPECT_GE(place.height(), View().fontMetrics().height()) << mode;
        EXPECT_GE(place.height(), View().iconSize().height()) << mode;
        EXPECT_GT(place.width(), View().fontMetrics().horizontalAdvance(QStringLiteral("B.txt")))
            << mode;
        EXPECT_FALSE(View().accessibleName().isEmpty());
    }
}

TEST_F(FileListCtrl, PlacesDontOverlap) {
    for (const int mode : {0, 1, 2, 3}) {
        Fill(mode);
        for (int row = 1; row < 4; ++row) {
            EXPECT_FALSE(View()
                             .visualRect(View().model()->index(row, 0))
                             .intersects(View().visualRect(View().model()->index(row - 1, 0))))
                << mode;
        }
    }
}

TEST_F(FileListCtrl, TheMarkStandsWhereTheRowsAreSorted) {
    Fill(0);
    control->SortColumnEx(1);
    control->OnColumnclick(1);
    const QHeaderView& header = *Report().header();
    EXPECT_EQ(header.sortIndicatorSection(), 1);
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder);
    control->ChangeViewMode(1);
    EXPECT_EQ(Shown(), "a.SQ4|B.txt|c.sd4|d|");
    EXPECT_EQ(control->Refresh("A:", "*"), 1);
    control->ChangeViewMode(0);
    EXPECT_EQ(Shown(), "a.SQ4|B.txt|c.sd4|d|") << "nothing is sorted by showing it";
    EXPECT_EQ(header.sortIndicatorSection(), 0);
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::AscendingOrder);
    EXPECT_EQ(control->GetSortColumn(), 1) << "what was sorted last, and what Refresh() sorts by";
    EXPECT_EQ(control->GetSortAscending(), 0);
    EXPECT_EQ(control->Refresh("A:", "*"), 1);
    EXPECT_EQ(header.sortIndicatorSection(), 1);
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(FileListCtrl, ADoubleClickTellsAPathThatIsNoUtf8AsItIs) {
    home.Write("b\xFFr/a.SQ4", "x");
    const std::string folder = (home / "b\xFFr").string();
    Fill(0);
    ASSERT_EQ(control->Refresh(folder.c_str(), "SQ4"), 1);
    EXPECT_EQ(Shown(), "a.SQ4|");
    std::vector<std::string> opened;
    QObject::connect(control, &CK4CmnDlgFileListCtrl::FileDoubleClicked, control,
                     [&](const std::string& path) { opened.push_back(path); });
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, At(0));
    QTest::mouseDClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, At(0));
    EXPECT_THAT(opened, ElementsAre(folder + "\\a.SQ4"));
    EXPECT_THAT(control->GetSelectedPaths(), ElementsAre(folder + "\\a.SQ4"));
}

TEST_F(FileListCtrl, ALongNameThatIsAddedGetsItsPlace) {
    for (const int mode : {1, 2}) {
        Make(mode).InitializeListCtrl();
        QCoreApplication::processEvents();
        EXPECT_EQ(control->AddItem("A:\\d"), 0);
        QCoreApplication::processEvents();
        const int narrow = NamesView().PlaceSize().width();
        MakeFile("A:\\folder.SQ4\\A name of some length.SQ4");
        EXPECT_EQ(control->AddItem("A:\\folder.SQ4\\A name of some length.SQ4"), 0);
        QCoreApplication::processEvents();
        const int grown =
            control->fontMetrics().horizontalAdvance(QStringLiteral("A name of some length.SQ4")) -
            control->fontMetrics().horizontalAdvance(QStringLiteral("d"));
        EXPECT_EQ(NamesView().PlaceSize().width(), narrow + grown) << mode;
        EXPECT_GE(View().visualRect(View().model()->index(0, 0)).width(), narrow + grown) << mode;
    }
}

}  // namespace
}  // namespace k4test
