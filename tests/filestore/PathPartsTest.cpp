#include "k4cmndlg/filestore/PathParts.h"

#include <gtest/gtest.h>

#include <ostream>

namespace k4cmn {

static void PrintTo(const PathParts& parts, std::ostream* out) {
    *out << parts.drive << "|" << parts.folder << "|" << parts.name << "|" << parts.extension;
}

namespace {

struct SplitCase {
    const char* path;
    PathParts parts;
};

class Split : public testing::TestWithParam<SplitCase> {};

TEST_P(Split, FollowsTheUsualRule) {
    EXPECT_EQ(SplitPath(GetParam().path), GetParam().parts) << GetParam().path;
}

TEST_P(Split, PartsJoinedAreThePath) {
    const PathParts parts = SplitPath(GetParam().path);
    EXPECT_EQ(parts.drive + parts.folder + parts.name + parts.extension, GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, Split,
    testing::Values(SplitCase{"", {}}, SplitCase{"a", {"", "", "a", ""}},
                    SplitCase{"a.SQ4", {"", "", "a", ".SQ4"}},
                    SplitCase{"X:\\store\\a.SC4", {"X:", "\\store\\", "a", ".SC4"}},
                    SplitCase{"x:", {"x:", "", "", ""}}, SplitCase{"x:a.b", {"x:", "", "a", ".b"}},
                    SplitCase{"\\\\host\\share\\", {"", "\\\\host\\share\\", "", ""}},
                    SplitCase{"\\\\host\\a.b\\c", {"", "\\\\host\\a.b\\", "c", ""}},
                    SplitCase{"A:\\16x80.Mono1.LED.Sign", {"A:", "\\", "16x80.Mono1.LED", ".Sign"}},
                    SplitCase{"/srv/store\\x.Lib\\f.SQ4", {"", "/srv/store\\x.Lib\\", "f", ".SQ4"}},
                    SplitCase{"/srv/a.b/c", {"", "/srv/a.b/", "c", ""}},
                    SplitCase{"a.", {"", "", "a", "."}}, SplitCase{".Lib", {"", "", "", ".Lib"}},
                    SplitCase{"a..b", {"", "", "a.", ".b"}}, SplitCase{"..", {"", "", ".", "."}},
                    // No letter, no drive.
                    SplitCase{"1:\\a", {"", "1:\\", "a", ""}},
                    SplitCase{":\\a", {"", ":\\", "a", ""}},
                    SplitCase{"AB:\\a", {"", "AB:\\", "a", ""}},
                    SplitCase{"\\A:\\a", {"", "\\A:\\", "a", ""}}));

TEST(StepUp, MakesTheLastFolderTheName) {
    PathParts parts = SplitPath("X:\\s\\T.Sign\\L.Lib\\f.SQ4");
    parts = StepUp(parts);
    EXPECT_EQ(parts, (PathParts{"X:", "\\s\\T.Sign\\", "L", ".Lib"}));
    parts = StepUp(parts);
    EXPECT_EQ(parts, (PathParts{"X:", "\\s\\", "T", ".Sign"}));
    parts = StepUp(parts);
    EXPECT_EQ(parts, (PathParts{"X:", "\\", "s", ""}));
    parts = StepUp(parts);
    EXPECT_EQ(parts, (PathParts{"X:", "", "", ""}));
    parts = StepUp(parts);
    EXPECT_EQ(parts, (PathParts{"X:", "", "", ""}));
}

TEST(StepUp, LooksForNoOtherDrive) {
    const PathParts parts = StepUp(SplitPath("X:Y:\\f.SQ4"));
    EXPECT_EQ(parts, (PathParts{"X:", "", "Y:", ""}));
}

}  // namespace
}  // namespace k4cmn
