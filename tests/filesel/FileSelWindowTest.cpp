#include "tests/filesel/FileSelWindowFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kAllTypes[] = "Sequences|Schedules|Scripts|K3300 Seq's|DownLoad files|Palette files";

std::string EntriesOf(const QComboBox& combo) {
    QStringList entries;
    for (int i = 0; i < combo.count(); ++i)
        entries << combo.itemText(i);
    return entries.join(QLatin1Char('|')).toStdString();
}

// Opening ----------------------------------------------------------------------------------------

struct ModeRow {
    tag_K4_FILE_MODE mode;
    const char* title;
    const char* fileName;
    bool isInField;  ///< the focus
};

class EachMode : public FileSelWindow, public testing::WithParamInterface<ModeRow> {};

TEST_P(EachMode, OpensAtTheLastPlace) {
    const ModeRow& row = GetParam();
    ShowAt(At("b"), row.mode);
    EXPECT_EQ(dialog->windowTitle().toStdString(), row.title);
    EXPECT_EQ(Text(kFileName), row.fileName);
    EXPECT_EQ(The<QWidget>(kFileName)->hasFocus(), row.isInField);
    EXPECT_EQ(Rows().hasFocus(), !row.isInField);
    EXPECT_EQ(Text(kPath), Lib());
    EXPECT_EQ(SelectedItem(), "Default");
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c"));
    EXPECT_THAT(SelectedNames(), ElementsAre("b"));
}

INSTANTIATE_TEST_SUITE_P(FileSel, EachMode,
                         testing::Values(ModeRow{K4_FILE_OPEN, "Select File", "b", false},
                                         ModeRow{K4_FILE_NEW, "Select File", "", true},
                                         ModeRow{K4_FILE_SAVE_AS, "Select File", "b", true},
                                         ModeRow{K4_FILE_MANAGER, "K4File", "b", false},
                                         ModeRow{K4_FILE_PICK, "Select File", "b", false}));

TEST_F(FileSelWindow, TheConstructorsModeHasNoEffect) {
    Remember(At("b"));
    dialog = std::make_unique<CK4CmnDlgFileSel>(3UL);
    Show();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Select File"));
}

TEST_F(FileSelWindow, TheConstructorsPathIsThePlace) {
    Remember(At("b"));
    dialog = std::make_unique<CK4CmnDlgFileSel>(0UL, (Lib("Other") + "o.SQ4").c_str());
    Show();
    EXPECT_EQ(Text(kPath), Lib("Other"));
    EXPECT_EQ(Text(kFileName), "o");
}

TEST_F(FileSelWindow, TheConstructorsPathIsDroppedWithoutALastPlace) {
    dialog = std::make_unique<CK4CmnDlgFileSel>(0UL, (Lib("Other") + "o.SQ4").c_str());
    Show();
    EXPECT_EQ(Text(kPath), "");
    EXPECT_EQ(SelectedItem(), "");
    EXPECT_TRUE(Tree().hasFocus());
}

TEST_F(FileSelWindow, SetPathIsThePlaceAlsoWithoutALastOne) {
    New().SetPath(Lib("Other") + "o.SQ4");
    Show();
    EXPECT_EQ(Text(kPath), Lib("Other"));
    EXPECT_THAT(SelectedNames(), ElementsAre("o"));
}

TEST_F(FileSelWindow, ASecondRunBeginsAsTheTemplateSays) {
    Remember(At("b"));
    New(K4_FILE_MANAGER).SetType(K4_FILE_TYPE_SCRIPT);
    Show();
    Press(kListView);
    EXPECT_EQ(EntriesOf(*The<QComboBox>(kFileTypes)), "Scripts");
    dialog->DestroyWindow();
    dialog->SetMode(K4_FILE_OPEN);
    dialog->SetType(K4_FILE_TYPE_ALL);
    Show();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Select File"));
    EXPECT_EQ(EntriesOf(*The<QComboBox>(kFileTypes)), kAllTypes);
    EXPECT_TRUE(IsPressed(kDetails));
    EXPECT_TRUE(List().ShowsDetails());
}

// Controls ---------------------------------------------------------------------------------------

TEST_F(FileSelWindow, HasItsTextsAndToolTips) {
    ShowAt(At());
    EXPECT_EQ(Text(1082), "Path:");
    EXPECT_EQ(Text(1083), "File &Name:");
    EXPECT_EQ(Text(1084), "File &Types:");
    EXPECT_EQ(Text(1085), "Last &Modified:");
    EXPECT_EQ(Text(IDOK), "O&K");
    EXPECT_EQ(Text(IDCANCEL), "&Cancel");
    const std::pair<int, const char*> tips[] = {{kUp, "Up One Level"},
                                                {kListView, "List"},
                                                {kDetails, "Details"},
                                                {kSignFilter, "Show Only Current Sign Type"},
                                                {kProperties, "Properties"}};
    for (const auto& [id, tip] : tips) {
        EXPECT_EQ(The<QWidget>(id)->toolTip().toStdString(), tip);
        EXPECT_EQ(The<QWidget>(id)->accessibleName().toStdString(), tip);
        EXPECT_FALSE(The<QToolButton>(id)->icon().isNull()) << tip;
    }
    EXPECT_TRUE(The<QLineEdit>(kPath)->isReadOnly());
    EXPECT_EQ(EntriesOf(*The<QComboBox>(kFileTypes)), kAllTypes);
    EXPECT_EQ(EntriesOf(*The<QComboBox>(kLastModified)),
              "today|last 7 days|last month|this month|any time");
    EXPECT_EQ(The<QComboBox>(kLastModified)->currentText(), QStringLiteral("any time"));
    EXPECT_TRUE(IsPressed(kDetails));
    EXPECT_FALSE(IsPressed(kListView));
    EXPECT_FALSE(IsPressed(kSignFilter));
    EXPECT_FALSE(IsPressed(kProperties));
}

struct TypeRow {
    int type;
    const char* entries;
    int index;
};

class EachType : public FileSelWindow, public testing::WithParamInterface<TypeRow> {};

TEST_P(EachType, OffersItsPluralNames) {
    Remember(At());
    New().SetType(static_cast<tag_K4_FILE_TYPE>(GetParam().type));
    Show();
    EXPECT_EQ(EntriesOf(*The<QComboBox>(kFileTypes)), GetParam().entries);
    EXPECT_EQ(The<QComboBox>(kFileTypes)->currentIndex(), GetParam().index);
}

INSTANTIATE_TEST_SUITE_P(FileSel, EachType,
                         testing::Values(TypeRow{0, "Sequences", 0}, TypeRow{1, "Schedules", 0},
                                         TypeRow{2, "Scripts", 0}, TypeRow{3, "K3300 Seq's", 0},
                                         TypeRow{4, "DownLoad files", 0},
                                         TypeRow{5, "Palette files", 0},
                                         TypeRow{6, "Sequences|Palette files", 0},
                                         TypeRow{7, kAllTypes, 0}, TypeRow{8, kAllTypes, 0},
                                         TypeRow{9, "Sequences|AVIs", 0},
                                         TypeRow{42, kAllTypes, 0}));

TEST_F(FileSelWindow, TypeAllComesBackToTheKeptExtension) {
    MakeFile(Lib() + "plan.SD4");
    ShowAt(At("plan", "SD4"));
    EXPECT_EQ(The<QComboBox>(kFileTypes)->currentText(), QStringLiteral("Schedules"));
    EXPECT_THAT(RowNames(), ElementsAre("plan"));
}

TEST_F(FileSelWindow, AKeptVideoSelectsNoTypeAndShowsNothingUntilOneIsChosen) {
    ShowAt(At("film", "AVI"));
    EXPECT_EQ(The<QComboBox>(kFileTypes)->currentIndex(), -1);
    EXPECT_THAT(RowNames(), IsEmpty());
    Choose(kFileTypes, "Sequences");
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c"));
}

// The filter of sign types -----------------------------------------------------------------------

TEST_F(FileSelWindow, TheFilterButtonKeepsTheSelectedSignType) {
    ShowAt(At("b"));
    Press(kSignFilter);
    EXPECT_TRUE(IsPressed(kSignFilter));
    EXPECT_FALSE(Below(ItemAt({"A:"}), kOtherType).isValid());
    EXPECT_EQ(SelectedItem(), "Default");
    Press(kSignFilter);
    EXPECT_FALSE(IsPressed(kSignFilter));
    EXPECT_TRUE(Below(ItemAt({"A:"}), kOtherType).isValid());
}

TEST_F(FileSelWindow, TheFilterButtonComesBackOutWhereNoSignTypeIsSelected) {
    ShowAt(At());
    ClickItem({"A:"});
    Press(kSignFilter);
    EXPECT_FALSE(IsPressed(kSignFilter));
}

TEST_F(FileSelWindow, TheFilterIsOnFromTheStartWhereItIsAskedFor) {
    Remember(At("b"));
    New().SetShowSignDirOnly(1);
    Show();
    EXPECT_TRUE(IsPressed(kSignFilter));
    EXPECT_FALSE(Below(ItemAt({"A:"}), kOtherType).isValid());
}

TEST_F(FileSelWindow, SignParamsThatBreakRulesAreToldOneByOne) {
    New();
    messages.Expect("Invalid number of rows.\n");
    messages.Expect("Number of rows must be 7 or a multiple of 8.\n");
    EXPECT_EQ(dialog->SetSignParams(6, 16, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0), 0);
    EXPECT_EQ(dialog->SetSignParams(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0), 1);
    dialog->SetShowSignDirOnly(1);
    Show();
    EXPECT_TRUE(IsPressed(kSignFilter));
    EXPECT_FALSE(Below(ItemAt({"A:"}), kOtherType).isValid());
}

TEST_F(FileSelWindow, SignParamsThatWereLetThroughAreToldOnOpening) {
    New();
    ASSERT_EQ(dialog->SetSignParams(16, 17, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0), 1)
        << "the columns stored so far are looked at";
    dialog->SetShowSignDirOnly(1);
    messages.Expect("Number of columns must be a multiple of 8.\n");
    Show();
    EXPECT_FALSE(IsPressed(kSignFilter));
}

TEST_F(FileSelWindow, SetDialogModeDoesNothing) {
    Remember(At("b"));
    New().SetDialogMode(3);
    Show();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Select File"));
}

// The tree ---------------------------------------------------------------------------------------

TEST_F(FileSelWindow, TheListFollowsTheTree) {
    ShowAt(At("b"));
    ClickItem({"A:", kType, "Other"});
    EXPECT_THAT(RowNames(), ElementsAre("o"));
    EXPECT_EQ(Text(kPath), Lib("Other"));
    ClickItem({"A:", kType});
    EXPECT_THAT(RowNames(), IsEmpty());
    EXPECT_EQ(Text(kPath), Sign(kType));
    ClickItem({"B:"});
    EXPECT_EQ(Text(kPath), "B:\\");
    ClickItem({"B:", "No signs"});
    EXPECT_EQ(Text(kPath), "B:\\");
}

TEST_F(FileSelWindow, UpSelectsTheItemAbove) {
    ShowAt(At("b"));
    for (const char* item : {kType, "A:", "A:"}) {
        Press(kUp);
        EXPECT_EQ(SelectedItem().substr(0, std::string(item).size()), item);
    }
    EXPECT_EQ(Text(kPath), "A:\\");
}

TEST_F(FileSelWindow, KeysGoUpFromTreeAndListAndFromEverywhere) {
    ShowAt(At("b"));
    KeyInTree(Qt::Key_Backspace);
    EXPECT_EQ(SelectedItem().substr(0, 5), std::string(kType).substr(0, 5));
    KeyInList(Qt::Key_Backspace);
    EXPECT_EQ(SelectedItem(), "A:");
    ClickItem({"A:", kType, "Other"});
    The<QWidget>(kFileName)->setFocus();
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Up, Qt::AltModifier);
    Settle();
    EXPECT_EQ(SelectedItem().substr(0, 5), std::string(kType).substr(0, 5));
}

TEST_F(FileSelWindow, BackspaceInTheFieldTakesALetter) {
    ShowAt(At("b"));
    Type("abc");
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Backspace);
    Settle();
    EXPECT_EQ(Text(kFileName), "ab");
    EXPECT_EQ(SelectedItem(), "Default");
}

TEST_F(FileSelWindow, TheTreeTakingTheFocusFillsTheListAnew) {
    ShowAt(At("b"));
    MakeFile(Lib() + "d.SQ4");
    List().setFocus();
    Tree().setFocus();
    Settle();
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(SelectedNames(), ElementsAre("b"));
}

// Messages ---------------------------------------------------------------------------------------

TEST_F(FileSelWindow, MessagesFillTheListAndTakeOverTheRow) {
    ShowAt(At("b"));
    MakeFile(Lib() + "d.SQ4");
    k4cmn::PostWindowMessage(dialog.get(), 1034);
    Settle();
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c", "d"));
    Type("other");
    k4cmn::PostWindowMessage(dialog.get(), 1035);
    Settle();
    EXPECT_EQ(Text(kFileName), "b");
    EXPECT_EQ(k4cmn::SendWindowMessage(dialog.get(), 1034), 1);
    EXPECT_EQ(k4cmn::SendWindowMessage(dialog.get(), 1035), 1);
}

TEST_F(FileSelWindow, MessagesWithoutAWindowDoNothing) {
    New();
    EXPECT_EQ(k4cmn::SendWindowMessage(dialog.get(), 1034), 0);
    EXPECT_EQ(k4cmn::SendWindowMessage(dialog.get(), 1035), 0);
    EXPECT_EQ(k4cmn::SendWindowMessage(dialog.get(), 0x111, 1009), 0);
    EXPECT_EQ(OpenMenu(), nullptr);
    EXPECT_EQ(dialog->ShowFilesList(), 0);
    EXPECT_EQ(dialog->GetListFile(), 0);
}

TEST_F(FileSelWindow, TheOperationsTellHowTheyWent) {
    ShowAt(At("b"));
    EXPECT_EQ(dialog->ShowFilesList(), 1);
    EXPECT_EQ(dialog->GetListFile(), 1);
    ClickItem({"A:"});
    EXPECT_EQ(dialog->ShowFilesList(), 0);
    EXPECT_EQ(dialog->GetListFile(), 0);
}

TEST_F(FileSelWindow, F5FillsTheListAnew) {
    ShowAt(At("b"));
    MakeFile(Lib() + "d.SQ4");
    The<QWidget>(kFileName)->setFocus();
    QTest::keyClick(dialog->windowHandle(), Qt::Key_F5);
    Settle();
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c", "d"));
}

}  // namespace
}  // namespace k4test
