#include <sys/stat.h>

#include "tests/suite/sequence/FullDisk.h"
#include "tests/suite/sequence/SequenceFixture.h"

using k4suite::SequenceWriter;
using k4test::Bytes;
using k4test::FullDisk;
using k4test::SequenceFixture;

namespace {

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
        EXPECT_EQ(FilesInFolder(), 2U);
    }
    EXPECT_EQ(FilesInFolder(), 1U);
    EXPECT_EQ(Content(), "former");
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
    EXPECT_EQ(FilesInFolder(), 0U);
}

}  // namespace
