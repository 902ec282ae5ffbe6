#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/clients/CK4CmnRS.h"
#include "tests/support/RecordingRSRpc.h"

namespace k4test {

/// A client whose protected operations a test may call.
class OpenedRemoteClient : public CK4CmnRS {
 public:
    using CK4CmnRS::ConnectService;
    using CK4CmnRS::DisconnectService;
};

/// One of the two operations that list, with its stub and its words.
struct RemoteListRow {
    const char* name;
    const char* stub;
    const char* words;
    int (CK4CmnRS::*list)(std::vector<std::string>&);
};

inline const RemoteListRow kRemoteLists[] = {
    {"GetConnectedPhoneEntries", "k4rsListConnectedPhoneEntries",
     "Could not get phone entries list from service.", &CK4CmnRS::GetConnectedPhoneEntries},
    {"GetRemoteServices", "k4rsListServices",
     "Could not get remote sign services list from remote service.", &CK4CmnRS::GetRemoteServices},
};

inline void PrintTo(const RemoteListRow& row, std::ostream* stream) {
    *stream << row.name;
}

/// A client over a recording remote service.
class RemoteClientTest : public ::testing::Test {
 protected:
    using Calls = std::vector<std::string>;
    using Texts = std::vector<std::string>;

    /// What a test puts into a number to see whether a read touched it.
    static constexpr std::uint32_t kUntouched = 0xABCD;
    static constexpr const char* kUnavailable = "Remote service unavailable.";
    static constexpr const char* kNoFlag = "Could not get change flag from service.";

    RecordingRSRpc m_rpc;
    k4cmn::ScopedProvider<K4rsRpc> m_provider{m_rpc};
    OpenedRemoteClient m_client;
};

}  // namespace k4test
