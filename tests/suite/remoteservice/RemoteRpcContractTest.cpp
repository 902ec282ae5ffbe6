#include "tests/suite/remoteservice/RemoteRig.h"
#include "tests/support/RSRpcContract.h"

namespace k4test {
namespace {

RSRpcFixture Make() {
    auto rig = std::make_shared<RemoteRig>();
    rig->rpc->k4rsDisconnect();
    RSRpcFixture fixture;
    fixture.rpc = rig->rpc.get();
    fixture.bringUp = [&rig = *rig] {
        rig.BringUp("Airport");
        rig.BringUp("Harbor");
    };
    fixture.bringDown = [&rig = *rig] {
        for (const k4suite::PhoneLink& link : rig.engine->Links())
            rig.engine->HangUp(link.handle);
    };
    fixture.entries = {"Harbor", "Airport"};
    fixture.services = {"Pier", "Lighthouse", "Gate 1"};
    fixture.owner = std::move(rig);
    return fixture;
}

INSTANTIATE_TEST_SUITE_P(Engine, RSRpcContract, testing::Values(&Make));

}  // namespace
}  // namespace k4test
