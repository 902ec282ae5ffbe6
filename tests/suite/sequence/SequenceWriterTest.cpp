#include <sys/stat.h>

#include "suite/sequence/SequenceCheck.h"
#include "suite/store/UnfinishedCopy.h"
#include "tests/suite/sequence/FlushedFiles.h"
#include "tests/suite/sequence/FullDisk.h"
#include "tests/suite/sequence/NamedFilesOnly.h"
#include "tests/suite/sequence/SequenceFixture.h"

using k4suite::SequenceWriter;
using k4test::Bytes;
using k4test::FlushedFiles;
using k4test::FullDisk;
using k4test::NamedFilesOnly;
using k4test::SequenceFixture;

namespace {

ino_t InodeOf(const std::string& path) {
    struct stat facts {};
    EXPECT_EQ(stat(path.c_str(), &facts), 0);
    return facts.st_ino;
}

class SequenceMaking : public SequenceFixture {
 protected:
    std::size_t FilesInFolder() const {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry :
             std::filesystem::directory_iterator(m_folder.Path()))
            ++count;
        return count;
    }
};

TEST_F(SequenceMaking, UnfinishedFileGoesAndLeavesTheFormerOne) {
    SetContent("former");
    {
        SequenceWriter writer(Path(), Facts());
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(16)));
        EXPECT_EQ(FilesInFolder(), 1U) << "it has no name, so that nothing can be left behind";
    }
    EXPECT_EQ(FilesInFolder(), 1U);
    EXPECT_EQ(Content(), "former");
}

TEST_F(SequenceMaking, UnfinishedFileHasANameWhereItMustHaveOneAndGoesTheSame) {
    const NamedFilesOnly named;
    SetContent("former");
    {
        SequenceWriter writer(Path(), Facts());
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(16)));
        EXPECT_EQ(FilesInFolder(), 2U);
    }
    EXPECT_EQ(FilesInFolder(), 1U);
    EXPECT_EQ(Content(), "former");
    MakeGraphic(1);
    EXPECT_EQ(FilesInFolder(), 1U);
    EXPECT_EQ(Opened()->FrameCount(), 1);
}

TEST_F(SequenceMaking, FileThatCantTakeItsPlaceLeavesNothing) {
    std::filesystem::create_directory(Path());
    {
        SequenceWriter writer(Path(), Facts());
        EXPECT_FALSE(writer.Finish());
        EXPECT_EQ(writer.Problem(), "Cannot make \"" + Path() + "\": Is a directory.");
    }
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(SequenceMaking, FinishedFileReplacesTheFormerOneForEveryoneWhoMayReadNewFiles) {
    SetContent("former");
    MakeGraphic(1);
    EXPECT_EQ(FilesInFolder(), 1U);
    struct stat facts {};
    ASSERT_EQ(stat(Path().c_str(), &facts), 0);
    const mode_t mask = umask(0);
    umask(mask);
    EXPECT_EQ(facts.st_mode & 0777, 0666 & ~mask);
}

TEST_F(SequenceMaking, FileHasThePermissionsThatTheMaskLeaves) {
    const mode_t former = umask(027);
    MakeGraphic(1);
    EXPECT_EQ(umask(former), 027U);
    struct stat facts {};
    ASSERT_EQ(stat(Path().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0640U);
}

TEST_F(SequenceMaking, LongestNameOfAFileIsMade) {
    const std::string path = (m_folder / (std::string(251, 'n') + ".SQ4")).string();
    SequenceWriter writer(path, Facts());
    ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(16))) << writer.Problem();
    ASSERT_TRUE(writer.Finish()) << writer.Problem();
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(SequenceMaking, UnfinishedFileHasANameThatTheStoreDoesntList) {
    const NamedFilesOnly named;
    SequenceWriter writer(Path(), Facts());
    for (const auto& entry : std::filesystem::directory_iterator(m_folder.Path()))
        EXPECT_EQ(entry.path().filename().string().rfind(k4suite::kUnfinishedCopy, 0), 0U);
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(SequenceMaking, UnfinishedFileOfAnotherWriterIsLeftAlone) {
    SequenceWriter one(Path(), Facts());
    SequenceWriter other(Path(), Facts());
    ASSERT_TRUE(one.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(16)));
    ASSERT_TRUE(other.Finish()) << other.Problem();
    EXPECT_EQ(Opened()->FrameCount(), 0);
    ASSERT_TRUE(one.Finish()) << one.Problem();
    EXPECT_EQ(Opened()->FrameCount(), 1);
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(SequenceMaking, FolderIsFlushedBehindTheFile) {
    const FlushedFiles flushed;
    MakeGraphic(1);
    ASSERT_EQ(flushed.Inodes().size(), 2U);
    EXPECT_EQ(flushed.Inodes()[0], InodeOf(Path()));
    EXPECT_EQ(flushed.Inodes()[1], InodeOf(m_folder.Path().string()));
}

TEST_F(SequenceMaking, ChunksThatAreFramesCountAsSuch) {
    Make(Facts(), [](SequenceWriter& writer) {
        Bytes graphic(52 + 16);
        graphic[0] = 70;
        ASSERT_TRUE(writer.AddChunk(k4cmn::kTextFrame, graphic));
        ASSERT_TRUE(writer.AddChunk(k4cmn::kIncludeFrame, Bytes(4)));
        ASSERT_TRUE(writer.AddChunk(k4cmn::FourCharacterCode("own "), Bytes(4)));
    });
    const auto file = Opened();
    EXPECT_EQ(file->FrameCount(), 2);
    EXPECT_EQ(file->SosData()->includeCount, 1);
    EXPECT_EQ(file->SosData()->runTime, 70U);
    EXPECT_TRUE(k4suite::CheckSequence(Path()).empty());
}

TEST_F(SequenceMaking, FullDiskLeavesTheFormerFile) {
    SetContent("former");
    {
        const FullDisk disk(4000);
        SequenceWriter writer(Path(), Facts());
        for (int i = 0; i < 200; ++i)
            writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(16));
        EXPECT_FALSE(writer.Finish());
        EXPECT_EQ(writer.Problem(), "Cannot write \"" + Path() + "\": File too large.");
    }
    EXPECT_EQ(FilesInFolder(), 1U);
    EXPECT_EQ(Content(), "former");
}

TEST_F(SequenceMaking, FolderThatIsNotThereIsTold) {
    const std::string path = (m_folder / "none/Test.SQ4").string();
    SequenceWriter writer(path, Facts());
    EXPECT_FALSE(writer.Finish());
    EXPECT_EQ(writer.Problem(), "Cannot make \"" + path + "\": No such file or directory.");
}

struct BadUse {
    const char* name;
    void (*use)(SequenceWriter&);
    const char* words;
};

class BadMaking : public SequenceMaking, public testing::WithParamInterface<BadUse> {};

TEST_P(BadMaking, IsToldAndMakesNothing) {
    {
        SequenceWriter writer(Path(), Facts());
        GetParam().use(writer);
        EXPECT_EQ(writer.Problem(), GetParam().words);
        EXPECT_FALSE(writer.Finish());
    }
    EXPECT_EQ(FilesInFolder(), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BadMaking,
    testing::Values(
        BadUse{"Size",
               [](SequenceWriter& writer) {
                   EXPECT_FALSE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(15)));
               },
               "The bulb data has 15 bytes where the sign needs 16."},
        BadUse{"Type",
               [](SequenceWriter& writer) {
                   EXPECT_FALSE(writer.AddGraphic(k4cmn::kIncludeFrame, 1, Bytes(16)));
               },
               "The type isn't a graphic frame's."},
        BadUse{"IncludePath",
               [](SequenceWriter& writer) {
                   const k4suite::IncludeField field[] = {{1, std::string(65536, 'p')}};
                   EXPECT_FALSE(writer.AddInclude(field));
               },
               "A path of the include frame is too long."},
        BadUse{"NoType", [](SequenceWriter& writer) { EXPECT_FALSE(writer.AddChunk(0, Bytes(4))); },
               "A chunk needs a type."},
        BadUse{
            "Include",
            [](SequenceWriter& writer) {
                const std::vector<k4suite::IncludeField> fields(17, {1, std::string(65535, 'p')});
                EXPECT_FALSE(writer.AddInclude(fields));
            },
            "The include frame is too long."},
        BadUse{"Frames",
               [](SequenceWriter& writer) {
                   for (int i = 0; i < 65535; ++i)
                       ASSERT_TRUE(writer.AddChunk(k4cmn::kGraphicFrame, {}));
                   EXPECT_FALSE(writer.AddChunk(k4cmn::kGraphicFrame, {}));
               },
               "A sequence can't have more than 65535 frames."}),
    [](const auto& row) { return row.param.name; });

TEST_F(SequenceMaking, FactsThatCantBeAreTold) {
    k4suite::SequenceFacts facts = Facts();
    facts.rows = 0;
    EXPECT_EQ(SequenceWriter(Path(), facts).Problem(),
              "A sign of 0 rows and 16 columns has no lamps.");
    facts = Facts();
    facts.maker = std::string(512, 'm');
    EXPECT_EQ(SequenceWriter(Path(), facts).Problem(), "A text is too long.");
    facts = Facts();
    facts.notes = std::string(1024, 'n');
    EXPECT_EQ(SequenceWriter(Path(), facts).Problem(), "A text is too long.");
    EXPECT_EQ(SequenceWriter(Path() + std::string("\0x", 2), Facts()).Problem(),
              "A path can't have a 0 byte.");
    EXPECT_EQ(FilesInFolder(), 0U);
}

}  // namespace
