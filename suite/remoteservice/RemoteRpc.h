#pragma once

#include <cstdint>
#include <functional>
#include <mutex>

#include "k4cmndlg/clients/contracts/K4rsRpc.h"

namespace k4suite {

class RemoteEngine;

/// The stubs of the remote service, served by an engine in this process. The object holds the one
/// connection.
///
/// Beyond the rules of K4rsRpc: any pointer may be null; a buffer of no capacity is not touched; a
/// list has one name a line, and one that doesn't fit is cut behind a whole line; the length is the
/// bytes written, without the zero. A null path, or one that isn't as long as its length says,
/// fails, and so does a time that no day has. Threads: any.
class RemoteRpc final : public K4rsRpc {
 public:
    /// @param engine must outlive the object.
    explicit RemoteRpc(RemoteEngine& engine) : m_engine(engine) {}

    std::int32_t k4rsConnect(const char* system) override;
    /// Succeeds also with nothing connected.
    std::int32_t k4rsDisconnect() override;
    std::int32_t k4rsGetChangeFlag(std::uint32_t* flag) override;
    std::int32_t k4rsListConnectedPhoneEntries(char* buffer, std::uint32_t capacity,
                                               std::uint32_t* length) override;
    std::int32_t k4rsListServices(char* buffer, std::uint32_t capacity,
                                  std::uint32_t* length) override;
    std::int32_t k4rsAddDownLoadEvent(const char* path, std::uint32_t length, std::uint32_t time,
                                      std::uint32_t date) override;

 private:
    /// One call over the connection. @return the stub's result.
    std::int32_t OnService(const char* stub, const std::function<bool()>& work);

    RemoteEngine& m_engine;
    std::mutex m_mutex;
    std::uint32_t m_connection = 0;  ///< the number that it was made under; 0: absent
};

}  // namespace k4suite
