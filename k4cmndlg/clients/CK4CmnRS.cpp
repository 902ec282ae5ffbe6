#include "k4cmndlg/clients/CK4CmnRS.h"

#include <iterator>
#include <string_view>

#include "k4cmndlg/clients/ReplyBuffer.h"
#include "k4cmndlg/clients/ReplyFields.h"
#include "k4cmndlg/clients/contracts/K4rsRpc.h"

namespace {

constexpr char kThisSystem[] = ".";
constexpr std::uint32_t kListCapacity = 261;

constexpr char kNoChangeFlag[] = "Could not get change flag from service.";

}  // namespace

constinit CCriticalSection CK4CmnRS::m_cs;

CK4CmnRS::CK4CmnRS() = default;

CK4CmnRS::~CK4CmnRS() {
    const k4cmn::CriticalSectionLock lock(m_cs, m_dwLockTimeout);
    DisconnectService();
}

int CK4CmnRS::ConnectService() {
    return Told<&K4rsRpc::k4rsConnect>("Remote service unavailable.", kThisSystem);
}

int CK4CmnRS::DisconnectService() {
    try {
        return k4cmn::Provided<K4rsRpc>::Current().k4rsDisconnect() == 0 ? 1 : 0;
    } catch (...) {
        return 0;
    }
}

std::string CK4CmnRS::GetLastError() {
    try {
        const k4cmn::CriticalSectionLock lock(m_cs, m_dwLockTimeout);
        return m_strLastError;
    } catch (...) {
        return {};
    }
}

int CK4CmnRS::GetChangeFlag(std::uint32_t* flag, std::uint32_t dwLockTimeout) {
    return UnderLock(dwLockTimeout, [&] {
        const auto ask = [&] { return Told<&K4rsRpc::k4rsGetChangeFlag>(kNoChangeFlag, flag); };
        if (ask())
            return 1;
        return ConnectService() ? ask() : 0;
    });
}

int CK4CmnRS::GetConnectedPhoneEntries(std::vector<std::string>& entries) {
    return Listed<&K4rsRpc::k4rsListConnectedPhoneEntries>(
        "Could not get phone entries list from service.", entries);
}

int CK4CmnRS::GetRemoteServices(std::vector<std::string>& services) {
    return Listed<&K4rsRpc::k4rsListServices>(
        "Could not get remote sign services list from remote service.", services);
}

/// Carries `body` out under the lock: 0 without words where the lock couldn't be had.
template <class Body>
int CK4CmnRS::UnderLock(std::uint32_t dwLockTimeout, Body body) {
    try {
        const k4cmn::CriticalSectionLock lock(m_cs, dwLockTimeout);
        if (lock.IsLocked())
            return body();
        m_strLastError.clear();
    } catch (...) {
        // A lock that can't be taken at all.
    }
    return 0;
}

/// Clears the words, calls the stub, and turns its result into 1, or into 0 with the words. The
/// stub's code is dropped; an exception of it is a failure.
template <auto Stub, class... Arguments>
int CK4CmnRS::Told(const char* words, Arguments... arguments) {
    m_strLastError.clear();
    try {
        if ((k4cmn::Provided<K4rsRpc>::Current().*Stub)(arguments...) == 0)
            return 1;
    } catch (...) {
        return Failed(words);
    }
    return Failed(words);
}

/// Connects, and appends the tokens of the stub's reply to a list, all of them or none.
template <auto Stub>
int CK4CmnRS::Listed(const char* words, std::vector<std::string>& list) {
    return UnderLock(m_dwLockTimeout, [&] {
        if (!ConnectService())
            return 0;
        k4cmn::ReplyBuffer<kListCapacity> reply;
        if (!Told<Stub>(words, reply.Data(), reply.Size(), reply.Length()))
            return 0;
        try {
            std::vector<std::string> found;
            k4cmn::ReplyTokens tokens(reply.Text(), "\n\t");
            for (std::string_view token; tokens.Next(token);)
                found.emplace_back(token);
            list.insert(list.end(), std::move_iterator(found.begin()),
                        std::move_iterator(found.end()));
            return 1;
        } catch (...) {
            return Failed(words);
        }
    });
}

int CK4CmnRS::Failed(const char* words) {
    try {
        m_strLastError = words;
    } catch (...) {
        m_strLastError.clear();
    }
    return 0;
}
