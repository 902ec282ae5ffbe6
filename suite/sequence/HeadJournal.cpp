#include "suite/sequence/HeadJournal.h"

#include <sys/file.h>
#include <unistd.h>
#include <zlib.h>

#include <cerrno>
#include <cstring>
#include <span>

namespace k4suite {

namespace {

constexpr char kMark[] = {'K', '4', 'S', 'Q', 'J', 'R', 'N', 'L'};

/// A record's bytes.
template <class Record>
std::span<std::uint8_t> BytesOf(Record& record) {
    return {reinterpret_cast<std::uint8_t*>(&record), sizeof record};
}

template <class Record>
bool ReadRecord(ByteSource& bytes, std::uint64_t offset, Record& record) {
    return bytes.ReadAt(offset, BytesOf(record)) == sizeof record;
}

std::uint32_t ChecksumOf(const SequenceHead& head) {
    return static_cast<std::uint32_t>(crc32(0, reinterpret_cast<const Bytef*>(&head), sizeof head));
}

/// Holds a lock on an open file. Where locks don't exist, there is none.
class FileLocked {
 public:
    FileLocked(int file, int kind) : m_file(file) {
        while (flock(file, kind) != 0 && errno == EINTR) {
        }
    }
    ~FileLocked() { flock(m_file, LOCK_UN); }
    FileLocked(const FileLocked&) = delete;
    FileLocked& operator=(const FileLocked&) = delete;

 private:
    int m_file;
};

template <class Record>
bool WriteRecord(int file, std::uint64_t offset, Record record) {
    std::span<const std::uint8_t> left = BytesOf(record);
    while (!left.empty()) {
        const ssize_t count = pwrite(file, left.data(), left.size(), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        left = left.subspan(static_cast<std::size_t>(count));
        offset += static_cast<std::uint64_t>(count);
    }
    return fdatasync(file) == 0;
}

bool CutOff(int file, std::uint64_t size) {
    return ftruncate(file, static_cast<off_t>(size)) == 0;
}

/// The head of a whole journal that ends at `size`.
std::optional<SequenceHead> ReadJournal(ByteSource& bytes, std::uint64_t size,
                                        std::uint64_t formEnd) {
    HeadJournal journal;
    if (size < formEnd + sizeof journal || !ReadRecord(bytes, size - sizeof journal, journal) ||
        std::memcmp(journal.mark, kMark, sizeof kMark) != 0 ||
        journal.checksum != ChecksumOf(journal.head))
        return {};
    return journal.head;
}

/// Writes what an earlier saving left in its journal to its place.
bool FinishEarlierSaving(FileBytes& file, const SequenceHead& head, std::uint64_t& size) {
    if (!WriteRecord(file.Handle(), 0, head) || !CutOff(file.Handle(), size - sizeof(HeadJournal)))
        return false;
    size -= sizeof(HeadJournal);
    return true;
}

void Apply(const HeadValues& values, SequenceHead& head) {
    head.file.compressionLevel = values.compressionLevel;
    head.start.thumbnailFrame = values.thumbnailFrame;
    head.start.runTime = values.runTime;
    FillArea(values.keywords, head.keywords);
    FillArea(values.notes, head.notes);
}

std::optional<SequenceHead> Fail(std::string& problem, const std::string& words) {
    problem = words;
    return {};
}

}  // namespace

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
    // A torn head is only ever one whose first fields are as they were: saving changes none of
    // them, so the form's end is right even then.
    if (const auto journaled = ReadJournal(bytes, bytes.Size(), head.FormEnd()))
        return journaled;
    return head;
}

std::optional<SequenceHead> ReadCountingHeadLocked(FileBytes& file) {
    const FileLocked lock(file.Handle(), LOCK_SH);
    return ReadCountingHead(file);
}

std::optional<SequenceHead> SaveHead(FileBytes& file, const HeadValues& values,
                                     std::string& problem) {
    const FileLocked lock(file.Handle(), LOCK_EX);
    std::uint64_t size = file.Size();
    std::optional<SequenceHead> head = ReadCountingHead(file);
    if (!head || FindHeadDefect(*head))
        return Fail(problem, "The file has changed and is no sequence any more.");
    if (size < head->FormEnd())
        return Fail(problem, "The file is cut short: it ends at offset " + std::to_string(size) +
                                 " and should end at " + std::to_string(head->FormEnd()) + ".");
    if (ReadJournal(file, size, head->FormEnd()) && !FinishEarlierSaving(file, *head, size))
        return Fail(problem, "Cannot write the file: " + SystemWords() + ".");
    Apply(values, *head);
    if (!WriteRecord(file.Handle(), size, MakeJournal(*head))) {
        const std::string words = "Cannot write the file: " + SystemWords() + ".";
        // What can't be cut off is no whole journal, or else one with the new values.
        if (!CutOff(file.Handle(), size) && ReadJournal(file, file.Size(), head->FormEnd()))
            return head;
        return Fail(problem, words);
    }
    // From here on the new values stand, in the journal if nowhere else.
    if (WriteRecord(file.Handle(), 0, *head))
        static_cast<void>(CutOff(file.Handle(), size));
    return head;
}

}  // namespace k4suite
