#include "k4cmndlg/filestore/contracts/CK4Files.h"

#include <gmock/gmock.h>

#include <climits>
#include <stdexcept>

#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/filestore/contracts/FilesProvider.h"

namespace {

using testing::_;
using testing::DoAll;
using testing::Return;
using testing::SetArgReferee;
using testing::Throw;
using Names = std::vector<std::string>;

class FilesMock : public k4cmn::FilesProvider {
 public:
    MOCK_METHOD(std::string, LibraryOf, (const std::string&), (override));
    MOCK_METHOD(std::string, BuildSign,
                (std::uint32_t, std::uint32_t, tag_K4_SIGN_COLOR, tag_K4_PIXEL_TECH, int),
                (override));
    MOCK_METHOD(std::string, BuildPath,
                (const std::string&, std::uint32_t, std::uint32_t, tag_K4_SIGN_COLOR,
                 tag_K4_PIXEL_TECH, const std::string&, const std::string&, const std::string&),
                (override));
    MOCK_METHOD(std::string, GetFullPath, (const std::string&, const std::string&), (override));
    MOCK_METHOD(int, FindFiles, (Names&, const std::string&, int), (override));
    MOCK_METHOD(int, IsColorAndPixelTechValid, (tag_K4_SIGN_COLOR, tag_K4_PIXEL_TECH), (override));
    MOCK_METHOD(std::string, NativePath, (const std::string&), (override));
};

class Files : public testing::Test {
 protected:
    testing::StrictMock<FilesMock> store;
    k4cmn::ScopedProvider<k4cmn::FilesProvider> use{store};
};

TEST_F(Files, GetLibraryAsksForThePathOfTheConstructor) {
    EXPECT_CALL(store, LibraryOf("A:\\T.Sign\\L.Lib\\f.SQ4")).WillOnce(Return("L"));
    EXPECT_EQ(CK4Files("A:\\T.Sign\\L.Lib\\f.SQ4").GetLibrary(), "L");
}

TEST_F(Files, GetLibraryWithoutAPathAsksForTheEmptyOne) {
    EXPECT_CALL(store, LibraryOf("")).WillOnce(Return(""));
    EXPECT_EQ(CK4Files().GetLibrary(), "");
}

TEST_F(Files, BuildSignPassesItsFiveValues) {
    EXPECT_CALL(store, BuildSign(16, 80, K4_SIGN_COLOR_TRI3, K4_PIXEL_TECH_LED, 1))
        .WillOnce(Return("text"));
    EXPECT_EQ(CK4Files().BuildSign(16, 80, K4_SIGN_COLOR_TRI3, K4_PIXEL_TECH_LED, 1), "text");
}

TEST_F(Files, BuildPathPassesItsValuesInOrder) {
    EXPECT_CALL(
        store, BuildPath("A:", 16, 80, K4_SIGN_COLOR_TRI3, K4_PIXEL_TECH_LED, "Lib", "file", "SQ4"))
        .WillOnce(Return("path"));
    EXPECT_EQ(CK4Files().BuildPath("A:", 16, 80, K4_SIGN_COLOR_TRI3, K4_PIXEL_TECH_LED, "Lib",
                                   "file", "SQ4"),
              "path");
}

TEST_F(Files, GetFullPathPassesPathAndReferrer) {
    EXPECT_CALL(store, GetFullPath("p", "r")).WillOnce(Return("full"));
    EXPECT_EQ(CK4Files().GetFullPath("p", "r"), "full");
}

TEST_F(Files, FindFilesFillsTheList) {
    EXPECT_CALL(store, FindFiles(_, "A:\\*.SC4", 0))
        .WillOnce(DoAll(SetArgReferee<0>(Names{"a.SC4"}), Return(1)));
    Names names{"old"};
    EXPECT_EQ(CK4Files::FindFiles(names, "A:\\*.SC4", 0), 1);
    EXPECT_EQ(names, Names{"a.SC4"});
}

TEST_F(Files, FindFilesThatFailsLeavesAnEmptyList) {
    EXPECT_CALL(store, FindFiles(_, "A:\\*.Lib", 1)).WillOnce(Return(0));
    Names names{"old"};
    EXPECT_EQ(CK4Files::FindFiles(names, "A:\\*.Lib", 1), 0);
    EXPECT_TRUE(names.empty());
}

TEST_F(Files, ValidPairIsTheStoresAnswer) {
    EXPECT_CALL(store, IsColorAndPixelTechValid(K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED))
        .WillOnce(Return(1))
        .WillOnce(Return(0));
    EXPECT_EQ(CK4Files::IsColorAndPixelTechValid(K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED), 1);
    EXPECT_EQ(CK4Files::IsColorAndPixelTechValid(K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED), 0);
}

TEST_F(Files, ExceptionsOfTheStoreBecomeItsFailure) {
    const std::runtime_error error("store");
    EXPECT_CALL(store, LibraryOf).WillOnce(Throw(error));
    EXPECT_CALL(store, BuildSign).WillOnce(Throw(error));
    EXPECT_CALL(store, BuildPath).WillOnce(Throw(error));
    EXPECT_CALL(store, GetFullPath).WillOnce(Throw(error));
    EXPECT_CALL(store, FindFiles).WillOnce(Throw(error));
    EXPECT_CALL(store, IsColorAndPixelTechValid).WillOnce(Throw(error));
    const CK4Files files("x");
    EXPECT_EQ(files.GetLibrary(), "");
    EXPECT_EQ(files.BuildSign(1, 2, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0), "");
    EXPECT_EQ(files.BuildPath("", 1, 2, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, "", "", ""), "");
    EXPECT_EQ(files.GetFullPath("", ""), "");
    Names names{"old"};
    EXPECT_EQ(CK4Files::FindFiles(names, "x", 0), 0);
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(CK4Files::IsColorAndPixelTechValid(K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED), 0);
}

TEST(FilesWithoutStore, AnswerLikeAnAbsentOne) {
    const CK4Files files("A:\\L.Lib");
    EXPECT_EQ(files.GetLibrary(), "");
    EXPECT_EQ(files.BuildSign(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0), "");
    Names names{"old"};
    EXPECT_EQ(CK4Files::FindFiles(names, "A:\\*.*", 0), 0);
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(CK4Files::IsColorAndPixelTechValid(K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED), 0);
}

TEST(ComboBoxIndex, OfAColorIsItsValue) {
    for (int index = 0; index < 15; ++index)
        EXPECT_EQ(CK4Files::IntToColorTech(index), index);
}

TEST(ComboBoxIndex, OfAPixelTechnologyPlusOneIsItsValue) {
    EXPECT_EQ(CK4Files::IntToPixelTech(0 + 1), K4_PIXEL_TECH_INCAND);
    EXPECT_EQ(CK4Files::IntToPixelTech(1 + 1), K4_PIXEL_TECH_REFLECT);
    EXPECT_EQ(CK4Files::IntToPixelTech(2 + 1), K4_PIXEL_TECH_LED);
}

TEST(ComboBoxIndex, OutOfRangeHasNoNameAndFitsNothing) {
    for (const int index : {-1, 15, 1000, INT_MAX, INT_MIN}) {
        const tag_K4_SIGN_COLOR color = CK4Files::IntToColorTech(index);
        EXPECT_EQ(k4cmn::ColorLongName(color), "") << index;
        EXPECT_FALSE(k4cmn::IsColorAndPixelTechValid(color, K4_PIXEL_TECH_LED)) << index;
    }
    for (const int number : {-1, 0, 4, INT_MAX, INT_MIN}) {
        const tag_K4_PIXEL_TECH pixel = CK4Files::IntToPixelTech(number);
        EXPECT_EQ(k4cmn::PixelLongName(pixel), "") << number;
        EXPECT_FALSE(k4cmn::IsColorAndPixelTechValid(K4_SIGN_COLOR_MONO1, pixel)) << number;
    }
}

}  // namespace
