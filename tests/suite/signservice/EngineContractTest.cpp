#include "tests/suite/signservice/EngineRig.h"
#include "tests/support/SSRpcContract.h"

namespace {

k4test::SSRpcFixture Make() {
    auto rig = std::make_shared<k4test::EngineRig>();
    rig->rpc->k4ssDisconnectSign();
    rig->engine->SetFault("Far", k4suite::Fault::Unreachable());
    k4test::SSRpcFixture fixture;
    fixture.rpc = rig->rpc.get();
    fixture.service = ".";
    fixture.otherService = "North";
    fixture.unreachable = "Far";
    fixture.sign = "Main";
    fixture.file = "S:\\show.SQ4";
    fixture.owner = std::move(rig);
    return fixture;
}

INSTANTIATE_TEST_SUITE_P(Engine, SSRpcContract, testing::Values(&Make));

}  // namespace
