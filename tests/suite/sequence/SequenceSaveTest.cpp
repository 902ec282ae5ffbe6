#include <sys/stat.h>
#include <unistd.h>

#include "suite/sequence/SequenceCheck.h"
#include "tests/suite/sequence/FullDisk.h"
#include "tests/suite/sequence/SequenceSave.h"

using k4suite::HeadJournal;
using k4test::FullDisk;
using k4test::SequenceSave;

namespace {

/// Makes this process a user without special rights for the life of a scope.
class OrdinaryUser {
 public:
    OrdinaryUser() : m_former(geteuid()) {
        if (m_former == 0) {
            EXPECT_EQ(seteuid(65534), 0);
        }
    }
    ~OrdinaryUser() { EXPECT_EQ(seteuid(m_former), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
    const uid_t m_former;
};

TEST_F(SequenceSave, NewValuesAreThereAndNothingElseChanged) {
    const std::string content = SavedContent();
    ExpectNewValues();
    ASSERT_EQ(content.size(), m_old.size());
    EXPECT_EQ(content.substr(2652), m_old.substr(2652));
    for (std::size_t i = 0; i < 2652; ++i) {
        const bool mayChange = (i >= 536 && i < 540) || (i >= 548 && i < 1572) ||
                               (i >= 1580 && i < 2604) || (i >= 2644 && i < 2646);
        ASSERT_TRUE(mayChange || content[i] == m_old[i]) << i;
    }
    EXPECT_TRUE(k4suite::CheckSequence(Path()).empty());
}

TEST_F(SequenceSave, FactsOfFramesAreNotSaved) {
    const auto file = Opened(K4_OPEN_READWRITE);
    file->SosData()->rows = 100;
    file->SosData()->frameCount = 9;
    EXPECT_EQ(file->FrameCount(), 3);
    file->SosData()->runTime = 77;
    ASSERT_EQ(file->Save(), 1);
    EXPECT_EQ(Opened()->SosData()->rows, 7);
    EXPECT_EQ(Opened()->SosData()->frameCount, 3);
    EXPECT_EQ(Opened()->SosData()->runTime, 77U);
}

TEST_F(SequenceSave, ShorterTextsLeaveNothingOfTheLongerOnes) {
    auto file = Opened(K4_OPEN_READWRITE);
    ASSERT_EQ(file->SetKeywordsString(std::string(1023, 'k')), 1);
    ASSERT_EQ(file->Save(), 1);
    ASSERT_EQ(file->SetKeywordsString(""), 1);
    ASSERT_EQ(file->Save(), 1);
    EXPECT_EQ(Content().substr(548, 1024), std::string(1024, '\0'));
}

TEST_F(SequenceSave, TextsThatDontFitAreRefused) {
    const auto file = Opened(K4_OPEN_READWRITE);
    EXPECT_EQ(file->SetKeywordsString(std::string(1024, 'k')), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(), "The text is too long.");
    EXPECT_EQ(file->SetCommentsString(std::string("a\0b", 3)), 0);
    EXPECT_STREQ(file->GetPtrToKeywords(), "summer; sale; ");
}

TEST_F(SequenceSave, FileThatIsReadOnlyOpenIsNotSaved) {
    const auto file = Opened(K4_OPEN_READ);
    Change(*file);
    EXPECT_EQ(file->Save(), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(), "The file isn't open for writing.");
    EXPECT_EQ(Content(), m_old);
}

TEST_F(SequenceSave, WithoutPermissionTheFileOpensForReadingAlone) {
    ASSERT_EQ(chmod(m_folder.Path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(Path().c_str(), 0444), 0);
    const OrdinaryUser user;
    EXPECT_EQ(OpenFailure(K4_OPEN_READWRITE), "Cannot open \"" + Path() + "\": Permission denied.");
    EXPECT_NE(Opened(K4_OPEN_READ)->SosData(), nullptr);
}

TEST_F(SequenceSave, FullDiskAtEveryByteOfTheJournalLeavesTheOldValues) {
    for (std::uint64_t room = 0; room < sizeof(HeadJournal); room += room < 40 ? 1 : 97) {
        const auto file = Opened(K4_OPEN_READWRITE);
        Change(*file);
        {
            const FullDisk disk(m_old.size() + room);
            ASSERT_EQ(file->Save(), 0) << room;
        }
        ASSERT_STREQ(file->GetPtrToErrorString(), "Cannot write the file: File too large.");
        ASSERT_EQ(Content(), m_old) << room;
        ExpectOldValues();
        // With room again, the same object saves.
        if (room == 0) {
            ASSERT_EQ(file->Save(), 1);
            ExpectNewValues();
            SetContent(m_old);
        }
    }
}

TEST_F(SequenceSave, EndOfTheProgramInsideOfTheJournalLeavesTheOldValues) {
    const std::string journal = JournalOf(SavedContent());
    for (std::size_t length = 0; length < journal.size(); length += length < 40 ? 1 : 101) {
        SetContent(m_old + journal.substr(0, length));
        ExpectOldValues();
    }
    std::string damaged = journal;
    damaged[2000] ^= 1;
    SetContent(m_old + damaged);
    ExpectOldValues();
}

TEST_F(SequenceSave, EndOfTheProgramInsideOfTheHeadLeavesTheNewValues) {
    const std::string content = SavedContent();
    const std::string journal = JournalOf(content);
    for (std::size_t length = 0; length <= 2652; length += 17) {
        SetContent(content.substr(0, length) + m_old.substr(length) + journal);
        ExpectNewValues();
    }
}

TEST_F(SequenceSave, NextSavingFinishesTheEarlierOne) {
    const std::string content = SavedContent();
    SetContent(content.substr(0, 600) + m_old.substr(600) + JournalOf(content));
    const auto file = Opened(K4_OPEN_READWRITE);
    EXPECT_STREQ(file->GetPtrToKeywords(), "winter; ");
    ASSERT_EQ(file->Save(), 1);
    EXPECT_EQ(Content(), content);

    // Also where there is no room for a journal of its own.
    SetContent(content.substr(0, 600) + m_old.substr(600) + JournalOf(content));
    const auto again = Opened(K4_OPEN_READWRITE);
    ASSERT_EQ(again->SetKeywordsString("third"), 1);
    {
        const FullDisk disk(m_old.size() + 10);
        EXPECT_EQ(again->Save(), 0);
    }
    EXPECT_EQ(Content(), content);
    ExpectNewValues();
}

TEST_F(SequenceSave, BytesBehindTheEndAreKept) {
    SetContent(m_old + "behind");
    const std::string content = SavedContent();
    ExpectNewValues();
    EXPECT_EQ(content.substr(m_old.size()), "behind");
}

TEST_F(SequenceSave, FileCutShortIsNotSaved) {
    SetContent(m_old.substr(0, m_old.size() - 1));
    const auto file = Opened(K4_OPEN_READWRITE);
    Change(*file);
    EXPECT_EQ(file->Save(), 0);
    EXPECT_EQ(file->GetPtrToErrorString(),
              "The file is cut short: it ends at offset " + std::to_string(m_old.size() - 1) +
                  " and should end at " + std::to_string(m_old.size()) + ".");
    EXPECT_EQ(Content(), m_old.substr(0, m_old.size() - 1));
}

TEST_F(SequenceSave, FileThatBecameSomethingElseIsLeftAlone) {
    const auto file = Opened(K4_OPEN_READWRITE);
    Change(*file);
    SetContent(std::string(5000, 'x'));
    EXPECT_EQ(file->Save(), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(), "The file has changed and is no sequence any more.");
    EXPECT_EQ(Content(), std::string(5000, 'x'));
}

TEST_F(SequenceSave, FramesThatAnotherProgramWroteStay) {
    const auto file = Opened(K4_OPEN_READWRITE);
    Change(*file);
    std::string other = m_old;
    k4test::PutNumber(other, 2640, 4, 1234);
    k4test::PutNumber(other, 2632, 4, 1);
    SetContent(other);
    ASSERT_EQ(file->Save(), 1);
    EXPECT_EQ(Opened()->SosData()->color, 1U);
}

}  // namespace
