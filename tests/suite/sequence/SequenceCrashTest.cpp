#include <cerrno>
#include <random>

#include "suite/sequence/MemoryBytes.h"
#include "tests/suite/sequence/SequenceSave.h"

using k4suite::HeadChanges;
using k4suite::SequenceHead;
using k4test::SequenceSave;

namespace {

/// What a program told the disk to do.
struct DiskStep {
    enum class Kind { Write, Flush, Cut };
    Kind kind;
    std::uint64_t offset = 0;  ///< of a write; the size to cut at
    std::string bytes;
};

/// Does the first bytes of a step.
void Do(const DiskStep& step, std::size_t bytes, std::string& content) {
    if (step.kind == DiskStep::Kind::Cut)
        content.resize(step.offset);
    if (step.kind != DiskStep::Kind::Write)
        return;
    content.resize(std::max<std::size_t>(content.size(), step.offset + bytes));
    content.replace(step.offset, bytes, step.bytes, 0, bytes);
}

/// A file that keeps a record of what is done to it, and fails from a step on, if told so.
class RecordedDisk final : public k4suite::ChangeableBytes {
 public:
    explicit RecordedDisk(std::string bytes) : content(std::move(bytes)) {}

    std::uint64_t Size() override { return content.size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> bytes) override {
        return k4suite::MemoryBytes(
                   {reinterpret_cast<const std::uint8_t*>(content.data()), content.size()})
            .ReadAt(offset, bytes);
    }
    bool WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes) override {
        return Take({DiskStep::Kind::Write, offset, {bytes.begin(), bytes.end()}});
    }
    bool Flush() override { return Take({DiskStep::Kind::Flush, 0, {}}); }
    bool CutAt(std::uint64_t size) override { return Take({DiskStep::Kind::Cut, size, {}}); }

    std::string content;
    std::vector<DiskStep> steps;
    std::size_t failFrom = SIZE_MAX;   ///< the first step that fails
    std::size_t failUntil = SIZE_MAX;  ///< the first step behind that works again
    std::size_t bytesOfFailure = 0;    ///< how much of a failing write gets through

 private:
    bool Take(const DiskStep& step) {
        const bool fails = steps.size() >= failFrom && steps.size() < failUntil;
        steps.push_back(step);
        if (!fails) {
            Do(step, step.bytes.size(), content);
            return true;
        }
        if (step.kind == DiskStep::Kind::Write)
            Do(step, std::min(bytesOfFailure, step.bytes.size()), content);
        errno = ENOSPC;
        return false;
    }
};

HeadChanges ChangesNamed(const std::string& name) {
    HeadChanges changes;
    changes.keywords = name;
    changes.notes = std::string(900, name[0]);
    changes.compressionLevel = 30;
    changes.thumbnailFrame = static_cast<std::uint16_t>(name.size());
    return changes;
}

/// Machines and programs that stop while a file is saved.
class SequenceCrash : public SequenceSave {
 protected:
    /// The keywords, after making sure that the other values are those that were saved with them.
    std::string NameOfValues(const std::string& content) const {
        RecordedDisk disk(content);
        const auto head = k4suite::ReadCountingHead(disk);
        EXPECT_TRUE(head);
        const std::string name = head ? k4suite::TextOfArea(head->keywords) : "";
        if (name == "summer; sale; ") {
            SequenceHead old;
            std::memcpy(&old, m_old.data(), sizeof old);
            EXPECT_EQ(std::memcmp(&*head, &old, sizeof old), 0);
            return "old";
        }
        EXPECT_EQ(k4suite::TextOfArea(head->notes), std::string(900, name[0]));
        EXPECT_EQ(head->file.compressionLevel, 30U);
        EXPECT_EQ(head->start.thumbnailFrame, name.size());
        return name;
    }

    /// Whatever happened before, the file is saved again, and then is as if nothing had happened.
    void ExpectSavesAgain(const std::string& content, std::size_t size) const {
        RecordedDisk disk(content);
        std::string problem;
        EXPECT_TRUE(k4suite::SaveHead(disk, ChangesNamed("again"), problem)) << problem;
        EXPECT_EQ(NameOfValues(disk.content), "again");
        EXPECT_EQ(disk.content.substr(2652, size - 2652), Sound().substr(2652));
    }

    /// The file, with a few bytes behind its form's end.
    std::string Sound() const { return m_old + "behind"; }

    /// Two savings, one after the other.
    RecordedDisk TwoSavings() const {
        RecordedDisk disk(Sound());
        std::string problem;
        EXPECT_TRUE(k4suite::SaveHead(disk, ChangesNamed("first"), problem)) << problem;
        m_ofFirst = disk.steps.size();
        EXPECT_TRUE(k4suite::SaveHead(disk, ChangesNamed("second"), problem)) << problem;
        EXPECT_EQ(disk.content.size(), Sound().size());
        return disk;
    }

    /// Whether a file may have these values when so many steps are done, and one more begun.
    bool IsPossible(const std::string& name, std::size_t done) const {
        return done < m_ofFirst ? name == "old" || name == "first"
                                : name == "first" || name == "second";
    }

    mutable std::size_t m_ofFirst = 0;
};

TEST_F(SequenceCrash, SavingWritesAndFlushesTheJournalBeforeTheHead) {
    RecordedDisk disk(Sound());
    std::string problem;
    ASSERT_TRUE(k4suite::SaveHead(disk, ChangesNamed("first"), problem));
    ASSERT_EQ(disk.steps.size(), 5U);
    EXPECT_EQ(disk.steps[0].offset, Sound().size());
    EXPECT_EQ(disk.steps[0].bytes.size(), sizeof(k4suite::HeadJournal));
    EXPECT_EQ(disk.steps[1].kind, DiskStep::Kind::Flush);
    EXPECT_EQ(disk.steps[2].offset, 0U);
    EXPECT_EQ(disk.steps[2].bytes.size(), sizeof(SequenceHead));
    EXPECT_EQ(disk.steps[3].kind, DiskStep::Kind::Flush);
    EXPECT_EQ(disk.steps[4].kind, DiskStep::Kind::Cut);
    EXPECT_EQ(disk.steps[4].offset, Sound().size());
}

TEST_F(SequenceCrash, ProgramThatIsKilledAtAnyByteLeavesOldValuesOrNewOnes) {
    const RecordedDisk disk = TwoSavings();
    std::string content = Sound();
    for (std::size_t done = 0; done < disk.steps.size(); ++done) {
        const DiskStep& next = disk.steps[done];
        for (std::size_t bytes = 0; bytes <= next.bytes.size(); ++bytes) {
            std::string killed = content;
            Do(next, bytes, killed);
            ASSERT_PRED2([&](auto& name, auto at) { return IsPossible(name, at); },
                         NameOfValues(killed), done)
                << bytes;
            if (bytes % 97 == 0)
                ExpectSavesAgain(killed, Sound().size());
        }
        Do(next, next.bytes.size(), content);
    }
    EXPECT_EQ(NameOfValues(content), "second");
}

/// What a disk has when its machine stops: of the steps since the last flush some of the sectors of
/// some of them.
std::string AfterPowerLoss(const std::string& durable, const std::vector<DiskStep>& since,
                           std::mt19937& random) {
    constexpr std::size_t kSector = 512;
    std::string content = durable;
    for (const DiskStep& step : since) {
        if (random() % 4 == 0)
            continue;
        if (step.kind == DiskStep::Kind::Cut) {
            content.resize(step.offset);
            continue;
        }
        // A file may have grown without what was written there, and the other way round not.
        content.resize(std::max<std::size_t>(content.size(), step.offset + step.bytes.size()));
        for (std::size_t at = 0; at < step.bytes.size();) {
            const std::size_t sector = kSector - (step.offset + at) % kSector;
            const std::size_t count = std::min(sector, step.bytes.size() - at);
            if (random() % 2 == 0)
                content.replace(step.offset + at, count, step.bytes, at, count);
            at += count;
        }
    }
    return content;
}

TEST_F(SequenceCrash, MachineThatStopsAtAnyStepLeavesOldValuesOrNewOnes) {
    const RecordedDisk disk = TwoSavings();
    std::mt19937 random(1);
    std::string durable = Sound();
    std::string running = durable;
    std::vector<DiskStep> since;
    for (std::size_t done = 0; done < disk.steps.size(); ++done) {
        const DiskStep& step = disk.steps[done];
        Do(step, step.bytes.size(), running);
        if (step.kind == DiskStep::Kind::Flush) {
            durable = running;
            since.clear();
        } else {
            since.push_back(step);
        }
        for (int round = 0; round < 400; ++round) {
            const std::string stopped = AfterPowerLoss(durable, since, random);
            ASSERT_PRED2([&](auto& name, auto at) { return IsPossible(name, at); },
                         NameOfValues(stopped), done);
            if (round % 20 == 0)
                ExpectSavesAgain(stopped, Sound().size());
        }
    }
}

TEST_F(SequenceCrash, StepThatFailsLeavesWhatTheResultSays) {
    // One failure, or no end of them; and of a write that fails some bytes may get through.
    for (std::size_t from = 0; from < 5; ++from)
        for (const std::size_t until : {from + 1, SIZE_MAX})
            for (const std::size_t bytes : {0U, 1U, 700U, 2652U, 2663U, 2664U}) {
                SCOPED_TRACE(std::to_string(from) + " to " + std::to_string(until) + ", " +
                             std::to_string(bytes));
                RecordedDisk disk(Sound());
                disk.failFrom = from;
                disk.failUntil = until;
                disk.bytesOfFailure = bytes;
                std::string problem;
                const auto head = k4suite::SaveHead(disk, ChangesNamed("first"), problem);
                EXPECT_EQ(NameOfValues(disk.content), head ? "first" : "old");
                EXPECT_EQ(problem, head ? "" : "Cannot write the file: No space left on device.");
                ExpectSavesAgain(disk.content, Sound().size());
            }
}

TEST_F(SequenceCrash, EarlierSavingThatCantBeFinishedStaysInItsJournal) {
    const std::string saved = SavedContent();
    const std::string torn = saved.substr(0, 600) + m_old.substr(600) + JournalOf(saved);
    for (std::size_t from = 0; from < 8; ++from)
        for (const std::size_t bytes : {0U, 700U, 2652U}) {
            SCOPED_TRACE(std::to_string(from) + ", " + std::to_string(bytes));
            RecordedDisk disk(torn);
            disk.failFrom = from;
            disk.bytesOfFailure = bytes;
            std::string problem;
            const auto head = k4suite::SaveHead(disk, ChangesNamed("first"), problem);
            const auto now = k4suite::ReadCountingHead(disk);
            ASSERT_TRUE(now);
            EXPECT_EQ(k4suite::TextOfArea(now->keywords), head ? "first" : "winter; ");
            EXPECT_EQ(k4suite::TextOfArea(now->notes), head ? std::string(900, 'f') : "new notes");
        }
}

}  // namespace
