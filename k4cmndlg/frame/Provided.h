#pragma once

#include <atomic>

namespace k4cmn {

/// The place where one contract of the library finds what stands behind it.
///
/// A contract is an abstract class. An application (or a suite, or a test) installs an object that
/// implements it, and the library asks for it at each use. With nothing installed, Current() gives
/// a null object that fails the way an absent service fails, so that the library loads and answers
/// anywhere.
///
/// Ownership: the installed object stays the installer's. It must outlive its being installed.
/// Threads: Current() may be called on any thread. Install() belongs to start and stop, when no
/// other thread is inside the object that it takes away.
///
/// Each contract declares the specialisations of Slot() and Absent() beside its class and defines
/// them in its own source file, so that a process holds one slot, whoever links the library.
template <class Contract>
class Provided {
 public:
    /// What is installed, or the null object. Never dangling while the rule above is kept.
    static Contract& Current() noexcept {
        Contract* installed = Slot().load(std::memory_order_acquire);
        return installed ? *installed : Absent();
    }

    /// Installs `provider` (null takes the present one away).
    /// @return what was installed before, or null if nothing was.
    static Contract* Install(Contract* provider) noexcept {
        return Slot().exchange(provider, std::memory_order_acq_rel);
    }

 private:
    static std::atomic<Contract*>& Slot() noexcept;
    static Contract& Absent() noexcept;
};

/// Installs a provider for the life of a scope, and gives the former one back at its end.
template <class Contract>
class ScopedProvider {
 public:
    explicit ScopedProvider(Contract& provider)
        : m_previous(Provided<Contract>::Install(&provider)) {}
    ~ScopedProvider() { Provided<Contract>::Install(m_previous); }
    ScopedProvider(const ScopedProvider&) = delete;
    ScopedProvider& operator=(const ScopedProvider&) = delete;

 private:
    Contract* m_previous;
};

}  // namespace k4cmn

/// Declares, in a contract's header and outside of any namespace, that its slot lives in a library.
#define K4_DECLARE_PROVIDED(EXPORT, Contract)                           \
    namespace k4cmn {                                                   \
    template <>                                                         \
    EXPORT std::atomic<Contract*>& Provided<Contract>::Slot() noexcept; \
    template <>                                                         \
    EXPORT Contract& Provided<Contract>::Absent() noexcept;             \
    }

/// Defines, in a contract's source file, its slot and its null object.
#define K4_DEFINE_PROVIDED(Contract, AbsentClass)                 \
    namespace k4cmn {                                             \
    template <>                                                   \
    std::atomic<Contract*>& Provided<Contract>::Slot() noexcept { \
        static constinit std::atomic<Contract*> slot{nullptr};    \
        return slot;                                              \
    }                                                             \
    template <>                                                   \
    Contract& Provided<Contract>::Absent() noexcept {             \
        static AbsentClass absent;                                \
        return absent;                                            \
    }                                                             \
    }
