#include <gmock/gmock.h>

#include "tests/filesel/SelectorFixture.h"
#include "tests/filesel/TreeText.h"

namespace {

using k4cmn::FileSelector;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

const std::string kType = k4test::kType;
const std::string kLib = "A:\\" + kType + ".Sign\\Default.Lib\\";

class FileSelOpening : public k4test::SelectorFixture {
 protected:
    void SetUp() override {
        SelectorFixture::SetUp();
        for (const char* name : {"one.SQ4", "two.SQ4", "plan.SD4", "pal.SP4", "clip.AVI"})
            MakeFile(kLib + name);
        MakeFile("A:\\run.SC4");
        MakeFile("A:\\" + kType + ".Palette.Sign\\Default.Lib\\pal.SP4");
    }
};

// The last place -------------------------------------------------------------------------------

TEST_F(FileSelOpening, RestoresTheLastPlace) {
    Remember({"A:", kType, "Default", "two", "SQ4"});
    Make();
    EXPECT_EQ(selector->RequestedPath(), kLib + "two.SQ4");
    Open();
    EXPECT_EQ(selector->Place(), (FileLocation{"A:", kType, "Default", "two", "SQ4"}));
    EXPECT_THAT(Names(), ElementsAre("one", "two"));
    EXPECT_THAT(view.selected, ElementsAre(1u));
    EXPECT_EQ(view.name, "two");
    EXPECT_EQ(view.path, kLib);
    EXPECT_EQ(view.typeIndex, 0);
    EXPECT_EQ(view.lastModified, k4cmn::kAnyTime);
    EXPECT_EQ(view.types.size(), 6u);
    EXPECT_EQ(selector->Extensions(), (Texts{"SQ4", "SD4", "SC4", "SEQ", "DL4", "SP4", "AVI"}));
    EXPECT_EQ(selector->FileWithExtension(), "two.SQ4");
}

TEST_F(FileSelOpening, WithoutTheKeyTheGivenPathIsDropped) {
    Make((kLib + "two.SQ4").c_str());
    EXPECT_EQ(selector->RequestedPath(), "");
    Make();
    EXPECT_EQ(selector->RequestedPath(), "");
    Open();
    EXPECT_THAT(Names(), ElementsAre());
    EXPECT_EQ(k4test::TreeText(selector->Tree().Root()), "1:A:\n 2:\n1:B:\n 2:\n");
}

TEST_F(FileSelOpening, TheGivenPathComesInPlaceOfTheLast) {
    Remember({"B:", kType, "Default", "two", "SQ4"});
    Make((kLib + "plan.SD4").c_str());
    EXPECT_EQ(selector->Place(), FileLocation()) << "the five values aren't read";
    Open();
    EXPECT_EQ(selector->Place(), (FileLocation{"A:", kType, "Default", "plan", "SD4"}));
    EXPECT_THAT(Names(), ElementsAre("plan"));
    EXPECT_EQ(view.typeIndex, 1);
}

TEST_F(FileSelOpening, APathIsComposedOfEmptyValuesToo) {
    Remember({});
    EXPECT_EQ(Make().RequestedPath(), "\\.Sign\\.Lib\\.");
    Open();
    EXPECT_EQ(selector->Place(), FileLocation());
}

TEST_F(FileSelOpening, LongerTextsThanItsBuffersArentRead) {
    Remember({std::string(260, 's'), std::string(261, 't'), "L", "f", "SQ4"});
    EXPECT_EQ(Make().RequestedPath(), std::string(260, 's') + "\\.Sign\\L.Lib\\f.SQ4");
}

TEST_F(FileSelOpening, SetPathReplacesWhatCameFromTheRegistry) {
    Remember({"B:", kType, "Default", "two", "SQ4"});
    Make().SetPath(kLib + "one.SQ4");
    Open();
    EXPECT_EQ(selector->Place().file, "one");
}

TEST_F(FileSelOpening, AServerAloneEmptiesTheOtherFields) {
    Remember({"B:", kType, "Default", "two", "SQ4"});
    Make().SetPath("A:\\x");
    Open();
    EXPECT_EQ(selector->Place().server, "");
    EXPECT_EQ(view.name, "");
}

TEST_F(FileSelOpening, TheTreesRightEdgeIsReadAndKept) {
    Make();
    EXPECT_EQ(selector->TreeRightEdge(), 0u);
    selector->SetTreeRightEdge(321);
    selector->SaveTreeRightEdge();
    EXPECT_EQ(Make().TreeRightEdge(), 321u);
    EXPECT_EQ(Make("A:\\x").TreeRightEdge(), 321u);
}

TEST_F(FileSelOpening, ThePathIsTakenApartWithTheExtensionsOfThatMoment) {
    Remember({});
    // Before the first opening palettes aren't among them.
    const std::string type = kType + ".Palette";
    Make().SetPath("A:\\" + type + ".Sign\\Default.Lib\\pal.SP4");
    Open();
    EXPECT_EQ(selector->Place().file, "");
    EXPECT_EQ(view.typeIndex, 0);
    // From the second on they are.
    Open();
    EXPECT_EQ(view.typeIndex, 5);
    EXPECT_EQ(selector->Place(), (FileLocation{"A:", type, "Default", "pal", "SP4"}));
}

// Modes ----------------------------------------------------------------------------------------

TEST_F(FileSelOpening, TheModeIsTheRequestedOne) {
    Remember({"A:", kType, "Default", "two", "SQ4"});
    for (const auto mode :
         {K4_FILE_OPEN, K4_FILE_NEW, K4_FILE_SAVE_AS, K4_FILE_MANAGER, K4_FILE_PICK}) {
        Make().SetMode(mode);
        EXPECT_EQ(selector->Mode(), K4_FILE_OPEN);
        Open();
        EXPECT_EQ(selector->Mode(), mode);
        EXPECT_EQ(view.title, mode == K4_FILE_MANAGER ? "K4File" : "Select File");
        EXPECT_EQ(view.name, mode == K4_FILE_NEW ? "" : "two");
    }
}

// Types ----------------------------------------------------------------------------------------

struct TypeCase {
    int type;
    Texts extensions;
    Texts shown;
    int index;
    const char* extension;
};

class FileSelType : public FileSelOpening, public testing::WithParamInterface<TypeCase> {};

TEST_P(FileSelType, RebuildsExtensionsAndNames) {
    Remember({});
    Make().SetType(static_cast<tag_K4_FILE_TYPE>(GetParam().type));
    view.types = {"kept"};
    Open();
    EXPECT_EQ(selector->Extensions(), GetParam().extensions);
    EXPECT_EQ(view.types, GetParam().shown);
    EXPECT_EQ(view.typeIndex, GetParam().index);
    EXPECT_EQ(selector->GetExtSelection(), *GetParam().extension ? 1 : 0);
    EXPECT_EQ(selector->Place().fileExtension, GetParam().extension);
    EXPECT_EQ(selector->Tree().filter.palettes, GetParam().type == 5);
}

INSTANTIATE_TEST_SUITE_P(
    Types, FileSelType,
    testing::Values(TypeCase{0, {"SQ4"}, {"Sequences"}, 0, "SQ4"},
                    TypeCase{1, {"SD4"}, {"Schedules"}, 0, "SD4"},
                    TypeCase{2, {"SC4"}, {"Scripts"}, 0, "SC4"},
                    TypeCase{3, {"SEQ"}, {"K3300 Seq's"}, 0, "SEQ"},
                    TypeCase{4, {"DL4"}, {"DownLoad files"}, 0, "DL4"},
                    TypeCase{5, {"SP4"}, {"Palette files"}, 0, "SP4"},
                    TypeCase{6, {"SQ4", "SP4"}, {"Sequences", "Palette files"}, 0, "SQ4"},
                    TypeCase{
                        7, {"SQ4", "SD4", "SC4", "SEQ", "DL4", "SP4", "AVI"}, {"kept"}, 0, "SQ4"},
                    TypeCase{8, {}, {"kept"}, 0, ""}, TypeCase{10, {}, {"kept"}, 0, ""},
                    TypeCase{9, {"SQ4", "AVI"}, {"Sequences", "AVIs"}, 0, "SQ4"}));

TEST_F(FileSelOpening, TheSavedExtensionAviHasNoEntry) {
    OpenAt({"A:", kType, "Default", "clip", "AVI"});
    EXPECT_EQ(view.types.size(), 6u);
    EXPECT_EQ(view.typeIndex, -1);
    EXPECT_EQ(selector->GetExtSelection(), 0);
    EXPECT_THAT(Names(), ElementsAre());
    view.typeIndex = 0;
    selector->FileTypeChanged();
    EXPECT_EQ(selector->GetExtSelection(), 1);
}

TEST_F(FileSelOpening, AScriptsPlaceIsTheServer) {
    Remember({});
    Make().SetPath("A:\\run.SC4");
    Open();
    EXPECT_EQ(selector->Tree().Selected(), Server("A:"));
    EXPECT_THAT(Names(), ElementsAre("run"));
    EXPECT_EQ(view.name, "run");
    EXPECT_EQ(view.path, "A:\\.Sign\\.Lib\\");
    EXPECT_EQ(view.typeIndex, 2);
}

// The filter -----------------------------------------------------------------------------------

TEST_F(FileSelOpening, TheFilterKeepsThePathsSignType) {
    Remember({"A:", kType, "Default", "two", "SQ4"});
    Make().SetShowSignDirOnly(1);
    Open();
    EXPECT_TRUE(view.filter);
    EXPECT_EQ(selector->Tree().filter.currentSign, kType);
    Make().SetShowSignDirOnly(1);
    selector->SetPath("\\\\H\\S");
    Open();
    EXPECT_FALSE(view.filter) << "no sign type is in the path";
}

TEST_F(FileSelOpening, WithoutAPathTheFilterIsOfTheSignParams) {
    Make().SetShowSignDirOnly(1);
    EXPECT_EQ(selector->SetSignParams(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0, prompt),
              1);
    Open();
    EXPECT_TRUE(view.filter);
    EXPECT_EQ(selector->Tree().filter.currentSign, kType);
    Make().SetShowSignDirOnly(1);
    selector->SetType(K4_FILE_TYPE_PALETTE);
    selector->SetSignParams(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0, prompt);
    Open();
    EXPECT_EQ(selector->Tree().filter.currentSign, kType + ".Palette");
}

TEST_F(FileSelOpening, OpeningChecksWhatTheSignParamsCouldnt) {
    Make().SetShowSignDirOnly(1);
    // The first call looks at the columns stored before it.
    EXPECT_EQ(selector->SetSignParams(16, 81, K4_SIGN_COLOR_TRI3, K4_PIXEL_TECH_INCAND, 0, prompt),
              1);
    prompt.Expect("Number of columns must be a multiple of 8.\n");
    prompt.Expect("Color and pixel technology are invalid.");
    Open();
    EXPECT_FALSE(view.filter);
    EXPECT_EQ(prompt.Pending(), 0u);
}

TEST_F(FileSelOpening, ASignTypeInPlaceOfTheLastOneKeepsTheOtherFields) {
    MakeFolder("A:\\" + std::string(k4test::kOtherType) + ".Sign\\Default.Lib");
    Remember({"A:", k4test::kOtherType, "Default", "two", "SQ4"});
    Make().SetShowSignDirOnly(1);
    EXPECT_EQ(selector->SetSignParams(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0, prompt),
              1);
    EXPECT_EQ(selector->RequestedPath(), "");
    Open();
    EXPECT_TRUE(view.filter);
    EXPECT_EQ(selector->Place(), (FileLocation{"A:", kType, "Default", "two", "SQ4"}));
    EXPECT_EQ(Server("A:")->Children().size(), 1u);
    // Without the filter the place is the last one.
    Make();
    selector->SetSignParams(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0, prompt);
    Open();
    EXPECT_FALSE(view.filter);
    EXPECT_EQ(selector->Place().signType, k4test::kOtherType);
}

TEST_F(FileSelOpening, AFilterThatIsTurnedOffLeavesThePlace) {
    Remember({"A:", kType, "Default", "two", "SQ4"});
    Make().SetShowSignDirOnly(1);
    selector->SetPath("");
    selector->SetSignParams(16, 84, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0, prompt);
    prompt.Expect("Number of columns must be a multiple of 8.\n");
    Open();
    EXPECT_FALSE(view.filter);
    EXPECT_EQ(selector->Place(), (FileLocation{"A:", kType, "Default", "two", "SQ4"}));
}

// SetSignParams --------------------------------------------------------------------------------

TEST_F(FileSelOpening, SignParamsShowEachBrokenRule) {
    Make();
    prompt.Expect("Invalid number of rows.\n");
    prompt.Expect("Invalid number of columns.\n");
    prompt.Expect("Rows x Cols cannot be > 8388608");
    prompt.Expect("Number of rows must be 7 or a multiple of 8.\n");
    EXPECT_EQ(
        selector->SetSignParams(4097, 16385, K4_SIGN_COLOR_TRI3, K4_PIXEL_TECH_INCAND, 0, prompt),
        0)
        << "the columns stored so far are 16";
    EXPECT_EQ(selector->SetSignParams(16, 20, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0, prompt),
              1);
    prompt.Expect("Number of columns must be a multiple of 8.\n");
    EXPECT_EQ(selector->SetSignParams(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0, prompt), 0)
        << "now they are 20";
    EXPECT_EQ(prompt.Pending(), 0u);
}

TEST_F(FileSelOpening, RefusedSignParamsChangeNothing) {
    Remember({"A:", kType, "Default", "two", "SQ4"});
    Make().SetShowSignDirOnly(1);
    selector->SetSignParams(48, 160, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND, 0, prompt);
    selector->SetPath(kLib + "two.SQ4");
    prompt.Expect("Invalid number of rows.\n");
    EXPECT_EQ(selector->SetSignParams(0, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0, prompt), 0);
    EXPECT_EQ(selector->RequestedPath(), kLib + "two.SQ4");
    selector->SetPath("");
    Open();
    EXPECT_EQ(selector->Tree().filter.currentSign, k4test::kOtherType) << "those stored before";
}

TEST_F(FileSelOpening, SignParamsEmptyAPathOfAnotherSignType) {
    Remember({"A:", kType, "Default", "two", "SQ4"});
    Make();
    selector->SetSignParams(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0, prompt);
    EXPECT_EQ(selector->RequestedPath(), kLib + "two.SQ4");
    selector->SetSignParams(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 1, prompt);
    EXPECT_EQ(selector->RequestedPath(), "") << "the palette twin isn't in it";
    // A store that makes no text: the empty one counts as contained.
    Make();
    k4cmn::Provided<k4cmn::FilesProvider>::Install(nullptr);
    selector->SetSignParams(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 1, prompt);
    k4cmn::Provided<k4cmn::FilesProvider>::Install(&files);
    EXPECT_EQ(selector->RequestedPath(), kLib + "two.SQ4");
}

// Without a suite ------------------------------------------------------------------------------

TEST(FileSelWithoutASuite, OpensEmpty) {
    k4test::FakeSelectorView view;
    k4test::ScriptedPrompt prompt;
    FileSelector selector("A:\\x.SQ4");
    selector.SetView(view);
    selector.Open(prompt);
    EXPECT_EQ(selector.ShowFilesList(), 0);
    selector.SaveTreeRightEdge();
}

}  // namespace
