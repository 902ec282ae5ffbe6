#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "suite/platform/Descriptor.h"
#include "suite/sequence/HeadJournal.h"
#include "suite/sequence/SequenceCheck.h"
#include "tests/suite/sequence/FullDisk.h"
#include "tests/suite/sequence/SequenceFixture.h"

using k4suite::HeadJournal;
using k4suite::SequenceFile;
using k4suite::SequenceHead;
using k4suite::SequenceWriter;
using k4test::Bytes;
using k4test::FullDisk;
using k4test::SequenceFixture;

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

class SequenceSave : public SequenceFixture {
 protected:
    void SetUp() override {
        Make(Facts(), [](SequenceWriter& writer) {
            ASSERT_TRUE(writer.AddChunk(k4cmn::FourCharacterCode("own "), Bytes(7, 'o')));
            for (int i = 0; i < 3; ++i)
                ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 10, Bytes(16, 5)));
        });
        m_old = Content();
    }

    static void Change(SequenceFile& file) {
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
        SequenceHead head;
        std::memcpy(&head, content.data(), sizeof head);
        const HeadJournal journal = k4suite::MakeJournal(head);
        return {reinterpret_cast<const char*>(&journal), sizeof journal};
    }

    std::string m_old;
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

/// Whether someone waits for the lock of a file.
bool HasWaiter(const std::string& path) {
    struct stat facts {};
    EXPECT_EQ(stat(path.c_str(), &facts), 0);
    const std::string inode = ":" + std::to_string(facts.st_ino) + " ";
    std::ifstream locks("/proc/locks");
    EXPECT_TRUE(locks.is_open());
    for (std::string line; std::getline(locks, line);)
        if (line.find("-> FLOCK") != std::string::npos && line.find(inode) != std::string::npos)
            return true;
    return false;
}

/// Runs `use` on another thread while this one holds the file's lock, until it waits for that lock;
/// then `meanwhile`, and gives the lock back.
/// @return whether it waited.
bool WaitsForLock(const std::string& path, int kind, const std::function<void()>& use,
                  const std::function<void()>& meanwhile) {
    const k4suite::Descriptor holder(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    EXPECT_EQ(flock(holder.Get(), kind), 0);
    std::atomic<bool> isDone = false;
    std::thread user([&] {
        use();
        isDone = true;
    });
    bool waited = false;
    while (!isDone && !waited)
        waited = HasWaiter(path);
    meanwhile();
    flock(holder.Get(), LOCK_UN);
    user.join();
    return waited;
}

TEST_F(SequenceSave, ReaderWaitsForTheEndOfASaving) {
    const std::string content = SavedContent();
    // The moment in which the head is half old and half new.
    SetContent(content.substr(0, 600) + m_old.substr(600));
    std::string notes;
    EXPECT_TRUE(WaitsForLock(
        Path(), LOCK_EX, [&] { notes = Opened()->GetPtrToComments(); },
        [&] { SetContent(content); }));
    EXPECT_EQ(notes, "new notes");
}

TEST_F(SequenceSave, SavingWaitsForReadersOfTheHead) {
    EXPECT_TRUE(WaitsForLock(
        Path(), LOCK_SH, [&] { SavedContent(); }, [&] { EXPECT_EQ(Content(), m_old); }));
    ExpectNewValues();
}

}  // namespace
