#include "suite/sequence/MemoryBytes.h"
#include "tests/suite/sequence/SequenceSave.h"

using k4test::Bytes;
using k4test::SequenceSave;

namespace {

/// Journals that stand behind a file and weren't made for it as it is.
class ForeignJournal : public SequenceSave {
 protected:
    /// Ends the file with a journal of the saved values, changed.
    void AddJournal(std::size_t offset, int width, std::uint32_t number) const {
        std::string content = SavedContent();
        SetContent(m_old);
        k4test::PutNumber(content, offset, width, number);
        SetContent(m_old + JournalOf(content));
    }
};

struct ForeignRow {
    const char* name;
    std::size_t offset;
    int width;
    std::uint32_t number;
};

class ForeignJournals : public ForeignJournal, public testing::WithParamInterface<ForeignRow> {};

TEST_P(ForeignJournals, DontCount) {
    AddJournal(GetParam().offset, GetParam().width, GetParam().number);
    const std::string content = Content();
    ExpectOldValues();
    const auto file = Opened(K4_OPEN_READWRITE);
    Change(*file);
    ASSERT_EQ(file->Save(), 1) << file->GetPtrToErrorString();
    ExpectNewValues();
    EXPECT_EQ(Content().substr(m_old.size()), content.substr(m_old.size())) << "kept as it is";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ForeignJournals,
    testing::Values(ForeignRow{"Form", 0, 1, 'r'}, ForeignRow{"FormSize", 4, 4, 2644},
                    ForeignRow{"FormType", 8, 4, 0}, ForeignRow{"FileChunkSize", 16, 4, 0xFFFFFFFF},
                    ForeignRow{"Version", 20, 4, 2}, ForeignRow{"Maker", 24, 1, 'x'},
                    ForeignRow{"NotesChunk", 1572, 1, 0}, ForeignRow{"Flags", 2612, 4, 1},
                    ForeignRow{"NoRows", 2628, 2, 0}, ForeignRow{"Columns", 2630, 2, 65535},
                    ForeignRow{"Color", 2632, 4, 11}, ForeignRow{"Pixel", 2636, 4, 1},
                    ForeignRow{"Frames", 2646, 2, 65535}, ForeignRow{"Includes", 2648, 2, 1},
                    ForeignRow{"Rest", 2650, 2, 1}),
    [](const auto& row) { return row.param.name; });

TEST_F(ForeignJournal, OfAnotherSequenceBehindThisOneDoesntCount) {
    const std::string journal = JournalOf(SavedContent());
    MakeGraphic(5);
    const std::string other = Content();
    SetContent(other + m_old + journal);
    EXPECT_STREQ(Opened()->GetPtrToKeywords(), "summer; sale; ");
    EXPECT_EQ(Opened()->FrameCount(), 5);
}

TEST_F(ForeignJournal, ThatIsNotTheFilesEndDoesntCount) {
    SetContent(m_old + JournalOf(SavedContent()) + "x");
    ExpectOldValues();
}

TEST_F(ForeignJournal, InsideOfTheFormIsAChunkLikeAnyOther) {
    const std::string journal = JournalOf(SavedContent());
    Make(Facts(), [&](k4suite::SequenceWriter& writer) {
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(16)));
        ASSERT_TRUE(writer.AddChunk(k4cmn::FourCharacterCode("own "),
                                    Bytes(journal.begin(), journal.end())));
    });
    EXPECT_STREQ(Opened()->GetPtrToKeywords(), "summer; sale; ");
}

TEST_F(ForeignJournal, TextsWithoutAnEndAreCutOffAtTheirArea) {
    std::string content = SavedContent();
    std::fill_n(content.begin() + 548, 1024, 'k');
    std::fill_n(content.begin() + 1580, 1024, 'n');
    SetContent(m_old + JournalOf(content));
    EXPECT_EQ(Opened()->GetPtrToKeywords(), std::string(1023, 'k'));
    EXPECT_EQ(Opened()->GetPtrToComments(), std::string(1023, 'n'));
}

}  // namespace
