#include "suite/store/NativePath.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4suite::DataHome;
using k4suite::NativePath;

struct MapCase {
    const char* path;
    const char* below;  ///< what follows the home's folder
};

class StorePathToNative : public testing::TestWithParam<MapCase> {};

TEST_P(StorePathToNative, LiesBelowTheHome) {
    const DataHome home("/nowhere/home");
    EXPECT_EQ(NativePath(home, GetParam().path), std::string("/nowhere/home") + GetParam().below);
}

INSTANTIATE_TEST_SUITE_P(
    Drives, StorePathToNative,
    testing::Values(MapCase{"A:", "/drives/A"}, MapCase{"A:\\", "/drives/A"},
                    MapCase{"a:\\x", "/drives/A/x"}, MapCase{"z:/x/y", "/drives/Z/x/y"},
                    MapCase{"A:x", "/drives/A/x"}, MapCase{"A:\\\\x\\\\y\\", "/drives/A/x/y"},
                    MapCase{"A:\\T.Sign\\L.Lib\\f.SQ4", "/drives/A/T.Sign/L.Lib/f.SQ4"},
                    MapCase{"A:\\.\\x\\.", "/drives/A/x"}, MapCase{"A:\\x\\..\\y", "/drives/A/y"},
                    MapCase{"A:\\..", "/drives/A"}, MapCase{"A:..\\..\\x", "/drives/A/x"},
                    MapCase{"A:\\x\\..\\..\\..\\..\\etc", "/drives/A/etc"},
                    MapCase{"A:\\...", "/drives/A/..."}));

INSTANTIATE_TEST_SUITE_P(
    Shares, StorePathToNative,
    testing::Values(MapCase{"\\\\H", "/network/H"}, MapCase{"\\\\H\\S", "/network/H/S"},
                    MapCase{"\\\\H\\S\\", "/network/H/S"},
                    MapCase{"\\\\H\\S\\T.Sign\\L.Lib", "/network/H/S/T.Sign/L.Lib"},
                    MapCase{"\\\\H\\S\\..\\..\\x", "/network/H/S/x"},
                    MapCase{"\\\\\\H\\S", "/network/H/S"}, MapCase{"\\\\H/S/x", "/network/H/S/x"}));

struct NativeCase {
    const char* path;
    const char* native;
};

class NativeTextToNative : public testing::TestWithParam<NativeCase> {};

TEST_P(NativeTextToNative, IsThereAlready) {
    EXPECT_EQ(NativePath(DataHome("/nowhere/home"), GetParam().path), GetParam().native);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, NativeTextToNative,
    testing::Values(NativeCase{"/", "/"}, NativeCase{"/nowhere/s", "/nowhere/s"},
                    NativeCase{"/nowhere\\T.Sign\\L.Lib\\", "/nowhere/T.Sign/L.Lib"},
                    NativeCase{"//nowhere//s", "/nowhere/s"},
                    NativeCase{"/../../nowhere/./s/../t", "/nowhere/t"}, NativeCase{"/..", "/"}));

TEST(NoSuchPlace, GivesNothing) {
    const DataHome home("/nowhere/home");
    for (const std::string& path : {
             std::string(),
             std::string("x"),
             std::string("x\\y"),
             std::string(".."),
             std::string("\\"),
             std::string("\\x"),
             std::string("\\/x"),
             std::string("\\\\"),
             std::string("\\\\\\\\"),
             std::string("\\\\.\\S"),
             std::string("\\\\..\\S"),
             std::string("\\\\H\\.."),
             std::string("\\\\H\\.\\x"),
             std::string(":"),
             std::string("1:\\x"),
             std::string("AB:\\x"),
             std::string("\xc3\xa9:\\x"),
             std::string("A:\\a\0b", 6),
             std::string("\0", 1),
             std::string("/a\0b", 4),
             "A:\\" + std::string(5000, 'x'),
             "A:\\" + std::string(256, 'x'),
             "/" + std::string(256, 'x') + "/y",
         })
        EXPECT_EQ(NativePath(home, path), "") << path.substr(0, 40);
}

TEST(NoSuchPlace, LongestNameIsStillAPlace) {
    const std::string name(255, 'x');
    EXPECT_EQ(NativePath(DataHome("/nowhere/home"), "A:\\" + name),
              "/nowhere/home/drives/A/" + name);
}

TEST(NoSuchPlace, ManyShortComponentsPastTheSystemsLength) {
    std::string path = "A:";
    while (path.size() < 4090)
        path += "\\x";
    // The text is short enough, what it maps to isn't.
    EXPECT_EQ(NativePath(DataHome("/nowhere/a long home for long paths"), path), "");
}

class CaseOfNames : public testing::Test {
 protected:
    std::string Native(const std::string& path) { return NativePath(home, path); }
    std::string Below(const std::string& path) {
        const std::string native = Native(path);
        return native.starts_with(folder.Path().string())
                   ? native.substr(folder.Path().string().size())
                   : native;
    }

    k4test::TempFolder folder;
    DataHome home{folder.Path()};
};

TEST_F(CaseOfNames, DoesntCountWhereOnlyTheOtherExists) {
    folder.Write("drives/A/16x80.Mono1.LED.Sign/Default.Lib/Hello.SQ4");
    EXPECT_EQ(Below("a:\\16X80.MONO1.led.sign\\DEFAULT.lib\\hello.sq4"),
              "/drives/A/16x80.Mono1.LED.Sign/Default.Lib/Hello.SQ4");
}

TEST_F(CaseOfNames, AsWrittenComesFirst) {
    folder.Write("drives/A/hello.SQ4");
    folder.Write("drives/A/HELLO.SQ4");
    EXPECT_EQ(Below("A:\\hello.SQ4"), "/drives/A/hello.SQ4");
    EXPECT_EQ(Below("A:\\HELLO.SQ4"), "/drives/A/HELLO.SQ4");
}

TEST_F(CaseOfNames, FirstInByteOrderWhereSeveralDiffer) {
    folder.Write("drives/A/hello.SQ4");
    folder.Write("drives/A/HELLO.SQ4");
    EXPECT_EQ(Below("A:\\Hello.SQ4"), "/drives/A/HELLO.SQ4");
}

TEST_F(CaseOfNames, WhatDoesntExistIsKeptAsWrittenBelowWhatDoes) {
    folder.Write("drives/A/Store/x");
    EXPECT_EQ(Below("A:\\STORE\\New\\File.SQ4"), "/drives/A/Store/New/File.SQ4");
    EXPECT_EQ(Below("A:\\STORE\\X\\y"), "/drives/A/Store/x/y");
}

TEST_F(CaseOfNames, DoesntCountForDriveHostAndShare) {
    fs::create_directories(folder / "drives/q/x");
    fs::create_directories(folder / "network/Store/Signs/x");
    EXPECT_EQ(Below("Q:\\x"), "/drives/q/x");
    EXPECT_EQ(Below("\\\\STORE\\SIGNS\\X"), "/network/Store/Signs/x");
}

TEST_F(CaseOfNames, DoesntCountInOtherScripts) {
    folder.Write("drives/A/\u00c9t\u00e9.Lib/x");
    EXPECT_EQ(Below("A:\\\u00e9T\u00c9.LIB"), "/drives/A/\u00c9t\u00e9.Lib");
}

TEST_F(CaseOfNames, DoesntCountInANativeFolder) {
    folder.Write("Native/T.Sign/x");
    EXPECT_EQ(Below(folder.Path().string() + "/native\\t.sign"), "/Native/T.Sign");
}

TEST_F(CaseOfNames, FollowsALinkAsAFolder) {
    folder.Write("elsewhere/L.Lib/x");
    fs::create_directories(folder / "drives/A");
    fs::create_directory_symlink(folder / "elsewhere", folder / "drives/A/Linked");
    EXPECT_EQ(Below("A:\\LINKED\\l.lib"), "/drives/A/Linked/L.Lib");
}

TEST_F(CaseOfNames, FileInPlaceOfAFolderIsNoTrouble) {
    folder.Write("drives", "a file");
    EXPECT_EQ(Below("A:\\x"), "/drives/A/x");
}

}  // namespace
