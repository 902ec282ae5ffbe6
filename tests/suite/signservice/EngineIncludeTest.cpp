#include <dirent.h>

#include <memory>
#include <numeric>

#include "suite/signservice/FrameList.h"
#include "tests/suite/signservice/EngineSequenceFixture.h"

// Sequences that include others.

namespace {

namespace fs = std::filesystem;
using k4suite::FrameList;
using k4suite::IncludeField;
using k4suite::SequenceParts;
using k4test::Including;
using k4test::NoiseBulbs;
using Seeds = std::vector<std::uint32_t>;

class EngineInclude : public k4test::EngineSequenceFixture {
 protected:
    /// A sequence for "Main": for each number a frame of that seed, for each list an include frame.
    struct Item {
        Item(std::uint32_t own) : seed(own) {}                           // NOLINT
        Item(std::vector<IncludeField> own) : fields(std::move(own)) {}  // NOLINT
        std::uint32_t seed = 0;
        std::vector<IncludeField> fields;
    };
    std::string MakeWith(const std::string& name, const std::vector<Item>& items) {
        const k4suite::SequenceFacts facts = Facts();
        return Make(name, facts, [&](Writer& writer) {
            for (const Item& item : items)
                if (item.seed)
                    writer.AddGraphic(k4cmn::kGraphicFrame, 100, Frame(item.seed));
                else
                    writer.AddInclude(item.fields);
        });
    }
    Seeds Shown(const std::string& file) {
        Seeds known(40);
        std::iota(known.begin(), known.end(), 1);
        return SeedsShown(file, known);
    }
    /// A tiny sequence, for lists of many.
    std::string MakeTiny(const std::string& name, std::uint32_t frames,
                         const std::vector<IncludeField>& fields = {}) {
        k4suite::SequenceFacts facts;
        facts.rows = facts.columns = 1;
        return Make(name, facts, [&](Writer& writer) {
            for (std::uint32_t frame = 0; frame < frames; ++frame)
                writer.AddGraphic(k4cmn::kGraphicFrame, 100, Bytes(4, 0xFF));
            if (!fields.empty())
                writer.AddInclude(fields);
        });
    }
    std::size_t CountOf(const std::string& file) {
        SequenceParts parts(rig.store);
        const auto first = parts.Find(file);
        EXPECT_TRUE(first);
        FrameList list(parts);
        list.Add(*first);
        return list.Frames().size();
    }
};

TEST_F(EngineInclude, FramesOfIncludedSequencesStandAtTheIncludeFramesPlace) {
    MakeOf("b.SQ4", {11, 12});
    MakeOf("c.SQ4", {21});
    const std::string file =
        MakeWith("a.SQ4", {1, std::vector{Including("S:\\b.SQ4"), Including("S:\\c.SQ4")}, 2,
                           std::vector{Including("S:\\b.SQ4")}});
    EXPECT_EQ(Shown(file), (Seeds{1, 11, 12, 21, 2, 11, 12}));
}

TEST_F(EngineInclude, FieldsThatAreSwitchedOffArentPlayed) {
    MakeOf("b.SQ4", {11});
    MakeOf("c.SQ4", {21});
    MakeOf("d.SQ4", {31});
    const std::string file = MakeWith(
        "a.SQ4", {std::vector<IncludeField>{
                     {0, "S:\\b.SQ4"}, {2, "S:\\c.SQ4"}, {0, "S:\\c.SQ4"}, {0xFFFF, "S:\\d.SQ4"}}});
    EXPECT_EQ(Shown(file), (Seeds{21, 31}));
}

TEST_F(EngineInclude, APathBeginsAtTheFileThatIncludesIt) {
    // In this store "S:\y\x" is the file "y\x".
    MakeOf("deep\\c.SQ4", {21});
    MakeWith("deep\\b.SQ4", {11, std::vector{Including("c.SQ4")}});
    const std::string file = MakeWith("a.SQ4", {1, std::vector{Including("deep\\b.SQ4")}});
    EXPECT_EQ(Shown(file), (Seeds{1, 11, 21}));
}

TEST_F(EngineInclude, WhatCantBeOpenedIsPassedOver) {
    MakeOf("b.SQ4", {11});
    rig.store.Write("text.SQ4", "no sequence");
    rig.store.Write("empty.SQ4");
    fs::create_directory(rig.store.Path() / "folder.SQ4");
    const std::string file = MakeWith(
        "a.SQ4", {std::vector{Including("S:\\missing.SQ4"), Including("S:\\b.SQ4"), Including(""),
                              Including("X:\\nowhere.SQ4"), Including("S:\\folder.SQ4"),
                              Including("S:\\text.SQ4"), Including("S:\\empty.SQ4"),
                              Including("Test Pattern.SQ4"), Including(std::string(5000, 'x'))},
                  2});
    EXPECT_EQ(Shown(file), (Seeds{11, 2}));
}

TEST_F(EngineInclude, AFileOfAnyNameIsIncluded) {
    MakeOf("b.part", {11});
    EXPECT_EQ(Shown(MakeWith("a.SQ4", {std::vector{Including("b.part")}})), (Seeds{11}));
}

TEST_F(EngineInclude, ASequenceInsideItselfIsPassedOver) {
    const std::string file =
        MakeWith("a.SQ4", {1, std::vector{Including("S:\\a.SQ4"), Including("a.SQ4")}, 2});
    EXPECT_EQ(Shown(file), (Seeds{1, 2}));
}

TEST_F(EngineInclude, RingsArePassedOver) {
    MakeWith("b.SQ4", {11, std::vector{Including("c.SQ4")}, 12});
    MakeWith("c.SQ4", {21, std::vector{Including("a.SQ4"), Including("b.SQ4")}, 22});
    const std::string file =
        MakeWith("a.SQ4", {1, std::vector{Including("b.SQ4"), Including("c.SQ4")}, 2});
    EXPECT_EQ(Shown(file), (Seeds{1, 11, 21, 22, 12, 21, 11, 12, 22, 2}));
}

TEST_F(EngineInclude, AnotherNameOfAFileOnTheWayIsSeenThrough) {
    const std::string file =
        MakeWith("a.SQ4", {1, std::vector{Including("link.SQ4"), Including("hard.SQ4")}});
    fs::create_symlink("a.SQ4", rig.store.Path() / "link.SQ4");
    fs::create_hard_link(rig.store.Path() / "a.SQ4", rig.store.Path() / "hard.SQ4");
    EXPECT_EQ(Shown(file), (Seeds{1}));
}

TEST_F(EngineInclude, IncludesGoEightDeep) {
    for (std::uint32_t depth = 0; depth <= 10; ++depth)
        MakeWith(std::to_string(depth) + ".SQ4",
                 {depth + 1, std::vector{Including(std::to_string(depth + 1) + ".SQ4")}});
    EXPECT_EQ(Shown("S:\\0.SQ4"), (Seeds{1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST_F(EngineInclude, OnlyIncludedFramesAreEnoughAndNoneAreNot) {
    MakeOf("b.SQ4", {11});
    EXPECT_TRUE(CanPlay(MakeWith("only.SQ4", {std::vector{Including("b.SQ4")}})));
    EXPECT_FALSE(CanPlay(MakeWith("none.SQ4", {std::vector{Including("none.SQ4")}})));
    EXPECT_FALSE(CanPlay(MakeWith("off.SQ4", {std::vector<IncludeField>{{0, "S:\\b.SQ4"}}})));
}

TEST_F(EngineInclude, TimesAndPicturesAreThoseOfTheIncludedSequence) {
    const k4suite::SequenceFacts small = Facts("Small");
    Make("small.SQ4", small, [&](Writer& writer) {
        writer.AddGraphic(k4cmn::kGraphicFrame, 30, NoiseBulbs(small, 1));
    });
    const std::string file = MakeWith("a.SQ4", {1, std::vector{Including("small.SQ4")}, 2});
    ASSERT_EQ(rig.Play("S:\\small.SQ4", K4_PLAY_SEQ_CONTINUOUS), 0);
    const k4test::DibPicture alone = rig.Picture();
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS), 0);
    EXPECT_EQ(rig.Bulbs(), Frame(1));
    rig.clock.Advance(std::chrono::milliseconds(100));
    EXPECT_EQ(rig.Picture(), alone);
    rig.clock.Advance(std::chrono::milliseconds(29));
    EXPECT_EQ(rig.Status().frame, 2U);
    rig.clock.Advance(std::chrono::milliseconds(1));
    EXPECT_EQ(rig.Status().frame, 3U);
    EXPECT_EQ(rig.Bulbs(), Frame(2));
}

TEST_F(EngineInclude, AnExplosionOfFramesIsCutOff) {
    // Ten of each in each: a hundred million frames.
    MakeTiny("8.SQ4", 10);
    for (int depth = 7; depth >= 0; --depth)
        MakeTiny(std::to_string(depth) + ".SQ4", 0,
                 std::vector(10, Including(std::to_string(depth + 1) + ".SQ4")));
    EXPECT_EQ(CountOf("S:\\0.SQ4"), 262'144U);
    ASSERT_EQ(rig.Play("S:\\0.SQ4", K4_PLAY_SEQ_CONTINUOUS), 0);
    EXPECT_EQ(rig.Status().count, 262'144U);
    rig.clock.Advance(std::chrono::milliseconds(100) * 262'143);
    EXPECT_EQ(rig.Status().frame, 262'144U);
}

TEST_F(EngineInclude, AnExplosionWithoutFramesIsCutOff) {
    MakeTiny("8.SQ4", 0);
    for (int depth = 7; depth >= 0; --depth)
        MakeTiny(std::to_string(depth) + ".SQ4", 0,
                 std::vector(60, Including(std::to_string(depth + 1) + ".SQ4")));
    EXPECT_EQ(CountOf("S:\\0.SQ4"), 0U);
    EXPECT_FALSE(CanPlay("S:\\0.SQ4"));
}

TEST_F(EngineInclude, TheSameFileUnderManyNamesIsCutOff) {
    const k4suite::SequenceFacts facts = Facts();
    std::vector<IncludeField> fields;
    for (int name = 0; name < 200; ++name)
        fields.push_back(Including("link" + std::to_string(name) + ".SQ4"));
    MakeTiny("b.SQ4", 60'000);
    for (const IncludeField& field : fields)
        fs::create_symlink("b.SQ4", rig.store.Path() / field.path);
    EXPECT_EQ(CountOf(MakeTiny("a.SQ4", 0, fields)), 262'144U);
}

TEST_F(EngineInclude, ManyMissingFilesAreLookedForInShortTime) {
    std::vector<IncludeField> fields;
    for (int name = 0; name < 60'000; ++name)
        fields.push_back(Including(std::to_string(name)));
    EXPECT_EQ(CountOf(MakeTiny("a.SQ4", 1, fields)), 1U);
}

std::size_t OpenFiles() {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir("/proc/self/fd"), closedir);
    std::size_t count = 0;
    while (readdir(folder.get()))
        ++count;
    return count;
}

class EngineManyFiles : public EngineInclude {
 protected:
    EngineManyFiles() {
        std::vector<IncludeField> fields;
        for (std::uint32_t seed = 1; seed <= kFiles; ++seed) {
            MakeOf(std::to_string(seed) + ".SQ4", {seed});
            fields.push_back(Including(std::to_string(seed) + ".SQ4"));
        }
        file = MakeWith("a.SQ4", {fields});
    }
    static constexpr std::uint32_t kFiles = 40;
    std::string file;
};

TEST_F(EngineManyFiles, OnlySomeAreHeldOpenAndAllArePlayed) {
    const std::size_t before = OpenFiles();
    Seeds all(kFiles);
    std::iota(all.begin(), all.end(), 1);
    EXPECT_EQ(Shown(file), all);
    EXPECT_LE(OpenFiles(), before + 16);
    EXPECT_EQ(Shown(file), all) << "and again";
    ASSERT_EQ(rig.Play("Test Pattern.SQ4", K4_PLAY_SEQ_CONTINUOUS), 0);
    EXPECT_EQ(OpenFiles(), before);
}

TEST_F(EngineManyFiles, AFileThatWasReplacedWhileItWasClosedIsntTaken) {
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_SINGLE_STEP), 0);
    EXPECT_EQ(rig.Bulbs(), Frame(1));
    MakeOf("2.SQ4", {99});
    fs::remove(rig.store.Path() / "3.SQ4");
    for (const std::uint32_t shown : {1U, 1U, 4U}) {
        ASSERT_EQ(rig.rpc->k4ssSingleStepFrame("Main", 1), 0);
        EXPECT_EQ(rig.Bulbs(), Frame(shown)) << "the last picture that could be read";
    }
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_SINGLE_STEP), 0);
    ASSERT_EQ(rig.rpc->k4ssSingleStepFrame("Main", 1), 0);
    EXPECT_EQ(rig.Bulbs(), Frame(99)) << "played anew it is the new file";
}

}  // namespace
