#include <limits>

#include "tests/search/SearchFixture.h"

namespace {

using k4cmn::FileStatus;
using k4cmn::SearchEngine;
using k4cmn::SearchMode;
using k4test::kType;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr std::int64_t kDay = 86400;

class SearchFileTests : public k4test::SearchFixture {
 protected:
    bool HasSize(int relation, int size, std::uint64_t bytes) {
        criteria.sizeRelation = relation;
        criteria.size = size;
        return SearchEngine(criteria, SearchMode::New, sink, prompt)
            .CheckSize(FileStatus{false, bytes, 0});
    }
    bool HasDate(std::int64_t modified) {
        return SearchEngine(criteria, SearchMode::New, sink, prompt)
            .CheckDate(FileStatus{false, 0, modified});
    }
    /// Whether a sequence with some keywords is found by others.
    bool HasKeywords(const std::string& there, const std::string& wanted, int combination) {
        MakeSequence(InDefault("one.SQ4"), there);
        criteria.keywords = wanted;
        criteria.keywordCombination = combination;
        return SearchEngine(criteria, SearchMode::New, sink, prompt)
            .CheckKeyWords(InDefault("one.SQ4"));
    }
};

TEST_F(SearchFileTests, SizeIsComparedInWholeKilobytes) {
    constexpr int any = k4cmn::SIZE_ANY;
    constexpr int atLeast = k4cmn::SIZE_AT_LEAST;
    constexpr int atMost = k4cmn::SIZE_AT_MOST;
    EXPECT_TRUE(HasSize(any, 5, 0));
    EXPECT_TRUE(HasSize(any, 5, 1 << 30));
    EXPECT_TRUE(HasSize(atLeast, 0, 0));
    EXPECT_FALSE(HasSize(atLeast, 1, 1023));
    EXPECT_TRUE(HasSize(atLeast, 1, 1024));
    EXPECT_FALSE(HasSize(atLeast, 2, 2047));
    EXPECT_TRUE(HasSize(atLeast, 2, 2048));
    EXPECT_TRUE(HasSize(atMost, 0, 1023));
    EXPECT_FALSE(HasSize(atMost, 0, 1024));
    EXPECT_TRUE(HasSize(atMost, 1, 2047));
    EXPECT_FALSE(HasSize(atMost, 1, 2048));
}

TEST_F(SearchFileTests, SizeMayBeOfAnyNumber) {
    constexpr auto most = std::numeric_limits<std::uint64_t>::max();
    EXPECT_TRUE(HasSize(k4cmn::SIZE_AT_LEAST, std::numeric_limits<int>::max(), most));
    EXPECT_FALSE(HasSize(k4cmn::SIZE_AT_MOST, std::numeric_limits<int>::max(), most));
    EXPECT_TRUE(HasSize(k4cmn::SIZE_AT_MOST, 4 << 20, std::uint64_t{4} << 30)) << "4 GB";
    EXPECT_TRUE(HasSize(k4cmn::SIZE_AT_LEAST, -1, 0));
    EXPECT_FALSE(HasSize(k4cmn::SIZE_AT_MOST, -1, 0));
}

TEST_F(SearchFileTests, ARelationThatIsNotKnownDropsEveryFile) {
    for (const int relation : {-1, 3, 99})
        EXPECT_FALSE(HasSize(relation, 0, 0)) << relation;
}

TEST_F(SearchFileTests, SizeConfinesASearch) {
    MakeSized(InDefault("a.SQ4"), 1023);
    MakeSized(InDefault("b.SQ4"), 1024);
    criteria.sizeRelation = k4cmn::SIZE_AT_LEAST;
    criteria.size = 1;
    EXPECT_THAT(New(), ElementsAre(InDefault("b.SQ4")));
    criteria.sizeRelation = k4cmn::SIZE_AT_MOST;
    criteria.size = 0;
    EXPECT_THAT(New(), ElementsAre(InDefault("a.SQ4")));
}

TEST_F(SearchFileTests, DateIsSeenFromTheMomentOfTheSearch) {
    criteria.dateFilter = k4cmn::DATE_MODIFIED;
    criteria.dateMode = k4cmn::DATE_DAYS;
    criteria.days = 1;
    EXPECT_TRUE(HasDate(kNow - 2 * kDay + 1));
    EXPECT_FALSE(HasDate(kNow - 2 * kDay));
    clock.Advance(std::chrono::seconds(1));
    EXPECT_FALSE(HasDate(kNow - 2 * kDay + 1));
    criteria.dateFilter = k4cmn::DATE_ALL_FILES;
    EXPECT_TRUE(HasDate(0));
}

TEST_F(SearchFileTests, DateConfinesASearchByTheTimeOfModification) {
    const std::int64_t midnight = kNow - 8 * 3600;  // of 15 January 2027
    MakeFile(InDefault("last.SQ4"), "x", midnight - 1);
    MakeFile(InDefault("next.SQ4"), "x", midnight);
    MakeFile(InDefault("old.SQ4"), "x", midnight - 45 * kDay);
    criteria.dateFilter = k4cmn::DATE_MODIFIED;
    criteria.firstDate = {14, 1, 2027};
    criteria.lastDate = {14, 1, 2027};
    EXPECT_THAT(New(), ElementsAre(InDefault("last.SQ4")));
    criteria.dateMode = k4cmn::DATE_MONTHS;
    EXPECT_THAT(New(), ElementsAre(InDefault("last.SQ4"), InDefault("next.SQ4")));
    criteria.months = 2;
    EXPECT_EQ(New().size(), 3u);
}

TEST_F(SearchFileTests, KeywordsOfAFileAreFound) {
    EXPECT_TRUE(HasKeywords("summer; sale; ", "SALE, summer", k4cmn::KEYWORDS_AND));
    EXPECT_FALSE(HasKeywords("summer; sale; ", "sale winter", k4cmn::KEYWORDS_AND));
    EXPECT_TRUE(HasKeywords("summer; sale; ", "sale winter", k4cmn::KEYWORDS_OR));
    EXPECT_FALSE(HasKeywords("", "sale", k4cmn::KEYWORDS_OR));
    EXPECT_TRUE(HasKeywords(std::string(1018, 'x') + " sale", "sale", k4cmn::KEYWORDS_AND));
}

TEST_F(SearchFileTests, KeywordsConfineASearchOfSequences) {
    MakeSequence(InDefault("a.SQ4"), "summer; sale");
    MakeSequence(InDefault("b.SQ4"), "winter; sale");
    MakeSequence(InDefault("c.SQ4"), "");
    criteria.keywords = "sale";
    EXPECT_THAT(New(), ElementsAre(InDefault("a.SQ4"), InDefault("b.SQ4")));
    criteria.keywords = "sale winter";
    EXPECT_THAT(New(), ElementsAre(InDefault("b.SQ4")));
    criteria.keywordCombination = k4cmn::KEYWORDS_OR;
    EXPECT_THAT(Previous(), ElementsAre(InDefault("b.SQ4")));
    EXPECT_THAT(New(), ElementsAre(InDefault("a.SQ4"), InDefault("b.SQ4")));
    criteria.keywords.clear();
    EXPECT_EQ(New().size(), 3u);
}

TEST_F(SearchFileTests, KeywordsDoNotCountForOtherTypes) {
    for (const char* file : {"a.SD4", "b.SC4", "c.SEQ", "d.SP4"})
        MakeFile(InDefault(file), "no sequence");
    MakeSequence(InDefault("e.SQ4"), "winter");
    criteria.keywords = "summer";
    criteria.fileName = "*";
    const auto others = UnorderedElementsAre(InDefault("a.SD4"), InDefault("b.SC4"),
                                             InDefault("c.SEQ"), InDefault("d.SP4"));
    EXPECT_THAT(New(), others);
    EXPECT_THAT(Previous(), others);
    criteria.fileName.clear();
    criteria.fileType = 1;
    EXPECT_THAT(New(), ElementsAre(InDefault("a.SD4")));
}

TEST_F(SearchFileTests, KeywordsWithoutAWordDropEverySequence) {
    MakeSequence(InDefault("a.SQ4"), "summer");
    MakeSequence(InDefault("b.SQ4"), "; ,");
    MakeFile(InDefault("c.SD4"));
    criteria.keywords = " ;,\t\n";
    criteria.fileName = "*";
    for (const int combination : {k4cmn::KEYWORDS_AND, k4cmn::KEYWORDS_OR}) {
        criteria.keywordCombination = combination;
        EXPECT_THAT(New(), ElementsAre(InDefault("c.SD4"))) << combination;
    }
}

TEST_F(SearchFileTests, ASequenceThatCannotBeOpenedIsToldOfAndDropped) {
    MakeSequence(InDefault("a.SQ4"), "summer");
    MakeFile(InDefault("bad.SQ4"), "no sequence");
    MakeSequence(InDefault("z.SQ4"), "summer");
    criteria.keywords = "summer";
    ExpectCantOpen(InDefault("bad.SQ4"));
    EXPECT_THAT(New(), ElementsAre(InDefault("a.SQ4"), InDefault("z.SQ4")));
    List({InDefault("z.SQ4"), InDefault("bad.SQ4"), InDefault("a.SQ4")});
    ExpectCantOpen(InDefault("bad.SQ4"));
    EXPECT_THAT(Previous(), ElementsAre(InDefault("z.SQ4"), InDefault("a.SQ4")));
}

TEST_F(SearchFileTests, EachSequenceThatCannotBeOpenedIsToldOfInItsTurn) {
    const std::vector<std::string> rows{InDefault("3.SQ4"), InDefault("1.SQ4"), InDefault("2.SQ4")};
    for (const std::string& path : rows) {
        MakeFile(path, "");
        ExpectCantOpen(path);
    }
    List(rows);
    criteria.keywords = " ; ";
    EXPECT_THAT(Previous(), IsEmpty());
    EXPECT_EQ(prompt.Pending(), 0u);
}

TEST_F(SearchFileTests, InPreviousOfFileServersAMessageComesOnce) {
    MakeFile(InDefault("bad.SQ4"), "no sequence");
    List({InDefault("bad.SQ4")});
    criteria.place.server = k4cmn::kFileServers;
    criteria.keywords = "summer";
    ExpectCantOpen(InDefault("bad.SQ4"));
    EXPECT_THAT(Previous(), IsEmpty());
}

TEST_F(SearchFileTests, OnlyWhatPassedEveryOtherTestIsOpened) {
    MakeFile(InDefault("name.SQ4"), "no sequence", kNow);
    MakeFile(InDefault("x large.SQ4"), std::string(5000, 'x'), kNow);
    MakeFile(InDefault("x old.SQ4"), "no sequence", kNow - 10 * kDay);
    MakeFile(Folder("A:", k4test::kOtherType, "L") + "x sign.SQ4", "no sequence", kNow);
    MakeSequence(InDefault("x fits.SQ4"), "summer");
    const timespec times[2] = {{kNow, 0}, {kNow, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, Native(InDefault("x fits.SQ4")).c_str(), times, 0), 0);
    criteria.keywords = "summer";
    criteria.fileName = "x*";
    criteria.sizeRelation = k4cmn::SIZE_AT_MOST;
    criteria.size = 3;
    criteria.dateFilter = k4cmn::DATE_MODIFIED;
    criteria.dateMode = k4cmn::DATE_DAYS;
    criteria.isSignSearchEnabled = 1;
    criteria.rows = 16;
    criteria.columns = 80;
    criteria.pixel = K4_PIXEL_TECH_LED;
    EXPECT_THAT(New(), ElementsAre(InDefault("x fits.SQ4")));
    List({InDefault("large x.SQ4"), InDefault("name.SQ4"), InDefault("x large.SQ4"),
          InDefault("x old.SQ4"), Folder("A:", k4test::kOtherType, "L") + "x sign.SQ4",
          InDefault("x fits.SQ4")});
    EXPECT_THAT(Previous(), ElementsAre(InDefault("x fits.SQ4")));
}

TEST_F(SearchFileTests, WithoutALibraryOfSequencesEachIsToldOf) {
    MakeSequence(InDefault("a.SQ4"), "summer");
    const k4test::NothingInstalled<k4cmn::SequenceLibrary> none;
    criteria.keywords = "summer";
    ExpectCantOpen(InDefault("a.SQ4"));
    EXPECT_THAT(New(), IsEmpty());
    criteria.keywords.clear();
    EXPECT_EQ(New().size(), 1u);
}

/// Sequence files that say what is done to them.
class WatchedLibrary final : public k4cmn::SequenceLibrary {
 public:
    explicit WatchedLibrary(k4cmn::SequenceLibrary& real) : m_real(real) {}

    std::unique_ptr<CK4SequenceFile> Create() override {
        return std::make_unique<Watched>(*this, m_real.Create());
    }

    std::vector<std::string> opened;
    int closed = 0;

 private:
    class Watched final : public CK4SequenceFile {
     public:
        Watched(WatchedLibrary& owner, std::unique_ptr<CK4SequenceFile> real)
            : m_owner(owner), m_real(std::move(real)) {}

        int Open(const std::string& path, K4OpenFlags flags) override {
            EXPECT_EQ(flags, 1u);
            m_owner.opened.push_back(path);
            return m_real->Open(path, flags);
        }
        void Close() override {
            ++m_owner.closed;
            m_real->Close();
        }
        const char* GetPtrToKeywords() const override { return m_real->GetPtrToKeywords(); }
        const char* GetPtrToErrorString() const override { return m_real->GetPtrToErrorString(); }

        tag_K4_RIFF_FILE_DATA* RiffHdr() override { return Unwanted<tag_K4_RIFF_FILE_DATA*>(); }
        const char* GetPtrToComments() const override { return Unwanted<const char*>(); }
        int SetKeywordsString(const std::string&) override { return Unwanted<int>(); }
        int SetCommentsString(const std::string&) override { return Unwanted<int>(); }
        tag_K4_SOS_FRM* SosData() override { return Unwanted<tag_K4_SOS_FRM*>(); }
        int FrameCount() const override { return Unwanted<int>(); }
        CK4Frame* Frame(int) override { return Unwanted<CK4Frame*>(); }
        std::uint32_t CalcRunTime() override { return Unwanted<std::uint32_t>(); }
        int IsPreviewOnly() const override { return Unwanted<int>(); }
        int Save() override { return Unwanted<int>(); }

     private:
        template <class Value>
        static Value Unwanted() {
            ADD_FAILURE() << "a search looks at keywords alone";
            return {};
        }

        WatchedLibrary& m_owner;
        const std::unique_ptr<CK4SequenceFile> m_real;
    };

    k4cmn::SequenceLibrary& m_real;
};

TEST_F(SearchFileTests, EachSequenceIsOpenedOnceForReadingAndClosed) {
    MakeSequence(InDefault("a.SQ4"), "summer");
    MakeSequence(InDefault("b.SQ4"), "winter");
    MakeFile(InDefault("c.SD4"));
    WatchedLibrary watched(sequences);
    const k4cmn::ScopedProvider<k4cmn::SequenceLibrary> use(watched);
    criteria.keywords = "summer";
    criteria.fileName = "*";
    New();
    EXPECT_THAT(watched.opened, UnorderedElementsAre(InDefault("a.SQ4"), InDefault("b.SQ4")));
    EXPECT_EQ(watched.closed, 2);
}

TEST_F(SearchFileTests, WithoutKeywordsNothingIsOpened) {
    MakeSequence(InDefault("a.SQ4"), "summer");
    WatchedLibrary watched(sequences);
    const k4cmn::ScopedProvider<k4cmn::SequenceLibrary> use(watched);
    New();
    Previous();
    EXPECT_THAT(watched.opened, IsEmpty());
}

/// A person who does something while the first message stands.
class BusyPrompt final : public k4cmn::Prompt {
 public:
    k4cmn::MessageAnswer Ask(const k4cmn::Message&) override {
        if (meanwhile)
            meanwhile();
        meanwhile = nullptr;
        return k4cmn::MessageAnswer::Ok;
    }
    std::function<void()> meanwhile;
};

TEST_F(SearchFileTests, WhatWasFoundBeforeAMessageIsListedWhileItStands) {
    const std::vector<std::string> rows{InDefault("z.SQ4"), InDefault("bad.SQ4"),
                                        InDefault("a.SQ4")};
    MakeSequence(rows[0], "summer");
    MakeFile(rows[1], "no sequence");
    MakeSequence(rows[2], "summer");
    List(rows);
    criteria.keywords = "summer";
    BusyPrompt busy;
    std::vector<std::string> listed;
    busy.meanwhile = [&] { listed = sink.Paths(); };
    SearchEngine(criteria, SearchMode::Previous, sink, busy).Find();
    EXPECT_THAT(listed, ElementsAre(rows[0]));
    EXPECT_THAT(sink.Paths(), ElementsAre(rows[0], rows[2]));
}

TEST_F(SearchFileTests, FilesThatChangeWhileAMessageStandsCountAsTheyAreThen) {
    const std::vector<std::string> rows{InDefault("bad.SQ4"), InDefault("gone.SQ4"),
                                        InDefault("grown.SQ4"), InDefault("kept.SQ4")};
    MakeFile(rows[0], "no sequence");
    for (std::size_t i = 1; i < rows.size(); ++i)
        MakeSequence(rows[i], "summer");
    List(rows);
    criteria.keywords = "summer";
    criteria.sizeRelation = k4cmn::SIZE_AT_MOST;
    criteria.size = 10;
    BusyPrompt busy;
    busy.meanwhile = [&] {
        std::filesystem::remove(Native(rows[1]));
        std::filesystem::resize_file(Native(rows[2]), 100'000);
    };
    SearchEngine(criteria, SearchMode::Previous, sink, busy).Find();
    EXPECT_THAT(sink.Paths(), ElementsAre(rows[3]));
}

}  // namespace
