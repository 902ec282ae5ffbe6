#include "k4cmndlg/filesel/properties/SequenceDuration.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/sequence/SequenceWriter.h"
#include "suite/store/FolderFiles.h"
#include "tests/support/TempFolder.h"

namespace {

using k4suite::IncludeField;

/// Opens what the suite's library opens, and counts how often.
class CountingLibrary final : public k4cmn::SequenceLibrary {
 public:
    explicit CountingLibrary(k4cmn::SequenceLibrary& library) : m_library(library) {}
    std::unique_ptr<CK4SequenceFile> Create() override {
        ++created;
        return m_library.Create();
    }

    int created = 0;

 private:
    k4cmn::SequenceLibrary& m_library;
};

/// Sequences on the drive A:, made of one graphic frame of 100 milliseconds and include frames.
class Duration : public testing::Test {
 protected:
    void Make(const std::string& path, std::initializer_list<std::vector<IncludeField>> includes,
              std::uint32_t dwell = 100) {
        const std::string native = files.NativePath(path);
        std::filesystem::create_directories(std::filesystem::path(native).parent_path());
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 16;
        k4suite::SequenceWriter writer(native, facts);
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, dwell, std::vector<std::uint8_t>(16)));
        for (const std::vector<IncludeField>& fields : includes)
            ASSERT_TRUE(writer.AddInclude(fields)) << writer.Problem();
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }

    std::uint64_t Of(const std::string& path, bool byPath = true) {
        const auto file = library.Create();
        EXPECT_EQ(file->Open(path, K4_OPEN_READ), 1) << file->GetPtrToErrorString();
        counting.created = 0;
        return k4cmn::SequenceDuration(*file, path, byPath).Milliseconds();
    }

    k4test::TempFolder home;
    k4suite::FolderFiles files{k4suite::DataHome(home.Path())};
    k4suite::RiffSequenceLibrary library{
        [this](const std::string& path) { return files.NativePath(path); }};
    CountingLibrary counting{library};
    k4cmn::ScopedProvider<k4cmn::FilesProvider> useFiles{files};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useLibrary{counting};
};

TEST_F(Duration, WithoutIncludesIsTheStoredRunTime) {
    Make("A:\\One.SQ4", {}, 1234);
    EXPECT_EQ(Of("A:\\One.SQ4"), 1234u);
    EXPECT_EQ(counting.created, 0);
}

TEST_F(Duration, OfAGivenObjectIsWorkedOutFromItsFrames) {
    Make("A:\\One.SQ4", {}, 1234);
    const auto file = library.Create();
    ASSERT_EQ(file->Open("A:\\One.SQ4", K4_OPEN_READ), 1);
    file->SosData()->runTime = 99;
    EXPECT_EQ(k4cmn::SequenceDuration(*file, "A:\\One.SQ4", true).Milliseconds(), 99u);
    EXPECT_EQ(k4cmn::SequenceDuration(*file, "A:\\One.SQ4", false).Milliseconds(), 1234u);
}

TEST_F(Duration, AddsWhatIsIncluded) {
    Make("A:\\In.SQ4", {}, 500);
    Make("A:\\One.SQ4", {{{1, "In.SQ4"}, {2, "A:\\In.SQ4"}}, {{1, "in.sq4"}}});
    EXPECT_EQ(Of("A:\\One.SQ4"), 1600u);
}

TEST_F(Duration, PassesOverFieldsThatAreSwitchedOff) {
    Make("A:\\In.SQ4", {}, 500);
    Make("A:\\One.SQ4", {{{0, "In.SQ4"}, {1, "In.SQ4"}}});
    EXPECT_EQ(Of("A:\\One.SQ4"), 600u);
}

TEST_F(Duration, OfWhatCannotBeOpenedIsNothing) {
    std::filesystem::create_directories(home.Path() / "drives/A/Folder.SQ4");
    home.Write("drives/A/Text.SQ4", "no sequence");
    Make("A:\\One.SQ4", {{{1, "Absent.SQ4"}, {1, "Folder.SQ4"}, {1, "Text.SQ4"}, {1, ""}}});
    EXPECT_EQ(Of("A:\\One.SQ4"), 100u);
}

TEST_F(Duration, EachPathBeginsWhereTheOneBeforeItLed) {
    // The second field of In is looked for beside Deep, where its first field led.
    Make("A:\\Deep\\Deep.SQ4", {}, 10);
    Make("A:\\Deep\\Beside.SQ4", {}, 20);
    Make("A:\\Beside.SQ4", {}, 4000);
    Make("A:\\In.SQ4", {{{1, "Deep\\Deep.SQ4"}, {1, "Beside.SQ4"}}});
    Make("A:\\One.SQ4", {{{1, "In.SQ4"}}});
    EXPECT_EQ(Of("A:\\One.SQ4"), 100u + 100 + 10 + 20);
}

TEST_F(Duration, PathsOfTheSequenceItselfBeginAtItEachTime) {
    Make("A:\\Deep\\Deep.SQ4", {}, 10);
    Make("A:\\Deep\\Beside.SQ4", {}, 20);
    Make("A:\\Beside.SQ4", {}, 4000);
    Make("A:\\One.SQ4", {{{1, "Deep\\Deep.SQ4"}, {1, "Beside.SQ4"}}});
    EXPECT_EQ(Of("A:\\One.SQ4"), 100u + 10 + 4000);
}

TEST_F(Duration, WherePathsLedIsRememberedAcrossLevels) {
    // Behind In, whose field led into Deep, the second field of Middle is looked for in Deep.
    Make("A:\\Deep\\Deep.SQ4", {}, 10);
    Make("A:\\Deep\\Last.SQ4", {}, 20);
    Make("A:\\Last.SQ4", {}, 4000);
    Make("A:\\In.SQ4", {{{1, "Deep\\Deep.SQ4"}}});
    Make("A:\\Middle.SQ4", {{{1, "In.SQ4"}, {1, "Last.SQ4"}}});
    Make("A:\\One.SQ4", {{{1, "Middle.SQ4"}}});
    EXPECT_EQ(Of("A:\\One.SQ4"), 3u * 100 + 10 + 20);
}

TEST_F(Duration, OfASequenceThatIncludesItselfIsFollowedToDepth8ThroughTheOpenObject) {
    Make("A:\\One.SQ4", {{{1, "ONE.sq4"}}});
    EXPECT_EQ(Of("A:\\One.SQ4"), 900u);
    EXPECT_EQ(counting.created, 0);
}

TEST_F(Duration, OfAnObjectThatIncludesItselfIsItsOwnAtEveryDepth) {
    Make("A:\\One.SQ4", {{{1, "One.SQ4"}}});
    const auto file = library.Create();
    ASSERT_EQ(file->Open("A:\\One.SQ4", K4_OPEN_READ), 1);
    file->SosData()->runTime = 99;
    EXPECT_EQ(k4cmn::SequenceDuration(*file, "A:\\One.SQ4", true).Milliseconds(), 9u * 99);
    EXPECT_EQ(k4cmn::SequenceDuration(*file, "A:\\One.SQ4", false).Milliseconds(), 9u * 100);
}

TEST_F(Duration, OfARingIsFollowedToDepth8) {
    Make("A:\\One.SQ4", {{{1, "Two.SQ4"}}}, 1);
    Make("A:\\Two.SQ4", {{{1, "One.SQ4"}}}, 100);
    EXPECT_EQ(Of("A:\\One.SQ4"), 5u * 1 + 4 * 100);
}

TEST_F(Duration, OfAChainIsFollowedToDepth8) {
    for (int i = 0; i < 12; ++i)
        Make("A:\\" + std::to_string(i) + ".SQ4", {{{1, std::to_string(i + 1) + ".SQ4"}}}, 1);
    EXPECT_EQ(Of("A:\\0.SQ4"), 9u);
}

TEST_F(Duration, OfIncludesThatBranchWithoutEndIsWorkedOutAtOnce) {
    const std::vector<IncludeField> itself(10, IncludeField{1, "One.SQ4"});
    Make("A:\\One.SQ4", {itself, itself}, 1);
    std::uint64_t expected = 0;
    std::uint64_t count = 1;
    for (int depth = 0; depth <= 8; ++depth, count *= 20)
        expected += count;
    EXPECT_EQ(Of("A:\\One.SQ4"), expected);
}

TEST_F(Duration, TakesTheFramesOfAnotherFileFromItsRecord) {
    Make("A:\\In.SQ4", {}, 500);
    Make("A:\\Middle.SQ4", {{{1, "In.SQ4"}}, {{1, "In.SQ4"}}});
    Make("A:\\One.SQ4", {{{1, "Middle.SQ4"}}});
    // The record of Middle now says two frames, so its third one isn't looked at.
    std::string content = home.Read("drives/A/Middle.SQ4");
    content[2612 + 34] = 2;
    home.Write("drives/A/Middle.SQ4", content);
    EXPECT_EQ(Of("A:\\One.SQ4"), 100u + 100 + 500);
}

TEST_F(Duration, LooksForNoIncludesWhereTheRecordSaysNone) {
    Make("A:\\In.SQ4", {}, 500);
    Make("A:\\One.SQ4", {{{1, "In.SQ4"}}});
    std::string content = home.Read("drives/A/One.SQ4");
    content[2612 + 36] = 0;
    home.Write("drives/A/One.SQ4", content);
    EXPECT_EQ(Of("A:\\One.SQ4"), 100u);
}

TEST_F(Duration, OfAFileThatIsNotOpenIsNothing) {
    const auto file = library.Create();
    EXPECT_EQ(k4cmn::SequenceDuration(*file, "A:\\One.SQ4", true).Milliseconds(), 0u);
}

}  // namespace
