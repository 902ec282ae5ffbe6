#include "k4cmndlg/clients/CK4CmnSS.h"

#include <algorithm>

#include "k4cmndlg/clients/CK4CmnSSFrame.h"
#include "k4cmndlg/clients/ReplyFields.h"

namespace {

constexpr std::uint32_t kSignListCapacity = 512;
// The longest reply whose fields are walked; room for it is made once, not in each operation.
constexpr std::size_t kParseRoom = 1024;

/// Whether a service name means this machine.
bool IsThisMachine(std::string_view service) {
    constexpr std::string_view local = "local";
    const auto equal = [](char byte, char lower) {
        return byte == lower || (byte >= 'A' && byte <= 'Z' && byte - 'A' + 'a' == lower);
    };
    return service.empty() ||
           std::equal(service.begin(), service.end(), local.begin(), local.end(), equal);
}

/// A yes or no of the stubs, where an exception is a no.
template <class Question>
int Answer(Question question) {
    try {
        return question(k4cmn::Provided<K4SSRpc>::Current()) ? 1 : 0;
    } catch (...) {
        return 0;
    }
}

}  // namespace

constinit CCriticalSection CK4CmnSS::m_cs;

CK4CmnSS::CK4CmnSS() {
    m_strParseBuf.reserve(kParseRoom);
}

CK4CmnSS::~CK4CmnSS() {
    const k4cmn::CriticalSectionLock lock(m_cs, m_dwLockTimeout);
    DisconnectService();
}

int CK4CmnSS::ConnectService(std::string service, const char* a, const char* b, const char* c) {
    m_strLastError.clear();
    if (IsThisMachine(service))
        service = ".";
    if (IsConnected(service))
        return 1;
    return Told<&K4SSRpc::k4ssConnectSignAsUser>(kServiceUnavailable, service.c_str(), a, b, c);
}

int CK4CmnSS::DisconnectService() {
    return Answer([](K4SSRpc& rpc) { return rpc.k4ssDisconnectSign() == 0; });
}

int CK4CmnSS::IsConnected(const std::string& service) {
    return Answer([&](K4SSRpc& rpc) { return rpc.k4ssIsServer(service.c_str()) != 0; }) && Ping();
}

int CK4CmnSS::Ping() {
    return Answer([](K4SSRpc& rpc) { return rpc.k4ssPing() == 0; });
}

int CK4CmnSS::GetSignList(std::vector<std::string>& signs) {
    const auto append = [&](std::string_view reply) {
        k4cmn::ReplyTokens names(reply, "\n\t");
        for (std::string_view name; names.Next(name);)
            signs.emplace_back(name);
        return 1;
    };
    return Replied<&K4SSRpc::k4ssListSigns, kSignListCapacity>(
        "Could not get sign list from service.", append);
}

int CK4CmnSS::GetSignList(const std::string& service, std::vector<std::string>& signs) {
    return OverService(service, [&] { return GetSignList(signs); });
}

std::string CK4CmnSS::GetLastError() {
    try {
        const k4cmn::CriticalSectionLock lock(m_cs, m_dwLockTimeout);
        return m_strLastError;
    } catch (...) {
        return {};
    }
}

int CK4CmnSS::ParseTabSepBuf(std::string& field, std::string_view buffer) {
    return Bordered("", [&] {
        m_strLastError.clear();
        if (!buffer.empty())
            m_strParseBuf = buffer;
        const auto store = [&field](std::string_view taken) { field = taken; };
        return k4cmn::TakeField(m_strParseBuf, store) ? 1 : 0;
    });
}

int CK4CmnSS::Failed(const char* words) {
    try {
        m_strLastError = words;
    } catch (...) {
        m_strLastError.clear();
    }
    return 0;
}
