#include "k4cmndlg/filesel/PreviewEdits.h"

#include <gtest/gtest.h>

#include "k4cmndlg/filesel/properties/KeywordText.h"
#include "k4cmndlg/filestore/Characters.h"
#include "tests/suite/sequence/FullDisk.h"
#include "tests/suite/sequence/SequenceFixture.h"

namespace {

using k4cmn::PreviewEdits;

/// A sequence of three frames with keywords and notes.
class Edits : public k4test::SequenceFixture {
 protected:
    void SetUp() override { MakeGraphic(3); }

    PreviewEdits Read() const { return PreviewEdits::Of(*Opened()); }
    /// Saves, and gives what was stored.
    PreviewEdits Save(PreviewEdits edits) const {
        const auto file = Opened(K4_OPEN_READWRITE);
        EXPECT_EQ(edits.SaveTo(*file), 1) << file->GetPtrToErrorString();
        return edits;
    }
    std::uint16_t StoredFrame() const { return Opened()->SosData()->thumbnailFrame; }
    std::uint32_t StoredLevel() const { return Opened()->RiffHdr()->compressionLevel; }
};

TEST_F(Edits, OfAFileAreItsTextsItsFrameAndItsLevel) {
    auto facts = Facts();
    facts.thumbnailFrame = 3;
    facts.level = K4_COMPRESS_LOW;
    MakeGraphic(3, facts);
    const PreviewEdits edits = Read();
    EXPECT_EQ(edits.keywords, "summer; sale; ");
    EXPECT_EQ(edits.notes, "Two lines\nof notes");
    EXPECT_EQ(edits.thumbnailFrame, 3);
    EXPECT_EQ(edits.compression, 1);
    EXPECT_FALSE(edits.compressionChanged);
}

TEST_F(Edits, OfAFileWithoutAThumbnailFrameHaveTheFirstOne) {
    EXPECT_EQ(Read().thumbnailFrame, 1);
}

TEST_F(Edits, ALevelOf0IsNoneOf10IsLowAndOfAnyOtherMedium) {
    constexpr std::size_t levelOffset = 20 + 516;
    const std::pair<std::uint32_t, int> rows[] = {{0, 0}, {10, 1}, {30, 2},
                                                  {1, 2}, {20, 2}, {0xFFFFFFFF, 2}};
    for (const auto& [level, index] : rows) {
        Patch(levelOffset, 4, level);
        EXPECT_EQ(Read().compression, index) << level;
    }
}

TEST_F(Edits, AreSavedWithKeywordsInTheirForm) {
    PreviewEdits edits = Read();
    edits.keywords = "winter,snow\tice";
    edits.notes = "new";
    edits.thumbnailFrame = 2;
    EXPECT_EQ(Save(edits).keywords, "winter; snow; ice; ");
    EXPECT_STREQ(Opened()->GetPtrToKeywords(), "winter; snow; ice; ");
    EXPECT_STREQ(Opened()->GetPtrToComments(), "new");
    EXPECT_EQ(StoredFrame(), 2);
}

TEST_F(Edits, WithoutAnyTextOfKeywordsNeitherThoseNorNotesAreSaved) {
    PreviewEdits edits = Read();
    edits.keywords.clear();
    edits.notes = "new";
    edits.thumbnailFrame = 2;
    edits = Save(edits);
    EXPECT_STREQ(Opened()->GetPtrToKeywords(), "summer; sale; ");
    EXPECT_STREQ(Opened()->GetPtrToComments(), "Two lines\nof notes");
    EXPECT_EQ(StoredFrame(), 2) << "the frame is saved all the same";
    EXPECT_EQ(edits.keywords, "");
    EXPECT_EQ(edits.notes, "new");
}

TEST_F(Edits, WithDelimitersAloneNotesAreSavedAndKeywordsStay) {
    PreviewEdits edits = Read();
    edits.keywords = " ;,";
    edits.notes = "new";
    EXPECT_EQ(Save(edits).keywords, " ;,");
    EXPECT_STREQ(Opened()->GetPtrToKeywords(), "summer; sale; ");
    EXPECT_STREQ(Opened()->GetPtrToComments(), "new");
}

TEST_F(Edits, EmptyNotesAreSavedAsSuch) {
    PreviewEdits edits = Read();
    edits.notes.clear();
    Save(edits);
    EXPECT_STREQ(Opened()->GetPtrToComments(), "");
}

TEST_F(Edits, TheFirst255CharactersOfATextCount) {
    PreviewEdits edits = Read();
    edits.keywords = std::string(300, 'k');
    for (int i = 0; i < 300; ++i)
        edits.notes += "\u65e5";
    edits = Save(edits);
    EXPECT_EQ(Opened()->GetPtrToKeywords(), std::string(255, 'k') + "; ");
    EXPECT_EQ(k4cmn::CharacterCount(Opened()->GetPtrToComments()), 255u);
    EXPECT_EQ(edits.notes, Opened()->GetPtrToComments());
}

TEST_F(Edits, TheLongestTextsOfTheWidestCharactersFitTheFile) {
    for (const std::size_t letters : {1u, 2u, 3u, 84u, 127u, 254u, 255u}) {
        std::string word;
        for (std::size_t i = 0; i < letters; ++i)
            word += "\U0001F600";
        PreviewEdits edits = Read();
        edits.keywords.clear();
        while (k4cmn::CharacterCount(edits.keywords) < k4cmn::kMaxSequenceText)
            edits.keywords += word + ",";
        edits.notes = edits.keywords;
        edits = Save(edits);
        EXPECT_EQ(edits.keywords, Opened()->GetPtrToKeywords()) << letters;
        EXPECT_EQ(edits.notes, Opened()->GetPtrToComments()) << letters;
    }
}

TEST_F(Edits, ATextEndsAtA0Byte) {
    PreviewEdits edits = Read();
    edits.keywords = std::string("one two\0three", 13);
    edits.notes = std::string("four\0five", 9);
    Save(edits);
    EXPECT_STREQ(Opened()->GetPtrToKeywords(), "one; two; ");
    EXPECT_STREQ(Opened()->GetPtrToComments(), "four");
}

TEST_F(Edits, AFrameThatTheSequenceHasNotGotBecomesItsLastOne) {
    const std::pair<std::int32_t, int> rows[] = {{1, 1},     {3, 3},     {4, 3},
                                                 {70000, 3}, {65536, 3}, {0x7FFFFFFF, 3},
                                                 {0, 0},     {-1, 0},    {-0x7FFFFFFF - 1, 0}};
    for (const auto& [typed, stored] : rows) {
        PreviewEdits edits = Read();
        edits.thumbnailFrame = typed;
        EXPECT_EQ(Save(edits).thumbnailFrame, stored) << typed;
        EXPECT_EQ(StoredFrame(), stored) << typed;
    }
}

TEST_F(Edits, OfASequenceWithoutFramesHaveNoFrame) {
    MakeGraphic(0);
    PreviewEdits edits = Read();
    EXPECT_EQ(edits.thumbnailFrame, 1);
    Save(edits);
    EXPECT_EQ(StoredFrame(), 0);
}

TEST_F(Edits, ALevelIsSavedOnlyWhereItWasChanged) {
    Patch(20 + 516, 4, 20);
    PreviewEdits edits = Read();
    edits.compression = 0;
    Save(edits);
    EXPECT_EQ(StoredLevel(), 20u);
    const std::pair<int, std::uint32_t> rows[] = {{0, 0}, {1, 10}, {2, 30}, {-1, 0}, {9, 30}};
    for (const auto& [index, level] : rows) {
        edits.compression = index;
        edits.compressionChanged = true;
        Save(edits);
        EXPECT_EQ(StoredLevel(), level) << index;
    }
}

TEST_F(Edits, ThatCannotBeSavedLeaveTheFileAsItWas) {
    PreviewEdits edits = Read();
    edits.keywords = "new";
    const std::string before = Content();
    const auto file = Opened(K4_OPEN_READWRITE);
    const k4test::FullDisk disk(before.size());
    EXPECT_EQ(edits.SaveTo(*file), 0);
    EXPECT_STRNE(file->GetPtrToErrorString(), "");
    EXPECT_EQ(Content(), before);
}

TEST_F(Edits, OfAFileThatWasClosedAreNotSaved) {
    PreviewEdits edits = Read();
    k4suite::SequenceFile closed;
    EXPECT_EQ(edits.SaveTo(closed), 0);
    EXPECT_STREQ(closed.GetPtrToErrorString(), "No file is open.");
}

}  // namespace
