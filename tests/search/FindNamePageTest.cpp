#include <QGroupBox>
#include <QRadioButton>
#include <memory>

#include "k4cmndlg/search/CK4CmnDlgFindTree.h"
#include "k4cmndlg/search/PlaceTree.h"
#include "tests/search/FindPagesFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;

using FindName = FindPages;

TEST_F(FindName, IsTemplate112WithItsControls) {
    EXPECT_EQ(sheet.name.ResourceId(), 112U);
    EXPECT_EQ(sheet.name.windowTitle().toStdString(), "Name");
    EXPECT_EQ(CaptionOf(kKeywords), "&Keywords:");
    EXPECT_EQ(CaptionOf(kFileName), "&File Name:");
    EXPECT_EQ(CaptionOf(kFileType), "File &Types:");
    EXPECT_EQ(CaptionOf(kSearchPath), "Look in:");
    EXPECT_EQ(Text(kBrowse), "...");
    EXPECT_EQ(Text(kAnd), "&and ");
    EXPECT_EQ(Text(kOr), "&or ");
    EXPECT_EQ(sheet.findChild<QGroupBox*>()->title().toStdString(), "&Combine Keywords with ");
}

TEST_F(FindName, IsMadeByItsClassName) {
    EXPECT_TRUE(CK4CmnDlgFindNam::staticMetaObject.constructorCount() > 0);
    const std::unique_ptr<QObject> page(CK4CmnDlgFindNam::staticMetaObject.newInstance());
    EXPECT_NE(qobject_cast<CK4CmnDlgFindNam*>(page.get()), nullptr);
}

TEST_F(FindName, OffersTheFourFileTypes) {
    EXPECT_THAT(Entries(kFileType),
                ElementsAre("Sequences", "Schedules", "Scripts", "K3300 Seq's"));
}

TEST_F(FindName, BeginsEmptyWithSequencesAndAnd) {
    Open(kName);
    for (const int field : {kKeywords, kFileName, kSearchPath})
        EXPECT_EQ(Text(field), "") << field;
    EXPECT_EQ(Index(kFileType), 0);
    EXPECT_TRUE(Of<QRadioButton>(kAnd)->isChecked());
    EXPECT_FALSE(Of<QRadioButton>(kOr)->isChecked());
}

TEST_F(FindName, ShowsWhatItWasGivenBeforeItOpened) {
    sheet.name.m_keywords = "summer; sale";
    sheet.name.m_fileName = "a*";
    sheet.name.m_fileType = 3;
    sheet.name.m_searchPath = "C:\\Größe\\";
    sheet.name.m_keywordCombination = 1;
    Open(kName);
    EXPECT_EQ(Text(kKeywords), "summer; sale");
    EXPECT_EQ(Text(kFileName), "a*") << "showing a file type is no change of it";
    EXPECT_EQ(Index(kFileType), 3);
    EXPECT_EQ(Text(kSearchPath), "C:\\Größe\\");
    EXPECT_TRUE(Of<QRadioButton>(kOr)->isChecked());
}

TEST_F(FindName, IsReadAsItStands) {
    Open(kName);
    Of<QLineEdit>(kKeywords)->insert(QString::fromUtf8("Größe, 漢"));
    Click(sheet, kOr);
    Choose(kFileType, 1);
    Type(kFileName, "north?*");
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.name.m_keywords, "Größe, 漢");
    EXPECT_EQ(sheet.name.m_keywordCombination, 1);
    EXPECT_EQ(sheet.name.m_fileType, 1);
    EXPECT_EQ(sheet.name.m_fileName, "north?*");
    Click(sheet, kAnd);
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.name.m_keywordCombination, 0);
}

TEST_F(FindName, IsReadWhenItIsLeftAndShownWhenItComesBack) {
    Open(kName);
    Type(kKeywords, "kept");
    ClickTab(kSign);
    EXPECT_EQ(sheet.name.m_keywords, "kept");
    sheet.name.m_keywords = "new";
    ClickTab(kName);
    EXPECT_EQ(Text(kKeywords), "new");
}

// Keywords ------------------------------------------------------------------------------------

TEST_F(FindName, KeywordsTake255Characters) {
    Open(kName);
    TypeOver(sheet, kKeywords, QString(300, QLatin1Char('k')));
    EXPECT_EQ(Text(kKeywords), std::string(255, 'k'));
    Of<QLineEdit>(kKeywords)->setText(QString(255, QChar(0x00E9)));
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.name.m_keywords.size(), 510U);
}

TEST_F(FindName, LongerKeywordsAreRefusedWhenThePageIsRead) {
    sheet.name.m_keywords = std::string(256, 'k');
    messages.Expect("Enter no more than 255 characters.");
    ASSERT_EQ(sheet.Create(), 1);
    sheet.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&sheet));
    EXPECT_EQ(Text(kKeywords), std::string(256, 'k')) << "shown whole";
    Of<QWidget>(kFileName)->setFocus();
    ClickTab(kSign);
    EXPECT_EQ(sheet.GetActiveIndex(), kName);
    EXPECT_EQ(FocusedId(sheet), kKeywords);
    EXPECT_EQ(Of<QLineEdit>(kKeywords)->selectedText().size(), 256);
}

TEST_F(FindName, ASheetMayGoWithItsMessage) {
    ReadWhileItGoes(kName, kKeywords, std::string(256, 'k').c_str(),
                    "Enter no more than 255 characters.");
}

// File type -----------------------------------------------------------------------------------

TEST_F(FindName, AnotherFileTypeEmptiesTheFileName) {
    Open(kName);
    for (const int type : {1, 2, 3, 0}) {
        Type(kFileName, "name");
        Type(kKeywords, "word");
        Choose(kFileType, type);
        EXPECT_EQ(Text(kFileName), "") << type;
        EXPECT_EQ(Text(kKeywords), "word");
    }
}

TEST_F(FindName, TheSameFileTypeLeavesTheFileName) {
    Open(kName);
    Type(kFileName, "name");
    auto* types = Of<QComboBox>(kFileType);
    types->showPopup();
    QTest::keyClick(types->view(), Qt::Key_Escape);
    EXPECT_EQ(Text(kFileName), "name");
    sheet.name.m_fileName = "name";
    sheet.name.m_fileType = 2;
    EXPECT_TRUE(sheet.name.UpdateData(false));
    EXPECT_EQ(Text(kFileName), "name");
}

TEST_F(FindName, AFileTypeOutOfTheListIsNone) {
    for (const int type : {-1, 4, 1000}) {
        sheet.name.m_fileType = type;
        Open(kName);
        EXPECT_EQ(Index(kFileType), -1) << type;
        EXPECT_TRUE(sheet.ReadActivePage());
        EXPECT_EQ(sheet.name.m_fileType, -1);
        sheet.DestroyWindow();
    }
}

// The place -----------------------------------------------------------------------------------

TEST_F(FindName, ThePathCantBeTyped) {
    sheet.name.m_searchPath = "C:\\";
    Open(kName);
    EXPECT_TRUE(Of<QLineEdit>(kSearchPath)->isReadOnly());
    Type(kSearchPath, "X");
    EXPECT_EQ(Text(kSearchPath), "C:\\");
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.name.m_searchPath, "C:\\");
}

/// A page over a store with a server, a sign type and a library.
class FindNamePlace : public FindPages {
 protected:
    void SetUp() override {
        FindPages::SetUp();
        MakeFolder("C:\\16x80.Mono1.LED.Sign\\Default.Lib");
        ConfigureLocal({"C:"});
    }
    using Tree = k4cmn::PlaceTree;
    /// Runs the tree by the button, and the steps in it.
    void Browse(const std::function<void(CK4CmnDlgFindTree&, Tree&)>& steps) {
        InDialog<CK4CmnDlgFindTree>(
            [&] { Click(sheet, kBrowse); },
            [&](CK4CmnDlgFindTree& dialog) { steps(dialog, *Item<Tree>(dialog, kTree)); });
    }
    std::string Place() const {
        return sheet.name.m_server + "|" + sheet.name.m_signType + "|" + sheet.name.m_library;
    }
};

TEST_F(FindNamePlace, TheButtonPicksAPlaceAndShowsIt) {
    Open(kName);
    Type(kFileName, "typed");
    const struct {
        int depth;
        const char* place;
        const char* path;
    } rows[] = {{0, "File Servers||", "File Servers\\"},
                {1, "C:||", "C:\\"},
                {2, "C:|16x80.Mono1.LED|", "C:\\16x80.Mono1.LED.Sign\\"},
                {3, "C:|16x80.Mono1.LED|Default", "C:\\16x80.Mono1.LED.Sign\\Default.Lib\\"}};
    for (const auto& row : rows) {
        Browse([&](CK4CmnDlgFindTree& dialog, Tree& tree) {
            QTreeWidgetItem* item = tree.topLevelItem(0);
            for (int depth = 0; depth < row.depth; ++depth) {
                item->setExpanded(true);
                item = item->child(0);
            }
            tree.setCurrentItem(item);
            Click(dialog, IDOK);
        });
        EXPECT_EQ(Place(), row.place);
        EXPECT_EQ(Text(kSearchPath), row.path);
        EXPECT_EQ(sheet.name.m_searchPath, row.path);
    }
    EXPECT_EQ(Text(kFileName), "typed") << "what isn't read yet stays";
    EXPECT_EQ(sheet.name.m_fileName, "");
}

TEST_F(FindNamePlace, TheTreeOpensAtThePresentPlace) {
    sheet.name.m_server = "C:";
    sheet.name.m_signType = "16x80.Mono1.LED";
    sheet.name.m_library = "Default";
    sheet.name.m_searchPath = "as it was given";
    Open(kName);
    EXPECT_EQ(Text(kSearchPath), "as it was given");
    Browse([&](CK4CmnDlgFindTree& dialog, Tree& tree) {
        EXPECT_EQ(tree.currentItem()->text(0).toStdString(), "Default");
        Click(dialog, IDOK);
    });
    EXPECT_EQ(Text(kSearchPath), "C:\\16x80.Mono1.LED.Sign\\Default.Lib\\");
}

TEST_F(FindNamePlace, CancelLeavesThePlace) {
    sheet.name.m_server = "C:";
    sheet.name.m_searchPath = "as it was given";
    Open(kName);
    Browse([&](CK4CmnDlgFindTree& dialog, Tree& tree) {
        tree.setCurrentItem(tree.topLevelItem(0));
        Click(dialog, IDCANCEL);
    });
    EXPECT_EQ(Place(), "C:||");
    EXPECT_EQ(Text(kSearchPath), "as it was given");
}

TEST_F(FindNamePlace, OkWithoutASelectionIsNoPlace) {
    sheet.name.m_server = "C:";
    sheet.name.m_searchPath = "C:\\";
    Open(kName);
    Browse([&](CK4CmnDlgFindTree& dialog, Tree&) { Click(dialog, IDOK); });
    EXPECT_EQ(Place(), "||");
    EXPECT_EQ(Text(kSearchPath), "");
}

TEST_F(FindNamePlace, ASheetThatGoesTakesItsTreeAlong) {
    const QPointer<FindSheet> going = new FindSheet;
    ASSERT_EQ(going->Create(), 1);
    going->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(going));
    InDialog<CK4CmnDlgFindTree>([&] { Click(*going, kBrowse); },
                                [&](CK4CmnDlgFindTree&) { delete going.data(); });
    EXPECT_TRUE(going.isNull());
}

}  // namespace
}  // namespace k4test
