#include "suite/store/FolderFiles.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>

#include "k4cmndlg/filestore/contracts/CK4Files.h"

namespace {

using k4suite::DataHome;
using k4suite::FolderFiles;

class Store : public testing::Test {
 protected:
    FolderFiles store{DataHome("/nowhere/home")};
};

tag_K4_SIGN_COLOR Color(int value) {
    return static_cast<tag_K4_SIGN_COLOR>(value);
}

tag_K4_PIXEL_TECH Pixel(int value) {
    return static_cast<tag_K4_PIXEL_TECH>(value);
}

// BuildSign --------------------------------------------------------------------------------------

TEST_F(Store, SignTypeTextsAreForGood) {
    EXPECT_EQ(store.BuildSign(16, 80, Color(0), Pixel(3), 0), "16x80.Mono1.LED");
    EXPECT_EQ(store.BuildSign(16, 80, Color(0), Pixel(3), 1), "16x80.Mono1.LED.Palette");
    EXPECT_EQ(store.BuildSign(7, 16, Color(1), Pixel(1), 0), "7x16.Quad16.Incand");
    EXPECT_EQ(store.BuildSign(2048, 4096, Color(13), Pixel(3), 0), "2048x4096.RGB32KB.LED");
    EXPECT_EQ(store.BuildSign(16, 48, Color(0), Pixel(2), -1), "16x48.Mono1.Reflect.Palette");
}

TEST_F(Store, SignTypeTextsOutOfRangeAreLegalToo) {
    EXPECT_EQ(store.BuildSign(0, 0xFFFFFFFF, Color(15), Pixel(0), 0),
              "0x4294967295.Color15.Pixel0");
    EXPECT_EQ(store.BuildSign(1, 2, Color(INT_MIN), Pixel(-1), 2),
              "1x2.Color-2147483648.Pixel-1.Palette");
}

TEST_F(Store, SignTypeTextsKeepTheirThreeRules) {
    for (int color = -1; color <= 16; ++color) {
        for (int pixel = -1; pixel <= 4; ++pixel) {
            for (const int palette : {0, 1}) {
                const std::string text =
                    store.BuildSign(16, 80, Color(color), Pixel(pixel), palette);
                EXPECT_GE(std::count(text.begin(), text.end(), '.'), 2) << text;
                EXPECT_EQ(text.find("Palette") != std::string::npos, palette == 1) << text;
                EXPECT_EQ(text.find_first_of(" \t\\/:*?\"<>|"), std::string::npos) << text;
            }
        }
    }
}

TEST_F(Store, TwoSignTypesNeverShareAText) {
    std::set<std::string> texts;
    std::size_t count = 0;
    for (const std::uint32_t rows : {0u, 1u, 11u, 16u, 161u})
        for (const std::uint32_t columns : {0u, 1u, 11u, 16u, 161u})
            for (int color = -2; color <= 17; ++color)
                for (int pixel = -2; pixel <= 5; ++pixel)
                    for (const int palette : {0, 1}) {
                        texts.insert(
                            store.BuildSign(rows, columns, Color(color), Pixel(pixel), palette));
                        ++count;
                    }
    EXPECT_EQ(texts.size(), count);
}

// BuildPath --------------------------------------------------------------------------------------

TEST_F(Store, PathOfAFileInALibrary) {
    EXPECT_EQ(store.BuildPath("A:", 16, 80, Color(0), Pixel(3), "Default", "Hello", "SQ4"),
              "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\Hello.SQ4");
    EXPECT_EQ(
        store.BuildPath("\\\\STORE\\SIGNS", 48, 160, Color(1), Pixel(1), "Events", "temp", "xxx"),
        "\\\\STORE\\SIGNS\\48x160.Quad16.Incand.Sign\\Events.Lib\\temp.xxx");
    EXPECT_EQ(store.BuildPath("", 0, 0, Color(0), Pixel(1), "", "", ""),
              "\\0x0.Mono1.Incand.Sign\\.Lib\\.");
}

// LibraryOf --------------------------------------------------------------------------------------

struct LibraryCase {
    const char* path;
    const char* library;
};

class LibraryOfPath : public testing::TestWithParam<LibraryCase> {};

TEST_P(LibraryOfPath, IsTheLastLibraryFolder) {
    FolderFiles store(DataHome("/nowhere/home"));
    const k4cmn::ScopedProvider<k4cmn::FilesProvider> use(store);
    EXPECT_EQ(CK4Files(GetParam().path).GetLibrary(), GetParam().library);
}

INSTANTIATE_TEST_SUITE_P(Paths, LibraryOfPath,
                         testing::Values(LibraryCase{"A:\\T.Sign\\Default.Lib\\f.SQ4", "Default"},
                                         LibraryCase{"A:\\T.Sign\\Default.Lib\\", "Default"},
                                         LibraryCase{"A:\\T.Sign\\Default.Lib", "Default"},
                                         LibraryCase{"A:\\T.Sign\\a.b.LIB\\f.SQ4", "a.b"},
                                         LibraryCase{"/srv/Old.Lib/T.Sign\\New.Lib\\f", "New"},
                                         LibraryCase{"A:\\T.Sign\\f.SQ4", ""},
                                         LibraryCase{"A:\\.Lib\\f.SQ4", ""},
                                         LibraryCase{"A:\\Lib\\f.SQ4", ""}, LibraryCase{"", ""},
                                         LibraryCase{"\\\\\\", ""},
                                         LibraryCase{"\xff.Lib", "\xff"}));

// GetFullPath ------------------------------------------------------------------------------------

struct FullPathCase {
    const char* path;
    const char* referrer;
    const char* full;
};

class FullPath : public testing::TestWithParam<FullPathCase> {};

TEST_P(FullPath, IsSeenFromTheReferrer) {
    FolderFiles store(DataHome("/nowhere/home"));
    EXPECT_EQ(store.GetFullPath(GetParam().path, GetParam().referrer), GetParam().full)
        << GetParam().path << " from " << GetParam().referrer;
}

constexpr char kFile[] = "A:\\T.Sign\\L.Lib\\f.SQ4";

INSTANTIATE_TEST_SUITE_P(AbsoluteComesBackAsItIs, FullPath,
                         testing::Values(FullPathCase{"B:\\x\\y.SQ4", kFile, "B:\\x\\y.SQ4"},
                                         FullPathCase{"b:y.SQ4", kFile, "b:y.SQ4"},
                                         FullPathCase{"\\\\H\\S\\y.SQ4", kFile, "\\\\H\\S\\y.SQ4"},
                                         FullPathCase{"/srv/y.SQ4", kFile, "/srv/y.SQ4"},
                                         FullPathCase{"B:\\x\\..\\y.SQ4", kFile,
                                                      "B:\\x\\..\\y.SQ4"}));

INSTANTIATE_TEST_SUITE_P(
    Relative, FullPath,
    testing::Values(FullPathCase{"y.SQ4", kFile, "A:\\T.Sign\\L.Lib\\y.SQ4"},
                    FullPathCase{".\\y.SQ4", kFile, "A:\\T.Sign\\L.Lib\\y.SQ4"},
                    FullPathCase{"..\\M.Lib\\y.SQ4", kFile, "A:\\T.Sign\\M.Lib\\y.SQ4"},
                    FullPathCase{"../M.Lib/y.SQ4", kFile, "A:\\T.Sign\\M.Lib\\y.SQ4"},
                    FullPathCase{"x\\.\\.\\..\\y.SQ4", kFile, "A:\\T.Sign\\L.Lib\\y.SQ4"},
                    FullPathCase{"..\\..\\..\\..\\y.SQ4", kFile, "A:\\y.SQ4"},
                    FullPathCase{"..\\..\\..\\y.SQ4", "\\\\H\\S\\T.Sign\\f.SQ4", "\\\\H\\S\\y.SQ4"},
                    FullPathCase{"y.SQ4", "\\\\H\\S\\f.SQ4", "\\\\H\\S\\y.SQ4"},
                    FullPathCase{"..\\..\\y.SQ4", "/srv\\T.Sign\\f.SQ4", "/y.SQ4"},
                    FullPathCase{"..\\M.Lib\\y.SQ4", "/srv/store\\T.Sign\\L.Lib\\f.SQ4",
                                 "/srv/store\\T.Sign\\M.Lib\\y.SQ4"},
                    FullPathCase{"y.SQ4", "/srv/f.SQ4", "/srv/y.SQ4"},
                    FullPathCase{"..\\..\\..\\y.SQ4", "/srv/f.SQ4", "/y.SQ4"},
                    FullPathCase{"y.SQ4", "/f.SQ4", "/y.SQ4"},
                    FullPathCase{"y.SQ4", "A:f.SQ4", "A:\\y.SQ4"},
                    FullPathCase{"y.SQ4", "A:", "A:\\y.SQ4"},
                    FullPathCase{"y.SQ4", "A:\\T.Sign\\", "A:\\T.Sign\\y.SQ4"}));

INSTANTIATE_TEST_SUITE_P(FromTheReferrersRoot, FullPath,
                         testing::Values(FullPathCase{"\\y.SQ4", kFile, "A:\\y.SQ4"},
                                         FullPathCase{"\\x\\..\\..\\y.SQ4",
                                                      "\\\\H\\S\\T.Sign\\f.SQ4",
                                                      "\\\\H\\S\\y.SQ4"}));

INSTANTIATE_TEST_SUITE_P(NothingToStandOn, FullPath,
                         testing::Values(FullPathCase{"", kFile, ""}, FullPathCase{"", "", ""},
                                         FullPathCase{"y.SQ4", "", "y.SQ4"},
                                         FullPathCase{"y.SQ4", "f.SQ4", "y.SQ4"},
                                         FullPathCase{"..\\y.SQ4", "x\\f.SQ4", "y.SQ4"},
                                         FullPathCase{"..\\..\\..\\y.SQ4", "x\\f.SQ4", "y.SQ4"}));

TEST_F(Store, EachResolvedPathIsTheBaseOfTheNext) {
    std::string path = kFile;
    path = store.GetFullPath("..\\M.Lib\\g.SQ4", path);
    path = store.GetFullPath("h.SQ4", path);
    path = store.GetFullPath("..\\..\\U.Sign\\N.Lib\\i.SQ4", path);
    EXPECT_EQ(path, "A:\\U.Sign\\N.Lib\\i.SQ4");
}

TEST_F(Store, ValidPairsAreThoseOfTheLibrary) {
    EXPECT_EQ(store.IsColorAndPixelTechValid(Color(0), Pixel(2)), 1);
    EXPECT_EQ(store.IsColorAndPixelTechValid(Color(1), Pixel(2)), 0);
    EXPECT_EQ(store.IsColorAndPixelTechValid(Color(15), Pixel(3)), 0);
}

}  // namespace
