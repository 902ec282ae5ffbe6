#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "tests/support/RecordingSSRpc.h"

namespace k4test {

/// One operation of the client that exists as a plain and as a service overload, and what it comes
/// to at the stubs.
struct ClientOperation {
    const char* name;
    std::function<int(CK4CmnSS&)> plain;
    std::function<int(CK4CmnSS&, const std::string& service)> overService;
    std::vector<std::string> stubs;    ///< the calls of a success, in order; none for scripts
    std::string words;                 ///< where the first of them fails
    RecordingSSRpc::Reply reply = {};  ///< of the first stub, each value in it another
    std::string outputs = {};  ///< what ClientOutputs() shows after a success; empty for commands
    int connects = 1;          ///< how many times the service overload connects

    /// Makes the stubs of this operation answer so that it succeeds with 1.
    void ScriptSuccess(RecordingSSRpc& rpc) const;
    /// The name of the first stub.
    std::string FirstStub() const;
};

void PrintTo(const ClientOperation& operation, std::ostream* stream);

/// Every operation of the client that exists twice. All rows ask for the sign "Main". The reads of
/// the table leave what they read in outputs that all rows share.
const std::vector<ClientOperation>& ClientOperations();

/// Makes the shared outputs as they were before any read.
void ResetClientOutputs();
/// The shared outputs that a read has changed, as "word=11 number=-5".
std::string ClientOutputs();

}  // namespace k4test
