#pragma once

#include <cstdint>
#include <string>

namespace k4cmn {

/// Tells which phone book entries the remote service on this system is connected to.
class ConnectedEntries {
 public:
    /// The most characters of a reply.
    static constexpr std::uint32_t kMaxReply = 1000;

    virtual ~ConnectedEntries() = default;

    /// Connects to the remote service of this system, asks it, and disconnects in any case.
    /// @param reply filled with the reply as it stands: entries between line feeds and tabs.
    /// @return 1, or 0 if the service can't be reached or doesn't answer.
    virtual int Read(std::string& reply) = 0;
};

}  // namespace k4cmn
