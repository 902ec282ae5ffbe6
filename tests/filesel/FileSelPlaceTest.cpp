#include <gmock/gmock.h>

#include <tuple>

#include "k4cmndlg/filesel/SplitterBand.h"
#include "tests/filesel/SelectorFixture.h"
#include "tests/filesel/TreeText.h"
#include "tests/support/RecordingRSRpc.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

const std::string kType = k4test::kType;
const std::string kOther = k4test::kOtherType;
const std::string kLib = "A:\\" + kType + ".Sign\\Default.Lib\\";

class FileSelPlace : public k4test::SelectorFixture {
 protected:
    void SetUp() override {
        SelectorFixture::SetUp();
        for (const char* name : {"b.SQ4", "a.SQ4", "c.SD4", "p.SP4"})
            MakeFile(kLib + name);
        MakeFile("A:\\" + kOther + ".Sign\\Default.Lib\\z.SQ4");
        MakeFile("A:\\" + kType + ".Palette.Sign\\Default.Lib\\p.SP4");
        MakeFile("A:\\run.SC4");
        OpenAt({"A:", kType, "Default", "", "SQ4"});
    }
};

// GetTreeSelections ----------------------------------------------------------------------------

TEST_F(FileSelPlace, TheLevelSaysWhatTheSelectedItemIs) {
    Select(Library("A:", kType, "Default"));
    EXPECT_EQ(selector->GetTreeSelections(), 1);
    EXPECT_EQ(selector->Place(), (FileLocation{"A:", kType, "Default", "", "SQ4"}));
    EXPECT_EQ(view.path, kLib);
    Select(SignType("A:", kOther));
    EXPECT_EQ(selector->GetTreeSelections(), 0);
    EXPECT_EQ(selector->Place(), (FileLocation{"A:", kOther, "", "", "SQ4"}));
    EXPECT_EQ(view.path, "A:\\" + kOther + ".Sign\\");
    Select(Server("B:"));
    EXPECT_EQ(selector->GetTreeSelections(), 0);
    EXPECT_EQ(selector->Place(), (FileLocation{"B:", "", "", "", "SQ4"}));
    EXPECT_EQ(view.path, "B:\\");
    Select(Server("A:"));
    selector->Tree().Select(nullptr);
    EXPECT_EQ(selector->GetTreeSelections(), 0);
    EXPECT_EQ(selector->Place(), (FileLocation{"", "", "", "", "SQ4"}));
    EXPECT_EQ(view.path, "A:\\") << "the field isn't touched";
}

TEST_F(FileSelPlace, ScriptsNeedNoMoreThanAServer) {
    view.typeIndex = 2;
    selector->FileTypeChanged();
    EXPECT_EQ(selector->Tree().Selected(), Server("A:"));
    EXPECT_EQ(selector->GetTreeSelections(), 1);
    EXPECT_THAT(Names(), ElementsAre("run"));
    Select(SignType("A:", kType));
    EXPECT_EQ(selector->GetTreeSelections(), 1);
    EXPECT_THAT(Names(), ElementsAre()) << "they are listed at the server alone";
}

TEST_F(FileSelPlace, NoticesAreTakenAsTexts) {
    fs::remove_all(home / "drives/B");
    selector->Tree().Expand(*Server("B:"));
    Select(Server("B:")->Children()[0].get());
    EXPECT_EQ(selector->Place(), (FileLocation{"B:", "No", "", "", "SQ4"}));
    EXPECT_EQ(view.path, "B:\\") << "\"No signs\" counts as no sign type";

    MakeFolder("B:\\" + kType + ".Sign");
    k4cmn::FileTreeItem* type = SignType("B:", kType);
    selector->Tree().Expand(*type);
    Select(type->Children()[0].get());
    EXPECT_EQ(selector->Place(), (FileLocation{"B:", kType, "No Libraries", "", "SQ4"}));
    EXPECT_EQ(selector->ShowFilesList(), 1);
    EXPECT_THAT(Names(), ElementsAre());

    ConfigureLocal({});
    selector->FillTreeListCtrls("", "", "", "");
    Select(selector->Tree().Root().Children()[0].get());
    EXPECT_EQ(selector->Place().server, "No Servers");
    EXPECT_EQ(view.path, "No Servers\\");
}

TEST_F(FileSelPlace, TheSignTypeComesWithoutTheSignsBehindIt) {
    ConfigureLocal({"A:"}, {Sign("Main Board", 16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED)});
    selector->FillTreeListCtrls("a:", kType, "default", "");
    EXPECT_EQ(selector->Tree().Selected()->Parent()->Text(), kType + " , (Main Board)");
    EXPECT_EQ(selector->Place(), (FileLocation{"A:", kType, "Default", "", "SQ4"}));
}

// FillTreeListCtrls ----------------------------------------------------------------------------

TEST_F(FileSelPlace, RestoringGoesAsFarAsItFindsThePlace) {
    selector->FillTreeListCtrls("Q:", kType, "Default", "");
    EXPECT_EQ(selector->Tree().Selected(), nullptr);
    EXPECT_EQ(k4test::TreeText(selector->Tree().Root()), "1:A:\n 2:\n1:B:\n 2:\n");
    EXPECT_THAT(Names(), ElementsAre());
    selector->FillTreeListCtrls("A:", "1.2.3", "Default", "");
    EXPECT_TRUE(Server("A:")->IsExpanded());
    EXPECT_EQ(selector->Tree().Selected(), nullptr);
    selector->FillTreeListCtrls("A:", kType, "none", "");
    EXPECT_TRUE(k4cmn::FileTree::FindSignType(*Server("A:"), kType)->IsExpanded());
    EXPECT_EQ(selector->Tree().Selected(), nullptr);
    selector->FillTreeListCtrls("A:", kType, "Default", "b");
    EXPECT_EQ(selector->Tree().Selected()->Text(), "Default");
    EXPECT_THAT(Names(), ElementsAre("a", "b"));
    EXPECT_THAT(view.selected, ElementsAre(1u));
    EXPECT_EQ(view.name, "b");
    selector->FillTreeListCtrls("A:", kType, "Default", "B");
    EXPECT_EQ(view.name, "b") << "a row is looked for in exact case; the field stays";
}

TEST_F(FileSelPlace, AProgramsOpeningFillsAndSortsLikeAPersons) {
    for (const char* library : {"zeta", "Beta", "alpha"})
        MakeFolder("A:\\" + kType + ".Sign\\" + library + ".Lib");
    selector->FillTreeListCtrls("A:", kType, "Default", "");
    EXPECT_EQ(k4test::TreeText(*k4cmn::FileTree::FindSignType(*Server("A:"), kType)),
              "3:alpha\n3:Beta\n3:Default\n3:zeta\n");
}

TEST_F(FileSelPlace, ServersBehindConnectedPhoneBookEntriesComeAndGoWithTheirLinks) {
    Configure({{"Local", "", {"A:"}, {}}, {"Far", "Hilltop", {"B:"}, {}}});
    MakeFile("B:\\" + kType + ".Sign\\Default.Lib\\far.SQ4");
    k4test::RecordingRSRpc service;
    const k4cmn::ScopedProvider<K4rsRpc> use(service);
    selector->FillTreeListCtrls("B:", kType, "Default", "");
    EXPECT_EQ(Server("B:"), nullptr);
    service.replies["k4rsListConnectedPhoneEntries"] = {"Hilltop\n"};
    selector->FillTreeListCtrls("B:", kType, "Default", "");
    EXPECT_THAT(Names(), ElementsAre("far"));
    service.replies.clear();
    selector->FillTreeListCtrls("B:", kType, "Default", "");
    EXPECT_EQ(Server("B:"), nullptr);
    EXPECT_EQ(selector->Tree().Selected(), nullptr);
    EXPECT_THAT(Names(), ElementsAre());
    EXPECT_EQ(service.calls.back(), "k4rsDisconnect()");
}

TEST_F(FileSelPlace, ForScriptsThePathFieldEndsWithTheFormOfALibrary) {
    view.typeIndex = 2;
    view.name = "run";
    selector->FileTypeChanged();
    selector->FillTreeListCtrls("A:", "", "", "run");
    EXPECT_EQ(view.path, "A:\\.Sign\\.Lib\\");
    EXPECT_EQ(selector->GetTreeSelections(), 1);
    EXPECT_EQ(view.path, "A:\\");
}

TEST_F(FileSelPlace, APlaceThatIsFoundInPartsShowsWhatIsSelected) {
    Select(Server("A:"));
    for (const auto& [server, type, library] : {std::tuple{"Q:", kType.c_str(), "Default"},
                                                {"A:", "9.9.9", "Default"},
                                                {"A:", kType.c_str(), "none"}}) {
        selector->FillTreeListCtrls(server, type, library, "");
        EXPECT_EQ(view.path, "A:\\") << "nothing is selected, and the field isn't touched";
        EXPECT_EQ(selector->Place().server, "");
    }
    view.name = "a";
    selector->FillTreeListCtrls("a:", kType, "DEFAULT", "a");
    EXPECT_EQ(view.path, kLib) << "in the spelling of the disk";
}

TEST_F(FileSelPlace, NoServersIsShownInThePathField) {
    ConfigureLocal({});
    selector->FillTreeListCtrls("No Servers", "", "", "");
    EXPECT_EQ(selector->Tree().Selected(), nullptr) << "a notice can't be opened";
    Select(selector->Tree().Root().Children()[0].get());
    EXPECT_EQ(view.path, "No Servers\\");
}

// Up and the toggle ----------------------------------------------------------------------------

TEST_F(FileSelPlace, UpMarksTheItemAboveUntilTheSelectionIsReadAgain) {
    Select(Library("A:", kType, "Default"));
    EXPECT_THAT(Names(), ElementsAre("a", "b"));
    selector->UpOneLevel();
    EXPECT_EQ(selector->Tree().Selected()->Text(), kType);
    EXPECT_EQ(selector->Tree().Marked(), selector->Tree().Selected());
    EXPECT_THAT(Names(), ElementsAre()) << "also without its earlier rows";
    selector->GetTreeSelections();
    EXPECT_EQ(selector->Tree().Marked(), nullptr);
}

TEST_F(FileSelPlace, TheToggleKeepsTheSelectedSignType) {
    Select(Library("A:", kType, "Default"));
    selector->ToggleSignFilter();
    EXPECT_TRUE(view.filter);
    EXPECT_EQ(Server("A:")->Children().size(), 1u);
    EXPECT_EQ(selector->Place().library, "Default") << "the place is restored";
    selector->ToggleSignFilter();
    EXPECT_FALSE(view.filter);
    EXPECT_EQ(Server("A:")->Children().size(), 2u);
}

TEST_F(FileSelPlace, TheToggleStaysOffWithoutASignType) {
    Select(Server("A:"));
    selector->ToggleSignFilter();
    EXPECT_FALSE(view.filter);
    fs::remove_all(home / "drives/B");
    selector->Tree().Expand(*Server("B:"));
    Select(Server("B:")->Children()[0].get());
    selector->ToggleSignFilter();
    EXPECT_FALSE(view.filter) << "\"No signs\" counts as none";
}

TEST_F(FileSelPlace, ForAServerWithoutTheSignTypeTheFilterLeavesANotice) {
    Select(Library("A:", kType, "Default"));
    selector->ToggleSignFilter();
    MakeFolder("B:\\" + kOther + ".Sign");
    selector->Tree().Expand(*Server("B:"));
    EXPECT_EQ(k4test::TreeText(*Server("B:")), "0:No signs\n");
}

// The list -------------------------------------------------------------------------------------

TEST_F(FileSelPlace, ListingNeedsAWholePlaceAndFieldsThatCanBeRead) {
    Select(Library("A:", kType, "Default"));
    EXPECT_EQ(selector->ShowFilesList(), 1);
    EXPECT_EQ(selector->Rows().Text(0, 2), "K4400 Seq");
    EXPECT_EQ(selector->Rows().Image(), 4);
    view.name = std::string(33, 'x');
    EXPECT_EQ(selector->ShowFilesList(), 0);
    EXPECT_EQ(view.refused, 1);
    EXPECT_THAT(Names(), ElementsAre());
    view.name = std::string(32, 'x');
    EXPECT_EQ(selector->ShowFilesList(), 1);
    view.typeIndex = -1;
    EXPECT_EQ(selector->ShowFilesList(), 0);
    EXPECT_THAT(Names(), ElementsAre());
}

TEST_F(FileSelPlace, TheTypesNameIsThatOfTheShownText) {
    view.types[0] = "Something else";
    Select(Library("A:", kType, "Default"));
    EXPECT_EQ(selector->Rows().Text(0, 2), "Unknown");
    view.typeIndex = 1;
    selector->FileTypeChanged();
    EXPECT_EQ(selector->Rows().Text(0, 2), "K4400 Sched");
    EXPECT_EQ(selector->Rows().Image(), 5);
}

TEST_F(FileSelPlace, LastModifiedIsSeenFromNow) {
    MakeFile(kLib + "old.SQ4", "x", kNow - 6 * 86400);
    MakeFile(kLib + "new.SQ4", "x", kNow - 6 * 86400 + 1);
    Select(Library("A:", kType, "Default"));
    view.lastModified = 1;
    selector->ShowFilesList();
    EXPECT_EQ(selector->Rows().Find("old"), std::nullopt);
    EXPECT_NE(selector->Rows().Find("new"), std::nullopt);
}

TEST_F(FileSelPlace, ARowIsTakenOverAsFile) {
    Select(Library("A:", kType, "Default"));
    const int before = view.taken;
    SelectRows({"b", "a"});
    EXPECT_EQ(view.name, "a") << "the first selected row";
    EXPECT_EQ(view.taken, before + 1);
    EXPECT_EQ(selector->FileWithExtension(), "a.SQ4");
    view.selected.clear();
    EXPECT_EQ(selector->GetListFile(), 0);
    EXPECT_EQ(view.name, "");
    EXPECT_EQ(selector->Place().file, "");
    view.selected = {99};
    EXPECT_EQ(selector->GetListFile(), 0) << "a row that isn't there";
}

TEST_F(FileSelPlace, ColumnsSortBothWaysBeginningDownwards) {
    MakeFile(kLib + "c.SQ4", "x", kNow);
    Select(Library("A:", kType, "Default"));
    EXPECT_THAT(Names(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(selector->SortAscending(), 1);
    selector->ClickColumn(3);
    EXPECT_THAT(Names(), ElementsAre("c", "b", "a")) << "the first click reverses the names";
    EXPECT_EQ(selector->SortAscending(), 0);
    selector->ClickColumn(0);
    EXPECT_THAT(Names(), ElementsAre("a", "b", "c"));
}

TEST_F(FileSelPlace, PalettesHaveTheirOwnSignTypes) {
    view.typeIndex = 5;
    selector->FileTypeChanged();
    EXPECT_TRUE(selector->Tree().filter.palettes);
    Select(Library("A:", kType + ".Palette", "Default"));
    EXPECT_THAT(Names(), ElementsAre("p"));
    view.typeIndex = 0;
    selector->FileTypeChanged();
    EXPECT_FALSE(selector->Tree().filter.palettes);
}

TEST_F(FileSelPlace, AnotherTypeWithANameThatIsTooLongEmptiesTheList) {
    Select(Library("A:", kType, "Default"));
    view.name = std::string(33, 'x');
    view.typeIndex = 1;
    selector->FileTypeChanged();
    EXPECT_THAT(Names(), ElementsAre());
    EXPECT_EQ(view.refused, 1) << "the person is told once";
}

struct NameCase {
    const char* typed;
    int result;
    const char* file;
};

class FileSelName : public FileSelPlace, public testing::WithParamInterface<NameCase> {};

TEST_P(FileSelName, IsTakenOverIfItMayBe) {
    view.name = GetParam().typed;
    EXPECT_EQ(selector->GetFileSelection(), GetParam().result);
    EXPECT_EQ(selector->Place().file, GetParam().file);
    EXPECT_EQ(selector->FileWithExtension(),
              GetParam().result ? std::string(GetParam().file) + ".SQ4" : "");
}

INSTANTIATE_TEST_SUITE_P(Names, FileSelName,
                         testing::Values(NameCase{"a", 1, "a"}, NameCase{"a b \t ", 1, "a b"},
                                         NameCase{"  ", 0, ""}, NameCase{"", 0, ""},
                                         NameCase{"a#", 0, "a#"}, NameCase{"a%", 0, "a%"},
                                         NameCase{"a;", 0, "a;"}, NameCase{"a/b", 0, "a/b"},
                                         NameCase{"a\\b", 0, "a\\b"}, NameCase{"a:*?", 1, "a:*?"},
                                         NameCase{"---", 1, "---"}));

// Splitter -------------------------------------------------------------------------------------

TEST(Splitter, BandLiesBetweenTreeAndList) {
    k4cmn::SplitterBand band{10, 100, 20, 200, 103, 400};
    EXPECT_TRUE(band.Holds(100, 20));
    EXPECT_TRUE(band.Holds(103, 200));
    EXPECT_FALSE(band.Holds(99, 50));
    EXPECT_FALSE(band.Holds(104, 50));
    EXPECT_FALSE(band.Holds(101, 19));
    EXPECT_FALSE(band.Holds(101, 201));
}

TEST(Splitter, EdgeIsHeldInsideItsLimits) {
    k4cmn::SplitterBand band{10, 100, 20, 200, 103, 400};
    EXPECT_EQ(band.EdgeAt(200), 200);
    EXPECT_FALSE(band.EndsAt(200));
    EXPECT_EQ(band.EdgeAt(0), 25);
    EXPECT_TRUE(band.EndsAt(25));
    EXPECT_FALSE(band.EndsAt(26));
    EXPECT_EQ(band.EdgeAt(399), 385);
    EXPECT_TRUE(band.EndsAt(385));
    band.Adjust(150);
    EXPECT_EQ(band.treeRight, 150);
    EXPECT_EQ(band.listLeft, 153);
    EXPECT_EQ(band.listRight, 400);
    band.Adjust(0);
    EXPECT_EQ(band.treeRight, 150);
}

}  // namespace
