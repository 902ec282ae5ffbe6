#include "k4cmndlg/filestore/FileTypes.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using namespace k4cmn;
using Texts = std::vector<std::string>;

struct TypeCase {
    int value;
    Texts extensions;
    Texts plurals;
    Texts typeNames;  ///< one an extension
};

class FileType : public testing::TestWithParam<TypeCase> {};

TEST_P(FileType, OffersItsExtensionsAndPluralNames) {
    const auto type = static_cast<tag_K4_FILE_TYPE>(GetParam().value);
    EXPECT_EQ(ExtensionsOf(type), GetParam().extensions);
    EXPECT_EQ(PluralNamesOf(type), GetParam().plurals);
}

TEST_P(FileType, HasATypeNameForEachExtension) {
    Texts names;
    for (const std::string& extension : GetParam().extensions)
        names.emplace_back(TypeNameOfExtension(extension));
    EXPECT_EQ(names, GetParam().typeNames);
}

INSTANTIATE_TEST_SUITE_P(
    EachRow, FileType,
    testing::Values(
        TypeCase{0, {"SQ4"}, {"Sequences"}, {"K4400 Seq"}},
        TypeCase{1, {"SD4"}, {"Schedules"}, {"K4400 Sched"}},
        TypeCase{2, {"SC4"}, {"Scripts"}, {"K4400 Script"}},
        TypeCase{3, {"SEQ"}, {"K3300 Seq's"}, {"K3300 Seq"}},
        TypeCase{4, {"DL4"}, {"DownLoad files"}, {"K4400 DownLoad"}},
        TypeCase{5, {"SP4"}, {"Palette files"}, {"K4400 Palette"}},
        TypeCase{6, {"SQ4", "SP4"}, {"Sequences", "Palette files"}, {"K4400 Seq", "K4400 Palette"}},
        TypeCase{
            7,
            {"SQ4", "SD4", "SC4", "SEQ", "DL4", "SP4", "AVI"},
            {"Sequences", "Schedules", "Scripts", "K3300 Seq's", "DownLoad files", "Palette files"},
            {"K4400 Seq", "K4400 Sched", "K4400 Script", "K3300 Seq", "K4400 DownLoad",
             "K4400 Palette", "Unknown"}},
        TypeCase{8, {}, {}, {}},
        TypeCase{9, {"SQ4", "AVI"}, {"Sequences", "AVIs"}, {"K4400 Seq", "Unknown"}}),
    [](const auto& testCase) { return "Value" + std::to_string(testCase.param.value); });

TEST(FileType, ValuesPastTheTableBehaveLikeEight) {
    for (const int value : {10, 11, 1000, -1, INT_MAX, INT_MIN}) {
        const auto type = static_cast<tag_K4_FILE_TYPE>(value);
        EXPECT_EQ(KnownFileType(value), K4_FILE_TYPE_NONE) << value;
        EXPECT_EQ(ExtensionsOf(type), Texts{}) << value;
        EXPECT_EQ(PluralNamesOf(type), Texts{}) << value;
        EXPECT_TRUE(KeepsFileTypesCombo(type)) << value;
    }
    for (int value = 0; value <= 9; ++value)
        EXPECT_EQ(KnownFileType(value), value);
}

TEST(FileType, OnlyEightKeepsWhatTheComboBoxHolds) {
    for (int value = 0; value <= 9; ++value)
        EXPECT_EQ(KeepsFileTypesCombo(static_cast<tag_K4_FILE_TYPE>(value)), value == 8) << value;
}

TEST(FileType, DefaultIsAll) {
    EXPECT_EQ(kDefaultFileType, 7);
}

TEST(FileType, ExtensionsBeforeOpeningHaveNoPalettes) {
    EXPECT_EQ(Texts(kExtensionsBeforeOpening.begin(), kExtensionsBeforeOpening.end()),
              (Texts{"SQ4", "SD4", "SC4", "SEQ", "DL4", "AVI"}));
}

struct NameCase {
    const char* plural;
    const char* typeName;
};

class TypeNameOfComboText : public testing::TestWithParam<NameCase> {};

TEST_P(TypeNameOfComboText, IsThatOfItsRow) {
    EXPECT_EQ(TypeNameOfPlural(GetParam().plural), GetParam().typeName);
}

INSTANTIATE_TEST_SUITE_P(
    EachText, TypeNameOfComboText,
    testing::Values(NameCase{"Sequences", "K4400 Seq"}, NameCase{"Schedules", "K4400 Sched"},
                    NameCase{"Scripts", "K4400 Script"}, NameCase{"K3300 Seq's", "K3300 Seq"},
                    NameCase{"DownLoad files", "K4400 DownLoad"},
                    NameCase{"Palette files", "K4400 Palette"}, NameCase{"AVIs", "Unknown"},
                    NameCase{"", "Unknown"}, NameCase{"sequences", "Unknown"},
                    NameCase{"Sequences ", "Unknown"}, NameCase{"Movies", "Unknown"}));

TEST(TypeNameOfAnExtension, OutsideTheTableIsUnknown) {
    for (const char* extension : {"", "sq4", "SQ", "SQ44", "TXT"})
        EXPECT_EQ(TypeNameOfExtension(extension), "Unknown") << extension;
}

TEST(ServerRoot, OnlyScriptsAndDownloadListsLieThere) {
    EXPECT_TRUE(LiesAtServerRoot("SC4"));
    EXPECT_TRUE(LiesAtServerRoot("DL4"));
    for (const char* extension : {"SQ4", "SD4", "SEQ", "SP4", "AVI", "", "sc4", "dl4", "SC44"})
        EXPECT_FALSE(LiesAtServerRoot(extension)) << extension;
}

}  // namespace
