#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "suite/platform/Descriptor.h"
#include "suite/sequence/SequenceCheck.h"
#include "tests/suite/sequence/SequenceSave.h"

using k4suite::Descriptor;
using k4suite::SequenceFile;
using k4test::SequenceSave;

namespace {

/// A file that several objects and programs have open at a time.
class SequenceSharing : public SequenceSave {
 protected:
    /// Holds the file's lock, as another program would.
    Descriptor LockedByAnother(int kind) const {
        Descriptor holder(open(Path().c_str(), O_RDONLY | O_CLOEXEC));
        EXPECT_EQ(flock(holder.Get(), kind), 0);
        return holder;
    }

    /// How often this process has the file open.
    std::size_t Openings() const {
        std::size_t count = 0;
        std::error_code gone;
        for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
            count += std::filesystem::read_symlink(entry, gone) == m_folder / "Test.SQ4";
        return count;
    }

    /// Runs `use`, which opens the file, on another thread while this one holds the lock; when the
    /// file is open, does `meanwhile` and gives the lock back.
    void BesideALock(int kind, const std::function<void()>& use,
                     const std::function<void()>& meanwhile) const {
        const Descriptor holder = LockedByAnother(kind);
        std::thread user(use);
        while (Openings() < 2)
            std::this_thread::yield();
        meanwhile();
        flock(holder.Get(), LOCK_UN);
        user.join();
    }
};

TEST_F(SequenceSharing, ReaderWaitsForTheEndOfASaving) {
    const std::string content = SavedContent();
    // The moment in which the head is half old and half new.
    SetContent(content.substr(0, 600) + m_old.substr(600));
    std::string notes;
    BesideALock(
        LOCK_EX, [&] { notes = Opened()->GetPtrToComments(); }, [&] { SetContent(content); });
    EXPECT_EQ(notes, "new notes");
}

TEST_F(SequenceSharing, SavingWaitsForReadersOfTheHead) {
    BesideALock(
        LOCK_SH, [&] { SavedContent(); }, [&] { EXPECT_EQ(Content(), m_old); });
    ExpectNewValues();
}

TEST_F(SequenceSharing, NobodyWhoKeepsTheLockKeepsAFileFromBeingRead) {
    const Descriptor holder = LockedByAnother(LOCK_EX);
    ExpectOldValues();
    EXPECT_TRUE(k4suite::CheckSequence(Path()).empty());
}

TEST_F(SequenceSharing, SavingGivesUpWhereAnotherKeepsTheLock) {
    const auto file = Opened(K4_OPEN_READWRITE);
    Change(*file);
    {
        const Descriptor holder = LockedByAnother(LOCK_SH);
        EXPECT_EQ(file->Save(), 0);
    }
    EXPECT_STREQ(file->GetPtrToErrorString(), "Cannot write the file: another program uses it.");
    EXPECT_EQ(Content(), m_old);
    EXPECT_EQ(file->Save(), 1);
    ExpectNewValues();
}

TEST_F(SequenceSharing, ReadersBesideASaverSeeValuesThatBelongTogether) {
    std::atomic<bool> isDone = false;
    std::thread saver([&] {
        const auto file = Opened(K4_OPEN_READWRITE);
        for (int i = 0; i < 150; ++i) {
            const std::string text(static_cast<std::size_t>(1 + i * 6),
                                   static_cast<char>('a' + i % 26));
            file->SetKeywordsString(text);
            file->SetCommentsString(text);
            EXPECT_EQ(file->Save(), 1) << file->GetPtrToErrorString();
        }
        isDone = true;
    });
    int changes = 0;
    std::string former = "Two lines\nof notes";
    while (!isDone) {
        const auto file = Opened();
        const std::string notes = file->GetPtrToComments();
        if (notes == "Two lines\nof notes")
            continue;
        ASSERT_EQ(file->GetPtrToKeywords(), notes);
        changes += notes != former;
        former = notes;
    }
    saver.join();
    EXPECT_GT(changes, 0);
}

TEST_F(SequenceSharing, ValuesThatAnotherProgramAloneChangedStay) {
    const auto file = Opened(K4_OPEN_READWRITE);
    const auto other = Opened(K4_OPEN_READWRITE);
    ASSERT_EQ(other->SetKeywordsString("theirs; "), 1);
    other->RiffHdr()->compressionLevel = 10;
    ASSERT_EQ(other->Save(), 1);

    ASSERT_EQ(file->SetCommentsString("mine"), 1);
    file->SosData()->thumbnailFrame = 2;
    ASSERT_EQ(file->Save(), 1);
    const auto later = Opened();
    for (const SequenceFile* one : {file.get(), later.get()}) {
        EXPECT_STREQ(one->GetPtrToKeywords(), "theirs; ");
        EXPECT_STREQ(one->GetPtrToComments(), "mine");
    }
    EXPECT_EQ(file->RiffHdr()->compressionLevel, 10U);
    EXPECT_EQ(Opened()->RiffHdr()->compressionLevel, 10U);
    EXPECT_EQ(Opened()->SosData()->thumbnailFrame, 2);
}

TEST_F(SequenceSharing, OfTwoWhoChangeTheSameValueTheLaterOneWins) {
    const auto file = Opened(K4_OPEN_READWRITE);
    const auto other = Opened(K4_OPEN_READWRITE);
    ASSERT_EQ(other->SetKeywordsString("theirs; "), 1);
    ASSERT_EQ(other->Save(), 1);
    ASSERT_EQ(file->SetKeywordsString("mine; "), 1);
    ASSERT_EQ(file->Save(), 1);
    EXPECT_STREQ(Opened()->GetPtrToKeywords(), "mine; ");
    // A value that was saved once is no change any more.
    ASSERT_EQ(other->Save(), 1);
    EXPECT_STREQ(Opened()->GetPtrToKeywords(), "mine; ");
    EXPECT_STREQ(other->GetPtrToKeywords(), "mine; ");
}

TEST_F(SequenceSharing, ObjectThatSavedSavesAgainAndItsPointersStay) {
    const auto file = Opened(K4_OPEN_READWRITE);
    const char* keywords = file->GetPtrToKeywords();
    const char* notes = file->GetPtrToComments();
    const tag_K4_RIFF_FILE_DATA* record = file->RiffHdr();
    const tag_K4_SOS_FRM* start = file->SosData();
    Change(*file);
    ASSERT_EQ(file->Save(), 1);
    ASSERT_EQ(file->SetKeywordsString(std::string(1023, 'k')), 1);
    ASSERT_EQ(file->Save(), 1);
    EXPECT_EQ(file->GetPtrToKeywords(), keywords);
    EXPECT_EQ(keywords, std::string(1023, 'k'));
    EXPECT_EQ(file->GetPtrToComments(), notes);
    EXPECT_STREQ(notes, "new notes");
    EXPECT_EQ(file->RiffHdr(), record);
    EXPECT_EQ(record->compressionLevel, 30U);
    EXPECT_EQ(file->SosData(), start);
    EXPECT_EQ(start->thumbnailFrame, 3);
    EXPECT_EQ(Opened()->GetPtrToKeywords(), std::string(1023, 'k'));
    EXPECT_STREQ(Opened()->GetPtrToComments(), "new notes");
}

TEST_F(SequenceSharing, SavingWithoutAChangeWritesNothing) {
    const auto file = Opened(K4_OPEN_READWRITE);
    std::filesystem::last_write_time(Path(), {});
    ASSERT_EQ(file->Save(), 1);
    EXPECT_EQ(std::filesystem::last_write_time(Path()), std::filesystem::file_time_type{});
}

TEST_F(SequenceSharing, FileThatWasReplacedOrRemovedIsNotSaved) {
    const auto file = Opened(K4_OPEN_READWRITE);
    Change(*file);
    MakeGraphic(1);
    const std::string replacement = Content();
    EXPECT_EQ(file->Save(), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(),
                 "The file was removed or replaced since it was opened.");
    EXPECT_EQ(Content(), replacement);
    std::filesystem::remove(Path());
    EXPECT_EQ(file->Save(), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(),
                 "The file was removed or replaced since it was opened.");
}

TEST_F(SequenceSharing, FileThatWasGivenAnotherNameIsSavedThere) {
    const auto file = Opened(K4_OPEN_READWRITE);
    Change(*file);
    std::filesystem::rename(Path(), m_folder / "Other.SQ4");
    EXPECT_EQ(file->Save(), 1);
    std::filesystem::rename(m_folder / "Other.SQ4", Path());
    ExpectNewValues();
}

}  // namespace
