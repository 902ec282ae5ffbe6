#include "tests/search/SearchFixture.h"

namespace {

using k4cmn::FoundFileRow;
using k4cmn::SearchMode;
using k4test::kOtherType;
using k4test::kPaletteType;
using k4test::kThirdType;
using k4test::kType;
using testing::ElementsAre;
using testing::IsEmpty;

class SearchNew : public k4test::SearchFixture {
 protected:
    std::string At(const std::string& server, const std::string& type, const std::string& library,
                   const std::string& file = "f.SQ4") {
        return Folder(server, type, library) + file;
    }
    /// A sequence in each of some libraries.
    void MakeStore() {
        for (const std::string& path :
             {At("A:", kType, "Default"), At("A:", kType, "Second"),
              At("A:", kOtherType, "Default"), At("A:", kPaletteType, "Default"),
              At("B:", kType, "Default")})
            MakeFile(path);
    }
    std::vector<std::string> Search(const std::string& server, const std::string& type,
                                    const std::string& library) {
        k4cmn::SearchEngine(criteria, SearchMode::New, sink, prompt)
            .SearchForFiles(server, type, library);
        return SortedPaths();
    }
};

TEST_F(SearchNew, WithoutAServerFindsNothingAndShowsNothing) {
    MakeStore();
    for (const char* type : {"", kType}) {
        criteria.place = {"", type, "Default"};
        EXPECT_THAT(New(), IsEmpty()) << type;
        EXPECT_THAT(Search("", type, ""), IsEmpty()) << type;
    }
}

TEST_F(SearchNew, OfAServerGoesThroughSignTypesAndLibraries) {
    MakeStore();
    EXPECT_THAT(New(), ElementsAre(At("A:", kPaletteType, "Default"), At("A:", kType, "Default"),
                                   At("A:", kType, "Second"), At("A:", kOtherType, "Default")));
}

TEST_F(SearchNew, OfASignTypeGoesThroughItsLibraries) {
    MakeStore();
    criteria.place = {"A:", kType, ""};
    EXPECT_THAT(New(), ElementsAre(At("A:", kType, "Default"), At("A:", kType, "Second")));
    criteria.place = {"A:", kPaletteType, ""};
    EXPECT_THAT(New(), ElementsAre(At("A:", kPaletteType, "Default")));
}

TEST_F(SearchNew, OfALibraryStaysInIt) {
    MakeStore();
    MakeFile(At("A:", kType, "Default", "Below.Lib\\f.SQ4"));
    criteria.place = {"A:", kType, "Default"};
    EXPECT_THAT(New(), ElementsAre(At("A:", kType, "Default")));
}

TEST_F(SearchNew, PassesOverALibraryWithoutASignType) {
    MakeStore();
    criteria.place = {"B:", "", "Second"};
    EXPECT_THAT(New(), ElementsAre(At("B:", kType, "Default")));
}

TEST_F(SearchNew, OfFileServersTakesEveryServerWithTheSamePlace) {
    MakeStore();
    criteria.place = {k4cmn::kFileServers, "", ""};
    EXPECT_EQ(New().size(), 5u);
    criteria.place.signType = kType;
    EXPECT_THAT(New(), ElementsAre(At("A:", kType, "Default"), At("A:", kType, "Second"),
                                   At("B:", kType, "Default")));
    criteria.place.library = "Default";
    EXPECT_THAT(New(), ElementsAre(At("A:", kType, "Default"), At("B:", kType, "Default")));
}

TEST_F(SearchNew, KnowsFileServersByTheirExactWords) {
    MakeStore();
    for (const char* server : {"file servers", "File Servers ", "File Server"}) {
        criteria.place.server = server;
        EXPECT_THAT(New(), IsEmpty()) << server;
    }
    // The words are no server.
    EXPECT_THAT(Search(k4cmn::kFileServers, "", ""), IsEmpty());
}

TEST_F(SearchNew, OfFileServersWithoutAListFindsNothing) {
    MakeStore();
    const k4test::NothingInstalled<k4cmn::RegistryProvider> none;
    criteria.place.server = k4cmn::kFileServers;
    List({"A:\\old.SQ4"});
    EXPECT_THAT(New(), IsEmpty()) << "the list was emptied before";
}

TEST_F(SearchNew, AServerThatIsDownContributesNothing) {
    MakeStore();
    ConfigureLocal({"Z:", "A:", "\\\\nowhere\\share"});
    criteria.place = {k4cmn::kFileServers, kOtherType, ""};
    EXPECT_THAT(New(), ElementsAre(At("A:", kOtherType, "Default")));
}

TEST_F(SearchNew, EmptiesTheListAtItsBeginning) {
    MakeStore();
    List({"A:\\old.SQ4"});
    criteria.place = {"A:", kOtherType, "Default"};
    EXPECT_THAT(New(), ElementsAre(At("A:", kOtherType, "Default")));
    EXPECT_EQ(sink.cleared, 1);
    criteria.place.server.clear();
    EXPECT_THAT(New(), IsEmpty());
}

TEST_F(SearchNew, OneCallLeavesEarlierRows) {
    MakeStore();
    List({"A:\\old.SQ4"});
    EXPECT_THAT(Search("A:", kOtherType, "Default"),
                ElementsAre(At("A:", kOtherType, "Default"), "A:\\old.SQ4"));
    EXPECT_EQ(sink.cleared, 0);
}

TEST_F(SearchNew, FindsNoFilesOutsideOfLibraries) {
    MakeStore();
    for (const char* path : {"A:\\root.SQ4", "A:\\script.SC4", "A:\\16x80.Mono1.LED.Sign\\f.SQ4",
                             "A:\\Stray.Lib\\f.SQ4", "A:\\No.Sign\\L.Lib\\f.SQ4",
                             "A:\\16x80.Mono1.LED.Sign\\Folder\\f.SQ4"})
        MakeFile(path);
    EXPECT_EQ(New().size(), 4u);
    criteria.fileType = 2;
    EXPECT_THAT(New(), IsEmpty());
    criteria.fileName = "*";
    EXPECT_EQ(New().size(), 4u);
    criteria.place = {"A:", "", "Stray"};
    EXPECT_EQ(New().size(), 4u);
}

TEST_F(SearchNew, PassesOverFoldersWhoseNamesBeginWithADot) {
    MakeFile(At("A:", ".1.2.3", "Default"));
    MakeFile(At("A:", kType, ".Hidden"));
    MakeFile(At("A:", kType, "Seen", ".hidden.SQ4"));
    EXPECT_THAT(New(), ElementsAre(At("A:", kType, "Seen", ".hidden.SQ4")));
}

TEST_F(SearchNew, CutsTheEndingsOfFoldersWhateverTheirCase) {
    MakeFile("A:\\16x80.Mono1.LED.SIGN\\Old.LIB\\f.SQ4");
    // A long s is an s in another case, of more bytes.
    MakeFile("A:\\8x16.Mono4.LED.\u017fign\\Old.Lib\\g.SQ4");
    EXPECT_THAT(New(), ElementsAre("A:\\16x80.Mono1.LED.Sign\\Old.Lib\\f.SQ4",
                                   "A:\\8x16.Mono4.LED.Sign\\Old.Lib\\g.SQ4"));
}

TEST_F(SearchNew, TakesFilesForFilesAndFoldersForFolders) {
    MakeFile("A:\\1.2.3.Sign", "no folder");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\File.Lib", "no folder");
    MakeFolder(At("A:", kType, "Default", "folder.SQ4"));
    EXPECT_THAT(New(), IsEmpty());
}

TEST_F(SearchNew, WithLinksInCirclesEnds) {
    MakeFile(At("A:", kType, "Default"));
    std::filesystem::create_directory_symlink(Native("A:"), Native("A:\\") / "1.2.3.Sign");
    std::filesystem::create_directory_symlink(Native("A:\\16x80.Mono1.LED.Sign"),
                                              Native("A:\\16x80.Mono1.LED.Sign") / "Round.Lib");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\g.SQ4");
    EXPECT_THAT(New(), ElementsAre(At("A:", kType, "Default"), At("A:", kType, "Round", "g.SQ4")));
}

TEST_F(SearchNew, WithoutANameFindsTheChosenTypeAlone) {
    for (const char* file : {"a.SQ4", "b.sq4", "c.SD4", "d.SC4", "e.SEQ", "f.SP4", "g", "h.SQ4x"})
        MakeFile(InDefault(file));
    const std::vector<std::vector<std::string>> rows{
        {"a.SQ4", "b.sq4"}, {"c.SD4"}, {"d.SC4"}, {"e.SEQ"}};
    for (int type = 0; type < 4; ++type) {
        criteria.fileType = type;
        std::vector<std::string> expected;
        for (const std::string& file : rows[static_cast<std::size_t>(type)])
            expected.push_back(InDefault(file));
        EXPECT_EQ(New(), expected) << type;
        for (const FoundFileRow& row : sink.rows)
            EXPECT_EQ(row.type, type);
    }
}

TEST_F(SearchNew, OfATypeThatIsNotKnownFindsNothingWithoutAName) {
    for (const char* file : {"a.SQ4", "b", "c.", "d.SP4"})
        MakeFile(InDefault(file));
    for (const int type : {-1, 4, 1'000'000}) {
        criteria.fileType = type;
        criteria.fileName.clear();
        EXPECT_THAT(New(), IsEmpty()) << type;
        criteria.fileName = "a*";
        EXPECT_THAT(New(), ElementsAre(InDefault("a.SQ4"))) << type;
        EXPECT_EQ(sink.rows[0].name, "a.SQ") << "no extension, and one for the dot";
    }
}

TEST_F(SearchNew, WithANameFindsEveryTypeThatMatches) {
    for (const char* file :
         {"Sale.SQ4", "sale 2.SD4", "SALE.sc4", "sale.SEQ", "sale.SP4", "sale", "other.SQ4"})
        MakeFile(InDefault(file));
    criteria.fileName = "sale*";
    New();
    std::vector<std::pair<std::string, int>> types;
    for (const FoundFileRow& row : sink.rows)
        types.emplace_back(row.path.substr(InDefault("").size()), row.type);
    EXPECT_THAT(types,
                testing::UnorderedElementsAre(std::pair("Sale.SQ4", 0), std::pair("sale 2.SD4", 1),
                                              std::pair("SALE.sc4", 2), std::pair("sale.SEQ", 3),
                                              std::pair("sale.SP4", -1), std::pair("sale", -1)));
}

TEST_F(SearchNew, MatchesNamesAsTheWholeStoreDoes) {
    for (const char* file : {"one.SQ4", "one", "Tone.SD4", "Grün.SQ4"})
        MakeFile(InDefault(file));
    const std::pair<const char*, std::vector<std::string>> rows[] = {
        {"one", {"one"}},
        {"ONE.sq4", {"one.SQ4"}},
        {"*.*", {"Grün.SQ4", "Tone.SD4", "one", "one.SQ4"}},
        {"*", {"Grün.SQ4", "Tone.SD4", "one", "one.SQ4"}},
        {"?one.*", {"Tone.SD4"}},
        {"o?e*", {"one", "one.SQ4"}},
        {"GRÜN.*", {"Grün.SQ4"}},
        {"nobody*", {}},
    };
    for (const auto& [pattern, names] : rows) {
        criteria.fileName = pattern;
        std::vector<std::string> expected;
        for (const std::string& file : names)
            expected.push_back(InDefault(file));
        EXPECT_EQ(New(), expected) << pattern;
    }
}

TEST_F(SearchNew, ANameWithAFolderFindsNothingThatIsNotThereWithoutIt) {
    MakeFile(At("A:", kType, "Default", "f.SQ4"));
    MakeFile(At("A:", kType, "Second", "g.SQ4"));
    criteria.place = {"A:", kType, "Default"};
    criteria.fileName = "..\\Second.Lib\\*";
    EXPECT_THAT(New(), IsEmpty());
}

TEST_F(SearchNew, ShortensTheShownNameByTheChosenTypesExtension) {
    const std::pair<const char*, const char*> rows[] = {
        {"plain.SQ4", "plain"},
        {"two.parts.SD4", "two.parts"},
        {"long.jpeg", "long."},
        {"none", ""},
        {"short.a", "sho"},
        {"x", ""},
        {"äöü", ""},
        {"Tür.äöü", "Tür"},
        {"日本語テスト", "日本"},
    };
    criteria.fileName = "*";
    for (const auto& row : rows)
        MakeFile(InDefault(row.first));
    New();
    ASSERT_EQ(sink.rows.size(), std::size(rows));
    for (const FoundFileRow& found : sink.rows) {
        const auto row = std::find_if(std::begin(rows), std::end(rows), [&](const auto& candidate) {
            return InDefault(candidate.first) == found.path;
        });
        ASSERT_NE(row, std::end(rows)) << found.path;
        EXPECT_EQ(found.name, row->second) << found.path;
    }
}

TEST_F(SearchNew, TellsOfEachFileItsPathSizeAndTime) {
    MakeFile(InDefault("One.SQ4"), std::string(3000, 'x'), kNow - 5);
    New();
    EXPECT_THAT(sink.rows,
                ElementsAre(FoundFileRow{"One", InDefault("One.SQ4"), 3000, kNow - 5, 0}));
}

TEST_F(SearchNew, ForASignFollowsItsFolderAlone) {
    MakeStore();
    MakeFile(At("A:", kThirdType, "Default"));
    criteria.isSignSearchEnabled = 1;
    criteria.rows = 16;
    criteria.columns = 80;
    criteria.color = K4_SIGN_COLOR_MONO1;
    criteria.pixel = K4_PIXEL_TECH_LED;
    EXPECT_THAT(New(), ElementsAre(At("A:", kType, "Default"), At("A:", kType, "Second")));
    criteria.rows = 48;
    criteria.columns = 160;
    criteria.color = K4_SIGN_COLOR_QUAD16;
    criteria.pixel = K4_PIXEL_TECH_INCAND;
    EXPECT_THAT(New(), ElementsAre(At("A:", kOtherType, "Default")));
    criteria.columns = 168;
    EXPECT_THAT(New(), IsEmpty());
    criteria.isSignSearchEnabled = 0;
    EXPECT_EQ(New().size(), 5u);
}

TEST_F(SearchNew, ForASignComparesItsFolderInExactCase) {
    MakeFile("A:\\16X80.mono1.led.Sign\\Default.Lib\\f.SQ4");
    MakeFile("A:\\116x80.Mono1.LED.Sign\\Default.Lib\\f.SQ4");
    criteria.isSignSearchEnabled = 1;
    criteria.rows = 16;
    criteria.columns = 80;
    criteria.pixel = K4_PIXEL_TECH_LED;
    EXPECT_THAT(New(), IsEmpty());
}

TEST_F(SearchNew, ForASignInAGivenSignTypeLooksForItsTextInThePath) {
    const std::string inName = At("A:", kOtherType, "Default", "for 16x80.Mono1.LED.SQ4");
    MakeFile(At("A:", kPaletteType, "Default"));
    MakeFile("A:\\116x80.Mono1.LED.Sign\\Default.Lib\\f.SQ4");
    MakeFile(At("A:", kOtherType, "Default"));
    MakeFile(At("A:", kOtherType, "Second", "for 16X80.MONO1.LED.SQ4"));
    MakeFile(inName);
    criteria.isSignSearchEnabled = 1;
    criteria.rows = 16;
    criteria.columns = 80;
    criteria.pixel = K4_PIXEL_TECH_LED;
    criteria.place.signType = kPaletteType;
    EXPECT_THAT(New(), ElementsAre(At("A:", kPaletteType, "Default")));
    criteria.place.signType = "116x80.Mono1.LED";
    EXPECT_EQ(New().size(), 1u);
    criteria.place.signType = kOtherType;
    EXPECT_THAT(New(), ElementsAre(inName));
}

TEST_F(SearchNew, WithoutAStoreFindsNothing) {
    MakeStore();
    const k4test::NothingInstalled<k4cmn::FilesProvider> noFiles;
    EXPECT_THAT(New(), IsEmpty());
    criteria.place = {"A:", kType, "Default"};
    EXPECT_THAT(New(), IsEmpty());
}

TEST_F(SearchNew, DropsFilesWhoseStatusCannotBeRead) {
    MakeStore();
    const k4test::NothingInstalled<k4cmn::StoreAccess> noAccess;
    EXPECT_THAT(New(), IsEmpty());
}

TEST_F(SearchNew, PassesOverFoldersThatCannotBeRead) {
    MakeStore();
    std::filesystem::create_symlink("nowhere", Native("A:\\") / "9.9.9.Sign");
    std::filesystem::create_symlink("nowhere", Native(At("A:", kType, "Default", "")) / "gone.SQ4");
    EXPECT_EQ(New().size(), 4u);
}

TEST_F(SearchNew, FindFilesReplacesItsListOnlyWhereThePatternOpens) {
    MakeFile("A:\\L.Lib\\one.SQ4");
    MakeFolder("A:\\L.Lib\\.hidden");
    MakeFolder("A:\\L.Lib\\seen");
    std::vector<std::string> names{"kept"};
    EXPECT_EQ(k4cmn::SearchEngine::FindFiles(names, "A:\\None.Lib\\*", 0), 0);
    EXPECT_THAT(names, ElementsAre("kept"));
    EXPECT_EQ(k4cmn::SearchEngine::FindFiles(names, "A:\\L.Lib\\*.SD4", 0), 1);
    EXPECT_THAT(names, IsEmpty());
    EXPECT_EQ(k4cmn::SearchEngine::FindFiles(names, "A:\\L.Lib\\*", 0), 1);
    EXPECT_THAT(names, ElementsAre("one.SQ4"));
    EXPECT_EQ(k4cmn::SearchEngine::FindFiles(names, "A:\\L.Lib\\*", 1), 1);
    EXPECT_THAT(names, ElementsAre("seen"));
}

}  // namespace
