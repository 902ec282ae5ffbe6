#include "tests/apps/k4ctl/store/StoreRuns.h"

// What `store tree` shows.

namespace {

using k4ctl::ExitCode;
using k4test::kOtherType;
using k4test::kPaletteType;
using k4test::kType;
using k4test::LibraryOn;
using k4test::Members;
using testing::ElementsAre;

class StoreTree : public k4test::StoreRuns {
 protected:
    void SetUp() override {
        StoreRuns::SetUp();
        MakeFolder(LibraryOn("A:", "b"));
        MakeFolder(LibraryOn("A:"));
        MakeFolder(std::string("A:\\") + kPaletteType + ".Sign\\P.Lib");
        MakeFolder(std::string("A:\\") + kOtherType + ".Sign");
    }
};

TEST_F(StoreTree, ShowsAllThreeLevelsAsTheDialogDoes) {
    EXPECT_EQ(Good({"tree"}).out,
              "├── A:\n"
              "│   ├── 16x80.Mono1.LED , (Ticker) , (Gate)\n"
              "│   │   ├── b\n"
              "│   │   └── L\n"
              "│   └── 48x160.Quad16.Incand\n"
              "│       └── No Libraries\n"
              "├── B:\n"
              "│   └── No signs\n"
              "└── \\\\S\\T\n"
              "    └── No signs\n");
}

TEST_F(StoreTree, DepthCutsTheLevels) {
    EXPECT_EQ(Good({"tree", "--depth", "1"}).out, "├── A:\n├── B:\n└── \\\\S\\T\n");
    EXPECT_EQ(Good({"tree", "--depth", "2"}).out,
              "├── A:\n"
              "│   ├── 16x80.Mono1.LED , (Ticker) , (Gate)\n"
              "│   └── 48x160.Quad16.Incand\n"
              "├── B:\n"
              "│   └── No signs\n"
              "└── \\\\S\\T\n"
              "    └── No signs\n");
    EXPECT_EQ(Good({"tree", "--depth", "3"}).out, Good({"tree"}).out);
    for (const char* depth : {"0", "4", "-1", "x", ""})
        Refused({"tree", "--depth", depth},
                std::string("--depth: \"") + depth +
                    "\" is not a whole number from 1 to 3\nk4ctl: see k4ctl store tree --help",
                ExitCode::Usage);
}

TEST_F(StoreTree, BeginsAtAServerOrASignType) {
    EXPECT_EQ(Good({"tree", "a:", "--depth", "1"}).out,
              "A:\\\n"
              "├── 16x80.Mono1.LED , (Ticker) , (Gate)\n"
              "└── 48x160.Quad16.Incand\n");
    EXPECT_EQ(Good({"tree", "A:/16x80.mono1.led.Sign"}).out,
              "A:\\16x80.Mono1.LED.Sign\\\n├── b\n└── L\n");
    EXPECT_EQ(Good({"tree", std::string("A:\\") + kPaletteType + ".Sign"}).out,
              std::string("A:\\") + kPaletteType + ".Sign\\\n└── P\n");
}

TEST_F(StoreTree, PalettesStandInTheOthersStead) {
    EXPECT_EQ(Good({"tree", "A:", "--palettes"}).out,
              std::string("A:\\\n└── ") + kPaletteType + "\n    └── P\n");
}

TEST_F(StoreTree, TellsMachinesTheSameAsNestedObjects) {
    const QJsonObject json = Good({"tree", "--json"}).Json();
    EXPECT_THAT(Members(json, "tree", "text"), ElementsAre("A:", "B:", "\\\\S\\T"));
    const QJsonObject server = json.value(QLatin1String("tree")).toArray().at(0).toObject();
    EXPECT_THAT(Members(server, "below", "text"),
                ElementsAre("16x80.Mono1.LED , (Ticker) , (Gate)", kOtherType));
    EXPECT_THAT(Members(server, "below", "path"),
                ElementsAre("A:\\16x80.Mono1.LED.Sign\\", "A:\\48x160.Quad16.Incand.Sign\\"));
    const QJsonObject signType = server.value(QLatin1String("below")).toArray().at(0).toObject();
    EXPECT_THAT(Members(signType, "below", "path"),
                ElementsAre(LibraryOn("A:", "b"), LibraryOn("A:")));
    const QJsonObject library = signType.value(QLatin1String("below")).toArray().at(0).toObject();
    EXPECT_FALSE(library.contains(QLatin1String("below")));
    // A notice is for people.
    const QJsonObject other = json.value(QLatin1String("tree")).toArray().at(1).toObject();
    EXPECT_EQ(other.value(QLatin1String("below")), QJsonValue(QJsonArray()));
}

TEST_F(StoreTree, WithoutServersSaysSo) {
    ConfigureLocal({});
    EXPECT_EQ(Good({"tree"}).out, "└── No Servers\n");
}

TEST_F(StoreTree, AServerThatIsGoneIsToldAndTheOthersAreShown) {
    std::filesystem::remove_all(home / "drives/A");
    const k4test::CommandRun run = Call({"tree"});
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_EQ(run.err, "k4ctl: \"A:\\\" can't be read.\n");
    EXPECT_EQ(run.out,
              "├── A:\n"
              "├── B:\n"
              "│   └── No signs\n"
              "└── \\\\S\\T\n"
              "    └── No signs\n");
}

TEST_F(StoreTree, RefusesWhatHasNothingBelow) {
    MakeFile("A:\\x.SC4");
    Refused({"tree", LibraryOn("A:")},
            "\"" + LibraryOn("A:") + "\" is a library, below which the tree has nothing.");
    Refused({"tree", "A:\\x.SC4"}, "\"A:\\x.SC4\" is a file, below which the tree has nothing.");
    Refused({"tree", "C:"}, "There is no place \"C:\". k4ctl store ls lists the servers.");
}

}  // namespace
