#include "suite/platform/SharedEvent.h"

#include <fcntl.h>
#include <linux/futex.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <ctime>
#include <utility>

namespace k4suite {

namespace {

constexpr std::uint32_t kSignalled = 1;
constexpr std::uint32_t kAbandonStep = 1U << 1;
constexpr std::uint32_t kAbandonBits = 0x7FFU << 1;
constexpr std::uint32_t kSignalShift = 12;
constexpr std::uint32_t kSignalStep = 1U << kSignalShift;
constexpr off_t kSize = 4;
/// How often the way in is tried while others come and go.
constexpr int kMostTries = 1000;

/// Which signal a word tells of.
std::uint32_t SignalOf(std::uint32_t word) {
    return word >> kSignalShift;
}

/// The number that the system knows a word of shared memory by. The futex calls take it as plain
/// memory.
std::uint32_t* Plain(std::atomic<std::uint32_t>* word) {
    return reinterpret_cast<std::uint32_t*>(word);
}

timespec After(std::uint32_t milliseconds) {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    time.tv_sec += milliseconds / 1000;
    time.tv_nsec += static_cast<long>(milliseconds % 1000) * 1'000'000;
    if (time.tv_nsec >= 1'000'000'000) {
        ++time.tv_sec;
        time.tv_nsec -= 1'000'000'000;
    }
    return time;
}

/// Sleeps while the word is as it was.
/// @return 0 or the error: EAGAIN, the word has moved; EINTR; ETIMEDOUT.
int Sleep(std::atomic<std::uint32_t>* word, std::uint32_t asItWas, const timespec& until) {
    const long result = syscall(SYS_futex, Plain(word), FUTEX_WAIT_BITSET, asItWas, &until, nullptr,
                                FUTEX_BITSET_MATCH_ANY);
    return result == 0 ? 0 : errno;
}

void WakeAll(std::atomic<std::uint32_t>* word) {
    syscall(SYS_futex, Plain(word), FUTEX_WAKE, INT_MAX, nullptr, nullptr, 0);
}

int Lock(int file, int how) {
    int result = 0;
    do
        result = flock(file, how);
    while (result != 0 && errno == EINTR);
    return result;
}

/// Takes room for the word now, as its use can't fail later.
bool TakeRoom(int file) {
    int error = 0;
    do
        error = posix_fallocate(file, 0, kSize);
    while (error == EINTR);
    return error == 0;
}

bool MakeNew(int file) {
    // Emptied first: then the word is 0 again.
    return ftruncate(file, 0) == 0 && TakeRoom(file);
}

}  // namespace

// The lock goes from "alone" to "shared" by way of none at all. Another party that comes in between
// makes the word new once more, which nobody has used yet.
Descriptor SharedEvent::Enter(const std::string& memoryName) {
    for (int tries = 0; tries < kMostTries; ++tries) {
        Descriptor file(shm_open(memoryName.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
        struct stat status {};
        if (!file || fstat(file.Get(), &status) != 0 || status.st_uid != geteuid())
            return Descriptor();
        if (Lock(file.Get(), LOCK_EX | LOCK_NB) == 0 && !MakeNew(file.Get())) {
            shm_unlink(memoryName.c_str());
            return Descriptor();
        }
        if (Lock(file.Get(), LOCK_SH) != 0 || fstat(file.Get(), &status) != 0)
            return Descriptor();
        // Its last party may have taken it away before this one had its lock, or died while it made
        // it new.
        if (status.st_nlink != 0 && status.st_size == kSize)
            return file;
    }
    return Descriptor();
}

std::unique_ptr<SharedEvent> SharedEvent::CreateOrOpen(const std::string& memoryName) {
    Descriptor file = Enter(memoryName);
    if (!file)
        return nullptr;
    void* memory = mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_SHARED, file.Get(), 0);
    if (memory == MAP_FAILED)
        return nullptr;
    return std::unique_ptr<SharedEvent>(
        new SharedEvent(memoryName, std::move(file), static_cast<Word*>(memory)));
}

SharedEvent::SharedEvent(std::string memoryName, Descriptor file, Word* word)
    : m_memoryName(std::move(memoryName)),
      m_file(std::move(file)),
      m_word(word),
      m_owner(getpid()),
      m_told(SignalOf(word->load())) {}

SharedEvent::~SharedEvent() {
    munmap(m_word, kSize);
    // The lock of a forked child is its parent's too.
    if (getpid() != m_owner)
        return;
    // Alone: nobody else is there, and who is about to come in looks whether it is still linked.
    if (Lock(m_file.Get(), LOCK_EX | LOCK_NB) == 0)
        shm_unlink(m_memoryName.c_str());
}

int SharedEvent::Set() {
    // Also where it is signalled already: a party that came after that signal hears of this one,
    // even if another one resets the event first. And who gave that one may have died before waking
    // anybody.
    std::uint32_t word = m_word->load();
    while (!m_word->compare_exchange_weak(word, (word + kSignalStep) | kSignalled)) {
    }
    WakeAll(m_word);
    return 1;
}

int SharedEvent::Reset() {
    m_told = SignalOf(m_word->fetch_and(~kSignalled));
    return 1;
}

/// Whether a word has a signal in it for this party, which then has heard of it.
bool SharedEvent::IsTold(std::uint32_t word) {
    const bool isNew = m_told.exchange(SignalOf(word)) != SignalOf(word);
    return isNew || (word & kSignalled);
}

k4cmn::NamedEvent::Wait SharedEvent::WaitFor(std::uint32_t milliseconds) {
    const timespec end = After(milliseconds);
    for (bool isOver = milliseconds == 0;;) {
        const std::uint32_t word = m_word->load();
        if (m_abandoned)
            return Wait::Abandoned;
        if (IsTold(word))
            return Wait::Signalled;
        if (isOver)
            return Wait::TimedOut;
        switch (Sleep(m_word, word, end)) {
            case 0:
            case EAGAIN:
            case EINTR:
                break;
            case ETIMEDOUT:
                isOver = true;
                break;
            default:
                return Wait::Failed;
        }
    }
}

void SharedEvent::Abandon() {
    m_abandoned = true;
    std::uint32_t word = m_word->load();
    while (!m_word->compare_exchange_weak(
        word, (word & ~kAbandonBits) | ((word + kAbandonStep) & kAbandonBits))) {
    }
    WakeAll(m_word);
}

}  // namespace k4suite
