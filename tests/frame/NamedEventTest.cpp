#include "k4cmndlg/frame/contracts/NamedEvent.h"

#include "tests/support/MemoryEvents.h"
#include "tests/support/NamedEventContract.h"

namespace k4test {
namespace {

TEST(NamedEvents, WithNothingInstalledNoneCanBeMade) {
    EXPECT_FALSE(k4cmn::Provided<k4cmn::NamedEvents>::Current().CreateOrOpen("Event"));
}

// What the tests of the listeners work with keeps the contract too.
std::shared_ptr<k4cmn::NamedEvents> Make() {
    return std::make_shared<MemoryEvents>();
}

INSTANTIATE_TEST_SUITE_P(Memory, NamedEventContract, testing::Values(&Make));

}  // namespace
}  // namespace k4test
