#include <sys/stat.h>

#include <functional>
#include <optional>
#include <utility>

#include "tests/search/SearchFixture.h"
#include "tests/search/SearchTroubleFixture.h"
#include "tests/suite/platform/OrdinaryUser.h"

// The search where servers, folders and files fail it.

namespace {

namespace fs = std::filesystem;
using k4cmn::SearchCriteria;
using k4cmn::SearchMode;
using testing::ElementsAre;
using testing::IsEmpty;

class SearchTrouble : public k4test::SearchTroubleFixture {
 protected:
    void SetUp() override {
        SearchTroubleFixture::SetUp();
        MakeFile(kOne, "no sequence");
        MakeSequence(kTwo, "summer; sale");
        ConfigureLocal({"A:"});
    }
    static SearchCriteria WithKeywords(const std::string& keywords,
                                       const std::string& server = k4cmn::kFileServers) {
        SearchCriteria criteria = Everything(server);
        criteria.keywords = keywords;
        return criteria;
    }

    const std::string kLib = Folder("A:", "Default");
    const std::string kOne = kLib + "one.SD4";
    const std::string kTwo = kLib + "two.SQ4";
};

// Servers ----------------------------------------------------------------------------------------

TEST_F(SearchTrouble, AServerThatIsDownContributesNothing) {
    home.Write("drives/F", "a file in the place of a server");
    MakeFolder("E:");
    ConfigureLocal({"Q:", "\\\\GONE\\SHARE", "F:", "no place at all", "E:", "A:", "/nowhere"});
    Find(Everything());
    EXPECT_THAT(Found(), ElementsAre(kOne, kTwo));
    for (const std::string server : {"Q:", "\\\\GONE\\SHARE", "\\\\GONE", "\\\\", "F:", "E:", "..",
                                     "no place at all", "/nowhere", "\\", "/", ":", "A"}) {
        Find(Everything(server));
        EXPECT_THAT(Found(), IsEmpty()) << server;
    }
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(SearchTrouble, AServerThatIsListedTwiceIsSearchedTwice) {
    ConfigureLocal({"A:", "a:", "A:"});
    Find(Everything());
    const std::string lower = "a" + kOne.substr(1);
    const std::string lowerTwo = "a" + kTwo.substr(1);
    EXPECT_THAT(Found(), ElementsAre(kOne, kOne, kTwo, kTwo, lower, lowerTwo));
}

TEST_F(SearchTrouble, WithoutAListOfServersNothingIsSearched) {
    Find(Everything("A:"));
    const k4test::ListedRows before = list;
    fs::remove_all(home / "settings");
    Find(Everything(), SearchMode::Previous);
    EXPECT_EQ(list.rows, before.rows) << "the rows stay";
    Find(Everything());
    EXPECT_THAT(Found(), IsEmpty()) << "a new search has emptied the list by then";
    home.Write("settings/machine.ini", std::string("\0\xff[[[=", 6));
    Find(Everything());
    EXPECT_THAT(Found(), IsEmpty());
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(SearchTrouble, WithoutServersRowsStayThough) {
    Find(Everything("A:"));
    ConfigureLocal({});
    SearchCriteria criteria = Everything();
    criteria.fileName = "nothing is named so";
    Find(criteria, SearchMode::Previous);
    EXPECT_THAT(Found(), ElementsAre(kOne, kTwo));
}

TEST_F(SearchTrouble, WithNothingInstalledNothingIsFound) {
    {
        const k4test::NothingInstalled<k4cmn::FilesProvider> noStore;
        Find(Everything("A:"));
        EXPECT_THAT(Found(), IsEmpty());
    }
    {
        const k4test::NothingInstalled<k4cmn::RegistryProvider> noSettings;
        Find(Everything());
        EXPECT_THAT(Found(), IsEmpty());
    }
    {
        const k4test::NothingInstalled<k4cmn::StoreAccess> noAccess;
        Find(Everything());
        EXPECT_THAT(Found(), IsEmpty());
    }
    EXPECT_THAT(Told(), IsEmpty());
    {
        const k4test::NothingInstalled<k4cmn::SequenceLibrary> noSequences;
        Find(WithKeywords("summer"));
        EXPECT_THAT(Found(), ElementsAre(kOne));
        EXPECT_THAT(Told(), ElementsAre(CannotOpen(kTwo)));
    }
    Find(Everything());
    EXPECT_THAT(Found(), ElementsAre(kOne, kTwo));
}

// Folders ----------------------------------------------------------------------------------------

TEST_F(SearchTrouble, WhatMayNotBeReadContributesNothing) {
    const std::string locked = Folder("A:", "Locked");
    const std::string listed = Folder("A:", "Listed");
    const std::string entered = Folder("A:", "Entered");
    const std::string type = std::string("A:\\") + k4test::kOtherType + ".Sign\\";
    const std::string server = std::string("B:\\") + k4test::kType + ".Sign\\Default.Lib\\";
    for (const std::string& folder : {locked, listed, entered, type + "Default.Lib\\", server})
        MakeFile(folder + "x.SQ4");
    ConfigureLocal({"B:", "A:"});
    const k4test::OrdinaryUser user(home.Path());
    fs::permissions(Native(locked), fs::perms::none);
    fs::permissions(Native(listed), fs::perms::owner_read);
    fs::permissions(Native(entered), fs::perms::owner_exec);
    fs::permissions(Native(type), fs::perms::owner_exec);
    fs::permissions(Native("B:"), fs::perms::none);
    Find(Everything());
    EXPECT_THAT(Found(), ElementsAre(kOne, kTwo));
    EXPECT_THAT(Told(), IsEmpty());

    SearchCriteria named = Everything("A:");
    named.place.signType = k4test::kOtherType;
    Find(named);
    EXPECT_THAT(Found(), IsEmpty()) << "its libraries can't be listed";
    named.place.library = "Default";
    Find(named);
    EXPECT_THAT(Found(), ElementsAre(type + "Default.Lib\\x.SQ4")) << "the library itself can";
}

TEST_F(SearchTrouble, AFileThatMayNotBeReadIsListedUntilItsKeywordsAreWanted) {
    const k4test::OrdinaryUser user(home.Path());
    fs::permissions(Native(kTwo), fs::perms::none);
    Find(Everything());
    EXPECT_THAT(Found(), ElementsAre(kOne, kTwo));
    EXPECT_THAT(Told(), IsEmpty());
    Find(WithKeywords("summer"), SearchMode::Previous);
    EXPECT_THAT(Found(), ElementsAre(kOne));
    EXPECT_THAT(Told(), ElementsAre(CannotOpen(kTwo)));
}

TEST_F(SearchTrouble, LinksInCirclesEnd) {
    const std::string server = "A:\\";
    const std::string type = server + k4test::kType + ".Sign\\";
    MakeLink(".", server + "here.b.c.Sign");
    MakeLink("..", type + "Up.Lib");
    MakeLink(".", type + "Here.Lib");
    MakeLink("Self.Lib", type + "Self.Lib");
    MakeLink("Second.Lib", type + "First.Lib");
    MakeLink("First.Lib", type + "Second.Lib");
    MakeLink("nowhere", type + "Gone.Lib");
    MakeLink("Default.Lib", type + "Other.Lib");
    MakeLink("one.SD4", kLib + "link.SD4");
    MakeLink("self.SD4", kLib + "self.SD4");
    MakeLink("nowhere", kLib + "gone.SD4");
    MakeLink(".", kLib + "folder.SD4");
    Find(Everything());
    const std::string other = Folder("A:", "Other");
    EXPECT_THAT(Found(), ElementsAre(kLib + "link.SD4", kOne, kTwo, other + "link.SD4",
                                     other + "one.SD4", other + "two.SQ4"));
    EXPECT_THAT(Told(), IsEmpty());
}

// Files ------------------------------------------------------------------------------------------

TEST_F(SearchTrouble, EachSequenceThatCannotBeOpenedIsToldOfOnce) {
    MakeFile(kLib + "empty.SQ4", "");
    MakeFile(kLib + "noise.sq4", std::string(5000, '\xa5'));
    ASSERT_EQ(mkfifo(Native(kLib + "pipe.SQ4").c_str(), 0666), 0);
    MakeSequence(kLib + "cut.SQ4", "summer");
    fs::resize_file(Native(kLib + "cut.SQ4"), 2000);
    MakeSequence(kLib + "three.SEQ", "not looked at");
    ConfigureLocal({"A:", "B:", "Q:"});
    const k4test::ListedRows all = [&] {
        Find(Everything());
        return list;
    }();
    EXPECT_THAT(Told(), IsEmpty());
    const auto messages =
        ElementsAre(CannotOpen(kLib + "cut.SQ4"), CannotOpen(kLib + "empty.SQ4"),
                    CannotOpen(kLib + "noise.sq4"), CannotOpen(kLib + "pipe.SQ4"));
    // Separators alone drop every sequence, but not before each was opened.
    for (const std::string keywords : {"summer", ";"}) {
        Find(WithKeywords(keywords));
        EXPECT_THAT(Told(), messages) << keywords;
        const auto found = Found();
        list = all;
        Find(WithKeywords(keywords), SearchMode::Previous);  // once for each of three servers
        EXPECT_THAT(Told(), messages) << keywords;
        EXPECT_EQ(Found(), found);
        EXPECT_EQ(found.size(), keywords == ";" ? 2U : 3U);
    }
}

TEST_F(SearchTrouble, NobodyIsToldOfWhatAnotherTestDrops) {
    MakeFile(kLib + "noise.SQ4", "noise");
    SearchCriteria criteria = WithKeywords("summer");
    criteria.sizeRelation = k4cmn::SIZE_AT_LEAST;
    criteria.size = 1;
    Find(criteria);
    EXPECT_THAT(Found(), ElementsAre(kTwo));
    criteria = WithKeywords("summer");
    criteria.dateFilter = k4cmn::DATE_MODIFIED;
    criteria.dateMode = k4cmn::DATE_DAYS;
    criteria.days = -100'000;
    Find(criteria);
    EXPECT_THAT(Found(), IsEmpty());
    criteria = WithKeywords("summer");
    criteria.isSignSearchEnabled = 1;
    Find(criteria);
    EXPECT_THAT(Found(), IsEmpty());
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(SearchTrouble, TheListCanBeLookedAtWhileAMessageIsShown) {
    MakeFile(kLib + "peak.SQ4", "noise");
    MakeFile(kLib + "zebra.SQ4", "noise");
    Find(Everything());
    std::vector<Texts> seen;
    prompt.meanwhile = [&] {
        seen.push_back(Found());
        // Another search, which has its own list.
        k4test::ListedRows other;
        k4test::RecordingPrompt nobody;
        k4cmn::SearchEngine(WithKeywords("sale"), SearchMode::New, other, nobody).Find();
        EXPECT_EQ(other.rows.size(), 2U);
        EXPECT_EQ(nobody.messages.size(), 2U);
    };
    Find(WithKeywords("summer"), SearchMode::Previous);
    EXPECT_THAT(seen, ElementsAre(Texts{kOne}, Texts{kOne, kTwo}));
    EXPECT_THAT(Found(), ElementsAre(kOne, kTwo));
}

/// A store in which something happens at a moment of the search.
class ChangingAccess final : public k4cmn::StoreAccess {
 public:
    explicit ChangingAccess(k4cmn::StoreAccess& store) : m_store(store), m_use(*this) {}

    std::function<void()> before;  ///< a status is read
    std::function<void()> after;

    int GetStatus(const std::string& path, k4cmn::FileStatus* status) override {
        Call(before);
        const int result = m_store.GetStatus(path, status);
        Call(after);
        return result;
    }
    std::vector<std::optional<k4cmn::FileStatus>> StatusIn(
        const std::string& folder, const std::vector<std::string>& names) override {
        Call(before);
        auto all = m_store.StatusIn(folder, names);
        Call(after);
        return all;
    }
    int MakeFolder(const std::string& path) override { return m_store.MakeFolder(path); }
    int RemoveFolder(const std::string& path) override { return m_store.RemoveFolder(path); }
    int Move(const std::string& from, const std::string& to) override {
        return m_store.Move(from, to);
    }
    int MarkReadOnly(const std::string& path) override { return m_store.MarkReadOnly(path); }

 private:
    static void Call(const std::function<void()>& action) {
        if (action)
            action();
    }

    k4cmn::StoreAccess& m_store;
    k4cmn::ScopedProvider<k4cmn::StoreAccess> m_use;
};

TEST_F(SearchTrouble, AFileThatGoesBeforeItsTestIsDropped) {
    for (const SearchMode mode : {SearchMode::New, SearchMode::Previous}) {
        MakeSequence(kTwo, "summer");
        Find(Everything());
        ChangingAccess changing(access);
        changing.before = [&] { fs::remove(Native(kTwo)); };
        Find(WithKeywords("summer"), mode);
        EXPECT_THAT(Found(), ElementsAre(kOne));
        EXPECT_THAT(Told(), IsEmpty());
    }
}

TEST_F(SearchTrouble, ASequenceThatGoesBeforeItIsOpenedIsToldOf) {
    for (const SearchMode mode : {SearchMode::New, SearchMode::Previous}) {
        MakeSequence(kTwo, "summer");
        Find(Everything());
        ChangingAccess changing(access);
        changing.after = [&] { fs::remove(Native(kTwo)); };
        Find(WithKeywords("summer"), mode);
        EXPECT_THAT(Found(), ElementsAre(kOne));
        EXPECT_THAT(Told(), ElementsAre(CannotOpen(kTwo)));
    }
}

TEST_F(SearchTrouble, AFolderThatGoesTakesItsFilesAlong) {
    MakeFile(Folder("A:", "Stays") + "x.SD4");
    Find(Everything());
    ChangingAccess changing(access);
    changing.before = [&] { fs::remove_all(Native(kLib)); };
    Find(Everything(), SearchMode::Previous);
    EXPECT_THAT(Found(), ElementsAre(Folder("A:", "Stays") + "x.SD4"));
    Find(Everything());
    EXPECT_THAT(Found(), ElementsAre(Folder("A:", "Stays") + "x.SD4"));
    changing.before = [&] { fs::remove_all(Native("A:")); };
    Find(Everything(), SearchMode::Previous);
    EXPECT_THAT(Found(), IsEmpty());
    EXPECT_THAT(Told(), IsEmpty());
}

/// A store that knows fewer files than it is asked for.
class ShortAccess final : public k4cmn::StoreAccess {
 public:
    int GetStatus(const std::string&, k4cmn::FileStatus*) override { return 0; }
    std::vector<std::optional<k4cmn::FileStatus>> StatusIn(
        const std::string&, const std::vector<std::string>&) override {
        return {k4cmn::FileStatus{}};
    }
    int MakeFolder(const std::string&) override { return 0; }
    int RemoveFolder(const std::string&) override { return 0; }
    int Move(const std::string&, const std::string&) override { return 0; }
    int MarkReadOnly(const std::string&) override { return 0; }
};

TEST_F(SearchTrouble, AStoreThatGivesTooFewStatusesHarmsNothing) {
    ShortAccess tooShort;
    const k4cmn::ScopedProvider<k4cmn::StoreAccess> use(tooShort);
    Find(Everything());
    EXPECT_LE(list.rows.size(), 1U);
    Find(Everything(), SearchMode::Previous);
    EXPECT_LE(list.rows.size(), 1U);
}

}  // namespace
