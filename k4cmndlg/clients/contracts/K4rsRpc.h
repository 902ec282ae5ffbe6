#pragma once

#include <cstdint>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

/// The stubs that carry calls to the remote service, which keeps this system's dialled links to
/// other machines.
///
/// The rules that all of them keep:
/// - The result is 0 for success and any other value for failure.
/// - The process has one connection, and no stub takes a handle.
/// - Text goes in zero-terminated. Text comes out in a buffer that the caller owns: the stub gets
///   the buffer, its capacity in bytes, and a word for the length that it reports. It writes no
///   byte beyond the capacity and ends the text with a zero.
/// - Numbers come out through pointers, any of which may be null.
/// - A stub blocks until the service has answered.
///
/// The service sets the named event kRemoteNotificationEvent (frame/contracts/NamedEvent.h) each
/// time a link has come up or gone down; it never resets it.
///
/// Threads: any, also several at once: an implementation guards itself.
class K4CMNCORE_EXPORT K4rsRpc {
 public:
    virtual ~K4rsRpc();

    /// Connects the process to the remote service, also where it is connected already.
    /// @param system whose service: "." or the empty text for this one, the only one there is.
    virtual std::int32_t k4rsConnect(const char* system) = 0;
    /// Drops the connection.
    virtual std::int32_t k4rsDisconnect() = 0;
    /// A word that moves each time a link has come up or gone down.
    virtual std::int32_t k4rsGetChangeFlag(std::uint32_t* flag) = 0;
    /// The phone book entries whose links are up, separated by newlines or tabs.
    virtual std::int32_t k4rsListConnectedPhoneEntries(char* buffer, std::uint32_t capacity,
                                                       std::uint32_t* length) = 0;
    /// The names of the sign services that can be reached through those links, separated likewise.
    virtual std::int32_t k4rsListServices(char* buffer, std::uint32_t capacity,
                                          std::uint32_t* length) = 0;
    /// Has a download file carried out once, at a local time of this system. The file is read then,
    /// not now.
    /// @param path   of the file, zero-terminated.
    /// @param length bytes of the path with its terminating zero.
    /// @param time   the hour (0 to 23) shifted left by 6 bits, or the minute (0 to 59).
    /// @param date   the year in full shifted left by 9 bits, or the month (1 to 12) shifted left
    ///               by 5, or the day (1 to 31).
    virtual std::int32_t k4rsAddDownLoadEvent(const char* path, std::uint32_t length,
                                              std::uint32_t time, std::uint32_t date) = 0;
};

/// The name of the event by which the remote service tells of changes.
inline constexpr char kRemoteNotificationEvent[] = "K4RemoteNotificationEvent";

/// With nothing installed nothing connects, and every other stub fails.
K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, K4rsRpc)
