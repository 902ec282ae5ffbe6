#include "suite/sequence/HeadJournal.h"

#include <zlib.h>

#include <chrono>
#include <cstring>
#include <span>

#include "suite/sequence/PatientLock.h"

namespace k4suite {

namespace {

constexpr char kMark[] = {'K', '4', 'S', 'Q', 'J', 'R', 'N', 'L'};

/// Saving takes as long as a disk needs to write twice. Whoever keeps the lock for longer hangs.
constexpr std::chrono::milliseconds kReadersPatience{300};
constexpr std::chrono::milliseconds kSaversPatience{2000};

template <class Record>
bool ReadRecord(ByteSource& bytes, std::uint64_t offset, Record& record) {
    return bytes.ReadAt(offset, {reinterpret_cast<std::uint8_t*>(&record), sizeof record}) ==
           sizeof record;
}

template <class Record>
bool WriteRecord(ChangeableBytes& file, std::uint64_t offset, const Record& record) {
    return file.WriteAt(offset, {reinterpret_cast<const std::uint8_t*>(&record), sizeof record}) &&
           file.Flush();
}

std::uint32_t ChecksumOf(const SequenceHead& head) {
    return static_cast<std::uint32_t>(crc32(0, reinterpret_cast<const Bytef*>(&head), sizeof head));
}

bool IsSame(const SequenceHead& one, const SequenceHead& other) {
    return std::memcmp(&one, &other, sizeof one) == 0;
}

/// Whether saving could have made one head of the other.
bool AreOfOneFile(const SequenceHead& one, SequenceHead other) {
    CopyChangeable(one, other);
    return IsSame(one, other);
}

/// The head of a whole journal at the end of the file that was made for the file's head. One that
/// is in place half old and half new still has what saving doesn't change.
std::optional<SequenceHead> ReadJournal(ByteSource& bytes, std::uint64_t size,
                                        const SequenceHead& inPlace) {
    HeadJournal journal;
    if (size < inPlace.FormEnd() + sizeof journal ||
        !ReadRecord(bytes, size - sizeof journal, journal) ||
        std::memcmp(journal.mark, kMark, sizeof kMark) != 0 ||
        journal.checksum != ChecksumOf(journal.head) || !AreOfOneFile(journal.head, inPlace))
        return {};
    return journal.head;
}

/// Writes what an earlier saving left in its journal to its place.
bool FinishEarlierSaving(ChangeableBytes& file, const SequenceHead& head, std::uint64_t& size) {
    if (!WriteRecord(file, 0, head) || !file.CutAt(size - sizeof(HeadJournal)))
        return false;
    size -= sizeof(HeadJournal);
    return true;
}

SequenceHead Changed(SequenceHead head, const HeadChanges& changes) {
    head.file.compressionLevel = changes.compressionLevel.value_or(head.file.compressionLevel);
    head.start.thumbnailFrame = changes.thumbnailFrame.value_or(head.start.thumbnailFrame);
    head.start.runTime = changes.runTime.value_or(head.start.runTime);
    if (changes.keywords)
        FillArea(*changes.keywords, head.keywords);
    if (changes.notes)
        FillArea(*changes.notes, head.notes);
    return head;
}

/// @return nothing, with words in `problem`.
std::optional<SequenceHead> Fail(std::string& problem, const std::string& words) {
    problem = words;
    return {};
}

std::string WriteFailure() {
    return "Cannot write the file: " + SystemWords() + ".";
}

/// @param size of the file, behind which the journal goes.
std::optional<SequenceHead> SaveByJournal(ChangeableBytes& file, std::uint64_t size,
                                          const SequenceHead& head, std::string& problem) {
    if (!WriteRecord(file, size, MakeJournal(head))) {
        const std::string words = WriteFailure();
        // What can't be cut off is no whole journal, or else one with the new values.
        if (!file.CutAt(size) && ReadJournal(file, file.Size(), head))
            return head;
        return Fail(problem, words);
    }
    // From here on the new values stand, in the journal if nowhere else.
    if (WriteRecord(file, 0, head))
        static_cast<void>(file.CutAt(size));
    return head;
}

}  // namespace

HeadChanges ChangesOf(const SequenceHead& wanted, const SequenceHead& former) {
    HeadChanges changes;
    if (wanted.file.compressionLevel != former.file.compressionLevel)
        changes.compressionLevel = wanted.file.compressionLevel;
    if (wanted.start.thumbnailFrame != former.start.thumbnailFrame)
        changes.thumbnailFrame = wanted.start.thumbnailFrame;
    if (wanted.start.runTime != former.start.runTime)
        changes.runTime = wanted.start.runTime;
    if (TextOfArea(wanted.keywords) != TextOfArea(former.keywords))
        changes.keywords = TextOfArea(wanted.keywords);
    if (TextOfArea(wanted.notes) != TextOfArea(former.notes))
        changes.notes = TextOfArea(wanted.notes);
    return changes;
}

void CopyChangeable(const SequenceHead& from, SequenceHead& to) {
    to.file.compressionLevel = from.file.compressionLevel;
    to.start.thumbnailFrame = from.start.thumbnailFrame;
    to.start.runTime = from.start.runTime;
    std::memcpy(to.keywords, from.keywords, sizeof to.keywords);
    std::memcpy(to.notes, from.notes, sizeof to.notes);
}

HeadJournal MakeJournal(const SequenceHead& head) {
    HeadJournal journal{};
    std::memcpy(journal.mark, kMark, sizeof kMark);
    journal.checksum = ChecksumOf(head);
    journal.head = head;
    return journal;
}

std::optional<SequenceHead> ReadCountingHead(ByteSource& bytes) {
    SequenceHead head;
    if (!ReadRecord(bytes, 0, head))
        return {};
    if (const auto journaled = ReadJournal(bytes, bytes.Size(), head))
        return journaled;
    return head;
}

std::optional<SequenceHead> ReadSharedHead(FileBytes& file) {
    constexpr int kMostRounds = 100;
    const PatientLock lock(file.Handle(), PatientLock::Kind::Shared, kReadersPatience);
    std::optional<SequenceHead> head = ReadCountingHead(file);
    // Beside one who keeps the lock, what is read twice in a row is no moment of writing.
    for (int round = 0; head && !lock.IsHeld() && round < kMostRounds; ++round) {
        const std::optional<SequenceHead> again = ReadCountingHead(file);
        if (again && IsSame(*head, *again))
            break;
        head = again;
    }
    return head;
}

std::optional<SequenceHead> SaveHead(ChangeableBytes& file, const HeadChanges& changes,
                                     std::string& problem) {
    std::uint64_t size = file.Size();
    SequenceHead inPlace;
    if (!ReadRecord(file, 0, inPlace) || FindHeadDefect(inPlace))
        return Fail(problem, "The file has changed and is no sequence any more.");
    if (size < inPlace.FormEnd())
        return Fail(problem, "The file is cut short: it ends at offset " + std::to_string(size) +
                                 " and should end at " + std::to_string(inPlace.FormEnd()) + ".");
    const std::optional<SequenceHead> journaled = ReadJournal(file, size, inPlace);
    if (journaled && !FinishEarlierSaving(file, *journaled, size))
        return Fail(problem, WriteFailure());
    const SequenceHead former = journaled.value_or(inPlace);
    const SequenceHead head = Changed(former, changes);
    return IsSame(head, former) ? head : SaveByJournal(file, size, head, problem);
}

std::optional<SequenceHead> SaveSharedHead(FileBytes& file, const HeadChanges& changes,
                                           std::string& problem) {
    const PatientLock lock(file.Handle(), PatientLock::Kind::Exclusive, kSaversPatience);
    if (!lock.IsHeld())
        return Fail(problem, "Cannot write the file: another program uses it.");
    if (!file.HasName())
        return Fail(problem, "The file was removed or replaced since it was opened.");
    return SaveHead(file, changes, problem);
}

}  // namespace k4suite
