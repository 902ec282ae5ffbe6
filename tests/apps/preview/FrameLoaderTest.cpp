#include "apps/preview/FrameLoader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "apps/preview/TimeLineReader.h"
#include "tests/apps/preview/PreviewFixture.h"

namespace {

using preview::FrameLoader;
using preview::TimeLine;
using preview::TimeLineReader;
using testing::HasSubstr;

/// A sequence of one frame of a type that nobody here knows, as another library may have it.
class OddSequence final : public CK4SequenceFile {
 public:
    tag_K4_RIFF_FILE_DATA* RiffHdr() override { return &m_header; }
    const char* GetPtrToKeywords() const override { return ""; }
    const char* GetPtrToComments() const override { return ""; }
    int SetKeywordsString(const std::string&) override { return 0; }
    int SetCommentsString(const std::string&) override { return 0; }
    const char* GetPtrToErrorString() const override { return ""; }
    void Close() override {}
    int Open(const std::string& path, K4OpenFlags) override { return path == "odd"; }
    tag_K4_SOS_FRM* SosData() override { return &m_start; }
    int FrameCount() const override { return 1; }
    CK4Frame* Frame(int) override { return &m_frame; }
    std::uint32_t CalcRunTime() override { return 0; }
    int IsPreviewOnly() const override { return 0; }
    int Save() override { return 0; }

 private:
    class OddFrame final : public CK4Frame {
     public:
        std::uint32_t Type() const override { return k4cmn::FourCharacterCode("odd "); }
    };

    tag_K4_RIFF_FILE_DATA m_header{};
    tag_K4_SOS_FRM m_start{};
    OddFrame m_frame;
};

class OddLibrary final : public k4cmn::SequenceLibrary {
 public:
    std::unique_ptr<CK4SequenceFile> Create() override { return std::make_unique<OddSequence>(); }
};

class FrameLoaderTest : public k4test::PreviewFixture {
 protected:
    static TimeLine LineOf(const std::string& path) {
        TimeLineReader reader(path);
        while (!reader.IsDone())
            reader.Read(1000);
        return reader.Line();
    }
    static std::ptrdiff_t OpenDescriptors() {
        namespace fs = std::filesystem;
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    }

    FrameLoader loader;
};

TEST_F(FrameLoaderTest, AFrameWithoutAPictureSaysSo) {
    OddLibrary library;
    const k4cmn::ScopedProvider<k4cmn::SequenceLibrary> use(library);
    const TimeLine line = LineOf("odd");
    ASSERT_EQ(line.Count(), 1u);
    EXPECT_EQ(line.Duration().count(), 0);
    EXPECT_EQ(loader.Load(line, 0).words, "Non Graphic Frame");
    EXPECT_TRUE(loader.Load(line, 0).picture.isNull());
}

TEST_F(FrameLoaderTest, AFailureWithoutWordsIsAFailure) {
    OddLibrary library;
    const k4cmn::ScopedProvider<k4cmn::SequenceLibrary> use(library);
    TimeLineReader reader("other");
    reader.Read(1);
    EXPECT_EQ(reader.Problem(), "It can't be opened.");
}

TEST_F(FrameLoaderTest, FewFilesAreKeptOpen) {
    std::vector<std::string> names;
    for (int i = 0; i < 40; ++i) {
        names.push_back(std::to_string(i) + ".SQ4");
        MakeFrames(names.back(), {10});
    }
    const TimeLine line =
        LineOf(Make("Main.SQ4", [&](auto& writer) { AddInclude(writer, names); }));
    ASSERT_EQ(line.Count(), 40u);
    const std::ptrdiff_t before = OpenDescriptors();
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < line.Count(); ++i)
            EXPECT_FALSE(loader.Load(line, i).picture.isNull());
    }
    EXPECT_LE(OpenDescriptors(), before + 8);
    loader.Forget();
    EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(FrameLoaderTest, AFileThatWentSinceIsWords) {
    const TimeLine line = LineOf(MakeFrames("Goal.SQ4", {10}));
    std::filesystem::remove(Native("Goal.SQ4"));
    EXPECT_THAT(loader.Load(line, 0).words,
                HasSubstr("Cannot show frame 1 of A:\\Goal.SQ4:\nCannot open \""));
}

TEST_F(FrameLoaderTest, AFrameThatWentSinceIsWords) {
    const TimeLine line = LineOf(MakeFrames("Goal.SQ4", {10, 20}));
    MakeFrames("Goal.SQ4", {10});
    EXPECT_FALSE(loader.Load(line, 0).picture.isNull());
    EXPECT_THAT(loader.Load(line, 1).words, HasSubstr("Cannot show frame 2 of A:\\Goal.SQ4:\n"));
}

}  // namespace
