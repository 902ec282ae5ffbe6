#pragma once

#include <string>

#include "suite/sequence/HeadJournal.h"
#include "tests/suite/sequence/SequenceFixture.h"

namespace k4test {

/// A sequence of three frames, behind a chunk that is none, and what saving makes of it.
class SequenceSave : public SequenceFixture {
 protected:
    void SetUp() override {
        Make(Facts(), [](k4suite::SequenceWriter& writer) {
            ASSERT_TRUE(writer.AddChunk(k4cmn::FourCharacterCode("own "), Bytes(7, 'o')));
            for (int i = 0; i < 3; ++i)
                ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 10, Bytes(16, 5)));
        });
        m_old = Content();
    }

    static void Change(k4suite::SequenceFile& file) {
        ASSERT_EQ(file.SetKeywordsString("winter; "), 1);
        ASSERT_EQ(file.SetCommentsString("new notes"), 1);
        file.SosData()->thumbnailFrame = 3;
        file.RiffHdr()->compressionLevel = 30;
    }

    void ExpectNewValues() const {
        const auto file = Opened();
        EXPECT_STREQ(file->GetPtrToKeywords(), "winter; ");
        EXPECT_STREQ(file->GetPtrToComments(), "new notes");
        EXPECT_EQ(file->SosData()->thumbnailFrame, 3);
        EXPECT_EQ(file->RiffHdr()->compressionLevel, 30U);
        EXPECT_EQ(file->FrameCount(), 3);
        EXPECT_NE(file->Frame(3), nullptr);
    }

    void ExpectOldValues() const {
        const auto file = Opened();
        EXPECT_STREQ(file->GetPtrToKeywords(), "summer; sale; ");
        EXPECT_STREQ(file->GetPtrToComments(), "Two lines\nof notes");
        EXPECT_EQ(file->SosData()->thumbnailFrame, 0);
        EXPECT_EQ(file->RiffHdr()->compressionLevel, 0U);
    }

    /// The file's content after a whole saving.
    std::string SavedContent() const {
        const auto file = Opened(K4_OPEN_READWRITE);
        Change(*file);
        EXPECT_EQ(file->Save(), 1) << file->GetPtrToErrorString();
        return Content();
    }

    std::string JournalOf(const std::string& content) const {
        k4suite::SequenceHead head;
        std::memcpy(&head, content.data(), sizeof head);
        const k4suite::HeadJournal journal = k4suite::MakeJournal(head);
        return {reinterpret_cast<const char*>(&journal), sizeof journal};
    }

    std::string m_old;
};

}  // namespace k4test
