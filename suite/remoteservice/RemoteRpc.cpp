#include "suite/remoteservice/RemoteRpc.h"

#include <cstring>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include "suite/remoteservice/RemoteEngine.h"
#include "suite/signservice/ReplyText.h"

namespace k4suite {

namespace {

constexpr std::int32_t kDone = 0;
constexpr std::int32_t kFailed = 1;
/// No path of this system is longer, its zero included.
constexpr std::uint32_t kLongestPath = 4096;

/// A path whose length counts its zero; nothing if it has none there.
std::optional<std::string_view> PathOf(const char* path, std::uint32_t length) {
    if (!path || length == 0 || length > kLongestPath || ::strnlen(path, length) != length - 1)
        return std::nullopt;
    return std::string_view(path, length - 1);
}

}  // namespace

std::int32_t RemoteRpc::OnService(const char* stub, const std::function<bool()>& work) {
    try {
        {
            const std::lock_guard lock(m_mutex);
            if (m_connection != m_engine.ConnectionNumber())
                return kFailed;
        }
        return m_engine.Pass(stub) && work() ? kDone : kFailed;
    } catch (const std::exception&) {
        return kFailed;
    }
}

std::int32_t RemoteRpc::k4rsConnect(const char* system) {
    try {
        const bool isThisSystem = system && (std::strcmp(system, ".") == 0 || *system == '\0');
        if (!isThisSystem || !m_engine.Pass("k4rsConnect"))
            return kFailed;
        const std::lock_guard lock(m_mutex);
        m_connection = m_engine.ConnectionNumber();
        return kDone;
    } catch (const std::exception&) {
        return kFailed;
    }
}

std::int32_t RemoteRpc::k4rsDisconnect() {
    const std::lock_guard lock(m_mutex);
    m_connection = 0;
    return kDone;
}

std::int32_t RemoteRpc::k4rsGetChangeFlag(std::uint32_t* flag) {
    return OnService("k4rsGetChangeFlag", [&] {
        PutNumber(flag, m_engine.ChangeFlag());
        return true;
    });
}

std::int32_t RemoteRpc::k4rsListConnectedPhoneEntries(char* buffer, std::uint32_t capacity,
                                                      std::uint32_t* length) {
    return OnService("k4rsListConnectedPhoneEntries", [&] {
        std::string lines;
        for (const PhoneLink& link : m_engine.Links())
            lines += link.entry + "\n";
        PutLines(lines, buffer, capacity, length);
        return true;
    });
}

std::int32_t RemoteRpc::k4rsListServices(char* buffer, std::uint32_t capacity,
                                         std::uint32_t* length) {
    return OnService("k4rsListServices", [&] {
        std::string lines;
        for (const std::string& service : m_engine.Services())
            lines += service + "\n";
        PutLines(lines, buffer, capacity, length);
        return true;
    });
}

std::int32_t RemoteRpc::k4rsAddDownLoadEvent(const char* path, std::uint32_t length,
                                             std::uint32_t time, std::uint32_t date) {
    return OnService("k4rsAddDownLoadEvent", [&] {
        const std::optional<std::string_view> text = PathOf(path, length);
        const std::optional<DownLoadEvent> event =
            text ? DownLoadEventOf(*text, time, date) : std::nullopt;
        return event && m_engine.AddDownLoadEvent(*event);
    });
}

}  // namespace k4suite
