#pragma once

#include <cstdint>

/// The stubs of the sign service that make, test and end the connection, and list the signs.
/// The rules that all stubs keep stand at K4SSRpc.
class K4SSRpcConnection {
 public:
    virtual ~K4SSRpcConnection() = default;

    /// Connects the process to a service, in place of the connection that it may have.
    /// @param service a machine's name, "." for this one.
    /// @param a,b,c three optional texts of the transport; the library always passes null.
    virtual std::int32_t k4ssConnectSignAsUser(const char* service, const char* a, const char* b,
                                               const char* c) = 0;
    /// Drops the connection.
    virtual std::int32_t k4ssDisconnectSign() = 0;
    /// Whether the process is connected to that service: here alone a value other than 0 means yes.
    virtual std::int32_t k4ssIsServer(const char* service) = 0;
    /// Asks the connected service for a sign of life.
    virtual std::int32_t k4ssPing() = 0;
    /// The signs of the service, one name a line.
    virtual std::int32_t k4ssListSigns(char* buffer, std::uint32_t capacity,
                                       std::uint32_t* length) = 0;
};
