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
    std::vector<std::string> stubs;  ///< the calls of a success, in order; none for scripts
    std::string words;               ///< where the first of them fails
    std::string reply = {};          ///< of the first stub, where a success needs one
    int connects = 1;                ///< how many times the service overload connects

    /// Makes the stubs of this operation answer so that it succeeds with 1.
    void ScriptSuccess(RecordingSSRpc& rpc) const;
    /// The name of the first stub.
    std::string FirstStub() const;
};

void PrintTo(const ClientOperation& operation, std::ostream* stream);

/// Every operation of the client that exists twice. All rows ask for the sign "Main".
const std::vector<ClientOperation>& ClientOperations();

}  // namespace k4test
