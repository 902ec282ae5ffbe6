#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "tests/support/RecordingSSRpc.h"

namespace k4test {

/// A client whose protected operations a test may call.
class OpenedClient : public CK4CmnSS {
 public:
    using CK4CmnSS::ParseTabSepBuf;
    using CK4CmnSS::Ping;
};

/// A client over a recording sign service.
class ClientTest : public ::testing::Test {
 protected:
    using Calls = std::vector<std::string>;
    using Texts = std::vector<std::string>;

    /// What a test puts into a number to see whether a read touched it.
    static constexpr std::uint32_t kUntouched = 0xABCD;

    RecordingSSRpc m_rpc;
    k4cmn::ScopedProvider<K4SSRpc> m_provider{m_rpc};
    OpenedClient m_client;
};

}  // namespace k4test
