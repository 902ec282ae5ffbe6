#pragma once

#include <sys/types.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>

#include "k4cmndlg/frame/contracts/NamedEvent.h"
#include "suite/platform/Descriptor.h"

namespace k4suite {

/// One party of an event in shared memory.
///
/// The memory holds one word, on which waiting parties sleep in the system (a futex), and which is
/// changed in single steps: there is no moment at which a party that dies could leave it torn or
/// locked. One that dies between a change and the waking is made up for at the end of the others'
/// waits, where they look at the word once more.
///
///     bit 0         the event is signalled
///     bits 1 to 11  moves with each Abandon(), so that no sleep is begun on an older word
///     bits 12 to 31 moves with each signal: a party that finds another number than it saw last has
///                   missed a signal that was taken away since
///
/// Every party keeps a shared lock on the memory's file, which the system takes away with its
/// process. Who finds none but itself there is the first, and makes the word new; or the last, and
/// takes the memory away. A process that is forked has part in its parent's party, and may use it;
/// it never takes the memory away.
class SharedEvent final : public k4cmn::NamedEvent {
 public:
    /// @param memoryName the name of the shared memory, with its '/' in front.
    /// @return null if the memory can't be had, or belongs to another user.
    static std::unique_ptr<SharedEvent> CreateOrOpen(const std::string& memoryName);
    ~SharedEvent() override;
    SharedEvent(const SharedEvent&) = delete;
    SharedEvent& operator=(const SharedEvent&) = delete;

    int Set() override;
    int Reset() override;
    Wait WaitFor(std::uint32_t milliseconds) override;
    void Abandon() override;

 private:
    using Word = std::atomic<std::uint32_t>;
    static_assert(sizeof(Word) == 4 && Word::is_always_lock_free);

    SharedEvent(std::string memoryName, Descriptor file, Word* word);

    static Descriptor Enter(const std::string& memoryName);
    bool IsTold(std::uint32_t word);

    std::string m_memoryName;
    Descriptor m_file;
    Word* m_word;
    const pid_t m_owner;                ///< the process that opened it
    std::atomic<std::uint32_t> m_told;  ///< which signal this party heard of last
    std::atomic<bool> m_abandoned = false;
};

}  // namespace k4suite
