#include <algorithm>
#include <fstream>
#include <random>

#include "tests/suite/signservice/EngineSequenceFixture.h"

// Sequence files that are damaged, cut, replaced or gone, before and while they are played.

namespace {

namespace fs = std::filesystem;
using Seeds = std::vector<std::uint32_t>;

/// The head of a sequence file, and the parts of a frame's chunk in front of its bulb data.
constexpr std::size_t kHead = 2652;
constexpr std::size_t kChunkHead = 8;
constexpr std::size_t kFrameHeader = 52;
constexpr std::size_t kBulbs = 32 * 64 * 24 / 8;
constexpr std::size_t kChunk = kChunkHead + kFrameHeader + kBulbs;

class EngineSequenceDamage : public k4test::EngineSequenceFixture {
 protected:
    std::string Content(const std::string& name) const { return rig.store.Read(name); }
    /// Writes bytes into the file that is there, which stays the same file.
    void Patch(const std::string& name, std::size_t offset, const std::string& bytes) {
        std::fstream file(rig.store.Path() / name, std::ios::binary | std::ios::in | std::ios::out);
        file.seekp(static_cast<std::streamoff>(offset));
        file << bytes;
        ASSERT_TRUE(file.good());
    }
    void Cut(const std::string& name, std::size_t size) {
        fs::resize_file(rig.store.Path() / name, size);
    }
    static std::size_t MethodOf(std::size_t frame) {
        return kHead + frame * kChunk + kChunkHead + 48;
    }
};

TEST_F(EngineSequenceDamage, FilesThatArentSequencesCantBePlayed) {
    const std::string whole = Content("show.SQ4");
    struct Row {
        const char* what;
        std::string content;
    };
    std::string other = whole;
    other[0] = 'X';
    std::string version = whole;
    version[20] = 2;
    std::string noRows = whole;
    noRows[2612 + 16] = noRows[2612 + 17] = 0;
    std::string noFrames = whole;
    noFrames[2612 + 34] = noFrames[2612 + 35] = 0;
    const Row rows[] = {
        {"empty", ""},
        {"text", "not a sequence"},
        {"a head cut short", whole.substr(0, kHead - 1)},
        {"a head alone", whole.substr(0, kHead)},
        {"a frame's head cut short", whole.substr(0, kHead + 4)},
        {"a frame cut short", whole.substr(0, kHead + kChunk - 1)},
        {"another form", other},
        {"another version", version},
        {"no rows", noRows},
        {"no frames by the head", noFrames},
    };
    for (const Row& row : rows) {
        rig.store.Write("bad.SQ4", row.content);
        EXPECT_FALSE(CanPlay("S:\\bad.SQ4")) << row.what;
        EXPECT_NE(rig.rpc->k4ssSetDefaultSequence("Main", "S:\\bad.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0),
                  0)
            << row.what;
        EXPECT_NE(rig.rpc->k4ssQueueSequence("Main", "S:\\bad.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0), 0)
            << row.what;
    }
    EXPECT_EQ(rig.Status().sequence, "Test Pattern.SQ4");
}

TEST_F(EngineSequenceDamage, AFileWhoseOnlyFrameCantBeReadCantBePlayed) {
    MakeOf("one.SQ4", {1}, K4_COMPRESS_NONE);
    Patch("one.SQ4", MethodOf(0), "\x02");  // the noise is no zlib stream
    EXPECT_FALSE(CanPlay("S:\\one.SQ4"));
    MakeOf("two.SQ4", {1, 2});
    Patch("two.SQ4", MethodOf(0), "\x63");  // no method that anybody knows
    EXPECT_TRUE(CanPlay("S:\\two.SQ4"));
}

TEST_F(EngineSequenceDamage, AFrameThatCantBeReadLeavesTheLastPicture) {
    const std::string file = MakeOf("a.SQ4", {1, 2, 3, 4});
    Patch("a.SQ4", MethodOf(1), "\x02");
    Patch("a.SQ4", MethodOf(2), "\x63");
    EXPECT_EQ(SeedsShown(file, {1, 2, 3, 4}), (Seeds{1, 1, 1, 4}));
    EXPECT_EQ(rig.Status().count, 4U) << "its time goes by all the same";
}

TEST_F(EngineSequenceDamage, BeforeTheFirstPictureThatCanBeReadItIsDark) {
    const std::string file = MakeOf("a.SQ4", {1, 2});
    Patch("a.SQ4", MethodOf(0), "\x02");
    EXPECT_EQ(SeedsShown(file, {1, 2}), (Seeds{0, 2}));
    EXPECT_EQ(rig.Bulbs(), Frame(2)) << "around once more it is the last picture";
}

TEST_F(EngineSequenceDamage, AFrameOfAnotherSizeThatCantBeReadLeavesTheLastPicture) {
    const k4suite::SequenceFacts facts = Facts("Small");
    const std::string file =
        Make("a.SQ4", facts, [&](Writer& writer) { k4test::AddNoise(writer, facts, 2, 1); });
    const std::size_t chunk = kChunkHead + kFrameHeader + 16 * 32 * 4 / 8;
    Patch("a.SQ4", kHead + chunk + kChunkHead + 48, "\x02");
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_SINGLE_STEP), 0);
    const k4test::DibPicture first = rig.Picture();
    ASSERT_EQ(rig.rpc->k4ssSingleStepFrame("Main", 1), 0);
    EXPECT_EQ(rig.Picture(), first);
}

TEST_F(EngineSequenceDamage, AFrameCountThatLiesIsSeenThrough) {
    const std::string file = MakeOf("a.SQ4", {1, 2, 3});
    Patch("a.SQ4", 2612 + 34, std::string("\xFF\xFF", 2));
    EXPECT_EQ(SeedsShown(file, {1, 2, 3}), (Seeds{1, 2, 3})) << "more than there are";
    Patch("a.SQ4", 2612 + 34, std::string("\x02\x00", 2));
    EXPECT_EQ(SeedsShown(file, {1, 2, 3}), (Seeds{1, 2})) << "fewer than there are";
}

TEST_F(EngineSequenceDamage, AFileCutBeforeItIsPlayedPlaysWhatIsThere) {
    const std::string file = MakeOf("a.SQ4", {1, 2, 3});
    Cut("a.SQ4", kHead + 2 * kChunk + 100);
    EXPECT_EQ(SeedsShown(file, {1, 2, 3}), (Seeds{1, 2}));
}

TEST_F(EngineSequenceDamage, AFileCutWhilePlayingKeepsTheLastPicture) {
    const std::string file = MakeOf("a.SQ4", {1, 2, 3, 4});
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS), 0);
    rig.clock.Advance(std::chrono::milliseconds(100));
    ASSERT_EQ(rig.Bulbs(), Frame(2));
    Cut("a.SQ4", kHead + kChunk + 1000);
    EXPECT_EQ(rig.Bulbs(), Frame(2)) << "it has been read";
    rig.clock.Advance(std::chrono::milliseconds(100));
    EXPECT_EQ(rig.Bulbs(), Frame(2));
    EXPECT_EQ(rig.Status().frame, 3U);
    rig.clock.Advance(std::chrono::milliseconds(200));
    EXPECT_EQ(rig.Bulbs(), Frame(1)) << "around once more";
    rig.clock.Advance(std::chrono::milliseconds(100));
    EXPECT_EQ(rig.Bulbs(), Frame(1)) << "the second frame isn't whole any more";
    Cut("a.SQ4", 0);
    rig.clock.Advance(std::chrono::milliseconds(300));
    EXPECT_EQ(rig.Bulbs(), Frame(1));
    EXPECT_EQ(rig.Status().count, 4U);
}

TEST_F(EngineSequenceDamage, AFileReplacedOrDeletedWhilePlayingPlaysOn) {
    const std::string file = MakeOf("a.SQ4", {1, 2, 3, 4});
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_SINGLE_STEP), 0);
    MakeOf("a.SQ4", {11, 12});  // takes the place of the other
    ASSERT_EQ(rig.rpc->k4ssSingleStepFrame("Main", 1), 0);
    EXPECT_EQ(rig.Bulbs(), Frame(2));
    fs::remove(rig.store.Path() / "a.SQ4");
    ASSERT_EQ(rig.rpc->k4ssSingleStepFrame("Main", 1), 0);
    EXPECT_EQ(rig.Bulbs(), Frame(3));
    EXPECT_EQ(rig.Status().count, 4U);
    EXPECT_FALSE(CanPlay(file));
    EXPECT_EQ(rig.Bulbs(), Frame(3)) << "what is refused changes nothing";
}

TEST_F(EngineSequenceDamage, FilesCutAtAnyPlaceAreRefusedOrPlayed) {
    k4suite::SequenceFacts facts = Facts("Small", K4_COMPRESS_MEDIUM);
    Make("a.SQ4", facts, [&](Writer& writer) {
        writer.AddGraphic(k4cmn::kGraphicFrame, 10, Bytes(256, 0x11));
        writer.AddInclude(std::vector{k4test::Including("show.SQ4")});
        writer.AddGraphic(k4cmn::kTextFrame, 10, k4test::NoiseBulbs(facts, 1));
    });
    const std::string whole = Content("a.SQ4");
    std::uint32_t before = 0;
    for (std::size_t size = 2600; size <= whole.size(); ++size) {
        rig.store.Write("cut.SQ4", whole.substr(0, size));
        std::uint32_t count = 0;
        if (CanPlay("S:\\cut.SQ4", "Small")) {
            count = rig.Status("Small").count;
            rig.clock.Advance(std::chrono::milliseconds(7));
            rig.Picture("Small");
        }
        EXPECT_GE(count, before) << size;
        before = count;
    }
    EXPECT_EQ(before, 42U);
}

TEST_F(EngineSequenceDamage, FilesWithAnyByteChangedAreRefusedOrPlayed) {
    k4suite::SequenceFacts facts = Facts("Small", K4_COMPRESS_LOW);
    Make("a.SQ4", facts, [&](Writer& writer) {
        writer.AddGraphic(k4cmn::kGraphicFrame, 10, Bytes(256, 0x11));
        writer.AddInclude(std::vector{k4test::Including("a.SQ4"), k4test::Including("b.SQ4")});
        writer.AddGraphic(k4cmn::kDataFrame, 10, Bytes(256, 0x22));
    });
    const std::string whole = Content("a.SQ4");
    std::mt19937 random(4400);
    int played = 0;
    for (int round = 0; round < 2000; ++round) {
        std::string changed = whole;
        for (int count = 0; count <= round % 5; ++count) {
            // The texts of the head mean nothing here.
            std::size_t at = random() % (changed.size() - 2064);
            at = at < 540 ? at : at + 2064;
            changed[at] = static_cast<char>(random());
        }
        rig.store.Write("a.SQ4", changed);
        if (!CanPlay("S:\\a.SQ4", "Small"))
            continue;
        ++played;
        for (int step = 0; step < 3; ++step) {
            rig.clock.Advance(std::chrono::milliseconds(5));
            rig.Picture("Small");
            rig.ChangeFlag("Small");
        }
    }
    EXPECT_GT(played, 100);
}

}  // namespace
