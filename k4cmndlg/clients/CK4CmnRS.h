#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/frame/CCriticalSection.h"
#include "k4cmndlg/frame/CObject.h"
#include "k4cmndlg/k4cmncore_export.h"

/// The client of the remote service, which keeps this system's dialled links to other machines: it
/// tells which phone book entries are connected, and which sign services can be reached through
/// them. The service is always this system's own.
///
/// Results: an int is 1 for success and 0 for failure. After a failure GetLastError() gives its
/// words: "Remote service unavailable." where connecting failed, else the words that stand with the
/// operation. After a success it gives the empty text.
///
/// The connection is the process's, not the object's: any object opens it, and the destructor of
/// any object drops it for all; the next operation connects again. An object is cheap and made for
/// one action.
///
/// Threads: any; the operations and the destructor take turns by `m_cs`. Every call blocks until
/// the service has answered.
class K4CMNCORE_EXPORT CK4CmnRS : public CObject {
 public:
    /// Serialises all threads of the process over the one connection. Not the one of CK4CmnSS.
    static CCriticalSection m_cs;

    /// Doesn't connect.
    CK4CmnRS();
    /// Drops the connection of the process.
    ~CK4CmnRS() override;

    /// The words of the last failure of this object. Reading doesn't clear them.
    std::string GetLastError();

    /// A word that moves with every change of the links. Asks over the connection as it stands, and
    /// connects and asks once more where that fails.
    /// @param flag may be null where the word isn't wanted.
    /// @param dwLockTimeout a wait for the lock, in milliseconds. It is carried and not honoured:
    /// the lock waits for as long as it takes. Where the lock couldn't be had, 0 without words.
    /// Words: "Could not get change flag from service.".
    int GetChangeFlag(std::uint32_t* flag, std::uint32_t dwLockTimeout);
    /// Adds the phone book entries that are connected behind what `entries` holds; none at all is a
    /// success. A failure leaves the list as it was.
    /// Words: "Could not get phone entries list from service.".
    int GetConnectedPhoneEntries(std::vector<std::string>& entries);
    /// Adds the names of the sign services that can be reached through links behind what `services`
    /// holds; none at all is a success. A failure leaves the list as it was.
    /// Words: "Could not get remote sign services list from remote service.".
    int GetRemoteServices(std::vector<std::string>& services);

 protected:
    /// Connects to this system's service, also where a connection stands. Takes no lock.
    /// Words: "Remote service unavailable.".
    int ConnectService();
    /// Drops the connection. Takes no lock and sets no words.
    int DisconnectService();

 private:
    template <class Body>
    int UnderLock(std::uint32_t dwLockTimeout, Body body);
    template <auto Stub, class... Arguments>
    int Told(const char* words, Arguments... arguments);
    template <auto Stub>
    int Listed(const char* words, std::vector<std::string>& list);
    int Failed(const char* words);

    std::string m_strLastError;
    std::uint32_t m_dwLockTimeout = 750;
};
