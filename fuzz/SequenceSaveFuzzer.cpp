#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>

#include "fuzz/FuzzSequence.h"
#include "suite/sequence/HeadJournal.h"
#include "suite/sequence/MemoryBytes.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

/// A file on a disk of which some steps fail, and which lets some bytes of a failing write through.
class FailingDisk final : public k4suite::ChangeableBytes {
 public:
    /// @param failures by step, from the lowest bit on: whether it fails. Later steps work.
    FailingDisk(Bytes bytes, std::uint32_t failures, std::size_t bytesOfFailure)
        : content(std::move(bytes)), m_failures(failures), m_bytesOfFailure(bytesOfFailure) {}

    std::uint64_t Size() override { return content.size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> bytes) override {
        return k4suite::MemoryBytes(content).ReadAt(offset, bytes);
    }
    bool WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes) override {
        const bool works = Works();
        const auto through = works ? bytes : bytes.first(std::min(bytes.size(), m_bytesOfFailure));
        const auto at = static_cast<std::size_t>(offset);
        content.resize(std::max(content.size(), at + through.size()));
        std::copy(through.begin(), through.end(),
                  content.begin() + static_cast<std::ptrdiff_t>(at));
        return works;
    }
    bool Flush() override { return Works(); }
    bool CutAt(std::uint64_t size) override {
        const bool works = Works();
        if (works)
            content.resize(static_cast<std::size_t>(size));
        return works;
    }

    Bytes content;

 private:
    bool Works() {
        errno = ENOSPC;
        const bool works = m_failures % 2 == 0;
        m_failures /= 2;
        return works;
    }

    std::uint32_t m_failures;
    const std::size_t m_bytesOfFailure;
};

bool IsSame(const std::optional<k4suite::SequenceHead>& one,
            const std::optional<k4suite::SequenceHead>& other) {
    return one.has_value() == other.has_value() &&
           (!one || std::memcmp(&*one, &*other, sizeof *one) == 0);
}

k4suite::HeadChanges ChangesFrom(k4fuzz::FuzzInput& input) {
    const std::uint8_t which = input.Byte();
    k4suite::HeadChanges changes;
    if (which & 1)
        changes.compressionLevel = input.Byte();
    if (which & 2)
        changes.thumbnailFrame = input.Word();
    if (which & 4)
        changes.runTime = input.Word();
    if (which & 8)
        changes.keywords = std::string(input.Word() % k4suite::kTextArea, 'k');
    if (which & 16)
        changes.notes = std::string(input.Word() % k4suite::kTextArea, 'n');
    return changes;
}

/// Ends a file with a journal like one that an earlier saving left behind, or nearly so.
void AddJournal(k4fuzz::FuzzInput& input, Bytes& file) {
    k4suite::SequenceHead head;
    if (file.size() < sizeof head)
        return;
    std::memcpy(&head, file.data(), sizeof head);
    auto* const raw = reinterpret_cast<std::uint8_t*>(&head);
    for (int changes = input.Byte() % 4; changes > 0; --changes)
        raw[input.Word() % sizeof head] = input.Byte();
    const k4suite::HeadJournal journal = k4suite::MakeJournal(head);
    const auto* const from = reinterpret_cast<const std::uint8_t*>(&journal);
    file.insert(file.end(), from, from + sizeof journal);
}

}  // namespace

/// Saving values in any bytes, with steps that fail. The file then has what the result says, and
/// nothing but its head is touched.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    k4fuzz::FuzzInput input(data, size);
    const k4suite::HeadChanges changes = ChangesFrom(input);
    const std::uint32_t failures = input.Word();
    const std::size_t bytesOfFailure = input.Word() % 2700;
    const bool hasJournal = input.Byte() % 2 != 0;
    k4fuzz::FuzzInput ofJournal = input;
    Bytes file = k4fuzz::SequenceFrom(input);
    if (hasJournal)
        AddJournal(ofJournal, file);

    FailingDisk disk(file, failures, bytesOfFailure);
    const auto former = k4suite::ReadCountingHead(disk);
    std::string problem;
    const auto saved = k4suite::SaveHead(disk, changes, problem);
    k4fuzz::Require(saved.has_value() == problem.empty());
    k4fuzz::Require(IsSame(k4suite::ReadCountingHead(disk), saved ? saved : former));
    if (!saved && former && FindHeadDefect(*former))
        k4fuzz::Require(disk.content == file);
    if (!former)
        return 0;
    const auto end =
        static_cast<std::size_t>(std::min<std::uint64_t>(former->FormEnd(), file.size()));
    k4fuzz::Require(disk.content.size() >= end);
    if (end > sizeof(k4suite::SequenceHead))
        k4fuzz::Require(std::equal(file.begin() + sizeof(k4suite::SequenceHead),
                                   file.begin() + static_cast<std::ptrdiff_t>(end),
                                   disk.content.begin() + sizeof(k4suite::SequenceHead)));
    return 0;
}
